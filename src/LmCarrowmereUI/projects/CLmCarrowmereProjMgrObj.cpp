#include "CLmCarrowmereProjMgrObj.h"

#include "LmCarrowmereUILog.h"
#include "CLmControl.h"
#include "CLmDataBase.h"
#include "CLmDownLoadObject.h"
#include "CLmProjectSchema.h"
#include "CLmReplyEnvelope.h"
#include "CLmSessionStore.h"
#include "CLmUpLoadObject.h"
#include "LmCityCategory.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"
#include "LmProjectConstants.h"
#include "LmProjectFiles.h"

#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QTemporaryFile>

#include <filesystem>
#include <system_error>

namespace {

// A total of 0 counts as 1; a total the transport does not know (-1) shows 0.
int Percent(qlonglong current, qlonglong total)
{
    if (total < 0)
        return 0;
    return static_cast<int>(current * 100 / std::max<qlonglong>(total, 1));
}

bool IsRefusal(const QByteArray& reply)
{
    const int status = CLmReplyEnvelope::Parse(reply).Status();
    return status == 401 || status == 403;
}

void RemoveFromQueue(QList<SProjInfor>& queue, const QString& projId)
{
    for (int i = 0; i < queue.size(); ++i) {
        if (queue.at(i).strProjID == projId) {
            queue.removeAt(i);
            return;
        }
    }
}

}  // namespace

CLmCarrowmereProjMgrObj::CLmCarrowmereProjMgrObj(QObject* parent)
    : QObject(parent)
{
    RegisterMetaTypes();
}

void CLmCarrowmereProjMgrObj::RegisterMetaTypes()
{
    qRegisterMetaType<SProjInfor>("SProjInfor");
    qRegisterMetaType<SBlockInfor>("SBlockInfor");
    qRegisterMetaType<STaskInfor>("STaskInfor");
    qRegisterMetaType<SMissionInfor>("SMissionInfor");
    qRegisterMetaType<ESynchProMsgType>("ESynchProMsgType");
}

// ---- slots driven by the page ------------------------------------------------

void CLmCarrowmereProjMgrObj::slotReadAllPrject()
{
    Q_EMIT SynchProjMsg(SynchProMsgListProgress, QString());
    Q_EMIT SynchProjMsg(SynchProMsgListStart, tr("Reading project list start."));
    ScanLocalProjects();
    RequestProjectList();
}

void CLmCarrowmereProjMgrObj::slotSynchAllProject()
{
    Q_EMIT SynchProjMsg(SynchProMsgStart, tr("Start synchronization project."));
    ScanLocalProjects();
    RequestProjectList();
    StartDownloadQueue();
    StartUploadQueue();
}

void CLmCarrowmereProjMgrObj::slotDownloadPrjectWithProjID(QString strProjID)
{
    SProjInfor info;
    info.strProjID = strProjID;
    for (const SProjInfor& queued : qAsConst(m_listDownload)) {
        if (queued.strProjID == strProjID)
            info = queued;
    }
    if (info.strProjName.isEmpty())
        info = m_mapLocalProj.value(strProjID, info);
    if (info.strProjName.isEmpty())
        info.strProjName = m_mapCloudNames.value(strProjID);
    DownloadOne(info);
}

void CLmCarrowmereProjMgrObj::slotDownloadSharedProject(QString strProjID, QString strProjName)
{
    SProjInfor info = m_mapLocalProj.value(strProjID);
    info.strProjID = strProjID;
    if (info.strProjName.isEmpty())
        info.strProjName = strProjName;
    DownloadOne(info);
}

void CLmCarrowmereProjMgrObj::DownloadOne(const SProjInfor& info)
{
    // A project asked for by itself leaves the queue: the queue would fetch
    // it again after this request ended, and one request has one result.
    RemoveFromQueue(m_listDownload, info.strProjID);
    // One transfer at a time: a download under way finishes first.
    if (m_bDownloading) {
        m_listSingleWaiting.append(info);
        return;
    }
    PostDownload(info, true);
}

void CLmCarrowmereProjMgrObj::slotReadLocalProject(QString strProjectPath)
{
    const SLocalProjectFile file = CLmLocalProjectReader::Read(strProjectPath, GetCurUserInfo().strUserID,
                                                               CLmLocalProjectReader::WithoutCities);
    for (const SProjInfor& info : file.listProjects) {
        m_mapLocalProj.insert(info.strProjID, info);
        Q_EMIT LocalProjInforOne(info);
    }
}

void CLmCarrowmereProjMgrObj::slotReadFlightDetails(QString strProjId)
{
    const auto found = m_mapLocalProj.constFind(strProjId);
    if (found == m_mapLocalProj.constEnd())
        return;
    CLmDataBase projectDb(found->strProjPath);
    if (!projectDb.OpenForeign(CLmProjectSchema::ProjectTables())) {
        qCWarning(lcProjSynch) << "DB Open failed" << found->strProjPath;
        return;
    }
    QSqlQuery areas(projectDb.Database());
    projectDb.Exec(QStringLiteral("select * from %1 where project_id = ?").arg(QLatin1String(SurveyAreaTableName)),
                   {strProjId}, &areas);
    while (areas.next()) {
        SBlockInfor block;
        block.strProjID = strProjId;
        block.strName = areas.value(QStringLiteral("survey_area_name")).toString();
        block.strGuid = areas.value(QStringLiteral("survey_area_guid")).toString();
        block.strCoordinatePoints = areas.value(QStringLiteral("survey_area_coordinate_points")).toString();
        block.dHomeLat = areas.value(QStringLiteral("home_lat")).toDouble();
        block.dHomeLng = areas.value(QStringLiteral("home_lng")).toDouble();
        block.strCityName = LmCityCategory::instance().GetCityName(PointLatLng(block.dHomeLat, block.dHomeLng));
        Q_EMIT LocalBlockInfor(block);
    }
    QSqlQuery tasks(projectDb.Database());
    projectDb.Exec(QStringLiteral("select flight_task_guid, survey_area_guid, task_name from flight_task"), {}, &tasks);
    while (tasks.next())
        Q_EMIT LocalTaskInfor(STaskInfor{strProjId, tasks.value(0).toString(), tasks.value(1).toString(),
                                         tasks.value(2).toString()});

    CLmDataBase missionDb(CLmControl::GetInstance()->GetFlightMissionFilePath(found->strProjPath));
    if (!missionDb.OpenForeign(CLmProjectSchema::MissionTables()))
        return;
    QSqlQuery missions(missionDb.Database());
    missionDb.Exec(QStringLiteral("select m.id, m.flight_task_id, m.mission_name,"
                                  " exists (select 1 from flight_monitor_detail_log l where l.flight_mission_id = m.id)"
                                  " from flight_mission m where m.project_id = ?"),
                   {strProjId}, &missions);
    while (missions.next())
        Q_EMIT LocalMissionInfor(SMissionInfor{strProjId, missions.value(0).toLongLong(), missions.value(1).toString(),
                                               missions.value(2).toString(), missions.value(3).toBool()});
}

// ---- local store ---------------------------------------------------------------

void CLmCarrowmereProjMgrObj::ScanLocalProjects()
{
    m_mapLocalProj.clear();
    const QString userId = GetCurUserInfo().strUserID;
    const QDir root(CLmControl::GetInstance()->GetProjectDirPath());
    const QStringList folders = root.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (int i = 0; i < folders.size(); ++i) {
        for (const SLocalProjectFile& file : m_scanCache.ReadFolder(root.filePath(folders.at(i)), userId))
            ReportLocalProjectFile(file);
        Q_EMIT SynchProjMsg(SynchProMsgLocalProgress, QString::number(Percent(i + 1, folders.size())));
    }
    m_scanCache.FinishScan();
}

void CLmCarrowmereProjMgrObj::ReportLocalProjectFile(const SLocalProjectFile& file)
{
    for (const SProjInfor& info : file.listProjects) {
        m_mapLocalProj.insert(info.strProjID, info);
        Q_EMIT LocalProjInfor(info);
    }
    for (const auto& cities : file.listCities)
        Q_EMIT LocalBlockCity(cities.first, cities.second);
}

// ---- cloud list and classification ----------------------------------------------

bool CLmCarrowmereProjMgrObj::CanReachCloud() const
{
    return !GetCurUserInfo().strToken.isEmpty() && CLmControl::GetInstance()->IsNetWorkConnected();
}

void CLmCarrowmereProjMgrObj::RequestProjectList()
{
    if (!CanReachCloud()) {
        Q_EMIT SynchProjMsg(SynchProMsgListError, tr("Reading project list error."));
        return;
    }
    CLmDownLoadObject* request = ListObject();
    LmCloudRequest::AddressSignedIn(request, LmCloudPath::ProjectList);
    request->slotRequestData();
}

void CLmCarrowmereProjMgrObj::slotDownLoadProjectListProcess(qlonglong iCur, qlonglong iTotal)
{
    Q_EMIT SynchProjMsg(SynchProMsgListProgress, QString::number(Percent(iCur, iTotal)));
}

void CLmCarrowmereProjMgrObj::slotDownLoadProjectListError()
{
    Q_EMIT SynchProjMsg(SynchProMsgListError, tr("Reading project list error."));
}

void CLmCarrowmereProjMgrObj::slotDownLoadProjectListFinished()
{
    m_listDownload.clear();
    m_listUpload.clear();
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(ListObject()->GetDownLoadData());
    if (!envelope.IsParsed())
        return;
    const QJsonValue data = envelope.Data();
    if (!envelope.IsSuccess() || !data.isArray()) {
        Q_EMIT SynchProjMsg(SynchProMsgListError, tr("Reading project list error."));
        return;
    }
    const QVector<CLmProjClassifier::SDecision> decisions = CLmProjClassifier::Classify(
        m_mapLocalProj, data.toArray(), CLmControl::GetInstance()->GetProjectDirPath());
    for (const CLmProjClassifier::SDecision& decision : decisions)
        Report(decision);
    Q_EMIT SynchProjMsg(SynchProMsgListFinished, tr("Read project list finished"));
}

void CLmCarrowmereProjMgrObj::Report(const CLmProjClassifier::SDecision& decision)
{
    switch (decision.eAction) {
    case CLmProjClassifier::ActionUpload:
        m_listUpload.append(decision.info);
        Q_EMIT NeedUploadInfo(decision.info);
        break;
    case CLmProjClassifier::ActionCloudOnly:
        Q_EMIT LocalProjInfor(decision.info);
        // Nothing local to read the survey areas from yet.
        Q_EMIT LocalBlockCity(decision.info.strProjID, QStringList());
        m_mapCloudNames.insert(decision.info.strProjID, decision.info.strProjName);
        m_listDownload.append(decision.info);
        Q_EMIT NeedDownloadInfo(decision.info);
        break;
    case CLmProjClassifier::ActionDownload:
        m_listDownload.append(decision.info);
        Q_EMIT NeedDownloadInfo(decision.info);
        break;
    case CLmProjClassifier::ActionInStep:
        Q_EMIT UpdateProjInfo(decision.info);
        break;
    }
}

// ---- download queue ----------------------------------------------------------------

void CLmCarrowmereProjMgrObj::StartDownloadQueue()
{
    if (m_listDownload.isEmpty() || m_bDownloading)
        return;
    PostDownload(m_listDownload.first(), false);
}

void CLmCarrowmereProjMgrObj::PostDownload(const SProjInfor& info, bool single)
{
    m_curDownload = info;
    m_bDownloading = true;
    CLmDownLoadObject* request = FileObject();
    LmCloudRequest::AddressSignedIn(request, LmCloudPath::ProjectDownloadFile);
    request->SetFilePathArray(QByteArrayLiteral("id=") + info.strProjID.toLatin1());
    request->SetUserData(SingleDownloadRole, single);
    request->slotRequestData();
}

void CLmCarrowmereProjMgrObj::slotDownLoadProjectProcess(qlonglong iCur, qlonglong iTotal)
{
    m_curDownload.strProgress = QString::number(Percent(iCur, iTotal)) + QLatin1Char('%');
    m_curDownload.strState = tr("Downloading ");
    Q_EMIT CurrentDownLoadProjectState(m_curDownload);
}

void CLmCarrowmereProjMgrObj::slotDownLoadProjectFinished()
{
    const QByteArray reply = FileObject()->GetDownLoadData();
    if (IsRefusal(reply)) {
        // The session is not valid: the chain stops until the next synchronisation.
        qCWarning(lcProjSynch) << "project download refused by the service";
        m_bDownloading = false;
        return;
    }
    const QString target = DownloadTargetPath(m_curDownload);
    if (!ReplaceWithDownload(reply, target)) {
        slotDownLoadProjectError();
        return;
    }
    m_curDownload.strProjPath = target;
    m_curDownload.strUpdateTime = ReadUpdateTime(target, m_curDownload.strProjID);
    m_curDownload.iSynchState = SynchStateInStep;
    m_curDownload.strState = tr("Finished");
    m_curDownload.strProgress = QStringLiteral("100%");
    m_mapLocalProj.insert(m_curDownload.strProjID, m_curDownload);
    Q_EMIT ProjectDownloadFinished(m_curDownload);
    Q_EMIT UpdateProjInfo(m_curDownload);
    RemoveFromQueue(m_listDownload, m_curDownload.strProjID);
    FinishDownload();
}

void CLmCarrowmereProjMgrObj::slotDownLoadProjectError()
{
    const bool single = FileObject()->GetUserData(SingleDownloadRole).toBool();
    if (!single && !m_listDownload.isEmpty())
        m_listDownload.removeFirst();
    m_curDownload.strState = tr("Failed");
    Q_EMIT ProjectDownloadFinished(m_curDownload);
    FinishDownload();
}

void CLmCarrowmereProjMgrObj::FinishDownload()
{
    m_bDownloading = false;
    if (!m_listSingleWaiting.isEmpty()) {
        PostDownload(m_listSingleWaiting.takeFirst(), true);
        return;
    }
    StartDownloadQueue();
}

QString CLmCarrowmereProjMgrObj::DownloadTargetPath(const SProjInfor& info) const
{
    const auto local = m_mapLocalProj.constFind(info.strProjID);
    if (local != m_mapLocalProj.constEnd() && QFileInfo::exists(local->strProjPath))
        return local->strProjPath;
    const QString root = CLmControl::GetInstance()->GetProjectDirPath();
    QString name = SafeProjectName(info.strProjName);
    if (QFileInfo::exists(root + QLatin1Char('/') + name))
        name = CreateUniqueFileName(root, name);
    return root + QLatin1Char('/') + name + QLatin1Char('/') + name + QLatin1String(ProjectSuffix);
}

bool CLmCarrowmereProjMgrObj::ReplaceWithDownload(const QByteArray& data, const QString& targetPath) const
{
    const QString root = CLmControl::GetInstance()->GetProjectDirPath();
    QTemporaryFile temp(root + QStringLiteral("/.download-XXXXXX"));
    if (!temp.open() || temp.write(data) != data.size() || !temp.flush()) {
        qCWarning(lcProjSynch) << "cannot write the downloaded project to" << root;
        return false;
    }
    temp.close();
    if (!CLmDataBase::IsSqliteFile(temp.fileName())) {
        qCWarning(lcProjSynch) << "downloaded project is not a complete database; local file kept" << targetPath;
        return false;
    }
    QDir().mkpath(QFileInfo(targetPath).absolutePath());
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(temp.fileName()).toStdString(),
                            QFile::encodeName(targetPath).toStdString(), error);
    if (error) {
        qCWarning(lcProjSynch) << "cannot replace" << targetPath << QString::fromStdString(error.message());
        return false;
    }
    temp.setAutoRemove(false);
    return true;
}

QString CLmCarrowmereProjMgrObj::ReadUpdateTime(const QString& filePath, const QString& projId) const
{
    CLmDataBase db(filePath);
    if (!db.OpenForeign({QLatin1String(ProjectTableName)})) {
        qCWarning(lcProjSynch) << "DB Open failed" << filePath;
        return {};
    }
    return db.SelectValue(QStringLiteral("select updated_at from %1 where id = ?").arg(QLatin1String(ProjectTableName)),
                          {projId})
        .toString();
}

// ---- upload queue ------------------------------------------------------------------

void CLmCarrowmereProjMgrObj::StartUploadQueue()
{
    if (m_listUpload.isEmpty() || m_bUploading)
        return;
    m_curUpload = m_listUpload.first();
    const QByteArray projectText = GetUploadArray(m_curUpload.strProjPath);
    if (projectText.isEmpty()) {
        qCWarning(lcProjSynch) << "cannot read the project to upload" << m_curUpload.strProjPath;
        FinishUpload(tr("Failed"));
        return;
    }
    m_bUploading = true;
    CLmUpLoadObject* request = UploadObject();
    LmCloudRequest::AddressSignedIn(request, LmCloudPath::ProjectUpload);
    request->SetFilePathArray(QByteArrayLiteral("data=") + projectText);
    request->PostNetWorkReplyMessage();
}

void CLmCarrowmereProjMgrObj::slotUpLoadProcess(qlonglong iCur, qlonglong iTotal)
{
    m_curUpload.strProgress = QString::number(Percent(iCur, iTotal)) + QLatin1Char('%');
    m_curUpload.strState = tr("Uploading");
    Q_EMIT CurrentUpLoadProjectState(m_curUpload);
}

void CLmCarrowmereProjMgrObj::slotUpLoadFinished(QByteArray reply)
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    if (envelope.IsSuccess()) {
        const QVariant version = envelope.DataObject().value(QStringLiteral("version")).toVariant();
        bool isNumber = false;
        const qint64 number = version.toLongLong(&isNumber);
        if (isNumber)
            WriteVersion(m_curUpload.strProjPath, number);
    }
    FinishUpload(tr("Finished"));
}

void CLmCarrowmereProjMgrObj::slotUploadNetWorkError()
{
    FinishUpload(tr("Failed"));
}

void CLmCarrowmereProjMgrObj::FinishUpload(const QString& state)
{
    m_curUpload.strState = state;
    Q_EMIT ProjectUploadFinished(m_curUpload);
    RemoveFromQueue(m_listUpload, m_curUpload.strProjID);
    m_bUploading = false;
    StartUploadQueue();
}

void CLmCarrowmereProjMgrObj::WriteVersion(const QString& filePath, qint64 version) const
{
    CLmDataBase db(filePath);
    // A project removed meanwhile must not come back as an empty file.
    if (!QFileInfo::exists(filePath)
        || !db.OpenForeign({QLatin1String(ProjectTableName)}, CLmDataBase::EForeignAccess::PrivateCopy)) {
        qCWarning(lcProjSynch) << "DB Open failed" << filePath;
        return;
    }
    db.Exec(QStringLiteral("UPDATE %1 SET version = ?").arg(QLatin1String(ProjectTableName)), {version});
}

// ---- request objects ----------------------------------------------------------------

CLmDownLoadObject* CLmCarrowmereProjMgrObj::ListObject()
{
    if (!m_pListObj) {
        m_pListObj = new CLmDownLoadObject(this);
        connect(m_pListObj, &CLmDownLoadObject::DownLoadProcess, this,
                &CLmCarrowmereProjMgrObj::slotDownLoadProjectListProcess);
        connect(m_pListObj, &CLmDownLoadObject::DownLoadFinished, this,
                &CLmCarrowmereProjMgrObj::slotDownLoadProjectListFinished);
        connect(m_pListObj, &CLmDownLoadObject::DownLoadError, this,
                &CLmCarrowmereProjMgrObj::slotDownLoadProjectListError);
    }
    return m_pListObj;
}

CLmDownLoadObject* CLmCarrowmereProjMgrObj::FileObject()
{
    if (!m_pFileObj) {
        m_pFileObj = new CLmDownLoadObject(this);
        connect(m_pFileObj, &CLmDownLoadObject::DownLoadProcess, this,
                &CLmCarrowmereProjMgrObj::slotDownLoadProjectProcess);
        connect(m_pFileObj, &CLmDownLoadObject::DownLoadFinished, this,
                &CLmCarrowmereProjMgrObj::slotDownLoadProjectFinished);
        connect(m_pFileObj, &CLmDownLoadObject::DownLoadError, this,
                &CLmCarrowmereProjMgrObj::slotDownLoadProjectError);
    }
    return m_pFileObj;
}

CLmUpLoadObject* CLmCarrowmereProjMgrObj::UploadObject()
{
    if (!m_pUploadObj) {
        m_pUploadObj = new CLmUpLoadObject(this);
        connect(m_pUploadObj, &CLmUpLoadObject::UpLoadProcess, this, &CLmCarrowmereProjMgrObj::slotUpLoadProcess);
        connect(m_pUploadObj, &CLmUpLoadObject::UpLoadFinished, this, &CLmCarrowmereProjMgrObj::slotUpLoadFinished);
        connect(m_pUploadObj, &CLmUpLoadObject::UpLoadNetWorkError, this,
                &CLmCarrowmereProjMgrObj::slotUploadNetWorkError);
    }
    return m_pUploadObj;
}
