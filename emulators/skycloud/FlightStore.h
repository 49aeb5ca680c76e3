#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>

#include <mutex>
#include <optional>

class CLmDataBase;

// The flight data of every account, in <data>/flights.db: one row per
// mission, keyed by account, project id and the mission's id in its mission
// database, and one per flight-log row and per position row, keyed by the
// same and the row's own id. A row sent again is ignored, so uploads may be
// repeated. Rows keep the keys of their mission-database table
// ("flight_monitor_detail_log", "pos_data"), so a download can be written
// back as it is. Calls are serialised by one mutex and open their own
// connection.
class FlightStore
{
public:
    struct MissionUpload
    {
        QString projectId;
        QString taskId;
        qint64 missionId = 0;
        QJsonObject mission;
        QJsonArray rows;       // flight-log objects, each with a numeric "id"
        QJsonArray positions;  // position objects, each with a numeric "id"
    };

    // Rows of one mission, or why there are none.
    struct MissionRows
    {
        QString error;  // empty on success
        int httpStatus = 200;
        QJsonArray rows;
    };

    explicit FlightStore(const QString& dataDir);

    bool Open(QString* error);

    // Stores the missions in one transaction. For each one, in order,
    // {project_id, flight_mission_id, received, stored, last_log_id} of its
    // flight-log rows; nothing, and nothing stored, when the database failed.
    std::optional<QList<QJsonObject>> Upload(qint64 accountId, const QList<MissionUpload>& uploads);
    // The account's missions of the flight task, each the uploaded mission
    // object with id, project_id, flight_task_id, uploaded_at, log_count and
    // pos_count.
    QJsonArray MissionsOfTask(qint64 accountId, const QString& taskId);
    // A mission's rows in id order. An empty project id stands for whichever
    // of the account's projects holds the mission id, when only one does.
    MissionRows FlightLog(qint64 accountId, const QString& projectId, qint64 missionId);
    MissionRows Positions(qint64 accountId, const QString& projectId, qint64 missionId);

private:
    // A table of mission rows and the column of the rows' own ids.
    struct RowTable
    {
        const char* name;
        const char* idColumn;
    };

    static const RowTable LogTable;
    static const RowTable PositionTable;

    QString DatabasePath() const;
    static std::optional<QJsonObject> StoreMission(CLmDataBase& db, qint64 accountId, const MissionUpload& upload);
    static bool InsertRows(CLmDataBase& db, const RowTable& table, qint64 accountId, const MissionUpload& upload,
                           const QJsonArray& rows);
    static qint64 RowCount(CLmDataBase& db, const RowTable& table, qint64 accountId, const QString& projectId,
                           qint64 missionId);
    MissionRows RowsOfMission(const RowTable& table, qint64 accountId, const QString& projectId, qint64 missionId);

    QString m_dataDir;
    std::mutex m_mutex;
};
