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
        // the answer goes out once all of it is here, once.
        connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
            m_lastRequest += socket->readAll();
            if (!m_bAnswers || socket->property("answered").toBool() || !IsComplete(m_lastRequest))
                return;
            socket->setProperty("answered", true);
            socket->write(m_answer);
            socket->disconnectFromHost();
        });
    });
}

void CCannedHttpPeer::HangUp()
{
    close();
    for (QTcpSocket* socket : findChildren<QTcpSocket*>())
        socket->abort();
}

bool CCannedHttpPeer::IsComplete(const QByteArray& request)
{
    const int headerEnd = request.indexOf("\r\n\r\n");
    if (headerEnd < 0)
        return false;
    int bodyLength = 0;
    for (const QByteArray& line : request.left(headerEnd).split('\n')) {
        if (line.toLower().startsWith("content-length:"))
            bodyLength = line.mid(int(qstrlen("content-length:"))).trimmed().toInt();
    }
    return request.size() >= headerEnd + 4 + bodyLength;
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
