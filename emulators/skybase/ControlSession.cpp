#include "ControlSession.h"

#include "BaseLog.h"

ControlSession::ControlSession(QTcpSocket* socket, QObject* parent)
    : QObject(parent), m_pSocket(socket)
{
    socket->setParent(this);
    connect(socket, &QTcpSocket::readyRead, this, &ControlSession::OnReadyRead);
    connect(socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
}

void ControlSession::Send(const QByteArray& line)
{
    if (m_pSocket->state() == QAbstractSocket::ConnectedState)
        m_pSocket->write(line);
}

void ControlSession::Drop()
{
    qCInfo(lcSkyBase) << "dropping the connection";
    m_pSocket->abort();
    deleteLater();
}

void ControlSession::OnReadyRead()
{
    m_reader.Feed(m_pSocket->readAll());
    QByteArray body;
    while (m_reader.Next(body)) {
        CLmBaseStationProtocol::SSentence request;
        if (CLmBaseStationProtocol::Parse(body, request) && request.eKind == CLmBaseStationProtocol::Request)
            emit requestReceived(request);
        else
            qCWarning(lcSkyBase) << "sentence ignored:" << body.left(16);
    }
}
