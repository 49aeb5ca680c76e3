#include "FlightStore.h"

#include "CLmDataBase.h"
#include "LmProjectConstants.h"

#include <QDateTime>
#include <QDir>
#include <QJsonDocument>
#include <QSqlQuery>
#include <QStringList>

namespace {

QString CompactJson(const QJsonDocument& document)
{
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

qint64 RowId(const QJsonObject& row)
{
    return row.value(QStringLiteral("id")).toVariant().toLongLong();
}

qint64 HighestRowId(const QJsonArray& rows)
{
    qint64 highest = 0;
    for (const QJsonValue& row : rows)
        highest = std::max(highest, RowId(row.toObject()));
    return highest;
}

// SQL for the number of rows of the mission "m" of the enclosing query.
QString RowCountOfMission(const char* table)
{
    return QStringLiteral("(SELECT count(*) FROM %1 r WHERE r.account_id = m.account_id"
                          " AND r.project_id = m.project_id AND r.flight_mission_id = m.flight_mission_id)")
        .arg(QLatin1String(table));
}

}  // namespace

const FlightStore::RowTable FlightStore::LogTable{"flight_logs", "log_id"};
const FlightStore::RowTable FlightStore::PositionTable{"flight_positions", "pos_id"};

FlightStore::FlightStore(const QString& dataDir)
    : m_dataDir(dataDir)
{
}

bool FlightStore::Open(QString* error)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    QDir().mkpath(m_dataDir);
    CLmDataBase db(DatabasePath());
    bool ok = db.Open()
              && db.Exec(QStringLiteral("CREATE TABLE IF NOT EXISTS flight_missions ("
                                        " account_id INTEGER NOT NULL, project_id TEXT NOT NULL,"
                                        " flight_mission_id INTEGER NOT NULL, flight_task_id TEXT NOT NULL,"
                                        " mission TEXT NOT NULL, uploaded_at TEXT NOT NULL,"
                                        " PRIMARY KEY (account_id, project_id, flight_mission_id))"))
              && db.Exec(QStringLiteral("CREATE INDEX IF NOT EXISTS idx_flight_missions_task"
                                        " ON flight_missions(account_id, flight_task_id)"));
    for (const RowTable& table : {LogTable, PositionTable}) {
        ok = ok
             && db.Exec(QStringLiteral("CREATE TABLE IF NOT EXISTS %1 ("
                                       " account_id INTEGER NOT NULL, project_id TEXT NOT NULL,"
                                       " flight_mission_id INTEGER NOT NULL, %2 INTEGER NOT NULL, row TEXT NOT NULL,"
                                       " PRIMARY KEY (account_id, project_id, flight_mission_id, %2))")
                            .arg(QLatin1String(table.name), QLatin1String(table.idColumn)));
    }
    if (!ok)
        *error = QStringLiteral("cannot open the flight data store: ") + db.LastError();
    return ok;
}

std::optional<QList<QJsonObject>> FlightStore::Upload(qint64 accountId, const QList<MissionUpload>& uploads)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(DatabasePath());
    if (!db.Open() || !db.Database().transaction())
        return std::nullopt;
    QList<QJsonObject> receipts;
    for (const MissionUpload& upload : uploads) {
        const std::optional<QJsonObject> receipt = StoreMission(db, accountId, upload);
        if (!receipt)
            break;
        receipts.append(*receipt);
    }
    if (receipts.size() != uploads.size() || !db.Database().commit()) {
        db.Database().rollback();
        return std::nullopt;
    }
    return receipts;
}

std::optional<QJsonObject> FlightStore::StoreMission(CLmDataBase& db, qint64 accountId, const MissionUpload& upload)
{
    const qint64 before = RowCount(db, LogTable, accountId, upload.projectId, upload.missionId);
    const bool ok =
        db.Exec(QStringLiteral("INSERT INTO flight_missions (account_id, project_id, flight_mission_id,"
                               " flight_task_id, mission, uploaded_at) VALUES (?, ?, ?, COALESCE(?, ''), ?, ?)"
                               " ON CONFLICT (account_id, project_id, flight_mission_id) DO UPDATE SET"
                               " flight_task_id = excluded.flight_task_id, mission = excluded.mission,"
                               " uploaded_at = excluded.uploaded_at"),
                {accountId, upload.projectId, upload.missionId, upload.taskId,
                 CompactJson(QJsonDocument(upload.mission)),
                 QDateTime::currentDateTimeUtc().toString(QLatin1String(DateTimeSFormat))})
        && InsertRows(db, LogTable, accountId, upload, upload.rows)
        && InsertRows(db, PositionTable, accountId, upload, upload.positions);
    if (!ok)
        return std::nullopt;
    return QJsonObject{{"project_id", upload.projectId},
                       {"flight_mission_id", upload.missionId},
                       {"received", upload.rows.size()},
                       {"stored", RowCount(db, LogTable, accountId, upload.projectId, upload.missionId) - before},
                       {"last_log_id", HighestRowId(upload.rows)}};
}

bool FlightStore::InsertRows(CLmDataBase& db, const RowTable& table, qint64 accountId, const MissionUpload& upload,
                             const QJsonArray& rows)
{
    const QString sql = QStringLiteral("INSERT OR IGNORE INTO %1 (account_id, project_id, flight_mission_id, %2, row)"
                                       " VALUES (?, ?, ?, ?, ?)")
                            .arg(QLatin1String(table.name), QLatin1String(table.idColumn));
    for (const QJsonValue& value : rows) {
        QJsonObject row = value.toObject();
        // A row belongs to the mission it was sent with, whatever it says itself.
        row.insert(QStringLiteral("flight_mission_id"), upload.missionId);
        if (!db.Exec(sql, {accountId, upload.projectId, upload.missionId, RowId(row), CompactJson(QJsonDocument(row))}))
            return false;
    }
    return true;
}

qint64 FlightStore::RowCount(CLmDataBase& db, const RowTable& table, qint64 accountId, const QString& projectId,
                             qint64 missionId)
{
    return db
        .SelectValue(QStringLiteral("SELECT count(*) FROM %1"
                                    " WHERE account_id = ? AND project_id = ? AND flight_mission_id = ?")
                         .arg(QLatin1String(table.name)),
                     {accountId, projectId, missionId})
        .toLongLong();
}

QJsonArray FlightStore::MissionsOfTask(qint64 accountId, const QString& taskId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(DatabasePath());
    QSqlQuery rows(db.Database());
    QJsonArray missions;
    if (!db.Open(true)
        || !db.Exec(QStringLiteral("SELECT m.project_id, m.flight_mission_id, m.flight_task_id, m.mission,"
                                   " m.uploaded_at, %1, %2 FROM flight_missions m"
                                   " WHERE m.account_id = ? AND m.flight_task_id = ?"
                                   " ORDER BY m.project_id, m.flight_mission_id")
                        .arg(RowCountOfMission(LogTable.name), RowCountOfMission(PositionTable.name)),
                    {accountId, taskId}, &rows))
        return missions;
    while (rows.next()) {
        QJsonObject mission = QJsonDocument::fromJson(rows.value(3).toString().toUtf8()).object();
        mission.insert(QStringLiteral("project_id"), rows.value(0).toString());
        mission.insert(QStringLiteral("id"), rows.value(1).toLongLong());
        mission.insert(QStringLiteral("flight_task_id"), rows.value(2).toString());
        mission.insert(QStringLiteral("uploaded_at"), rows.value(4).toString());
        mission.insert(QStringLiteral("log_count"), rows.value(5).toLongLong());
        mission.insert(QStringLiteral("pos_count"), rows.value(6).toLongLong());
        missions.append(mission);
    }
    return missions;
}

FlightStore::MissionRows FlightStore::FlightLog(qint64 accountId, const QString& projectId, qint64 missionId)
{
    return RowsOfMission(LogTable, accountId, projectId, missionId);
}

FlightStore::MissionRows FlightStore::Positions(qint64 accountId, const QString& projectId, qint64 missionId)
{
    return RowsOfMission(PositionTable, accountId, projectId, missionId);
}

FlightStore::MissionRows FlightStore::RowsOfMission(const RowTable& table, qint64 accountId, const QString& projectId,
                                                    qint64 missionId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase db(DatabasePath());
    QSqlQuery missions(db.Database());
    if (!db.Open(true)
        || !db.Exec(QStringLiteral("SELECT project_id FROM flight_missions WHERE account_id = ?"
                                   " AND flight_mission_id = ? AND (COALESCE(?, '') = '' OR project_id = ?) LIMIT 2"),
                    {accountId, missionId, projectId, projectId}, &missions))
        return {QStringLiteral("Cannot read the flight data"), 500, {}};
    QStringList projects;
    while (missions.next())
        projects.append(missions.value(0).toString());
    if (projects.isEmpty())
        return {QStringLiteral("Unknown flight mission"), 404, {}};
    // Mission ids count per mission database, so two projects may share one.
    if (projects.size() > 1)
        return {QStringLiteral("Several projects have flight mission %1: add project_id").arg(missionId), 400, {}};

    QSqlQuery rows(db.Database());
    if (!db.Exec(QStringLiteral("SELECT row FROM %1 WHERE account_id = ? AND project_id = ? AND flight_mission_id = ?"
                                " ORDER BY %2")
                     .arg(QLatin1String(table.name), QLatin1String(table.idColumn)),
                 {accountId, projects.first(), missionId}, &rows))
        return {QStringLiteral("Cannot read the flight data"), 500, {}};
    MissionRows result;
    while (rows.next())
        result.rows.append(QJsonDocument::fromJson(rows.value(0).toString().toUtf8()).object());
    return result;
}

QString FlightStore::DatabasePath() const
{
    return m_dataDir + QStringLiteral("/flights.db");
}
