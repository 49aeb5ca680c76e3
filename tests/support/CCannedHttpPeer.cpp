#include "CCannedHttpPeer.h"

#include <QTcpSocket>

CCannedHttpPeer::CCannedHttpPeer(QByteArray rawAnswer, bool answers)
    : m_answer(std::move(rawAnswer))
    , m_bAnswers(answers)
{
    listen(QHostAddress::LocalHost, 0);
    connect(this, &QTcpServer::newConnection, this, [this] {
        QTcpSocket* socket = nextPendingConnection();
        ++m_iRequests;
        m_lastRequest.clear();
        // A request may arrive in several pieces (headers, then the body);
        // the answer goes out once the headers are complete.
        connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
            const bool headersWereComplete = m_lastRequest.contains("\r\n\r\n");
            m_lastRequest += socket->readAll();
            if (!m_bAnswers || headersWereComplete || !m_lastRequest.contains("\r\n\r\n"))
                return;
            socket->write(m_answer);
            socket->disconnectFromHost();
        });
    });
}

QByteArray CCannedHttpPeer::Reply(const QByteArray& statusLine, const QByteArray& body)
{
    return "HTTP/1.1 " + statusLine + "\r\nContent-Type: application/json\r\nContent-Length: "
           + QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body;
}

QByteArray CCannedHttpPeer::BaseUrl() const
{
    return "http://127.0.0.1:" + QByteArray::number(serverPort());
}

int CCannedHttpPeer::RequestCount() const
{
    return m_iRequests;
}

QByteArray CCannedHttpPeer::LastRequest() const
{
    return m_lastRequest;
}
