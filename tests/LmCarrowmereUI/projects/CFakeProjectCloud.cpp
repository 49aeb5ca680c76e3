#include "CFakeProjectCloud.h"

#include <QTcpSocket>

CFakeProjectCloud::CFakeProjectCloud(QObject* parent)
    : QObject(parent)
{
    m_server.listen(QHostAddress::LocalHost, 0);
    connect(&m_server, &QTcpServer::newConnection, this, &CFakeProjectCloud::slotNewConnection);
}

QByteArray CFakeProjectCloud::BaseUrl() const
{
    return "http://127.0.0.1:" + QByteArray::number(m_server.serverPort());
}

void CFakeProjectCloud::SetReply(const QByteArray& path, int httpStatus, const QByteArray& body)
{
    m_replies.insert(path, {httpStatus, body});
}

QList<CFakeProjectCloud::SRequest> CFakeProjectCloud::Requests() const
{
    return m_requests;
}

int CFakeProjectCloud::RequestCount(const QByteArray& path) const
{
    int count = 0;
    for (const SRequest& request : m_requests)
        count += request.path == path ? 1 : 0;
    return count;
}

void CFakeProjectCloud::slotNewConnection()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        auto* buffer = new QByteArray;
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QObject::destroyed, [buffer] { delete buffer; });
        connect(socket, &QTcpSocket::readyRead, this, [this, socket, buffer] {
            buffer->append(socket->readAll());
            Answer(socket, *buffer);
        });
    }
}

void CFakeProjectCloud::Answer(QTcpSocket* socket, QByteArray& buffer)
{
    const int headerEnd = buffer.indexOf("\r\n\r\n");
    if (headerEnd < 0)
        return;
    const QList<QByteArray> lines = buffer.left(headerEnd).split('\n');
    SRequest request;
    request.path = lines.value(0).split(' ').value(1);
    int contentLength = 0;
    for (const QByteArray& line : lines) {
        const int colon = line.indexOf(':');
        const QByteArray name = line.left(colon).trimmed().toLower();
        if (name == "content-length")
            contentLength = line.mid(colon + 1).trimmed().toInt();
        else if (name == "token")
            request.token = line.mid(colon + 1).trimmed();
    }
    if (buffer.size() < headerEnd + 4 + contentLength)
        return;
    request.body = buffer.mid(headerEnd + 4, contentLength);
    buffer.clear();
    m_requests.append(request);

    const SReply reply = m_replies.value(request.path, {404, QByteArray("{\"status\":404}")});
    socket->write("HTTP/1.1 " + QByteArray::number(reply.httpStatus) + " X\r\nContent-Length: "
                  + QByteArray::number(reply.body.size()) + "\r\nConnection: close\r\n\r\n" + reply.body);
    socket->disconnectFromHost();
}
