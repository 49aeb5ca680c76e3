#include "CLmFlightUploadState.h"

#include "CLmDataBase.h"
#include "CLmProjectSchema.h"
#include "LmProjectConstants.h"
#include "LmProjectDbOperatorLog.h"

#include <QDateTime>
#include <QSqlQuery>
#include <QSqlRecord>

namespace {

QJsonObject RowObject(const QSqlRecord& record)
{
    QJsonObject row;
    for (int i = 0; i < record.count(); ++i)
        row.insert(record.fieldName(i), QJsonValue::fromVariant(record.value(i)));
    return row;
}

bool HasFlightTables(const CLmDataBase& db)
{
    return db.TableExists(QLatin1String(FlightMissionTableName)) && db.TableExists(QLatin1String(FlightLogTableName));
}

// SQL for the mark of the mission "m" of the enclosing query.
QString MarkExpression(const CLmDataBase& db)
{
    if (!db.TableExists(QLatin1String(CLmFlightUploadState::TableName)))
        return QStringLiteral("0");
    return QStringLiteral("COALESCE((SELECT u.uploaded_log_id FROM %1 u WHERE u.flight_mission_id = m.id), 0)")
        .arg(QLatin1String(CLmFlightUploadState::TableName));
}

qint64 MarkOf(CLmDataBase& db, qint64 missionId)
{
    if (!db.TableExists(QLatin1String(CLmFlightUploadState::TableName)))
        return 0;
    return db
        .SelectValue(QStringLiteral("SELECT uploaded_log_id FROM %1 WHERE flight_mission_id = ?")
                         .arg(QLatin1String(CLmFlightUploadState::TableName)),
                     {missionId})
        .toLongLong();
}

}  // namespace

QList<CLmFlightUploadState::SMission> CLmFlightUploadState::PendingMissions(const QString& filePath)
{
    QList<SMission> missions;
    CLmDataBase db(filePath);
    if (!db.OpenForeign(CLmProjectSchema::MissionTables()) || !HasFlightTables(db))
        return missions;
    QSqlQuery rows(db.Database());
    const QString sql = QStringLiteral("SELECT m.* FROM %1 m WHERE EXISTS (SELECT 1 FROM %2 l"
                                       " WHERE l.flight_mission_id = m.id AND l.id > %3) ORDER BY m.id")
                            .arg(QLatin1String(FlightMissionTableName), QLatin1String(FlightLogTableName),
                                 MarkExpression(db));
    if (!db.Exec(sql, {}, &rows)) {
        qCWarning(lcFlightData) << "cannot read the missions of" << filePath << db.LastError();
        return missions;
    }
    while (rows.next()) {
        const QJsonObject mission = RowObject(rows.record());
        missions.append({filePath, rows.value(QStringLiteral("id")).toLongLong(),
                         rows.value(QStringLiteral("project_id")).toString(),
                         rows.value(QStringLiteral("flight_task_id")).toString(), mission});
    }
    return missions;
}

CLmFlightUploadState::SBatch CLmFlightUploadState::NextBatch(const QString& filePath, qint64 missionId, int maxRows)
{
    SBatch batch;
    CLmDataBase db(filePath);
    if (!db.OpenForeign(CLmProjectSchema::MissionTables()) || !HasFlightTables(db))
        return batch;
    QSqlQuery rows(db.Database());
    const QString sql = QStringLiteral("SELECT * FROM %1 WHERE flight_mission_id = ? AND id > ? ORDER BY id LIMIT ?")
                            .arg(QLatin1String(FlightLogTableName));
    const QVariantList values{missionId, MarkOf(db, missionId), maxRows};
    if (!db.Exec(sql, values, &rows)) {
        qCWarning(lcFlightData) << "cannot read the flight log of mission" << missionId << "in" << filePath
                                << db.LastError();
        return batch;
    }
    while (rows.next()) {
        batch.jRows.append(RowObject(rows.record()));
        batch.iLastLogID = rows.value(QStringLiteral("id")).toLongLong();
    }
    return batch;
}

bool CLmFlightUploadState::MarkUploaded(const QString& filePath, qint64 missionId, qint64 lastLogId)
{
    CLmDataBase db(filePath);
    const QString table = QLatin1String(TableName);
    const bool ok =
        db.OpenForeign({}, CLmDataBase::EForeignAccess::PrivateCopy)
        && db.Exec(QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (flight_mission_id INTEGER PRIMARY KEY,"
                                  " uploaded_log_id INTEGER NOT NULL, uploaded_at TEXT NOT NULL)")
                       .arg(table))
        && db.Exec(QStringLiteral("INSERT INTO %1 (flight_mission_id, uploaded_log_id, uploaded_at) VALUES (?, ?, ?)"
                                  " ON CONFLICT(flight_mission_id) DO UPDATE SET"
                                  " uploaded_log_id = max(uploaded_log_id, excluded.uploaded_log_id),"
                                  " uploaded_at = excluded.uploaded_at")
                       .arg(table),
                   {missionId, lastLogId,
                    QDateTime::currentDateTimeUtc().toString(QLatin1String(DateTimeSFormat))});
    if (!ok)
        qCWarning(lcFlightData) << "cannot mark mission" << missionId << "uploaded in" << filePath << db.LastError();
    return ok;
}
