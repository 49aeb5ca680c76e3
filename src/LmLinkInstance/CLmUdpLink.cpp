#include "CLmUdpLink.h"

#include "LmLinkInstanceLog.h"

#include <QNetworkDatagram>

namespace {

// Room for a log download burst arriving faster than the thread reads it.
constexpr int kReceiveBufferBytes = 1 << 20;

}  // namespace

CLmUdpLink::CLmUdpLink(int linkId, quint16 listenPort, QObject* parent)
    : CLmLinkProvide(linkId, parent)
    , m_nListenPort(listenPort)
{
    connect(&m_socket, &QUdpSocket::readyRead, this, &CLmUdpLink::OnReadyRead);
    m_retryTimer.setSingleShot(true);
    connect(&m_retryTimer, &QTimer::timeout, this, &CLmUdpLink::Bind);
}

quint16 CLmUdpLink::GetLocalPort() const
{
    return m_nBoundPort;
}

void CLmUdpLink::Connect()
{
    if (m_socket.state() == QAbstractSocket::BoundState)
        return;
    m_backoff.Reset();
    Bind();
}

void CLmUdpLink::Bind()
{
    if (!m_socket.bind(QHostAddress::AnyIPv4, m_nListenPort)) {
        const int delay = m_backoff.NextDelayMs();
        qCWarning(lcLinkInstanceUav) << "cannot listen on UDP port" << m_nListenPort << m_socket.errorString()
                                     << "- trying again in" << delay << "ms";
        m_retryTimer.start(delay);
        emit openFailed(QStringLiteral("UDP %1").arg(m_nListenPort));
        return;
    }
    m_socket.setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, kReceiveBufferBytes);
    m_nBoundPort = m_socket.localPort();
    m_nListenPort = m_nBoundPort;
    qCInfo(lcLinkInstanceUav) << "listening for aircraft on UDP port" << m_nBoundPort;
    emit connected();
}

void CLmUdpLink::Disconnect()
{
    m_retryTimer.stop();
    if (m_socket.state() != QAbstractSocket::BoundState)
        return;
    m_socket.close();
    m_nBoundPort = 0;
    m_nPeerPort = 0;
    emit disconnected();
}

void CLmUdpLink::WriteBytes(const QByteArray& bytes)
{
    if (m_nPeerPort == 0)
        return;
    m_socket.writeDatagram(bytes, m_peerAddress, m_nPeerPort);
}

void CLmUdpLink::OnReadyRead()
{
    QByteArray bytes;
    while (m_socket.hasPendingDatagrams()) {
        const QNetworkDatagram datagram = m_socket.receiveDatagram();
        m_peerAddress = datagram.senderAddress();
        m_nPeerPort = static_cast<quint16>(datagram.senderPort());
        bytes += datagram.data();
    }
    if (!bytes.isEmpty())
        emit bytesReceived(bytes);
}
