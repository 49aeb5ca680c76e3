#include "CLmUAVConnectObj.h"

#include "CLmDeployConfig.h"
#include "CLmLinkManager.h"
#include "CLmSerialLink.h"
#include "CLmUdpLink.h"
#include "LmLinkInstanceLog.h"
#include "LmMavlinkMessages.h"

using namespace LmMavlink;

namespace {

const QString kGroup = QStringLiteral("aircraft");
constexpr int kUdpLinkId = 1;
constexpr int kFirstSerialLinkId = 2;
constexpr int kSerialScanIntervalMs = 2000;
// Heartbeats an aircraft may send before it is announced without its plane
// information.
constexpr int kHeartbeatsBeforeAnnounce = 2;

bool IsAircraftHeartbeat(const mavlink_message_t& message)
{
    if (message.msgid != MSG_ID_HEARTBEAT || message.sysid == CLmUasProvide::GroundSystemId)
        return false;
    const SHeartbeat heartbeat = SHeartbeat::Unpack(message);
    return heartbeat.type != MAV_TYPE_GCS && heartbeat.autopilot != MAV_AUTOPILOT_INVALID;
}

}  // namespace

// Aircraft links are created and used on the UAV thread; the link manager
// lives on the GUI thread and cannot own them, so the worker keeps them.
CLmUAVConnectObj::CLmUAVConnectObj(CLmLinkManager* pLinkManager, QObject* parent)
    : QObject(parent)
    , m_pLinkManager(pLinkManager)
    , m_serialScanTimer(this)
    , m_iNextLinkId(kFirstSerialLinkId)
{
    m_serialScanTimer.setInterval(kSerialScanIntervalMs);
    connect(&m_serialScanTimer, &QTimer::timeout, this, &CLmUAVConnectObj::OpenSerialPorts);
}

quint16 CLmUAVConnectObj::GetUdpListenPort() const
{
    return m_nBoundUdpPort;
}

void CLmUAVConnectObj::slotConnectUAVStart()
{
    qRegisterMetaType<CLmUasProvide*>("CLmUasProvide*");
    ReadSettings();
    OpenUdpListener();
    slotConnectSerialPort();
}

void CLmUAVConnectObj::slotFreeSerialPort()
{
    m_bSerialPortReleased = true;
    m_serialScanTimer.stop();
    for (CLmSerialLink* pLink : qAsConst(m_mapSerialLinks))
        pLink->Disconnect();
}

void CLmUAVConnectObj::slotConnectSerialPort()
{
    m_bSerialPortReleased = false;
    OpenSerialPorts();
    if (UsesSerialPorts())
        m_serialScanTimer.start();
}

void CLmUAVConnectObj::ReadSettings()
{
    const CLmDeployConfig& config = CLmDeployConfig::Instance();
    m_strSerialPorts = config.Value(kGroup, QStringLiteral("serial_ports"));
    m_iSerialBaud = config.Value(kGroup, QStringLiteral("serial_baud")).toInt();
    m_iHeartbeatTimeoutMs = config.Value(kGroup, QStringLiteral("heartbeat_timeout_ms")).toInt();
    m_nUdpListenPort = static_cast<quint16>(config.Value(kGroup, QStringLiteral("udp_listen_port")).toUInt());
}

void CLmUAVConnectObj::OpenUdpListener()
{
    if (m_pUdpLink)
        return;
    m_pUdpLink = new CLmUdpLink(kUdpLinkId, m_nUdpListenPort, this);
    WatchLink(m_pUdpLink);
    m_pUdpLink->Connect();
    m_nBoundUdpPort = m_pUdpLink->GetLocalPort();
}

void CLmUAVConnectObj::OpenSerialPorts()
{
    if (m_bSerialPortReleased)
        return;
    for (const QString& portName : WantedSerialPorts()) {
        CLmSerialLink* pLink = m_mapSerialLinks.value(portName);
        if (!pLink) {
            pLink = new CLmSerialLink(m_iNextLinkId++, portName, m_iSerialBaud, this);
            m_mapSerialLinks.insert(portName, pLink);
            WatchLink(pLink);
        }
        if (!pLink->IsOpen())
            pLink->Connect();
    }
}

bool CLmUAVConnectObj::UsesSerialPorts() const
{
    return !m_strSerialPorts.isEmpty() && m_strSerialPorts != QLatin1String("none");
}

// "auto": every radio found by its USB vendor; empty or "none": no serial
// port; otherwise a comma-separated list of device names.
QStringList CLmUAVConnectObj::WantedSerialPorts() const
{
    if (!UsesSerialPorts())
        return {};
    if (m_strSerialPorts == QLatin1String("auto"))
        return CLmSerialLink::AvailableRadioPorts();
    QStringList names;
    for (const QString& name : m_strSerialPorts.split(QLatin1Char(','), Qt::SkipEmptyParts))
        names << name.trimmed();
    return names;
}

void CLmUAVConnectObj::WatchLink(CLmLinkProvide* pLink)
{
    m_hashParsers.insert(pLink, CLmMavlinkParser());
    connect(pLink, &CLmLinkProvide::bytesReceived, this,
            [this, pLink](const QByteArray& bytes) { OnBytesReceived(pLink, bytes); });
    connect(pLink, &CLmLinkProvide::disconnected, this, [this, pLink] { OnLinkDisconnected(pLink); });
    connect(pLink, &CLmLinkProvide::openFailed, this, &CLmUAVConnectObj::linkBusy);
    connect(pLink, &CLmLinkProvide::connected, this, &CLmUAVConnectObj::linkOpened);
    if (m_pLinkManager)
        m_pLinkManager->TrackLink(pLink);
}

void CLmUAVConnectObj::OnBytesReceived(CLmLinkProvide* pLink, const QByteArray& bytes)
{
    CLmMavlinkParser& parser = m_hashParsers[pLink];
    parser.Feed(bytes);
    mavlink_message_t message;
    while (parser.Next(message))
        Dispatch(pLink, message);
}

void CLmUAVConnectObj::Dispatch(CLmLinkProvide* pLink, const mavlink_message_t& message)
{
    SAircraft* pAircraft = FindOrCreateAircraft(pLink, message);
    if (!pAircraft)
        return;
    if (message.msgid == MSG_ID_HEARTBEAT)
        ++pAircraft->iHeartbeats;
    pAircraft->pUas->HandleMessage(message);
    AnnounceIfReady(*pAircraft);
}

CLmUAVConnectObj::SAircraft* CLmUAVConnectObj::FindOrCreateAircraft(CLmLinkProvide* pLink,
                                                                   const mavlink_message_t& message)
{
    const AircraftKey key(pLink, message.sysid);
    auto it = m_mapAircraft.find(key);
    if (it != m_mapAircraft.end())
        return &it.value();
    if (!IsAircraftHeartbeat(message))
        return nullptr;
    SAircraft aircraft;
    aircraft.pUas = CreateHandle(pLink, message);
    return &m_mapAircraft.insert(key, aircraft).value();
}

CLmUasProvide* CLmUAVConnectObj::CreateHandle(CLmLinkProvide* pLink, const mavlink_message_t& heartbeat)
{
    qCInfo(lcLinkInstanceUav) << "aircraft" << heartbeat.sysid << "heard on link" << pLink->GetLinkId();
    auto* pUas = new CLmUasProvide(pLink, heartbeat.sysid, heartbeat.compid, this);
    pUas->SetHeartbeatTimeout(m_iHeartbeatTimeoutMs);
    const AircraftKey key(pLink, heartbeat.sysid);
    connect(pUas, &CLmUasProvide::heartbeatLost, this, [this, key] { OnHeartbeatLost(key); });
    connect(pUas, &CLmUasProvide::tolva_status, this, &CLmUAVConnectObj::planeInfo);
    connect(pUas, &CLmUasProvide::multirotor_tolva_status, this, &CLmUAVConnectObj::multirotor_planeInfo);
    connect(pUas, &CLmUasProvide::KeyStatusString, this, &CLmUAVConnectObj::KeyStatusString);
    connect(pUas, &CLmUasProvide::NeedNotifyParachute, this, &CLmUAVConnectObj::NeedNotifyParachute);
    return pUas;
}

void CLmUAVConnectObj::AnnounceIfReady(SAircraft& aircraft)
{
    if (aircraft.bConnected || aircraft.iHeartbeats == 0)
        return;
    if (!aircraft.pUas->IsIdentified() && aircraft.iHeartbeats < kHeartbeatsBeforeAnnounce)
        return;
    aircraft.bConnected = true;
    qCInfo(lcLinkInstanceUav) << "aircraft" << aircraft.pUas->GetUasID() << "connected:"
                           << aircraft.pUas->GetPlaneTypeString();
    emit UAV_connected(aircraft.pUas);
    if (aircraft.pUas->IsFixwing())
        aircraft.pUas->RequestParachuteNum();
}

void CLmUAVConnectObj::OnHeartbeatLost(const AircraftKey& key)
{
    auto it = m_mapAircraft.find(key);
    if (it == m_mapAircraft.end())
        return;
    SAircraft& aircraft = it.value();
    aircraft.iHeartbeats = 0;
    if (!aircraft.bConnected)
        return;
    aircraft.bConnected = false;
    qCInfo(lcLinkInstanceUav) << "aircraft" << aircraft.pUas->GetUasID() << "lost: no heartbeat";
    emit UAV_disconnected(aircraft.pUas);
}

// Whatever was half-read belongs to the connection that ended.
void CLmUAVConnectObj::OnLinkDisconnected(CLmLinkProvide* pLink)
{
    DropAircraftOn(pLink);
    m_hashParsers[pLink].Reset();
}

void CLmUAVConnectObj::DropAircraftOn(CLmLinkProvide* pLink)
{
    for (auto it = m_mapAircraft.begin(); it != m_mapAircraft.end(); ++it) {
        if (it.key().first == pLink)
            OnHeartbeatLost(it.key());
    }
}
