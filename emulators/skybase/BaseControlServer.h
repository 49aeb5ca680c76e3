#pragma once

#include <QHostAddress>
#include <QTcpServer>
#include <QTimer>

class BaseStation;
class ControlSession;

// The control port: accepts ground stations, passes their requests to the
// station and sends every connected one a GGA report each second.
class BaseControlServer : public QObject
{
    Q_OBJECT
public:
    BaseControlServer(BaseStation& station, const QByteArray& dropOn, QObject* parent = nullptr);

    bool Listen(const QHostAddress& address, quint16 port);
    quint16 Port() const { return m_server.serverPort(); }
    QString ErrorString() const { return m_server.errorString(); }

private:
    void OnNewConnection();
    void SendPositionReports();

    BaseStation& m_station;
    QByteArray m_dropOn;
    QTcpServer m_server;
    QTimer m_ggaTimer;
    QList<ControlSession*> m_lstSessions;
};
