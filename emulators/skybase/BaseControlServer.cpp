#include "BaseControlServer.h"

#include "BaseLog.h"
#include "BaseStation.h"
#include "ControlSession.h"

#include <QPointer>

BaseControlServer::BaseControlServer(BaseStation& station, const QByteArray& dropOn, QObject* parent)
    : QObject(parent), m_station(station), m_dropOn(dropOn)
{
    connect(&m_server, &QTcpServer::newConnection, this, &BaseControlServer::OnNewConnection);
    m_ggaTimer.setInterval(1000);
    connect(&m_ggaTimer, &QTimer::timeout, this, &BaseControlServer::SendPositionReports);
}

bool BaseControlServer::Listen(const QHostAddress& address, quint16 port)
{
    if (!m_server.listen(address, port))
        return false;
    m_ggaTimer.start();
    return true;
}

void BaseControlServer::OnNewConnection()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        qCInfo(lcSkyBase) << "ground station connected from" << socket->peerAddress().toString();
        auto* session = new ControlSession(socket, this);
        m_lstSessions.append(session);
        connect(session, &QObject::destroyed, this, [this, session] { m_lstSessions.removeOne(session); });
        connect(session, &ControlSession::requestReceived, this,
                [this, session](const CLmBaseStationProtocol::SSentence& request) {
                    if (request.operation == m_dropOn) {
                        session->Drop();
                        return;
                    }
                    QPointer<ControlSession> asker(session);
                    m_station.Handle(request, [asker](const QByteArray& line) {
                        if (asker)
                            asker->Send(line);
                    });
                });
    }
}

void BaseControlServer::SendPositionReports()
{
    if (m_lstSessions.isEmpty())
        return;
    const QByteArray gga = m_station.GgaLine();
    for (ControlSession* session : qAsConst(m_lstSessions))
        session->Send(gga);
}
