#include "CLmProjMgrController.h"

#include "CLmCarrowmereProjMgrObj.h"
#include "CLmControl.h"
#include "CLmNetWorkRequest.h"
#include "CLmReplyEnvelope.h"
#include "LmCarrowmereUILog.h"
#include "LmCloudForm.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"
#include "LmProjectFolder.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QtConcurrent>

namespace {

constexpr char RequestTypeProperty[] = "NetworkRequesType";
constexpr char DeleteOneType[] = "DeleteOneProject";
constexpr char DeleteSelectedType[] = "DeleteSelectAll";
// Statuses below this one mean the cloud no longer holds the projects.
constexpr int FirstRefusalStatus = 3;

qint64 FolderSize(const QString& folder)
{
    qint64 bytes = 0;
    QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        bytes += it.fileInfo().size();
    }
    return bytes;
}

bool IsFailure(const SProjInfor& info)
{
    return info.strState == CLmCarrowmereProjMgrObj::tr("Failed");
}

}  // namespace

CLmProjMgrController::CLmProjMgrController(QObject* parent)
    : QObject(parent)
{
    qRegisterMetaType<ETransferList>();
    qRegisterMetaType<EDeleteKind>();
    qRegisterMetaType<EDeleteOutcome>();
    connect(&m_storageWatcher, &QFutureWatcher<qint64>::finished, this, &CLmProjMgrController::slotStorageSized);
}

CLmProjMgrController::SFlightLog CLmProjMgrController::FlightLog(int missionCount, int flownCount)
{
    if (missionCount <= 0)
        return {QStringLiteral("------"), FlightLogNone};
    const QString text = QString::number(flownCount) + QLatin1Char('/') + QString::number(missionCount);
    if (flownCount < missionCount)
        return {text, FlightLogSomeFlown};
    return {text, flownCount == missionCount ? FlightLogAllFlown : FlightLogNone};
}

// ---- rows ----------------------------------------------------------------------

void CLmProjMgrController::AddProject(const SProjInfor& info)
{
    const int known = m_hashRows.size();
    SRow& row = m_hashRows[info.strProjID];
    const bool isNew = m_hashRows.size() != known;
    row.strProjID = info.strProjID;
    StoreRow(row, info);
    if (isNew)
        Q_EMIT RowAdded(info.strProjID);
    else
        Q_EMIT RowChanged(info.strProjID);
}

void CLmProjMgrController::UpdateProject(const SProjInfor& info)
{
    const auto found = m_hashRows.find(info.strProjID);
    if (found == m_hashRows.end())
        return;
    StoreRow(*found, info);
    Q_EMIT RowChanged(info.strProjID);
}

void CLmProjMgrController::StoreRow(SRow& row, const SProjInfor& info)
{
    row.strName = info.strProjName;
    row.strUpdateTime = info.strUpdateTime;
    row.updateDay = CLmProjFilter::DayOf(info.strUpdateTime);
    if (!info.strProjPath.isEmpty())
        row.strPath = info.strProjPath;
    row.iMissionCount = info.iMissionCount;
    row.iFlownCount = info.iFlownCount;
    row.iSynchState = info.iSynchState;
}

void CLmProjMgrController::SetSynchState(const QString& projId, int state)
{
    const auto found = m_hashRows.find(projId);
    if (found == m_hashRows.end() || found->iSynchState == state)
        return;
    found->iSynchState = state;
    Q_EMIT RowChanged(projId);
}

void CLmProjMgrController::SetCities(const QString& projId, const QStringList& cities)
{
    const auto found = m_hashRows.find(projId);
    if (found == m_hashRows.end())
        return;
    found->listCities = cities;
    Q_EMIT RowChanged(projId);
}

void CLmProjMgrController::SetChecked(const QString& projId, bool checked)
{
    const auto found = m_hashRows.find(projId);
    if (found != m_hashRows.end())
        found->bChecked = checked;
}

void CLmProjMgrController::SetAllChecked(bool checked)
{
    for (SRow& row : m_hashRows)
        row.bChecked = checked;
}

void CLmProjMgrController::Clear()
{
    m_hashRows.clear();
    for (auto& transfers : m_hashTransfers)
        transfers.clear();
    m_setRowDownloads.clear();
}

bool CLmProjMgrController::HasRow(const QString& projId) const
{
    return m_hashRows.contains(projId);
}

CLmProjMgrController::SRow CLmProjMgrController::Row(const QString& projId) const
{
    return m_hashRows.value(projId);
}

const CLmProjMgrController::SRow* CLmProjMgrController::FindRow(const QString& projId) const
{
    const auto found = m_hashRows.constFind(projId);
    return found == m_hashRows.constEnd() ? nullptr : &found.value();
}

QStringList CLmProjMgrController::CheckedIds() const
{
    QStringList ids;
    for (const SRow& row : m_hashRows) {
        if (row.bChecked)
            ids.append(row.strProjID);
    }
    ids.sort();
    return ids;
}

int CLmProjMgrController::CheckedCount() const
{
    return static_cast<int>(std::count_if(m_hashRows.cbegin(), m_hashRows.cend(),
                                          [](const SRow& row) { return row.bChecked; }));
}

int CLmProjMgrController::ProjectCount() const
{
    return m_hashRows.size();
}

QString CLmProjMgrController::LocalFile(const QString& projId) const
{
    const QFileInfo file(m_hashRows.value(projId).strPath);
    return file.isFile() ? file.absoluteFilePath() : QString();
}

QStringList CLmProjMgrController::AllCities() const
{
    QSet<QString> cities;
    for (const SRow& row : m_hashRows) {
        for (const QString& city : row.listCities)
            cities.insert(city);
    }
    return cities.values();
}

// ---- filter --------------------------------------------------------------------

void CLmProjMgrController::SetFilter(const CLmProjFilter& filter)
{
    m_filter = filter;
}

const CLmProjFilter& CLmProjMgrController::Filter() const
{
    return m_filter;
}

bool CLmProjMgrController::IsVisible(const QString& projId) const
{
    const SRow* row = FindRow(projId);
    return row && IsVisible(*row);
}

bool CLmProjMgrController::IsVisible(const SRow& row) const
{
    return m_filter.Accepts(row.strName, row.listCities, row.updateDay);
}

// ---- actions -------------------------------------------------------------------

CLmProjMgrController::EActionStart CLmProjMgrController::CheckActionStart(const QStringList& projIds) const
{
    if (!CLmControl::GetInstance()->IsNetWorkConnected())
        return ActionOffline;
    return projIds.isEmpty() ? ActionNothingChosen : ActionReady;
}

CLmProjMgrController::EActionStart CLmProjMgrController::DeleteProject(const QString& projId)
{
    const EActionStart start = CheckActionStart(HasRow(projId) ? QStringList{projId} : QStringList());
    if (start != ActionReady)
        return start;
    CLmNetWorkRequest* request = NewDeleteRequest(LmCloudPath::ProjectRemove, DeleteOne);
    request->SetBody(LmCloudForm::Body({{"id", projId}}));
    request->SetUserData(ProjIdRole, projId);
    request->SetUserData(ProjPathRole, m_hashRows.value(projId).strPath);
    request->PostNetWorkReplyMessage();
    return ActionReady;
}

CLmProjMgrController::EActionStart CLmProjMgrController::DeleteChecked()
{
    const QStringList ids = CheckedIds();
    const EActionStart start = CheckActionStart(ids);
    if (start != ActionReady)
        return start;
    CLmNetWorkRequest* request = NewDeleteRequest(LmCloudPath::ProjectRemoveMulti, DeleteSelected);
    request->SetBody(LmCloudForm::Body({{"ids", ids.join(QLatin1Char(','))}}));
    request->SetUserData(ProjIdRole, ids);
    request->PostNetWorkReplyMessage();
    return ActionReady;
}

CLmProjMgrController::EActionStart CLmProjMgrController::StartRowDownload(const QString& projId)
{
    const EActionStart start = CheckActionStart({projId});
    if (start == ActionReady)
        m_setRowDownloads.insert(projId);
    return start;
}

CLmNetWorkRequest* CLmProjMgrController::NewDeleteRequest(const QByteArray& path, EDeleteKind kind)
{
    CLmNetWorkRequest* request = LmCloudRequest::NewSignedIn(path);
    request->setProperty(RequestTypeProperty,
                         QLatin1String(kind == DeleteOne ? DeleteOneType : DeleteSelectedType));
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmProjMgrController::slotActionSucceed);
    connect(request, &CLmNetWorkRequest::FailedMsg, this, &CLmProjMgrController::slotDeleteFailedMsg);
    connect(request, &CLmNetWorkRequest::NetWorkError, this, &CLmProjMgrController::slotDeleteNetWorkError);
    return request;
}

CLmProjMgrController::EDeleteKind CLmProjMgrController::KindOf(const QObject* request)
{
    return request && request->property(RequestTypeProperty).toString() == QLatin1String(DeleteOneType)
               ? DeleteOne
               : DeleteSelected;
}

void CLmProjMgrController::slotActionSucceed(const QByteArray& reply)
{
    const auto* request = qobject_cast<const CLmNetWorkRequest*>(sender());
    if (!request)
        return;
    const EDeleteKind kind = KindOf(request);
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    if (!envelope.IsParsed() || envelope.Status() == CLmReplyEnvelope::NoStatus) {
        qCWarning(lcProjMgr) << "unreadable reply to a project removal";
        Q_EMIT DeleteFinished(kind, DeleteUnreadableReply, QString());
        return;
    }
    if (envelope.Status() >= FirstRefusalStatus) {
        Q_EMIT DeleteFinished(kind, DeleteCloudRefused, envelope.Message());
        return;
    }
    RemoveLocally(kind, request->GetUserData(ProjIdRole).toStringList());
}

void CLmProjMgrController::slotDeleteFailedMsg(const QString& message)
{
    Q_EMIT DeleteFinished(KindOf(sender()), DeleteCloudRefused, message);
}

void CLmProjMgrController::slotDeleteNetWorkError()
{
    Q_EMIT DeleteFinished(KindOf(sender()), DeleteNetworkFault, QString());
}

void CLmProjMgrController::RemoveLocally(EDeleteKind kind, const QStringList& projIds)
{
    QVector<SRemoval> removals;
    // A project only in the cloud has no folder here.
    for (const QString& id : projIds)
        removals.append(SRemoval{id, LocalFile(id), false});
    auto* watcher = new QFutureWatcher<QVector<SRemoval>>(this);
    connect(watcher, &QFutureWatcher<QVector<SRemoval>>::finished, this, [this, watcher, kind]() {
        ApplyRemovals(kind, watcher->result());
        watcher->deleteLater();
    });
    watcher->setFuture(QtConcurrent::run(&CLmProjMgrController::RemoveFolders, removals,
                                         CLmControl::GetInstance()->GetProjectDirPath()));
}

QVector<CLmProjMgrController::SRemoval> CLmProjMgrController::RemoveFolders(QVector<SRemoval> removals,
                                                                            const QString& projectRoot)
{
    using LmProjectFolder::ERemoval;
    for (SRemoval& removal : removals) {
        if (removal.strPath.isEmpty()) {
            removal.bRemoved = true;
            continue;
        }
        const ERemoval result = LmProjectFolder::Remove(removal.strPath, projectRoot);
        removal.bRemoved = result == ERemoval::Removed || result == ERemoval::Missing;
        if (!removal.bRemoved)
            qCWarning(lcProjMgr) << "project folder kept" << removal.strPath << int(result);
    }
    return removals;
}

void CLmProjMgrController::ApplyRemovals(EDeleteKind kind, const QVector<SRemoval>& removals)
{
    QStringList removed;
    for (const SRemoval& removal : removals) {
        if (!removal.bRemoved || !m_hashRows.remove(removal.strProjID))
            continue;
        removed.append(removal.strProjID);
        m_setRowDownloads.remove(removal.strProjID);
    }
    if (!removed.isEmpty())
        Q_EMIT RowsRemoved(removed);
    const bool allRemoved = std::all_of(removals.cbegin(), removals.cend(),
                                        [](const SRemoval& removal) { return removal.bRemoved; });
    Q_EMIT DeleteFinished(kind, allRemoved ? DeleteRemoved : DeleteLocalInUse, QString());
    RefreshStorageSize();
}

// ---- transfers -----------------------------------------------------------------

CLmProjMgrController::STransfer CLmProjMgrController::WaitingTransfer(const SProjInfor& info) const
{
    STransfer transfer;
    transfer.strProjID = info.strProjID;
    transfer.strName = info.strProjName;
    transfer.strPath = info.strProjPath;
    transfer.strProgress = QStringLiteral("0%");
    transfer.strState = tr("Waiting...");
    return transfer;
}

void CLmProjMgrController::AddUpload(const SProjInfor& info)
{
    SetSynchState(info.strProjID, info.iSynchState);
    PutTransfer(UploadingList, WaitingTransfer(info));
}

void CLmProjMgrController::AddDownload(const SProjInfor& info)
{
    SetSynchState(info.strProjID, info.iSynchState);
    PutTransfer(DownloadingList, WaitingTransfer(info));
}

void CLmProjMgrController::UpdateUpload(const SProjInfor& info)
{
    STransfer transfer = WaitingTransfer(info);
    transfer.strProgress = info.strProgress;
    transfer.strState = tr("Uploading...");
    PutTransfer(UploadingList, transfer);
}

void CLmProjMgrController::UpdateDownload(const SProjInfor& info)
{
    STransfer transfer = WaitingTransfer(info);
    transfer.strProgress = info.strProgress;
    transfer.strState = tr("Downloading...");
    PutTransfer(DownloadingList, transfer);
}

void CLmProjMgrController::FinishUpload(const SProjInfor& info)
{
    const bool failed = IsFailure(info);
    MoveToFinished(UploadingList, info, failed, failed ? tr("Upload Failed") : tr("Uploading Finished"));
    if (!failed)
        SetSynchState(info.strProjID, SynchStateInStep);
}

void CLmProjMgrController::FinishDownload(const SProjInfor& info)
{
    const bool failed = IsFailure(info);
    MoveToFinished(DownloadingList, info, failed, failed ? tr("Download Failed") : tr("Download Finished"));
    const bool askedFromRow = m_setRowDownloads.remove(info.strProjID);
    if (failed && askedFromRow)
        Q_EMIT RowDownloadFailed(info.strProjID);
    if (!failed)
        RefreshStorageSize();
}

void CLmProjMgrController::MoveToFinished(ETransferList from, const SProjInfor& info, bool failed,
                                         const QString& state)
{
    TakeTransfer(from, info.strProjID);
    STransfer transfer = WaitingTransfer(info);
    transfer.strProgress = failed ? info.strProgress : QStringLiteral("100%");
    transfer.strState = state;
    transfer.bFinished = !failed;
    PutTransfer(FinishedList, transfer);
}

void CLmProjMgrController::ForgetWaitingTransfers()
{
    for (ETransferList list : {UploadingList, DownloadingList}) {
        const QList<STransfer> transfers = m_hashTransfers[list].values();
        for (const STransfer& transfer : transfers) {
            if (transfer.strState == tr("Waiting..."))
                TakeTransfer(list, transfer.strProjID);
        }
    }
}

void CLmProjMgrController::PutTransfer(ETransferList list, const STransfer& transfer)
{
    m_hashTransfers[list].insert(transfer.strProjID, transfer);
    Q_EMIT TransferChanged(list, transfer.strProjID);
}

void CLmProjMgrController::TakeTransfer(ETransferList list, const QString& projId)
{
    if (m_hashTransfers[list].remove(projId))
        Q_EMIT TransferRemoved(list, projId);
}

QList<CLmProjMgrController::STransfer> CLmProjMgrController::Transfers(ETransferList list) const
{
    return m_hashTransfers[list].values();
}

CLmProjMgrController::STransfer CLmProjMgrController::Transfer(ETransferList list, const QString& projId) const
{
    return m_hashTransfers[list].value(projId);
}

// ---- footer --------------------------------------------------------------------

void CLmProjMgrController::RefreshStorageSize()
{
    // A sizing under way is superseded: only the latest figure is reported.
    m_storageWatcher.setFuture(QtConcurrent::run(&FolderSize, CLmControl::GetInstance()->GetProjectDirPath()));
}

void CLmProjMgrController::slotStorageSized()
{
    Q_EMIT StorageSizeReady(m_storageWatcher.result());
}
