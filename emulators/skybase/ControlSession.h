#pragma once

#include "CLmBaseStationProtocol.h"
#include "CLmNmeaLineReader.h"

#include <QObject>
#include <QTcpSocket>

// One ground station connected to the control port: cuts its bytes into
// checked sentences and hands on the requests.
class ControlSession : public QObject
{
    Q_OBJECT
public:
    explicit ControlSession(QTcpSocket* socket, QObject* parent = nullptr);

    void Send(const QByteArray& line);
    // Ends the connection at once, unanswered.
    void Drop();

signals:
    void requestReceived(CLmBaseStationProtocol::SSentence request);

private:
    void OnReadyRead();

    QTcpSocket* m_pSocket;
    CLmNmeaLineReader m_reader;
};
