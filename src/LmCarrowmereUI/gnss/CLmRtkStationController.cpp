#include "CLmRtkStationController.h"

#include "CLmBaseStationLink.h"
#include "CLmFtpClientLink.h"
#include "CLmStationPrompts.h"
#include "LmCarrowmereUILog.h"
#include "LmStationFiles.h"

#include <QFutureWatcher>
#include <QtConcurrent>

using namespace LmStationRules;

namespace {

// The last integer of the three Set operations and their two unused doubles.
constexpr int kSetTail = 6;
constexpr double kUnused = 0.0;

QString NoParameters()
{
    return CLmRtkStationController::tr("One or more parameter can not set");
}

}  // namespace

CLmRtkStationController::CLmRtkStationController(CLmStationPrompts* pPrompts, const QString& referencePointsFile,
                                                 QObject* parent)
    : QObject(parent)
    , m_pointStore(referencePointsFile.isEmpty() ? CLmReferencePointStore::DefaultFilePath() : referencePointsFile)
    , m_pPrompts(pPrompts)
{
    m_mainFrameTimer.setInterval(MainFramePeriodMs);
    connect(&m_mainFrameTimer, &QTimer::timeout, this, &CLmRtkStationController::slotReadMainFrame);
}

CLmRtkStationController::~CLmRtkStationController() = default;

// ---- connection ----

void CLmRtkStationController::Connect2Station()
{
    if (!m_link) {
        m_link = new CLmBaseStationLink(this);
        m_link->StartService();
        ConnectLinkSignals();
    }
    m_link->Connect2BaseStation();
}

void CLmRtkStationController::Disconnect2Station()
{
    if (m_link)
        m_link->Disconnect2BaseStation();
}

// Replies are handled from the event loop, not from inside the link's read
// handler: a question they open waits for the user while the link goes on
// reading the station.
void CLmRtkStationController::ConnectLinkSignals()
{
    using Helper = CLmBaseStationLinkHelper;
    using Self = CLmRtkStationController;
    Helper* helper = &CLmBaseStationLink::m_linkHelper;
    const auto queued = Qt::QueuedConnection;
    connect(helper, &Helper::ConnectState, this, &Self::slotBaseStationConnected, queued);
    connect(helper, &Helper::BaseStationMainFrame, this, &Self::slotBaseStationMainFrame, queued);
    connect(helper, &Helper::SettingRet, this, &Self::slotSettingRet, queued);
    connect(helper, &Helper::StaticFileState, this, &Self::slotStaticFileState, queued);
    connect(helper, &Helper::StaticsFileList, this, &Self::slotReceivedStaticsFileList, queued);
    connect(helper, &Helper::CasterParam, this, &Self::slotReceivedCasterParam, queued);
    connect(helper, &Helper::GGAParam, this, &Self::slotReceivedGGAParam, queued);
    connect(helper, &Helper::SrcNodeList, this, &Self::slotReceivedSrcNodeList, queued);
    connect(helper, &Helper::StorageInfor, this, &Self::slotReceivedStorageInfor, queued);
    connect(helper, &Helper::SrcNodeConnectState, this, &Self::slotSrcNodeConnectState, queued);
    connect(helper, &Helper::ReadStaticsFileFinished, this, &Self::slotReadStaticsFileFinished, queued);
    connect(helper, &Helper::Loction, this, &Self::slotBaseStationLoction, queued);
}

void CLmRtkStationController::slotBaseStationConnected(bool bConnected)
{
    Q_EMIT BaseStationConnect(bConnected);
    if (!bConnected) {
        // Whatever was asked of the station is not going to be answered.
        m_bAwaitingStateForAction = false;
        Q_EMIT StationLost();
        return;
    }
    if (!m_pFtp)
        CreateFtpClient();
    // The own position is what a new point is checked against.
    m_link->ReadLoction();
    if (!m_bFirstState) {
        m_link->ReadMainframe();
        m_mainFrameTimer.start();
    }
}

void CLmRtkStationController::CreateFtpClient()
{
    m_pFtp = new CLmFtpClientLink(this);
    m_pFtp->SetFtpHostPort(CLmBaseStationLink::StationHost(), CLmBaseStationLink::StationFtpPort());
    connect(m_pFtp, &CLmFtpClientLink::downloadProgress, this, &CLmRtkStationController::slotDownloadProcess);
    // The next file is asked for once the client has finished with the last one.
    connect(m_pFtp, &CLmFtpClientLink::downLoadFinished, this, &CLmRtkStationController::slotDownloadFinished,
            Qt::QueuedConnection);
    connect(m_pFtp, &CLmFtpClientLink::NetWorkError, this, &CLmRtkStationController::slotDownloadError,
            Qt::QueuedConnection);
}

void CLmRtkStationController::slotReadMainFrame()
{
    if (m_link)
        m_link->ReadMainframe();
}

void CLmRtkStationController::slotBaseStationMainFrame(SBaseStationMainFrame mainFrame)
{
    Q_EMIT MainFrameRead(mainFrame);
    Q_EMIT RTKFirmwareVersion(mainFrame.nFirmwareVersion);
    m_link->ReadStaticFileState();
}

// ---- the settings walk ----

void CLmRtkStationController::SetStationMode(int mode)
{
    m_nStationMode = mode;
    if (mode == eModeDisuse)
        ShowSettingsPage(eModePage, tr("OK"));
    else
        ShowSettingsPage(eKnownPointPage, tr("Save"));
}

void CLmRtkStationController::ShowSettingsPage(int page, const QString& buttonText)
{
    m_nSettingsPage = page;
    m_strButtonText = buttonText;
    // "Disuse" has nothing to save: its button appears only while there is a
    // recording to stop.
    Q_EMIT SettingsPageChanged(page, buttonText, page != eModePage || m_bRecording);
}

void CLmRtkStationController::ShowCorsPage(bool bCors)
{
    if (m_nStationMode == eModeCorsPpk && m_nSettingsPage != eKnownPointPage)
        ShowSettingsPage(bCors ? eCorsPage : eRawDataPage, tr("Save"));
}

void CLmRtkStationController::NextStep(const SLmStationSetup& setup)
{
    if (m_nStationMode == eModeDisuse) {
        RequestStateForAction();
        return;
    }
    if (m_nStationMode < eModePpk || m_nStationMode > eModeSingleStation)
        return;
    if (!setup.bComplete) {
        m_pPrompts->Inform(NoParameters());
        return;
    }
    m_setup = setup;
    if (m_nStationMode == eModeCorsPpk)
        NextStepCors(setup);
    else
        NextStepPpkOrBase(setup);
}

void CLmRtkStationController::NextStepPpkOrBase(const SLmStationSetup& setup)
{
    const int parameterPage = m_nStationMode == eModePpk ? ePpkPage : eBasePage;
    if (m_nSettingsPage == parameterPage) {
        // The setting is sent from the state reply, so that nothing changes
        // while the station records.
        RequestStateForAction();
        return;
    }
    const QString question = m_nStationMode == eModePpk
        ? tr("The deviation between the current setting point and the single point positioning coordinates is too "
             "large, do you want to continue?")
        : tr("The deviation between the current setting and the single point positioning coordinates is too large, "
             "do you want to continue?");
    if (!CheckDeviation(setup, question) || !SaveManualPoint(setup))
        return;
    ShowSettingsPage(parameterPage, tr("Save"));
}

void CLmRtkStationController::NextStepCors(const SLmStationSetup& setup)
{
    if (m_nSettingsPage == eCorsPage) {
        if (setup.mountPoint.isEmpty()) {
            m_pPrompts->Inform(NoParameters());
            return;
        }
        SendRoverNtrips();
    } else if (m_nSettingsPage == eRawDataPage) {
        SendStartStaticFile();
    }
    const QString question = tr("The deviation between the current setting and the single point positioning "
                                "coordinates is too large, do you want to continue?");
    if (!CheckDeviation(setup, question) || !SaveManualPoint(setup))
        return;
    ShowSettingsPage(eCorsPage, tr("Save"));
    m_link->ReadCaster();
}

// Without an own position from the station nothing confirms the point, so
// the user is asked as for a point too far away.
bool CLmRtkStationController::CheckDeviation(const SLmStationSetup& setup, const QString& question)
{
    LmBaseStationMath::SGeoPoint antenna = setup.entered;
    antenna.altitude += setup.stationVertical;
    if (m_bOwnPositionKnown && LmBaseStationMath::IsDeviationAcceptable(antenna, m_ownPosition))
        return true;
    return m_pPrompts->Confirm(question);
}

bool CLmRtkStationController::SaveManualPoint(const SLmStationSetup& setup)
{
    if (m_nKnownPoint != 0)
        return true;
    SLmReferencePoint point;
    point.lat = setup.entered.lat;
    point.lng = setup.entered.lng;
    point.altitude = setup.entered.altitude;
    point.stationVertical = setup.stationVertical;
    return SaveNewPoint(point);
}

void CLmRtkStationController::Format()
{
    if (m_nStationMode != eModeFormat)
        m_nModeBeforeFormat = m_nStationMode;
    m_nStationMode = eModeFormat;
    RequestStateForAction();
}

// Formatting is a moment, not a mode: afterwards the page is in the mode
// its combo box shows.
void CLmRtkStationController::EndFormat()
{
    if (m_nStationMode == eModeFormat)
        m_nStationMode = m_nModeBeforeFormat;
}

void CLmRtkStationController::RequestStateForAction()
{
    if (!m_link)
        return;
    m_bAwaitingStateForAction = true;
    m_link->ReadStaticFileState();
}

void CLmRtkStationController::StopRecording()
{
    ConfirmStopRecording(tr("The operator will be stop static capture.Are you sure?"));
}

void CLmRtkStationController::ConfirmStopRecording(const QString& question)
{
    if (m_link && m_pPrompts->Confirm(question))
        m_link->StopStaticFile();
}

// ---- state replies ----

void CLmRtkStationController::SetStateTabShowing(bool bShowing)
{
    m_bStateTabShowing = bShowing;
}

void CLmRtkStationController::ReadLocation()
{
    if (m_link)
        m_link->ReadLoction();
}

void CLmRtkStationController::ReadFileState()
{
    if (m_link)
        m_link->ReadStaticFileState();
}

void CLmRtkStationController::slotStaticFileState(SStaticFileState state)
{
    m_bRecording = state.nRecording == 1;
    Q_EMIT StaticFileStateRead(state, m_bRecording);
    ShowSettingsPage(m_nSettingsPage, m_strButtonText);
    const bool bFirstReply = !m_bFirstState;
    if (bFirstReply) {
        m_bFirstState = true;
        RunStateAction(StateReplyAction(m_bRecording, m_nStationMode, true, SelectedPoint() != nullptr));
        return;
    }
    if (!m_bRecording)
        Q_EMIT TabsLocked(false);
    // Replies to the periodic reading and to the state tab only show the state.
    if (m_bStateTabShowing || !m_bAwaitingStateForAction)
        return;
    m_bAwaitingStateForAction = false;
    RunStateAction(StateReplyAction(m_bRecording, m_nStationMode, false, SelectedPoint() != nullptr));
}

void CLmRtkStationController::RunStateAction(EStateAction action)
{
    switch (action) {
    case eLockOnStateTab:
        Q_EMIT TabsLocked(true);
        break;
    case eResetToDisuse:
        SetStationMode(eModeDisuse);
        break;
    case eSendStatic:
        SendStatic();
        break;
    case eSendBase:
        SendBase();
        break;
    case eAskFormat:
        if (m_pPrompts->Confirm(tr("Are you sure to format base station,the operator will be delete all files.")))
            m_link->DeleteStaticFiles({});
        else
            EndFormat();
        break;
    case eAskStopRecording:
        ConfirmStopRecording(tr("The operator will be stop static capture.Are you sure?"));
        break;
    case eAskStopBeforeFormat:
        EndFormat();
        ConfirmStopRecording(tr("Currently in static record mode,please stop static file then click format button."));
        break;
    case eAskStopBeforeSave:
        m_pPrompts->Inform(tr("Currently in static record mode,please stop static file then click save button."));
        ConfirmStopRecording(tr("Are you stop static record file?"));
        break;
    case eNoAction:
        break;
    }
}

// ---- sending the settings ----

const SLmReferencePoint* CLmRtkStationController::SelectedPoint() const
{
    const QList<SLmReferencePoint>& points = m_pointStore.Points();
    const int index = m_nKnownPoint - 1;
    return index >= 0 && index < points.size() ? &points.at(index) : nullptr;
}

namespace {

// The selected point as the Set operations take it.
struct SPackedPoint {
    double lat = 0;
    double lng = 0;
    double height = 0;
};

SPackedPoint Pack(const SLmReferencePoint* point, double stationVertical)
{
    if (!point)
        return {};
    return {LmBaseStationMath::PackDdmm(point->lat), LmBaseStationMath::PackDdmm(point->lng),
            point->altitude + stationVertical};
}

}  // namespace

void CLmRtkStationController::SendStatic()
{
    const SPackedPoint p = Pack(SelectedPoint(), m_setup.stationVertical);
    m_link->SetStaticNtrip({}, 0, {}, {}, {}, 0, p.lat, p.lng, p.height, kUnused, kUnused, m_setup.elevationMask,
                           m_setup.rate, m_setup.gnssType, kSetTail);
}

void CLmRtkStationController::SendBase()
{
    const SPackedPoint p = Pack(SelectedPoint(), m_setup.stationVertical);
    m_link->SetBaseNtrip(p.lat, p.lng, p.height, kUnused, kUnused, m_setup.elevationMask, m_setup.rate,
                         m_setup.gnssType, kSetTail);
}

void CLmRtkStationController::SendRoverNtrips()
{
    const SPackedPoint p = Pack(SelectedPoint(), m_setup.stationVertical);
    m_link->SetRoverNtrips(m_setup.host.toLatin1(), m_setup.port, m_setup.account.toLatin1(),
                           m_setup.password.toLatin1(), m_setup.mountPoint.toLatin1(), 0, p.lat, p.lng, p.height,
                           kUnused, kUnused, m_setup.elevationMask, m_setup.rate, m_setup.gnssType, kSetTail);
}

void CLmRtkStationController::SendStartStaticFile()
{
    m_link->StartStaticFile({}, 0, m_setup.rawRate, m_setup.rawElevationMask);
}

void CLmRtkStationController::slotSettingRet(QString name, int code)
{
    const SSettingResult result = SettingResult(name, code);
    if (!result.bKnown)
        return;
    ApplySettingResult(name, result);
    if (!result.message.isEmpty())
        m_pPrompts->Inform(result.message);
}

void CLmRtkStationController::ApplySettingResult(const QString& name, const SSettingResult& result)
{
    if (name == QLatin1String("roverNtrips") && result.bSuccess) {
        ShowSettingsPage(m_nSettingsPage, tr("Save"));
    } else if (name == QLatin1String("deleteStaticFile")) {
        if (result.bSuccess && m_nStationMode == eModeFormat)
            Q_EMIT FileTableCleared();
        else if (result.bSuccess)
            Q_EMIT FilesRemoved(m_lstDeleting);
        m_lstDeleting.clear();
        EndFormat();
        ReadStorage();
    }
}

// ---- caster, position, source nodes ----

void CLmRtkStationController::slotReceivedCasterParam(SSCasterParam param)
{
    Q_EMIT CasterParamRead(param);
}

void CLmRtkStationController::slotBaseStationLoction(SBaseStationLoction location)
{
    m_ownPosition = {LmBaseStationMath::DegreesFromDdmm(location.dLatitude),
                     LmBaseStationMath::DegreesFromDdmm(location.dLongitude), location.dAltitude};
    m_bOwnPositionKnown = true;
    Q_EMIT DiffFormatRead(location.strDiffFormat);
}

std::optional<LmBaseStationMath::SGeoPoint> CLmRtkStationController::OwnPosition() const
{
    if (!m_bOwnPositionKnown)
        return std::nullopt;
    return m_ownPosition;
}

void CLmRtkStationController::slotReceivedGGAParam(SGGAParam param)
{
    if (param.nQuality > 0) {
        m_ownPosition = {LmBaseStationMath::DegreesFromDdmm(param.dLatitude),
                         LmBaseStationMath::DegreesFromDdmm(param.dLongitude), param.dAltitude};
        m_bOwnPositionKnown = true;
    }
    Q_EMIT PositionRead(param);
    if (!m_capture.IsRunning())
        return;
    const bool bDone = m_capture.Feed(param);
    Q_EMIT CaptureProgress(m_capture.Taken(), m_capture.Wanted());
    if (bDone)
        Q_EMIT CaptureFinished(m_capture.Result());
}

void CLmRtkStationController::AcquireSourceNodes(const QString& host, const QString& port)
{
    if (host.isEmpty() || port.isEmpty()) {
        m_pPrompts->Inform(tr("Please input host address and port."));
        return;
    }
    if (m_link)
        m_link->GetSourceNode(host.toLatin1(), port.toInt(nullptr, 10));
}

void CLmRtkStationController::slotReceivedSrcNodeList(QStringList nodes, int)
{
    Q_EMIT SourceNodesRead(nodes);
    Q_EMIT SourceNodeState(true);
}

void CLmRtkStationController::slotSrcNodeConnectState(bool bConnected)
{
    Q_EMIT SourceNodeState(bConnected);
    if (!bConnected)
        m_pPrompts->Inform(tr("Acquiring source node failed,please check host address and port."));
}

// ---- reference points ----

QList<SLmReferencePoint> CLmRtkStationController::ReferencePoints() const
{
    return m_pointStore.Points();
}

QStringList CLmRtkStationController::ReferencePointNames() const
{
    return m_pointStore.Names();
}

void CLmRtkStationController::SelectKnownPoint(int index)
{
    m_nKnownPoint = index;
}

void CLmRtkStationController::ReloadPoints(int selected)
{
    m_nKnownPoint = selected;
    Q_EMIT ReferencePointsChanged(m_pointStore.Points(), selected);
}

bool CLmRtkStationController::SaveNewPoint(const SLmReferencePoint& point)
{
    const QString name = m_pPrompts->AskPointName(m_pointStore.Names());
    if (name.isEmpty())
        return false;
    const QString problem = m_pointStore.NameProblem(name);
    if (!problem.isEmpty()) {
        m_pPrompts->Inform(problem);
        return false;
    }
    SLmReferencePoint named = point;
    named.name = name;
    if (!m_pointStore.Insert(named)) {
        qCWarning(lcGnss) << "reference point not saved:" << m_pointStore.LastError();
        m_pPrompts->Inform(tr("The reference point could not be saved."));
        return false;
    }
    ReloadPoints(m_pointStore.Points().size());
    return true;
}

void CLmRtkStationController::DeleteKnownPoint()
{
    const SLmReferencePoint* point = SelectedPoint();
    if (!point) {
        m_pPrompts->Inform(tr("Please select exist reference point."));
        return;
    }
    if (!m_pPrompts->Confirm(tr("Are you sure to delete select reference point?")))
        return;
    m_pointStore.Remove(point->name);
    ReloadPoints(0);
    m_pPrompts->Notify(tr("Delete reference point succeed."), tr("Delete reference point"), QString());
}

void CLmRtkStationController::StartCapture(CLmPointCapture::EMode mode, int quantity, bool bFixedOnly, double limitM)
{
    m_capture.Start(mode, quantity, bFixedOnly, limitM);
    Q_EMIT CaptureProgress(0, m_capture.Wanted());
}

void CLmRtkStationController::StopCapture()
{
    m_capture.Stop();
}

void CLmRtkStationController::DiscardCapture()
{
    m_capture.Clear();
}

void CLmRtkStationController::SaveCapturedPoint(const QString& name, double stationVertical)
{
    if (!m_capture.HasResult()) {
        m_pPrompts->Inform(tr("No point has been captured yet."));
        return;
    }
    const QString problem = m_pointStore.NameProblem(name);
    if (!problem.isEmpty()) {
        m_pPrompts->Inform(problem);
        return;
    }
    const LmBaseStationMath::SGeoPoint captured = m_capture.Result();
    SLmReferencePoint point;
    point.name = name;
    point.lat = captured.lat;
    point.lng = captured.lng;
    // The report is the antenna's position; the point lies the antenna height below it.
    point.altitude = captured.altitude - stationVertical;
    point.stationVertical = stationVertical;
    if (!m_pointStore.Insert(point)) {
        m_pPrompts->Inform(tr("The reference point could not be saved."));
        return;
    }
    ReloadPoints(m_nKnownPoint);
    m_pPrompts->Notify(tr("Save reference point succeed."), tr("Save reference point"),
                       QStringLiteral(":/images/Normal/ok_ic.png"));
}

// ---- raw files ----

void CLmRtkStationController::ReadStorage()
{
    if (m_link)
        m_link->ReadStorageInfor();
}

void CLmRtkStationController::slotReceivedStorageInfor(quint64 total, quint64 free)
{
    Q_EMIT StorageRead(total, free);
    m_link->ReadStaticFileList();
}

void CLmRtkStationController::slotReceivedStaticsFileList(QString list, int)
{
    Q_EMIT FileListRead(ParseStaticFileList(list));
}

void CLmRtkStationController::slotReadStaticsFileFinished() {}

void CLmRtkStationController::DeleteFiles(const QStringList& names)
{
    if (!m_link)
        return;
    QList<QByteArray> encoded;
    for (const QString& name : names)
        encoded.append(name.toUtf8());
    m_lstDeleting = names;
    m_link->DeleteStaticFiles(encoded);
}

void CLmRtkStationController::DownloadFiles(const QStringList& names, const QString& targetDir)
{
    if (!m_pFtp || names.isEmpty() || IsDownloading())
        return;
    m_lstDownloadQueue = names;
    m_strTargetDir = targetDir;
    Q_EMIT DownloadBusy(true);
    FetchNextFile();
}

void CLmRtkStationController::FetchNextFile()
{
    m_strDownloadingFile = m_lstDownloadQueue.takeFirst();
    m_pFtp->FtpGet(QStringLiteral("/static/") + m_strDownloadingFile);
}

void CLmRtkStationController::slotDownloadProcess(qint64 received, qint64 total)
{
    Q_EMIT DownloadProgress(m_strDownloadingFile, received, total);
}

// The bytes are written on a worker thread to a temporary file that takes
// the final name only once complete; a name that would leave the folder is
// refused.
void CLmRtkStationController::slotDownloadFinished()
{
    const QByteArray bytes = m_pFtp->ReceivedData();
    m_pFtp->ClearReceivedData();
    const QString target = LmStationFiles::TargetPath(m_strTargetDir, m_strDownloadingFile);
    if (target.isEmpty()) {
        qCWarning(lcGnss) << "station file name refused:" << m_strDownloadingFile;
        m_pPrompts->Inform(tr("The file name %1 from the base station was refused.").arg(m_strDownloadingFile));
        EndDownloads();
        return;
    }
    auto* watcher = new QFutureWatcher<bool>(this);
    connect(watcher, &QFutureWatcher<bool>::finished, this, [this, watcher] {
        watcher->deleteLater();
        if (!watcher->result()) {
            m_pPrompts->Inform(tr("The file %1 could not be written.").arg(m_strDownloadingFile));
            EndDownloads();
        } else if (m_lstDownloadQueue.isEmpty()) {
            EndDownloads();
            Q_EMIT DownloadsFinished();
            m_pPrompts->Inform(tr("All file(s) to download finished."));
        } else {
            FetchNextFile();
        }
    });
    watcher->setFuture(QtConcurrent::run([target, bytes] { return LmStationFiles::WriteWhole(target, bytes); }));
}

void CLmRtkStationController::slotDownloadError()
{
    EndDownloads();
    m_pPrompts->Inform(tr("Download file error ,please check base station connect state then try again."));
}

void CLmRtkStationController::EndDownloads()
{
    m_lstDownloadQueue.clear();
    m_strDownloadingFile.clear();
    Q_EMIT DownloadBusy(false);
}
