#pragma once

#include "CLmLinkProvide.h"

#include <QHostAddress>
#include <QUdpSocket>

#include <atomic>

// Listens on a local UDP port (0 picks a free one) and answers the peer it
// last heard from; nothing is sent before a datagram arrived.
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

    QUdpSocket m_socket{this};
    const quint16 m_nListenPort;
    std::atomic<quint16> m_nBoundPort{0};
    QHostAddress m_peerAddress;
    quint16 m_nPeerPort = 0;
};
