#include "PushHub.h"

#include "CloudLog.h"
#include "CloudStore.h"

#include <QHostAddress>
#include <QTcpSocket>

namespace {

// A subscription line longer than this is not a client of ours.
constexpr int kMaxLineLength = 512;

const QByteArray kSubscribeCommand = QByteArrayLiteral("SUBSCRIBE ");

}  // namespace

PushHub::PushHub(CloudStore& store)
    : m_store(store)
{
    connect(&m_server, &QTcpServer::newConnection, this, &PushHub::OnNewConnection);
}

PushHub::~PushHub()
{
    // The sockets are children of the server, which outlives the subscriber
    // table: as they close they must no longer reach into it.
    for (QTcpSocket* socket : m_server.findChildren<QTcpSocket*>())
        socket->disconnect(this);
}

int PushHub::Listen(int port)
{
    if (!m_server.listen(QHostAddress::LocalHost, static_cast<quint16>(port)))
        return -1;
    return m_server.serverPort();
}

void PushHub::OnNewConnection()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { OnReadyRead(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            m_subscribers.remove(socket);
            socket->deleteLater();
        });
    }
}

void PushHub::OnReadyRead(QTcpSocket* socket)
{
    while (socket->canReadLine()) {
        const QByteArray line = socket->readLine(kMaxLineLength).trimmed();
        if (!line.startsWith(kSubscribeCommand)) {
            qCInfo(lcSkyCloud) << "push: unknown command, closing";
            socket->disconnectFromHost();
            return;
        }
        Subscribe(socket, line.mid(kSubscribeCommand.size()).trimmed());
    }
    if (socket->bytesAvailable() > kMaxLineLength) {
        qCInfo(lcSkyCloud) << "push: line too long, closing";
        socket->disconnectFromHost();
    }
}

void PushHub::Subscribe(QTcpSocket* socket, const QByteArray& token)
{
    const std::optional<Account> account = m_store.AccountByToken(token);
    if (!account) {
        qCInfo(lcSkyCloud) << "push: invalid token, closing";
        m_subscribers.remove(socket);
        socket->disconnectFromHost();
        return;
    }
    m_subscribers.insert(socket, account->id);
    qCInfo(lcSkyCloud) << "push: account" << account->id << "subscribed";
    FlushPending(account->id, socket);
}

void PushHub::FlushPending(qint64 accountId, QTcpSocket* socket)
{
    for (const QByteArray& frame : m_pending.take(accountId))
        socket->write(frame);
}

int PushHub::Deliver(qint64 accountId, const QByteArray& frame)
{
    int delivered = 0;
    for (auto it = m_subscribers.cbegin(); it != m_subscribers.cend(); ++it) {
        if (it.value() == accountId) {
            it.key()->write(frame);
            ++delivered;
        }
    }
    if (delivered == 0)
        m_pending[accountId].append(frame);
    return delivered;
}
