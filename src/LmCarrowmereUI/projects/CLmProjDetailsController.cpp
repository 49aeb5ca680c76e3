#include "CLmProjDetailsController.h"

#include "CLmControl.h"
#include "CLmNetWorkRequest.h"
#include "CLmReplyEnvelope.h"
#include "LmCarrowmereUILog.h"
#include "LmCloudForm.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"
#include "LmFlightTemplate.h"
#include "LmProjectConstants.h"

#include <QFileInfo>
#include <QFutureWatcher>
#include <QUrl>
#include <QtConcurrent>

#include <algorithm>
#include <iterator>

namespace {

// The two downloads of a mission besides its listed row.
constexpr unsigned int RowDownloads[] = {FlightDataDetailLog, FlightDataPosData};

// "id" of a listed mission as text; empty when it is not a whole number.
QString MissionIdOf(const QJsonObject& row)
{
    bool bOk = false;
    const qint64 iId = row.value(QStringLiteral("id")).toVariant().toString().toLongLong(&bOk);
    return bOk ? QString::number(iId) : QString();
}

// Every reply of the page carries an array: one that parsed as an envelope
// but whose successful data is no array reads like one that did not parse.
bool IsUnreadable(const CLmReplyEnvelope& envelope)
{
    return !envelope.IsParsed() || (envelope.IsSuccess() && !envelope.Data().isArray());
}

}  // namespace

CLmProjDetailsController::CLmProjDetailsController(QObject* parent)
    : QObject(parent)
{
}

CLmProjDetailsController::~CLmProjDetailsController() = default;

void CLmProjDetailsController::ShowProject(const QString& projId, const QString& projName,
                                          const QString& projFilePath)
{
    ++m_iGeneration;
    m_strProjId = projId;
    m_strProjName = projName;
    const bool bLocal = !projFilePath.isEmpty() && QFileInfo(projFilePath).isFile();
    m_strMissionDbPath = bLocal ? CLmControl::GetInstance()->GetFlightMissionFilePath(projFilePath) : QString();
    m_local = SLocalMissions();
    m_iListsPending = 0;
    m_strListProblem.clear();
    m_listMissions.clear();
    m_mapDownloads.clear();
    m_bListing = bLocal;
    Q_EMIT MissionsChanged();
    if (!bLocal) {
        SetStatus(tr("This project is only in the cloud. Download it to see its missions."));
        return;
    }
    SetStatus(tr("Reading the missions..."));
    const quint64 iGeneration = m_iGeneration;
    auto* pWatcher = new QFutureWatcher<SLocalMissions>(this);
    connect(pWatcher, &QFutureWatcherBase::finished, this, [this, pWatcher, iGeneration] {
        pWatcher->deleteLater();
        if (IsCurrent(iGeneration))
            LocalRead(pWatcher->result());
    });
    pWatcher->setFuture(QtConcurrent::run(&LmLocalMissions::Read, projFilePath));
}

void CLmProjDetailsController::LocalRead(const SLocalMissions& local)
{
    m_local = local;
    if (m_local.listTaskIds.isEmpty()) {
        FinishListing();
        return;
    }
    m_iListsPending = m_local.listTaskIds.size();
    for (const QString& strTaskId : qAsConst(m_local.listTaskIds))
        RequestTaskMissions(strTaskId);
}

void CLmProjDetailsController::RequestTaskMissions(const QString& strTaskId)
{
    const quint64 iGeneration = m_iGeneration;
    CLmNetWorkRequest* pRequest = LmCloudRequest::NewSignedIn(LmCloudPath::FlightListByTask);
    connect(pRequest, &CLmNetWorkRequest::ActionSucced, this, [this, iGeneration](const QByteArray& reply) {
        if (IsCurrent(iGeneration))
            TaskListed(reply);
    });
    connect(pRequest, &CLmNetWorkRequest::FailedMsg, this, [this, iGeneration](const QString& strMessage) {
        if (IsCurrent(iGeneration))
            TaskListFailed(strMessage);
    });
    connect(pRequest, &CLmNetWorkRequest::NetWorkError, this, [this, iGeneration] {
        if (IsCurrent(iGeneration))
            TaskListFailed(tr("the cloud cannot be reached"));
    });
    pRequest->SetBody(LmCloudForm::Body({{"task_id", strTaskId}}));
    pRequest->PostNetWorkReplyMessage();
}

void CLmProjDetailsController::TaskListed(const QByteArray& reply)
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    if (IsUnreadable(envelope)) {
        qCWarning(lcProjDetails) << "unreadable mission list of project" << m_strProjId;
        m_strListProblem = tr("A reply of the cloud could not be read; its missions are not listed.");
    } else if (!envelope.IsSuccess()) {
        m_strListProblem = tr("Some missions could not be listed: %1").arg(envelope.Message());
    } else {
        AddListedMissions(envelope.DataArray());
    }
    if (--m_iListsPending == 0)
        FinishListing();
}

void CLmProjDetailsController::TaskListFailed(const QString& strMessage)
{
    m_strListProblem = tr("Some missions could not be listed: %1").arg(strMessage);
    if (--m_iListsPending == 0)
        FinishListing();
}

void CLmProjDetailsController::AddListedMissions(const QJsonArray& rows)
{
    for (const QJsonValue& value : rows) {
        const QJsonObject row = value.toObject();
        const QString strMissionId = MissionIdOf(row);
        // A task id copied into another project lists that project's flights too.
        if (strMissionId.isEmpty() || row.value(QStringLiteral("project_id")).toString() != m_strProjId
            || FindMission(strMissionId))
            continue;
        SMission mission;
        mission.strMissionId = strMissionId;
        mission.strName = row.value(QStringLiteral("mission_name")).toString();
        mission.strFlightTime = row.value(QStringLiteral("created_at")).toString();
        mission.iLogRows = row.value(QStringLiteral("log_count")).toVariant().toLongLong();
        mission.iPositions = row.value(QStringLiteral("pos_count")).toVariant().toLongLong();
        mission.jRow = row;
        m_listMissions.append(mission);
    }
}

void CLmProjDetailsController::FinishListing()
{
    m_bListing = false;
    std::sort(m_listMissions.begin(), m_listMissions.end(), [](const SMission& a, const SMission& b) {
        if (a.strFlightTime != b.strFlightTime)
            return a.strFlightTime < b.strFlightTime;
        return a.strMissionId.toLongLong() < b.strMissionId.toLongLong();
    });
    for (SMission& mission : m_listMissions) {
        mission.eState = m_local.setMissionsWithLog.contains(mission.strMissionId) ? MissionDownloaded
                                                                                    : MissionNotDownloaded;
    }
    Q_EMIT MissionsChanged();
    SetStatus(ListedStatus());
}

QString CLmProjDetailsController::ListedStatus() const
{
    if (!m_strListProblem.isEmpty())
        return m_strListProblem;
    if (m_local.listTaskIds.isEmpty())
        return tr("This project has no flight tasks yet.");
    if (m_listMissions.isEmpty())
        return tr("No mission of this project is in the cloud yet.");
    return tr("%n mission(s) in the cloud. Click a download mark to fetch a mission's flight data.", "",
              m_listMissions.size());
}

void CLmProjDetailsController::DownloadMission(const QString& strMissionId)
{
    const SMission* pMission = FindMission(strMissionId);
    if (!pMission || m_strMissionDbPath.isEmpty()
        || (pMission->eState != MissionNotDownloaded && pMission->eState != MissionDownloadFailed))
        return;
    SDownload download;
    download.ePrevious = pMission->eState;
    m_mapDownloads.insert(strMissionId, download);
    SetMissionState(strMissionId, MissionDownloading);
    SetStatus(tr("Downloading %1...").arg(pMission->strName));
    for (const unsigned int iOperatorType : RowDownloads)
        RequestMissionRows(strMissionId, iOperatorType);
}

void CLmProjDetailsController::RequestMissionRows(const QString& strMissionId, unsigned int iOperatorType)
{
    CLmNetWorkRequest* pRequest = nullptr;
    if (iOperatorType == FlightDataPosData) {
        const QByteArray path = QByteArray(LmCloudPath::FlightDownloadPos) + QUrl::toPercentEncoding(strMissionId);
        pRequest = LmCloudRequest::NewSignedIn(path);
        pRequest->SetBody(LmCloudForm::Body({{"project_id", m_strProjId}}));
    } else {
        pRequest = LmCloudRequest::NewSignedIn(LmCloudPath::FlightGetFlog);
        pRequest->SetBody(LmCloudForm::Body({{"flight_mission_id", strMissionId}, {"project_id", m_strProjId}}));
    }
    const quint64 iGeneration = m_iGeneration;
    connect(pRequest, &CLmNetWorkRequest::ActionSucced, this,
            [this, iGeneration, strMissionId, iOperatorType](const QByteArray& reply) {
                if (IsCurrent(iGeneration))
                    MissionRowsAnswered(strMissionId, iOperatorType, reply);
            });
    connect(pRequest, &CLmNetWorkRequest::FailedMsg, this,
            [this, iGeneration, strMissionId](const QString& strMessage) {
                if (IsCurrent(iGeneration))
                    FailDownload(strMissionId, strMessage);
            });
    connect(pRequest, &CLmNetWorkRequest::NetWorkError, this, [this, iGeneration, strMissionId] {
        if (IsCurrent(iGeneration))
            FailDownload(strMissionId, tr("the cloud cannot be reached"));
    });
    pRequest->PostNetWorkReplyMessage();
}

void CLmProjDetailsController::MissionRowsAnswered(const QString& strMissionId, unsigned int iOperatorType,
                                                   const QByteArray& reply)
{
    const auto it = m_mapDownloads.find(strMissionId);
    if (it == m_mapDownloads.end())
        return;
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    if (IsUnreadable(envelope)) {
        AbandonUnreadableDownload(strMissionId);
        return;
    }
    if (!envelope.IsSuccess()) {
        FailDownload(strMissionId, envelope.Message());
        return;
    }
    it->mapReplies.insert(iOperatorType, envelope.DataArray());
    if (it->mapReplies.size() == int(std::size(RowDownloads)))
        HandOnDownload(strMissionId);
}

void CLmProjDetailsController::HandOnDownload(const QString& strMissionId)
{
    SDownload& download = m_mapDownloads[strMissionId];
    // The mission row goes first, so its flight log never waits in the
    // database without it.
    QList<QPair<unsigned int, QJsonArray>> listBatches{{FlightDataMission, {FindMission(strMissionId)->jRow}}};
    for (const unsigned int iOperatorType : RowDownloads)
        listBatches.append({iOperatorType, download.mapReplies.value(iOperatorType)});
    for (auto& batch : listBatches) {
        batch.second = LmFlightTemplate::Apply(LmFlightTemplate::ForOperatorType(batch.first), batch.second);
        download.mapHandedOn.insert(batch.first, batch.second.size());
    }
    download.mapReplies.clear();
    // The writer may answer within an emission (a direct connection), so
    // the download is not touched from here on.
    for (const auto& batch : qAsConst(listBatches))
        HandOnRows(strMissionId, batch.first, batch.second);
}

void CLmProjDetailsController::HandOnRows(const QString& strMissionId, unsigned int iOperatorType,
                                          const QJsonArray& rows)
{
    qCDebug(lcProjDetails) << "handing on" << rows.size() << "rows of type" << iOperatorType << "of mission"
                           << strMissionId;
    Q_EMIT parseJsonArray(rows, m_strMissionDbPath, strMissionId, iOperatorType, m_strProjName);
}

void CLmProjDetailsController::slotFlightDataParsed(QString strFilePath, QString strMissionID,
                                                    unsigned int iOperatorType, int iRows)
{
    if (m_strMissionDbPath.isEmpty() || strFilePath != m_strMissionDbPath)
        return;
    const auto it = m_mapDownloads.find(strMissionID);
    if (it == m_mapDownloads.end())
        return;
    const auto handedOn = it->mapHandedOn.find(iOperatorType);
    if (handedOn == it->mapHandedOn.end())
        return;
    if (iRows != *handedOn) {
        qCWarning(lcProjDetails) << "mission" << strMissionID << ":" << iRows << "of" << *handedOn
                                 << "rows of type" << iOperatorType << "written";
        it->bWriteFailed = true;
    }
    it->mapHandedOn.erase(handedOn);
    if (it->mapHandedOn.isEmpty())
        FinishDownload(strMissionID);
}

void CLmProjDetailsController::FinishDownload(const QString& strMissionId)
{
    if (m_mapDownloads.value(strMissionId).bWriteFailed) {
        FailDownload(strMissionId, tr("its flight data could not be stored on this computer"));
        return;
    }
    m_mapDownloads.remove(strMissionId);
    SetMissionState(strMissionId, MissionDownloaded);
    SetStatus(tr("%1 downloaded.").arg(FindMission(strMissionId)->strName));
}

void CLmProjDetailsController::FailDownload(const QString& strMissionId, const QString& strWhy)
{
    if (!m_mapDownloads.remove(strMissionId))
        return;
    qCInfo(lcProjDetails) << "download of mission" << strMissionId << "failed:" << strWhy;
    SetMissionState(strMissionId, MissionDownloadFailed);
    SetStatus(tr("Could not download %1: %2").arg(FindMission(strMissionId)->strName, strWhy));
}

void CLmProjDetailsController::AbandonUnreadableDownload(const QString& strMissionId)
{
    const EMissionState ePrevious = m_mapDownloads.take(strMissionId).ePrevious;
    qCWarning(lcProjDetails) << "unreadable flight data of mission" << strMissionId;
    SetMissionState(strMissionId, ePrevious);
    SetStatus(tr("A reply of the cloud for %1 could not be read; nothing was changed.")
                  .arg(FindMission(strMissionId)->strName));
}

bool CLmProjDetailsController::IsCurrent(quint64 iGeneration) const
{
    return iGeneration == m_iGeneration;
}

CLmProjDetailsController::SMission* CLmProjDetailsController::FindMission(const QString& strMissionId)
{
    const auto it = std::find_if(m_listMissions.begin(), m_listMissions.end(),
                                 [&](const SMission& mission) { return mission.strMissionId == strMissionId; });
    return it == m_listMissions.end() ? nullptr : &*it;
}

void CLmProjDetailsController::SetMissionState(const QString& strMissionId, EMissionState eState)
{
    SMission* pMission = FindMission(strMissionId);
    if (!pMission || pMission->eState == eState)
        return;
    pMission->eState = eState;
    Q_EMIT MissionStateChanged(strMissionId, eState);
}

void CLmProjDetailsController::SetStatus(const QString& strText)
{
    m_strStatus = strText;
    Q_EMIT StatusChanged(strText);
}

QString CLmProjDetailsController::ProjectId() const
{
    return m_strProjId;
}

QString CLmProjDetailsController::ProjectName() const
{
    return m_strProjName;
}

QString CLmProjDetailsController::MissionDatabasePath() const
{
    return m_strMissionDbPath;
}

bool CLmProjDetailsController::IsCloudOnly() const
{
    return m_strMissionDbPath.isEmpty();
}

bool CLmProjDetailsController::IsListing() const
{
    return m_bListing;
}

int CLmProjDetailsController::FlightTaskCount() const
{
    return m_local.listTaskIds.size();
}

const QList<CLmProjDetailsController::SMission>& CLmProjDetailsController::Missions() const
{
    return m_listMissions;
}

int CLmProjDetailsController::DownloadedCount() const
{
    return int(std::count_if(m_listMissions.begin(), m_listMissions.end(),
                             [](const SMission& mission) { return mission.eState == MissionDownloaded; }));
}

QString CLmProjDetailsController::StatusText() const
{
    return m_strStatus;
}
