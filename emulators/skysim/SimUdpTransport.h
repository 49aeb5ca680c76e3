#pragma once

#include "SimTransport.h"

#include <QHostAddress>
#include <QUdpSocket>

// UDP side of the aircraft: sends to the configured ground station until
// someone talks to it, then answers the sender of the last datagram, the way
// an autopilot's UDP port does. One frame per datagram.
class SimUdpTransport : public SimTransport
{
    Q_OBJECT
public:
    SimUdpTransport(const QHostAddress& groundStation, uint16_t groundPort, uint16_t bindPort,
                    double bytesPerSecond, double lossPercent, uint32_t seed, QObject* parent = nullptr);

    bool open(QString* error) override;
    QString description() const override;

protected:
    void writeFrame(const QByteArray& frame) override;

private:
    void readDatagrams();

    QUdpSocket m_socket;
    QHostAddress m_peer;
    uint16_t m_peerPort;
    uint16_t m_bindPort;
};
