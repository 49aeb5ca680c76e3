#include "CLmTcpClientLink.h"

#include "CLmSessionStore.h"
#include "LmLinkInstanceLog.h"

namespace {

// A connection that ends sooner than this counts as a failed attempt, so a
// server that accepts and drops at once is not hammered every second.
constexpr qint64 kStableConnectionMs = 10000;
// Bytes without a delimiter beyond this are not frames of ours; they are dropped.

}  // namespace

CLmTcpClientLink::CLmTcpClientLink(int linkId, const QString& address, QObject* parent)
    : CLmLinkProvide(linkId, parent)
{
    const int colon = address.lastIndexOf(QLatin1Char(':'));
    m_strHost = address.left(colon);
    m_nPort = static_cast<quint16>(address.midRef(colon + 1).toUInt());
    if (colon <= 0 || m_nPort == 0)
        qCWarning(lcLinkInstancePush) << "not a host:port address:" << address;

    m_reconnectTimer.setSingleShot(true);
    connect(&m_reconnectTimer, &QTimer::timeout, this, &CLmTcpClientLink::ConnectToHost);
    connect(&m_socket, &QTcpSocket::connected, this, &CLmTcpClientLink::OnConnected);
    connect(&m_socket, &QTcpSocket::stateChanged, this, &CLmTcpClientLink::OnStateChanged);
    connect(&m_socket, &QTcpSocket::readyRead, this, &CLmTcpClientLink::OnReadyRead);
}

// The socket would report its closing to this half-destroyed link.
CLmTcpClientLink::~CLmTcpClientLink()
{
    m_socket.disconnect(this);
    m_socket.abort();
}

void CLmTcpClientLink::SetFrameDelimiter(const QByteArray& delimiter)
{
    m_frames.SetDelimiter(delimiter);
}

void CLmTcpClientLink::Connect()
{
    m_bWanted = true;
    m_backoff.Reset();
    if (m_socket.state() == QAbstractSocket::UnconnectedState)
        ConnectToHost();
}

void CLmTcpClientLink::Disconnect()
{
    m_bWanted = false;
    m_reconnectTimer.stop();
    m_socket.abort();
}

bool CLmTcpClientLink::IsConnected() const
{
    return m_socket.state() == QAbstractSocket::ConnectedState;
}

void CLmTcpClientLink::ConnectToHost()
{
    if (m_nPort == 0)
        return;
    m_frames.Clear();
    m_socket.connectToHost(m_strHost, m_nPort);
}

void CLmTcpClientLink::OnConnected()
{
    qCInfo(lcLinkInstancePush) << "tcp link" << GetLinkId() << "connected to" << m_strHost << m_nPort;
    m_bWasConnected = true;
    m_connectedFor.start();
    SendSubscription();
    emit connected();
}

bool CLmTcpClientLink::SendSubscription()
{
    const QString token = CLmSessionStore().Token();
    if (token.isEmpty())
        return false;
    m_socket.write("SUBSCRIBE " + token.toUtf8() + '\n');
    return true;
}

void CLmTcpClientLink::Resubscribe()
{
    if (IsConnected()) {
        // Signed out: only a fresh connection ends the old subscription.
        if (!SendSubscription())
            m_socket.abort();
        return;
    }
    // A link waiting out its back-off (say after the channel refused a stale
    // token) tries the new session now.
    if (m_bWanted && m_reconnectTimer.isActive()) {
        m_reconnectTimer.stop();
        m_backoff.Reset();
        ConnectToHost();
    }
}

void CLmTcpClientLink::OnStateChanged(QAbstractSocket::SocketState state)
{
    if (state == QAbstractSocket::UnconnectedState)
        OnConnectionEnded();
}

void CLmTcpClientLink::OnConnectionEnded()
{
    if (m_bWasConnected) {
        m_bWasConnected = false;
        if (m_connectedFor.elapsed() >= kStableConnectionMs)
            m_backoff.Reset();
        emit disconnected();
    }
    if (!m_bWanted)
        return;
    const int delay = m_backoff.NextDelayMs();
    qCInfo(lcLinkInstancePush) << "tcp link" << GetLinkId() << "reconnects in" << delay << "ms";
    m_reconnectTimer.start(delay);
}

void CLmTcpClientLink::OnReadyRead()
{
    const QByteArray bytes = m_socket.readAll();
    if (m_frames.Delimiter().isEmpty()) {
        emit bytesReceived(bytes);
        return;
    }
    const QByteArray frames = m_frames.Take(bytes);
    if (!frames.isEmpty())
        emit bytesReceived(frames);
}
