#pragma once

#include "CLmLinkProvide.h"
#include "CLmReconnectBackoff.h"

#include <QHostAddress>
#include <QTimer>
#include <QUdpSocket>

#include <atomic>

// Listens on a local UDP port (0 picks a free one) and answers the peer it
// last heard from; nothing is sent before a datagram arrived. A port held by
// another program is tried again after a back-off (CLmReconnectBackoff)
// until it binds or Disconnect() is called. Connected again after a
// Disconnect(), it listens on the port it had.
class CLmUdpLink : public CLmLinkProvide
{
    Q_OBJECT
public:
    CLmUdpLink(int linkId, quint16 listenPort, QObject* parent = nullptr);

    // The bound port while listening, else 0. Safe from any thread.
    quint16 GetLocalPort() const;

    void Connect() override;
    void Disconnect() override;
    void WriteBytes(const QByteArray& bytes) override;

private:
    void OnReadyRead();
    void Bind();

    QUdpSocket m_socket{this};
    QTimer m_retryTimer{this};
    CLmReconnectBackoff m_backoff;
    // 0 until the first bind when a free port is wanted; then the bound one,
    // so a link connected again is found where aircraft were told to send.
    quint16 m_nListenPort;
    std::atomic<quint16> m_nBoundPort{0};
    QHostAddress m_peerAddress;
    quint16 m_nPeerPort = 0;
};
