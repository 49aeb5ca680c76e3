#include "NoflyZoneStore.h"

#include "CLmDataBase.h"
#include "CloudLog.h"
#include "LmNoflyZoneSchema.h"
#include "NoflyZoneSeeder.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>

using namespace LmNoflyZoneSchema;

namespace {

const QStringList kNumericFields{"elevation", "level",   "enable",        "type",    "num_runway",
                                 "revision_num", "user_id", "open_altitude", "csv_id", "status"};

QString Now()
{
    return QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString FieldList(const QStringList& fields)
{
    return QLatin1Char('"') + fields.join(QStringLiteral("\",\"")) + QLatin1Char('"');
}

QJsonArray Rows(CLmDataBase& db, const QString& sql, const QVariantList& values, const QStringList& fields)
{
    QSqlQuery query(db.Database());
    QJsonArray rows;
    if (!db.Exec(sql, values, &query))
        return rows;
    while (query.next()) {
        QJsonObject row;
        for (int column = 0; column < fields.size(); ++column)
            row.insert(fields.at(column), QJsonValue::fromVariant(query.value(column)));
        rows.append(row);
    }
    return rows;
}

bool Upsert(CLmDataBase& db, const char* table, const QStringList& fields, const char* key, const QJsonArray& rows)
{
    if (!db.Database().transaction())
        return false;
    // Prepared once: the seeding writes thousands of rows at every first start.
    QSqlQuery upsert(db.Database());
    bool ok = upsert.prepare(UpsertSql(table, fields, key));
    for (auto row = rows.begin(); ok && row != rows.end(); ++row) {
        const QJsonObject record = row->toObject();
        for (int column = 0; column < fields.size(); ++column)
            upsert.bindValue(column, record.value(fields.at(column)).toVariant());
        ok = upsert.exec();
    }
    if (!ok) {
        qCWarning(lcSkyCloud) << "no-fly-zone upsert failed:" << upsert.lastError().text();
        db.Database().rollback();
        return false;
    }
    upsert.finish();
    return db.Database().commit();
}

// Form values are text; the numeric columns get numbers.
QJsonObject Typed(const QJsonObject& fields, const QStringList& known)
{
    QJsonObject typed;
    for (auto it = fields.begin(); it != fields.end(); ++it) {
        if (!known.contains(it.key()))
            continue;
        bool isNumber = false;
        const double number = it.value().toVariant().toString().toDouble(&isNumber);
        typed.insert(it.key(), kNumericFields.contains(it.key()) && isNumber ? QJsonValue(number) : it.value());
    }
    return typed;
}

QJsonObject Merged(QJsonObject base, const QJsonObject& changes)
{
    for (auto it = changes.begin(); it != changes.end(); ++it)
        base.insert(it.key(), it.value());
    return base;
}

}  // namespace

NoflyZoneStore::NoflyZoneStore(const QString& dataDir)
    : m_dataDir(dataDir)
{
}

bool NoflyZoneStore::Open(QString* error)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    QDir().mkpath(FilesDir());
    CLmDataBase zones(ZoneDatabasePath());
    CLmDataBase lifts(LiftDatabasePath());
    const bool ok = zones.Open() && CreateTables(zones) && lifts.Open() && CreateTables(lifts)
                    && (zones.SelectValue(QStringLiteral("SELECT count(*) FROM %1").arg(QLatin1String(ZoneTable))).toInt() > 0
                        || Seed(zones, lifts));
    if (!ok)
        *error = QStringLiteral("cannot open the no-fly-zone store: ") + zones.LastError() + lifts.LastError();
    return ok;
}

bool NoflyZoneStore::Seed(CLmDataBase& zones, CLmDataBase& lifts)
{
    const QJsonArray seeded = NoflyZoneSeeder::Zones();
    qCInfo(lcSkyCloud) << "seeding" << seeded.size() << "no-fly zones";
    return Upsert(zones, ZoneTable, ZoneFields(), ZoneKey, seeded)
           && Upsert(lifts, LiftTable, LiftFields(), LiftKey, NoflyZoneSeeder::DemoLifts(seeded));
}

QString NoflyZoneStore::ZoneFileName()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(ZoneDatabasePath());
    QSqlQuery stamp(db.Database());
    if (!db.Open(true)
        || !db.Exec(QStringLiteral("SELECT max(updated_at), count(*) FROM %1").arg(QLatin1String(ZoneTable)), {},
                    &stamp)
        || !stamp.next())
        return {};
    const QString digits = stamp.value(0).toString().remove(QRegularExpression(QStringLiteral("[^0-9]")));
    const QString name = QStringLiteral("NoflyZone-%1-%2.db").arg(digits).arg(stamp.value(1).toLongLong());
    stamp.finish();
    const QString path = FilesDir() + QLatin1Char('/') + name;
    if (QFileInfo::exists(path))
        return name;
    // A new zone set replaces the files of older ones.
    for (const QString& old : QDir(FilesDir()).entryList({QStringLiteral("*.db")}, QDir::Files))
        QFile::remove(FilesDir() + QLatin1Char('/') + old);
    if (!db.Exec(QStringLiteral("VACUUM INTO ?"), {path}))
        return {};
    return name;
}

QString NoflyZoneStore::ZoneFilePath(const QString& name)
{
    static const QRegularExpression kZoneFileName(QStringLiteral("^NoflyZone-[0-9]+-[0-9]+\\.db$"));
    std::lock_guard<std::mutex> lock(m_mutex);
    const QString path = FilesDir() + QLatin1Char('/') + name;
    return kZoneFileName.match(name).hasMatch() && QFileInfo::exists(path) ? path : QString();
}

QJsonArray NoflyZoneStore::ZonesSince(const QString& updatedAt)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(ZoneDatabasePath());
    if (!db.Open(true))
        return {};
    return Rows(db,
                QStringLiteral("SELECT %1 FROM %2 WHERE updated_at >= ? ORDER BY updated_at")
                    .arg(FieldList(ZoneFields()), QLatin1String(ZoneTable)),
                {updatedAt}, ZoneFields());
}

QJsonArray NoflyZoneStore::LiftsOf(qint64 accountId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(LiftDatabasePath());
    if (!db.Open(true))
        return {};
    return Rows(db,
                QStringLiteral("SELECT %1 FROM %2 WHERE user_id = ? ORDER BY id")
                    .arg(FieldList(LiftFields()), QLatin1String(LiftTable)),
                {accountId}, LiftFields());
}

int NoflyZoneStore::LiftCount(qint64 accountId)
{
    return LiftsOf(accountId).size();
}

std::optional<QJsonObject> NoflyZoneStore::SaveZone(const QJsonObject& fields, QString* error)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(ZoneDatabasePath());
    const QString localId = fields.value(QLatin1String(ZoneKey)).toString();
    if (localId.isEmpty() || !db.Open()) {
        *error = localId.isEmpty() ? QStringLiteral("Missing local_id") : db.LastError();
        return std::nullopt;
    }
    const std::optional<QJsonObject> existing = ZoneByLocalId(db, localId);
    QJsonObject zone = Merged(existing.value_or(QJsonObject{}), Typed(fields, ZoneFields()));
    if (!existing && (zone.value(QStringLiteral("name")).toString().isEmpty()
                      || zone.value(QStringLiteral("area")).toString().isEmpty())) {
        *error = QStringLiteral("A new zone needs a name and an area");
        return std::nullopt;
    }
    const QString now = Now();
    zone.insert(QStringLiteral("updated_at"), now);
    zone.insert(QStringLiteral("revision_num"), zone.value(QStringLiteral("revision_num")).toInt() + 1);
    if (!existing) {
        zone.insert(QStringLiteral("created_at"), now);
        zone.insert(QStringLiteral("effective_date"), now);
        zone.insert(QStringLiteral("enable"), zone.value(QStringLiteral("enable")).toInt(1));
    }
    if (!Upsert(db, ZoneTable, ZoneFields(), ZoneKey, {zone})) {
        *error = db.LastError();
        return std::nullopt;
    }
    return ZoneByLocalId(db, localId);
}

std::optional<QJsonObject> NoflyZoneStore::SaveLift(qint64 accountId, const QJsonObject& fields, QString* error)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    QJsonObject lift = Typed(fields, LiftFields());
    lift.insert(QStringLiteral("user_id"), accountId);
    if (lift.value(QLatin1String(LiftKey)).toString().isEmpty())
        lift.insert(QLatin1String(LiftKey), QStringLiteral("LIFT-%1").arg(QDateTime::currentMSecsSinceEpoch()));
    if (!lift.contains(QStringLiteral("status")))
        lift.insert(QStringLiteral("status"), 1);
    if (!lift.contains(QStringLiteral("begin_at")))
        lift.insert(QStringLiteral("begin_at"), Now());
    if (lift.value(QStringLiteral("area")).toString().isEmpty()) {
        CLmDataBase zones(ZoneDatabasePath());
        const QString firstZone = lift.value(QStringLiteral("local_ids")).toString().section(QLatin1Char(','), 0, 0);
        const std::optional<QJsonObject> zone = zones.Open(true) ? ZoneByLocalId(zones, firstZone) : std::nullopt;
        if (!zone) {
            *error = QStringLiteral("A lift needs an area or the local_ids of a zone");
            return std::nullopt;
        }
        lift.insert(QStringLiteral("area"), zone->value(QStringLiteral("area")));
    }
    CLmDataBase db(LiftDatabasePath());
    if (!db.Open() || !Upsert(db, LiftTable, LiftFields(), LiftKey, {lift})) {
        *error = db.LastError();
        return std::nullopt;
    }
    return lift;
}

std::optional<QJsonObject> NoflyZoneStore::ZoneByLocalId(CLmDataBase& db, const QString& localId)
{
    const QJsonArray rows = Rows(db,
                                 QStringLiteral("SELECT %1 FROM %2 WHERE local_id = ?")
                                     .arg(FieldList(ZoneFields()), QLatin1String(ZoneTable)),
                                 {localId}, ZoneFields());
    return rows.isEmpty() ? std::nullopt : std::optional<QJsonObject>(rows.first().toObject());
}

QString NoflyZoneStore::ZoneDatabasePath() const
{
    return m_dataDir + QStringLiteral("/noflyzones.db");
}

QString NoflyZoneStore::LiftDatabasePath() const
{
    return m_dataDir + QStringLiteral("/noflyzone-lifts.db");
}

QString NoflyZoneStore::FilesDir() const
{
    return m_dataDir + QStringLiteral("/noflyzone-files");
}
