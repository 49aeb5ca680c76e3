#pragma once

#include "LmLocalMissions.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QString>

// The missions of one project as the project details page shows them: the
// flights the cloud holds for the project's flight tasks, whether each one's
// flight data is on this computer, and the download of one mission into the
// project's mission database. Holds no widgets.
//
// Listing: the flight tasks come from the local project database (read
// read-only, off the GUI thread); each is asked for with "/flight/listbytask"
// and the missions of this project are kept. A project only in the cloud has
// neither tasks to ask about nor a mission database to download into, so its
// list stays empty and the status says to download the project first. A
// mission counts as downloaded when the mission database holds flight-log
// rows for it.
//
// Download: "/flight/getflog" and "/flight/downloadPos" are asked for
// together; once both have answered, the listed mission row, its flight-log
// rows and its positions pass through their templates (LmFlightTemplate) and
// go out through parseJsonArray, to be written on the upload thread. The
// writer's FlightDataParsed reports, fed to slotFlightDataParsed, decide
// whether the mission is downloaded (every row handed on was written) or
// failed. A reply that does not parse hands nothing on: the mission keeps its
// previous state and the status says so.
class CLmProjDetailsController : public QObject
{
    Q_OBJECT
public:
    enum EMissionState {
        MissionNotDownloaded = 0,
        MissionDownloading = 1,
        MissionDownloaded = 2,
        MissionDownloadFailed = 3,
    };
    Q_ENUM(EMissionState)

    struct SMission
    {
        QString strMissionId;
        QString strName;
        QString strFlightTime;  // the mission's "created_at"
        qint64 iLogRows = 0;    // rows the cloud holds
        qint64 iPositions = 0;
        EMissionState eState = MissionNotDownloaded;
        QJsonObject jRow;  // the mission as listed
    };

    explicit CLmProjDetailsController(QObject* parent = nullptr);
    ~CLmProjDetailsController() override;

    // Forgets the previous project and lists this one's missions. An empty
    // or missing projFilePath means the project is only in the cloud.
    void ShowProject(const QString& projId, const QString& projName, const QString& projFilePath);
    // Starts downloading a listed mission that is not downloaded or whose
    // download failed; anything else is ignored.
    void DownloadMission(const QString& strMissionId);

    QString ProjectId() const;
    QString ProjectName() const;
    // The mission database the downloads are written to; empty for a
    // project only in the cloud.
    QString MissionDatabasePath() const;
    bool IsCloudOnly() const;
    // Until the local read and every list request have answered.
    bool IsListing() const;
    // Flight tasks planned in the project.
    int FlightTaskCount() const;
    // Missions flown, oldest first.
    const QList<SMission>& Missions() const;
    int DownloadedCount() const;
    QString StatusText() const;

public Q_SLOTS:
    // A report of CLmFlightDataDbOperator::FlightDataParsed; reports for
    // other files or missions are ignored.
    void slotFlightDataParsed(QString strFilePath, QString strMissionID, unsigned int iOperatorType, int iRows);

Q_SIGNALS:
    // The mission list was replaced (emptied by ShowProject, filled once
    // listing ends).
    void MissionsChanged();
    void MissionStateChanged(QString strMissionId, int iState);
    void StatusChanged(QString strText);
    // Rows for CLmFlightDataDbOperator::slotParseJson.
    void parseJsonArray(QJsonArray jArray, QString strFilePath, QString strMissionID, uint iOperatorType,
                        QString strProjectName);

private:
    // One mission download: the two replies until both are in, then the
    // rows handed on per operator type until the writer has reported them.
    struct SDownload
    {
        EMissionState ePrevious = MissionNotDownloaded;
        QHash<unsigned int, QJsonArray> mapReplies;
        QHash<unsigned int, int> mapHandedOn;
        bool bWriteFailed = false;
    };

    void LocalRead(const SLocalMissions& local);
    void RequestTaskMissions(const QString& strTaskId);
    void TaskListed(const QByteArray& reply);
    void TaskListFailed(const QString& strMessage);
    void AddListedMissions(const QJsonArray& rows);
    void FinishListing();
    QString ListedStatus() const;

    void RequestMissionRows(const QString& strMissionId, unsigned int iOperatorType);
    void MissionRowsAnswered(const QString& strMissionId, unsigned int iOperatorType, const QByteArray& reply);
    void HandOnDownload(const QString& strMissionId);
    void HandOnRows(const QString& strMissionId, unsigned int iOperatorType, const QJsonArray& rows);
    void FinishDownload(const QString& strMissionId);
    void FailDownload(const QString& strMissionId, const QString& strWhy);
    void AbandonUnreadableDownload(const QString& strMissionId);

    // False for an answer to a read or request made for a project shown
    // before the current one.
    bool IsCurrent(quint64 iGeneration) const;
    SMission* FindMission(const QString& strMissionId);
    void SetMissionState(const QString& strMissionId, EMissionState eState);
    void SetStatus(const QString& strText);

    QString m_strProjId;
    QString m_strProjName;
    QString m_strMissionDbPath;
    quint64 m_iGeneration = 0;
    SLocalMissions m_local;
    bool m_bListing = false;
    int m_iListsPending = 0;
    QString m_strListProblem;
    QList<SMission> m_listMissions;
    QHash<QString, SDownload> m_mapDownloads;
    QString m_strStatus;
};
