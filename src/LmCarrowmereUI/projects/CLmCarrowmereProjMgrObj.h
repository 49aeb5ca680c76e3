#pragma once

#include "CLmLocalProjectCache.h"
#include "CLmProjClassifier.h"
#include "LmProjSynchTypes.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>

class CLmDownLoadObject;
class CLmTransferObject;
class CLmUpLoadObject;

// Keeps the user's local projects and the cloud's copies in step: scans the
// local project store, classifies every project against the cloud's list and
// works through a download queue and an upload queue, one project at a time
// each. Lives in a thread of its own and is driven only by queued signals;
// everything it learns it reports by signal.
class CLmCarrowmereProjMgrObj : public QObject
{
    Q_OBJECT
public:
    // User-data key of the file request: true for a single download.
    static constexpr int SingleDownloadRole = 9;

    explicit CLmCarrowmereProjMgrObj(QObject* parent = nullptr);

    static void RegisterMetaTypes();

public Q_SLOTS:
    void slotReadAllPrject();
    void slotSynchAllProject();
    void slotDownloadPrjectWithProjID(QString strProjID);
    // A project new to this computer and to the last list read (one just
    // accepted from a share): its name names its folder.
    void slotDownloadSharedProject(QString strProjID, QString strProjName);
    void slotReadLocalProject(QString strProjectPath);
    void slotReadFlightDetails(QString strProjId);

    void slotDownLoadProjectListProcess(qlonglong iCur, qlonglong iTotal);
    void slotDownLoadProjectProcess(qlonglong iCur, qlonglong iTotal);
    void slotUpLoadProcess(qlonglong iCur, qlonglong iTotal);
    void slotDownLoadProjectListFinished();
    void slotDownLoadProjectListError();
    void slotDownLoadProjectFinished();
    void slotDownLoadProjectError();
    void slotUploadNetWorkError();
    void slotUpLoadFinished(QByteArray reply);

Q_SIGNALS:
    void LocalProjInfor(SProjInfor info);
    void LocalBlockCity(QString strProjID, QVariant cityNames);
    void LocalBlockInfor(SBlockInfor info);
    void LocalTaskInfor(STaskInfor info);
    void LocalMissionInfor(SMissionInfor info);
    void ProjectDownloadFinished(SProjInfor info);
    void CurrentDownLoadProjectState(SProjInfor info);
    void SynchProjMsg(ESynchProMsgType type, QString strMsg);
    void NeedDownloadInfo(SProjInfor info);
    void NeedUploadInfo(SProjInfor info);
    void ProjectUploadFinished(SProjInfor info);
    void CurrentUpLoadProjectState(SProjInfor info);
    void UpdateProjInfo(SProjInfor info);
    void LocalProjInforOne(SProjInfor info);

private:
    // Local store.
    void ScanLocalProjects();
    void ReportLocalProjectFile(const SLocalProjectFile& file);

    // Cloud list and classification.
    void RequestProjectList();
    bool CanReachCloud() const;
    void Report(const CLmProjClassifier::SDecision& decision);

    // Queues.
    void StartDownloadQueue();
    void DownloadOne(const SProjInfor& info);
    void PostDownload(const SProjInfor& info, bool single);
    void FinishDownload();
    QString DownloadTargetPath(const SProjInfor& info) const;
    bool ReplaceWithDownload(const QByteArray& data, const QString& targetPath) const;
    QString ReadUpdateTime(const QString& filePath, const QString& projId) const;
    void StartUploadQueue();
    void FinishUpload(const QString& state);
    void WriteVersion(const QString& filePath, qint64 version) const;

    CLmDownLoadObject* ListObject();
    CLmDownLoadObject* FileObject();
    CLmUpLoadObject* UploadObject();

    QMap<QString, SProjInfor> m_mapLocalProj;
    CLmLocalProjectCache m_scanCache{CLmLocalProjectCache::DefaultStorePath()};
    QList<SProjInfor> m_listDownload;
    // Names of the projects only in the cloud, for a download asked for by id
    // once the project has left the queue.
    QHash<QString, QString> m_mapCloudNames;
    QList<SProjInfor> m_listSingleWaiting;  // single downloads asked for during a transfer
    QList<SProjInfor> m_listUpload;
    SProjInfor m_curDownload;
    SProjInfor m_curUpload;
    bool m_bDownloading = false;
    bool m_bUploading = false;
    CLmDownLoadObject* m_pListObj = nullptr;
    CLmDownLoadObject* m_pFileObj = nullptr;
    CLmUpLoadObject* m_pUploadObj = nullptr;
};
