#include "FlightStore.h"

#include "CLmDataBase.h"
#include "LmProjectConstants.h"

#include <QDateTime>
#include <QDir>
#include <QJsonDocument>
#include <QSqlQuery>

namespace {

QString CompactJson(const QJsonDocument& document)
{
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

qint64 LogCount(CLmDataBase& db, qint64 accountId, const QString& projectId, qint64 missionId)
{
    return db
        .SelectValue(QStringLiteral("SELECT count(*) FROM flight_logs"
                                    " WHERE account_id = ? AND project_id = ? AND flight_mission_id = ?"),
                     {accountId, projectId, missionId})
        .toLongLong();
}

}  // namespace

FlightStore::FlightStore(const QString& dataDir)
    : m_dataDir(dataDir)
{
}

bool FlightStore::Open(QString* error)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    QDir().mkpath(m_dataDir);
    CLmDataBase db(DatabasePath());
    const bool ok =
        db.Open()
        && db.Exec(QStringLiteral("CREATE TABLE IF NOT EXISTS flight_missions ("
                                  " account_id INTEGER NOT NULL, project_id TEXT NOT NULL,"
                                  " flight_mission_id INTEGER NOT NULL, flight_task_id TEXT NOT NULL,"
                                  " mission TEXT NOT NULL, uploaded_at TEXT NOT NULL,"
                                  " PRIMARY KEY (account_id, project_id, flight_mission_id))"))
        && db.Exec(QStringLiteral("CREATE INDEX IF NOT EXISTS idx_flight_missions_task"
                                  " ON flight_missions(account_id, flight_task_id)"))
        && db.Exec(QStringLiteral("CREATE TABLE IF NOT EXISTS flight_logs ("
                                  " account_id INTEGER NOT NULL, project_id TEXT NOT NULL,"
                                  " flight_mission_id INTEGER NOT NULL, log_id INTEGER NOT NULL, row TEXT NOT NULL,"
                                  " PRIMARY KEY (account_id, project_id, flight_mission_id, log_id))"));
    if (!ok)
        *error = QStringLiteral("cannot open the flight data store: ") + db.LastError();
    return ok;
}

std::optional<QJsonObject> FlightStore::Upload(qint64 accountId, const MissionUpload& upload)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(DatabasePath());
    if (!db.Open() || !db.Database().transaction())
        return std::nullopt;
    const qint64 before = LogCount(db, accountId, upload.projectId, upload.missionId);
    bool ok = db.Exec(QStringLiteral("INSERT INTO flight_missions (account_id, project_id, flight_mission_id,"
                                     " flight_task_id, mission, uploaded_at) VALUES (?, ?, ?, COALESCE(?, ''), ?, ?)"
                                     " ON CONFLICT (account_id, project_id, flight_mission_id) DO UPDATE SET"
                                     " flight_task_id = excluded.flight_task_id, mission = excluded.mission,"
                                     " uploaded_at = excluded.uploaded_at"),
                      {accountId, upload.projectId, upload.missionId, upload.taskId,
                       CompactJson(QJsonDocument(upload.mission)),
                       QDateTime::currentDateTimeUtc().toString(QLatin1String(DateTimeSFormat))});
    qint64 lastLogId = 0;
    for (const QJsonValue& value : upload.rows) {
        const QJsonObject row = value.toObject();
        const qint64 logId = row.value(QStringLiteral("id")).toVariant().toLongLong();
        lastLogId = std::max(lastLogId, logId);
        ok = ok
             && db.Exec(QStringLiteral("INSERT OR IGNORE INTO flight_logs (account_id, project_id, flight_mission_id,"
                                       " log_id, row) VALUES (?, ?, ?, ?, ?)"),
                        {accountId, upload.projectId, upload.missionId, logId, CompactJson(QJsonDocument(row))});
    }
    const qint64 stored = LogCount(db, accountId, upload.projectId, upload.missionId) - before;
    if (!ok || !db.Database().commit()) {
        db.Database().rollback();
        return std::nullopt;
    }
    return QJsonObject{{"project_id", upload.projectId},
                       {"flight_mission_id", upload.missionId},
                       {"received", upload.rows.size()},
                       {"stored", stored},
                       {"last_log_id", lastLogId}};
}

QJsonArray FlightStore::MissionsOfTask(qint64 accountId, const QString& taskId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(DatabasePath());
    QSqlQuery rows(db.Database());
    QJsonArray missions;
    if (!db.Open(true)
        || !db.Exec(QStringLiteral("SELECT m.project_id, m.flight_mission_id, m.flight_task_id, m.mission,"
                                   " m.uploaded_at, (SELECT count(*) FROM flight_logs l WHERE"
                                   " l.account_id = m.account_id AND l.project_id = m.project_id"
                                   " AND l.flight_mission_id = m.flight_mission_id)"
                                   " FROM flight_missions m WHERE m.account_id = ? AND m.flight_task_id = ?"
                                   " ORDER BY m.project_id, m.flight_mission_id"),
                    {accountId, taskId}, &rows))
        return missions;
    while (rows.next()) {
        QJsonObject mission = QJsonDocument::fromJson(rows.value(3).toString().toUtf8()).object();
        mission.insert(QStringLiteral("project_id"), rows.value(0).toString());
        mission.insert(QStringLiteral("id"), rows.value(1).toLongLong());
        mission.insert(QStringLiteral("flight_task_id"), rows.value(2).toString());
        mission.insert(QStringLiteral("uploaded_at"), rows.value(4).toString());
        mission.insert(QStringLiteral("log_count"), rows.value(5).toLongLong());
        missions.append(mission);
    }
    return missions;
}

std::optional<QJsonArray> FlightStore::FlightLog(qint64 accountId, const QString& projectId, qint64 missionId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(DatabasePath());
    if (!db.Open(true)
        || !db.SelectValue(QStringLiteral("SELECT 1 FROM flight_missions"
                                          " WHERE account_id = ? AND project_id = ? AND flight_mission_id = ?"),
                           {accountId, projectId, missionId})
                .isValid())
        return std::nullopt;
    QSqlQuery rows(db.Database());
    QJsonArray log;
    db.Exec(QStringLiteral("SELECT row FROM flight_logs WHERE account_id = ? AND project_id = ?"
                           " AND flight_mission_id = ? ORDER BY log_id"),
            {accountId, projectId, missionId}, &rows);
    while (rows.next())
        log.append(QJsonDocument::fromJson(rows.value(0).toString().toUtf8()).object());
    return log;
}

QString FlightStore::DatabasePath() const
{
    return m_dataDir + QStringLiteral("/flights.db");
}
