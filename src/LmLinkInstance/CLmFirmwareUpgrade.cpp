#include "CLmFirmwareUpgrade.h"

#include "CLmClock.h"
#include "CLmFileTransfer.h"
#include "CLmUasProvide.h"
#include "LmLinkInstanceLog.h"
#include "LmMavlinkMessages.h"

using namespace LmMavlink;

CLmFirmwareUpgrade::CLmFirmwareUpgrade(CLmUasProvide* pUas, QObject* parent, CLmClock* pClock,
                                       CLmClock* pTransferClock)
    : QObject(parent)
    , m_pUas(pUas)
    , m_pClock(pClock ? pClock : new CLmClock)
    , m_pTransfer(new CLmFileTransfer(pUas, this, pTransferClock))
{
    qRegisterMetaType<CLmFirmwareUpgrade::EFailure>(); // the page hears Failed() across threads
    m_pClock->setParent(this);
    m_pClock->SetSingleShot(true);
    connect(m_pClock, &CLmClock::timeout, this, &CLmFirmwareUpgrade::OnTimeout);
    connect(m_pTransfer, &CLmFileTransfer::Progress, this, &CLmFirmwareUpgrade::Progress);
    connect(m_pTransfer, &CLmFileTransfer::Failed, this, &CLmFirmwareUpgrade::OnTransferFailed);
    connect(m_pTransfer, &CLmFileTransfer::Finished, this,
            [this] { EnterPhase(EPhase::Install, m_iRetries, m_iTimeoutMs); });
    if (m_pUas)
        connect(m_pUas, &CLmUasProvide::messageReceived, this, &CLmFirmwareUpgrade::OnMessage);
}

void CLmFirmwareUpgrade::SetTimeoutMs(int ms)
{
    m_iTimeoutMs = ms;
    m_pTransfer->SetTimeoutMs(ms);
}

void CLmFirmwareUpgrade::SetRetries(int retries)
{
    m_iRetries = retries;
    m_pTransfer->SetRetries(retries);
}

void CLmFirmwareUpgrade::Start(const QByteArray& package, const QString& version, const QString& fileName,
                               const QByteArray& sha256)
{
    if (!m_pUas) {
        qCWarning(lcLinkInstanceFirmware) << "firmware upgrade without an aircraft ignored";
        return;
    }
    Stop();
    m_baPackage = package;
    m_strVersion = version;
    m_strFileName = fileName;
    m_baSha256 = sha256;
    qCInfo(lcLinkInstanceFirmware) << "upgrading to" << version << "with" << fileName << package.size() << "bytes";
    EnterPhase(EPhase::Manifest, m_iRetries, m_iTimeoutMs);
}

bool CLmFirmwareUpgrade::CanResume() const
{
    return m_ePhase == EPhase::Idle && m_pTransfer->CanResume();
}

void CLmFirmwareUpgrade::Resume()
{
    if (!CanResume())
        return;
    m_ePhase = EPhase::Upload;
    m_pTransfer->Resume();
}

void CLmFirmwareUpgrade::RequestVersion()
{
    if (m_pUas)
        m_pUas->RequestFirmwareVersion();
}

void CLmFirmwareUpgrade::OnMessage(const mavlink_message_t& message)
{
    if (message.msgid == MSG_ID_HEARTBEAT)
        OnHeartbeat(message);
    if (message.msgid != MSG_ID_SKY_FIRMWARE_STATUS)
        return;
    const SSkyFirmwareStatus status = SSkyFirmwareStatus::Unpack(message);
    OnStatus(status.result, QString::fromLatin1(status.version, static_cast<int>(qstrnlen(status.version, sizeof status.version))));
}

void CLmFirmwareUpgrade::OnHeartbeat(const mavlink_message_t& message)
{
    const SHeartbeat heartbeat = SHeartbeat::Unpack(message);
    const bool bArmedOrFlying = (heartbeat.base_mode & MAV_MODE_FLAG_SAFETY_ARMED) != 0
        || heartbeat.system_status == MAV_STATE_ACTIVE || heartbeat.system_status == MAV_STATE_CRITICAL
        || heartbeat.system_status == MAV_STATE_EMERGENCY;
    if (int(bArmedOrFlying) == m_iArmedOrFlying)
        return;
    m_iArmedOrFlying = int(bArmedOrFlying);
    emit FlightStateChanged(bArmedOrFlying);
}

void CLmFirmwareUpgrade::OnStatus(int result, const QString& version)
{
    if (result == SKY_FIRMWARE_RESULT_RUNNING)
        emit AircraftVersion(version);
    switch (m_ePhase) {
    case EPhase::Manifest:
        if (result == SKY_FIRMWARE_RESULT_MANIFEST_ACCEPTED) {
            m_pClock->Stop();
            m_ePhase = EPhase::Upload;
            m_pTransfer->Upload(QLatin1String(PackageFolder) + m_strFileName, m_baPackage);
        } else if (result == SKY_FIRMWARE_RESULT_REFUSED_ARMED) {
            Fail(EFailure::Armed);
        }
        break;
    case EPhase::Install:
        if (result == SKY_FIRMWARE_RESULT_INSTALLING) {
            EnterPhase(EPhase::Restart, RestartPolls, RestartPollMs);
            emit Installing();
        } else if (result == SKY_FIRMWARE_RESULT_REFUSED_ARMED) {
            Fail(EFailure::Armed);
        } else if (result == SKY_FIRMWARE_RESULT_REFUSED_CHECKSUM) {
            Fail(EFailure::ChecksumRefused);
        } else if (result == SKY_FIRMWARE_RESULT_REFUSED_NO_PACKAGE) {
            Fail(EFailure::NoPackage);
        }
        break;
    case EPhase::Restart:
        if (result == SKY_FIRMWARE_RESULT_RUNNING && version == m_strVersion) {
            Stop();
            qCInfo(lcLinkInstanceFirmware) << "aircraft runs firmware" << version;
            emit Finished(version);
        }
        break;
    case EPhase::Idle:
    case EPhase::Upload: break;
    }
}

void CLmFirmwareUpgrade::OnTransferFailed(int error)
{
    if (m_ePhase != EPhase::Upload)
        return;
    Fail(error == CLmFileTransfer::ErrorTimedOut ? EFailure::LinkLost : EFailure::TransferRefused);
}

void CLmFirmwareUpgrade::OnTimeout()
{
    if (m_ePhase == EPhase::Idle || m_ePhase == EPhase::Upload)
        return;
    if (--m_iRetriesLeft < 0) {
        Fail(EFailure::LinkLost);
        return;
    }
    SendPhaseRequest();
}

void CLmFirmwareUpgrade::EnterPhase(EPhase phase, int retries, int timeoutMs)
{
    m_ePhase = phase;
    m_iRetriesLeft = retries;
    m_iPhaseTimeoutMs = timeoutMs;
    // The restart is only waited for at first; the aircraft reports by itself when it is back.
    if (phase == EPhase::Restart)
        m_pClock->Start(m_iPhaseTimeoutMs);
    else
        SendPhaseRequest();
}

void CLmFirmwareUpgrade::SendPhaseRequest()
{
    if (m_ePhase == EPhase::Manifest)
        m_pUas->SendFirmwareManifest(static_cast<quint32>(m_baPackage.size()), m_baSha256, m_strVersion,
                                     m_strFileName);
    else if (m_ePhase == EPhase::Install)
        m_pUas->RequestFirmwareInstall();
    else if (m_ePhase == EPhase::Restart)
        m_pUas->RequestFirmwareVersion();
    m_pClock->Start(m_iPhaseTimeoutMs);
}

void CLmFirmwareUpgrade::Fail(EFailure failure)
{
    Stop();
    qCWarning(lcLinkInstanceFirmware) << "firmware upgrade failed:" << failure;
    emit Failed(failure);
}

void CLmFirmwareUpgrade::Stop()
{
    m_ePhase = EPhase::Idle;
    m_pClock->Stop();
}
