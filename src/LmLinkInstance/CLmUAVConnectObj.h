#pragma once

#include "CLmMavlinkParser.h"
#include "CLmUasProvide.h"

#include <QHash>
#include <QMap>
#include <QObject>
#include <QPair>
#include <QStringList>
#include <QTimer>

#include <atomic>

class CLmLinkManager;
class CLmLinkProvide;
class CLmSerialLink;
class CLmUdpLink;

// Finds and watches the aircraft. Lives on the UAV thread and talks to the
// window only through signals.
//
// slotConnectUAVStart() listens for aircraft on UDP and opens the serial
// radios named by the [aircraft] deployment keys, looking for newly plugged
// radios every two seconds. An aircraft is known by its link and system id:
// its first heartbeat creates its handle, which is announced with
// UAV_connected once it told its plane information, or at its second
// heartbeat at the latest. A heartbeat time-out raises UAV_disconnected;
// when heartbeats come back the same handle is announced again, and so it is
// after its link was disconnected and connected again. Handles stay alive as
// long as the worker, because pages may keep the last one.
//
// The link manager given (may be null) tracks the aircraft links, so they
// can be disconnected and connected by id from the GUI thread.
class CLmUAVConnectObj : public QObject
{
    Q_OBJECT
public:
    CLmUAVConnectObj(CLmLinkManager* pLinkManager, QObject* parent = nullptr);

    // The UDP port aircraft are heard on, 0 before the start. Any thread.
    quint16 GetUdpListenPort() const;

public Q_SLOTS:
    void slotConnectUAVStart();
    void slotFreeSerialPort();
    void slotConnectSerialPort();

Q_SIGNALS:
    void UAV_connected(CLmUasProvide* pUas);
    void UAV_disconnected(CLmUasProvide* pUas);
    void planeInfo(QStringList info);
    void multirotor_planeInfo(QStringList info);
    void KeyStatusString(QString status);
    void NeedNotifyParachute(int count);
    // An aircraft port could not be opened (busy or missing); where names
    // it. Its link tries again by itself.
    void linkBusy(QString where);
    // An aircraft link opened.
    void linkOpened();

private:
    struct SAircraft {
        CLmUasProvide* pUas = nullptr;
        int iHeartbeats = 0;
        bool bConnected = false;
    };
    using AircraftKey = QPair<CLmLinkProvide*, int>;

    void ReadSettings();
    void OpenUdpListener();
    void OpenSerialPorts();
    bool UsesSerialPorts() const;
    QStringList WantedSerialPorts() const;
    void WatchLink(CLmLinkProvide* pLink);
    void OnBytesReceived(CLmLinkProvide* pLink, const QByteArray& bytes);
    void Dispatch(CLmLinkProvide* pLink, const mavlink_message_t& message);
    SAircraft* FindOrCreateAircraft(CLmLinkProvide* pLink, const mavlink_message_t& message);
    CLmUasProvide* CreateHandle(CLmLinkProvide* pLink, const mavlink_message_t& heartbeat);
    void AnnounceIfReady(SAircraft& aircraft);
    void OnHeartbeatLost(const AircraftKey& key);
    void OnLinkDisconnected(CLmLinkProvide* pLink);
    void DropAircraftOn(CLmLinkProvide* pLink);

    CLmLinkManager* m_pLinkManager;
    QString m_strSerialPorts;
    int m_iSerialBaud = 0;
    int m_iHeartbeatTimeoutMs = 0;
    quint16 m_nUdpListenPort = 0;
    std::atomic<quint16> m_nBoundUdpPort{0};

    CLmUdpLink* m_pUdpLink = nullptr;
    QMap<QString, CLmSerialLink*> m_mapSerialLinks;
    QHash<CLmLinkProvide*, CLmMavlinkParser> m_hashParsers;
    QMap<AircraftKey, SAircraft> m_mapAircraft;
    QTimer m_serialScanTimer;
    int m_iNextLinkId;
    bool m_bSerialPortReleased = false;
};
