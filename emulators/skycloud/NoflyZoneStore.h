#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <mutex>
#include <optional>

class CLmDataBase;

// The no-fly zones the service hands out and the lifts it granted: zones in
// <data>/noflyzones.db (the very tables of the hub's zone database, so a
// snapshot of it is the zone file), lifts in <data>/noflyzone-lifts.db, and
// the zone file of the current zone set in <data>/noflyzone-files/. Seeded
// with the zone set of the city table when new. Calls are serialised by one
// mutex and open their own connections.
class NoflyZoneStore
{
public:
    explicit NoflyZoneStore(const QString& dataDir);

    bool Open(QString* error);

    // The name of the zone file of the current zone set, written when it is
    // missing; empty when it cannot be written.
    QString ZoneFileName();
    // The path of a zone file this store wrote, or empty for any other name.
    QString ZoneFilePath(const QString& name);

    // Zones changed at or after updatedAt, oldest first: times count whole
    // seconds, so the zones of the hub's newest second come again rather
    // than a zone changed later in that second being missed.
    QJsonArray ZonesSince(const QString& updatedAt);
    QJsonArray LiftsOf(qint64 accountId);
    int LiftCount(qint64 accountId);

    // Adds a zone or changes the given fields of the one with its
    // "local_id", stamping it with the current time; a new zone needs a
    // name and an area. Returns the stored zone, or nothing with the reason.
    std::optional<QJsonObject> SaveZone(const QJsonObject& fields, QString* error);
    // Adds or replaces a lift for the account; a lift without an area takes
    // the area of its first zone.
    std::optional<QJsonObject> SaveLift(qint64 accountId, const QJsonObject& fields, QString* error);

private:
    QString ZoneDatabasePath() const;
    QString LiftDatabasePath() const;
    QString FilesDir() const;
    bool Seed(CLmDataBase& zones, CLmDataBase& lifts);
    std::optional<QJsonObject> ZoneByLocalId(CLmDataBase& db, const QString& localId);

    QString m_dataDir;
    std::mutex m_mutex;
};
