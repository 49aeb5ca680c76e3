#include "LmPlaneStatusLists.h"

#include <QCoreApplication>

namespace LmPlaneStatusLists {

namespace {

const QString kNotAvailable = QStringLiteral("N/A");

QString Tr(const char* text)
{
    return QCoreApplication::translate("LmPlaneStatusLists", text);
}

// A value with its unit appended directly ("12km"); a field blanked for a
// lost aircraft stays "N/A".
QString WithUnit(const QString& field, const QString& unit)
{
    return field == kNotAvailable ? field : field + unit;
}

QList<SHardware> HardwareList(const QStringList& status)
{
    static const char* const kNames[] = {
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "GPS Hardware"),
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "BMS "),
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "Magnetometer 1 Hardware"),
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "Magnetometer 2 Hardware"),
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "Cloud Terrace Hardware"),
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "ESC 1 Hardware"),
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "ESC 2 Hardware"),
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "ESC 3 Hardware"),
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "ESC 4 Hardware"),
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "Ultrasonic Hardware"),
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "Vision Hardware"),
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "CPLD"),
        QT_TRANSLATE_NOOP("LmPlaneStatusLists", "FPGA"),
    };
    // The versions follow the six counters, in the order of the names.
    constexpr int kFirstVersion = 6;
    QList<SHardware> hardware;
    int field = kFirstVersion;
    for (const char* name : kNames)
        hardware.append(SHardware{Tr(name), status.at(field++)});
    return hardware;
}

}  // namespace

std::optional<SFixwing> ReadFixwing(const QStringList& status)
{
    if (status.size() < FixwingFields)
        return std::nullopt;
    SFixwing texts;
    texts.serialNumber = status.at(0);
    texts.firmwareVersion = status.at(1);
    texts.mileage = WithUnit(status.at(5), QStringLiteral("km"));
    texts.motorStarts = WithUnit(status.at(6), Tr("times"));
    texts.openUmbrellaTimes = WithUnit(status.at(7), Tr("times"));
    texts.sorties = WithUnit(status.at(8), Tr("Sorties"));
    texts.steeringGearActions = WithUnit(status.at(9), Tr("times"));
    texts.lastFlight = status.at(10);
    texts.highestAltitude = status.at(11);
    texts.parachuteOpenCount = Number(status.at(7));
    return texts;
}

std::optional<SMultirotor> ReadMultirotor(const QStringList& status)
{
    if (status.size() < MultirotorFields)
        return std::nullopt;
    SMultirotor texts;
    texts.mileage = WithUnit(status.at(0), QStringLiteral("km"));
    texts.flights = WithUnit(status.at(1), Tr("Sorties"));
    texts.serialNumber = status.at(2);
    texts.firmwareVersion = status.at(3);
    texts.flightTime = status.at(4);
    texts.bootCount = status.at(5);
    texts.hardware = HardwareList(status);
    texts.batteryVersion = QString::number(Number(status.at(19)), 16);
    texts.hardware.append(SHardware{Tr("Batter version"), QStringLiteral("0x") + texts.batteryVersion});
    return texts;
}

int Number(const QString& field)
{
    return field.toInt();
}

QStringList NotAvailable(int count)
{
    QStringList fields;
    for (int i = 0; i < count; ++i)
        fields << kNotAvailable;
    return fields;
}

QString FailureText(int code)
{
    switch (code) {
    case 7: return Tr("Battery self-check failure");
    case 45: return Tr("Power is too low");
    case 46: return Tr("Ultra low power");
    default: return {};
    }
}

QString ConnectionText(const QString& keyStatus)
{
    if (keyStatus.contains(QLatin1String("Welcome")) || keyStatus.contains(QLatin1String("Trial key")))
        return Tr("Connected");
    return keyStatus;
}

}  // namespace LmPlaneStatusLists
