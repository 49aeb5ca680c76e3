#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <mutex>
#include <optional>

// The flight data uploaded by every account, in <data>/flights.db: one row
// per mission, keyed by account, project id and the mission's id in its
// mission database, and one per flight-log row, keyed by the same and the
// row's own id. A row sent again is ignored, so uploads may be repeated.
// Calls are serialised by one mutex and open their own connection.
class FlightStore
{
public:
    struct MissionUpload
    {
        QString projectId;
        QString taskId;
        qint64 missionId = 0;
        QJsonObject mission;
        QJsonArray rows;  // objects, each with a numeric "id"
    };

    explicit FlightStore(const QString& dataDir);

    bool Open(QString* error);

    // {project_id, flight_mission_id, received, stored, last_log_id}, or
    // nothing when the database failed.
    std::optional<QJsonObject> Upload(qint64 accountId, const MissionUpload& upload);
    // The account's missions of the flight task, each the uploaded mission
    // object with id, project_id, flight_task_id, log_count and uploaded_at.
    QJsonArray MissionsOfTask(qint64 accountId, const QString& taskId);
    // The mission's flight-log rows in id order; nothing for an unknown mission.
    std::optional<QJsonArray> FlightLog(qint64 accountId, const QString& projectId, qint64 missionId);

private:
    QString DatabasePath() const;

    QString m_dataDir;
    std::mutex m_mutex;
};
