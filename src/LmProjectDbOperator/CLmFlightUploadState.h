#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>

// Which flight-log rows of a mission database the cloud has confirmed. The
// marks live in a table of their own, "upload_state" (mission id, highest
// confirmed log row id, time of the mark), created by the first mark, so a
// file without it stays valid and all of its rows count as not uploaded.
// Rows appended to a mission after a mark are found as new data.
class CLmFlightUploadState
{
public:
    static constexpr char TableName[] = "upload_state";

    struct SMission
    {
        QString strFilePath;
        qint64 iMissionID = 0;
        QString strProjectID;
        QString strTaskID;
        QJsonObject jMission;  // the "flight_mission" row
    };

    struct SBatch
    {
        QJsonArray jRows;  // "flight_monitor_detail_log" rows in id order
        qint64 iLastLogID = 0;
    };

    // The missions of the file with flight-log rows above their mark.
    static QList<SMission> PendingMissions(const QString& filePath);
    // Up to maxRows of the mission's log rows above its mark.
    static SBatch NextBatch(const QString& filePath, qint64 missionId, int maxRows);
    // Records that the cloud holds the mission's rows up to lastLogId.
    static bool MarkUploaded(const QString& filePath, qint64 missionId, qint64 lastLogId);
};
