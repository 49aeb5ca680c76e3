#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QTcpServer>

class CloudStore;
class QTcpSocket;

// The push channel's sockets. Lives on the channel's own thread: a client
// subscribes with one line "SUBSCRIBE <token>\n" (a later line replaces the
// subscription) and then receives frames for its account. Frames for an
// account without any subscriber wait until one subscribes.
class PushHub : public QObject
{
    Q_OBJECT
public:
    explicit PushHub(CloudStore& store);
    ~PushHub() override;

    // Returns the bound port or -1.
    int Listen(int port);
    // Returns the number of connections the frame was written to.
    int Deliver(qint64 accountId, const QByteArray& frame);

private:
    void OnNewConnection();
    void OnReadyRead(QTcpSocket* socket);
    void Subscribe(QTcpSocket* socket, const QByteArray& token);
    void FlushPending(qint64 accountId, QTcpSocket* socket);

    CloudStore& m_store;
    QTcpServer m_server{this};
    QHash<QTcpSocket*, qint64> m_subscribers;
    QHash<qint64, QList<QByteArray>> m_pending;
};
