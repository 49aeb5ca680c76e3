#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

// The aircraft's status lists read into the texts the plane status page
// shows. Lists arrive as decimal texts in fixed positions: a list shorter
// than its minimum is ignored, a field that is not a number reads as 0.
namespace LmPlaneStatusLists {

// The fixed-wing list (twelve fields, see CLmUasProvide::tolva_status).
struct SFixwing {
    QString serialNumber;
    QString firmwareVersion;
    QString mileage;
    QString motorStarts;
    QString openUmbrellaTimes;
    QString sorties;
    QString steeringGearActions;
    QString lastFlight;
    QString highestAltitude;
    int parachuteOpenCount = 0;
};

// One entry of the hardware list: its name and the version shown for it.
struct SHardware {
    QString name;
    QString version;
};

// The multirotor list (twenty-one fields, see
// CLmUasProvide::multirotor_tolva_status).
struct SMultirotor {
    QString mileage;
    QString flights;
    QString serialNumber;
    QString firmwareVersion;
    QString flightTime;
    QString bootCount;
    QList<SHardware> hardware;
    // The battery version in lower-case hexadecimal, without "0x".
    QString batteryVersion;
};

constexpr int FixwingFields = 12;
constexpr int MultirotorFields = 21;

std::optional<SFixwing> ReadFixwing(const QStringList& status);
std::optional<SMultirotor> ReadMultirotor(const QStringList& status);

// The decimal number of a field, 0 when it is none.
int Number(const QString& field);
// What a page shows for an aircraft that went away: count fields of "N/A".
QStringList NotAvailable(int count);
// The text of a failure code the crew must see, empty for the others.
QString FailureText(int code);
// The connection state for the aircraft's key status text.
QString ConnectionText(const QString& keyStatus);

}  // namespace LmPlaneStatusLists
