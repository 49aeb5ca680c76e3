#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QObject>
#include <QTcpServer>

// A scripted HTTP service on a free loopback port: each path answers with a
// fixed status and body, and every request is recorded.
class CFakeProjectCloud : public QObject
{
    Q_OBJECT
public:
    struct SRequest
    {
        QByteArray path;
        QByteArray token;
        QByteArray body;
    };

    explicit CFakeProjectCloud(QObject* parent = nullptr);

    QByteArray BaseUrl() const;
    void SetReply(const QByteArray& path, int httpStatus, const QByteArray& body);
    QList<SRequest> Requests() const;
    int RequestCount(const QByteArray& path) const;

private:
    struct SReply
    {
        int httpStatus;
        QByteArray body;
    };

    void slotNewConnection();
    void Answer(class QTcpSocket* socket, QByteArray& buffer);

    QTcpServer m_server;
    QMap<QByteArray, SReply> m_replies;
    QList<SRequest> m_requests;
};
