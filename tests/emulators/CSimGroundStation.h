#pragma once

#include "CLmMavlinkEncoder.h"
#include "CLmMavlinkParser.h"

#include <QHostAddress>
#include <QObject>
#include <QSerialPort>
#include <QUdpSocket>
#include <QVector>


// The ground station side of the emulator tests: a UDP socket on a free
// loopback port (or one end of a serial line) with the MAVLink codec,
// keeping every frame the aircraft sent in arrival order.
class CSimGroundStation : public QObject
{
    Q_OBJECT
public:
    static constexpr uint8_t SYSTEM_ID = 255;
    static constexpr uint8_t COMPONENT_ID = 190;

    CSimGroundStation();

    bool BindUdp();
    // "127.0.0.1:PORT" of the bound socket, for skysim's --udp.
    QString UdpAddress() const;
    // Where the aircraft listens; until set, nothing can be sent over UDP.
    void SetAircraftPort(quint16 port) { m_aircraftPort = port; }
    bool OpenSerial(const QString& device);

    template <typename TMessage>
    void Send(const TMessage& message)
    {
        Write(m_encoder.Encode(message));
    }

    const QVector<mavlink_message_t>& Received() const { return m_received; }
    QVector<mavlink_message_t> ReceivedOf(uint32_t msgid) const;
    int CountOf(uint32_t msgid) const;
    // Index of the first frame at or after `from` that matches, -1 when none.
    int IndexOf(uint32_t msgid, int from = 0) const;
    void Clear() { m_received.clear(); }

private:
    void Write(const QByteArray& bytes);
    void Consume(const QByteArray& bytes);

    CLmMavlinkEncoder m_encoder{SYSTEM_ID, COMPONENT_ID};
    CLmMavlinkParser m_parser;
    QUdpSocket m_socket;
    QSerialPort m_serial;
    quint16 m_aircraftPort = 0;
    QVector<mavlink_message_t> m_received;
};
