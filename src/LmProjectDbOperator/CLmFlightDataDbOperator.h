#pragma once

#include "CLmFlightUploadState.h"

#include <QJsonArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

class CLmUpLoadObject;
class CLmClock;

// Where a check sends the flight data it finds:
//   0 nowhere: the check only counts what is pending (NewDataChecked);
//   2 the cloud service at GetServerIP(), the environment the hub uses.
// Any other value is refused with a warning and acts as 0.
enum EUploadEnv { UploadEnvNone = 0, UploadEnvCloud = 2 };

// Uploads the flight data of the signed-in user's mission databases that the
// cloud does not hold yet, and writes flight data downloaded from the cloud
// into mission databases. Lives on the upload thread and is driven by queued
// signals only; every database and network step runs there.
//
// A check scans the route folder (else <app data>/Project/<user id>/
// Vireo_AirLine/) for "*.db" files other than "Flight_Mission.db", or only
// the file given to SetFlightMissionFilePath(). Each flight mission with
// flight-log rows not yet confirmed by the cloud is posted to "/flight/upload"
// in batches of UploadBatchRows rows; each batch the cloud confirms is marked
// in the database (see CLmFlightUploadState). A refusal or a transport
// failure ends the check without marking that batch; the next check sends
// it again. Without a token or without network nothing is sent or marked.
class CLmFlightDataDbOperator : public QObject
{
    Q_OBJECT
public:
    // Period of the upload timer: a minute, short enough that a landed
    // flight reaches the cloud soon, long enough that the scans cost nothing.
    static constexpr int UploadIntervalMs = 60000;
    static constexpr int UploadBatchRows = 500;

    CLmFlightDataDbOperator(QObject* parent, EUploadEnv env);
    // The uploader owns the clock; tests pass one they step by hand.
    CLmFlightDataDbOperator(QObject* parent, EUploadEnv env, CLmClock* clock);

    // Limits the checks to this one mission database (empty: the user's
    // mission folder). Call before the object is moved to its thread.
    void SetFlightMissionFilePath(const QString& filePath);

public Q_SLOTS:
    // Writes downloaded rows into the mission database at strFilePath; the
    // table is chosen by iOperatorType (EFlightDataTable, LmProjectConstants.h)
    // and strMissionID fills "flight_mission_id" where a row lacks it. Emits
    // FlightDataParsed.
    void slotParseJson(QJsonArray jArray, QString strFilePath, QString strMissionID, unsigned int iOperatorType,
                       QString strProjectName);
    // Starts (true) or stops (false) a check every UploadIntervalMs.
    void slotStartUploadTimer(bool bStart);
    void slotCheckNewData();

Q_SIGNALS:
    // A check found this many missions with flight data not yet uploaded.
    void NewDataChecked(int pendingMissions);
    // A check starts sending (only when there is something to send).
    void UpLoading();
    // A check has ended, whether it sent everything, nothing or was stopped
    // by a failure.
    void UploadFinished();
    // slotParseJson wrote iRows rows (-1: the target was refused).
    void FlightDataParsed(QString strFilePath, QString strMissionID, unsigned int iOperatorType, int iRows);

private:
    void slotUploadAnswered(const QByteArray& reply);
    void slotUploadFailed();

    QStringList MissionDatabaseFiles() const;
    QList<CLmFlightUploadState::SMission> FindPendingMissions() const;
    bool MaySend() const;
    void SendNextBatch();
    void PostBatch(const CLmFlightUploadState::SMission& mission, const QJsonArray& rows);
    bool IsConfirmed(const QByteArray& reply) const;
    void FinishCheck();
    CLmUpLoadObject* UploadObject();

    EUploadEnv m_eEnv;
    CLmClock* m_pClock;
    CLmUpLoadObject* m_pUpload = nullptr;
    QString m_strFlightMissionFilePath;
    QList<CLmFlightUploadState::SMission> m_listPending;
    qint64 m_iSentLastLogID = 0;
    bool m_bUploading = false;
};
