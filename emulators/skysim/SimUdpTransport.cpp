#include "SimUdpTransport.h"

#include <QNetworkDatagram>

SimUdpTransport::SimUdpTransport(const QHostAddress& groundStation, uint16_t groundPort, uint16_t bindPort,
                                 double bytesPerSecond, double lossPercent, uint32_t seed, QObject* parent)
    : SimTransport(bytesPerSecond, lossPercent, seed, parent)
    , m_peer(groundStation)
    , m_peerPort(groundPort)
    , m_bindPort(bindPort)
{
    connect(&m_socket, &QUdpSocket::readyRead, this, &SimUdpTransport::readDatagrams);
}

bool SimUdpTransport::open(QString* error)
{
    if (m_socket.bind(QHostAddress::LocalHost, m_bindPort))
        return true;
    *error = m_socket.errorString();
    return false;
}

QString SimUdpTransport::description() const
{
    return QStringLiteral("udp %1:%2").arg(m_socket.localAddress().toString()).arg(m_socket.localPort());
}

void SimUdpTransport::writeFrame(const QByteArray& frame)
{
    m_socket.writeDatagram(frame, m_peer, m_peerPort);
}

void SimUdpTransport::readDatagrams()
{
    while (m_socket.hasPendingDatagrams()) {
        const QNetworkDatagram datagram = m_socket.receiveDatagram();
        if (!datagram.isValid())
            continue;
        m_peer = datagram.senderAddress();
        m_peerPort = static_cast<uint16_t>(datagram.senderPort());
        emit bytesReceived(datagram.data());
    }
}
