#include "CSimGroundStation.h"

#include <QNetworkDatagram>

#include <algorithm>

CSimGroundStation::CSimGroundStation()
{
    connect(&m_socket, &QUdpSocket::readyRead, this, [this] {
        while (m_socket.hasPendingDatagrams())
            Consume(m_socket.receiveDatagram().data());
    });
    connect(&m_serial, &QSerialPort::readyRead, this, [this] { Consume(m_serial.readAll()); });
}

bool CSimGroundStation::BindUdp()
{
    // Log downloads arrive in bursts; a roomy buffer keeps the test from losing them.
    if (!m_socket.bind(QHostAddress(QHostAddress::LocalHost), 0))
        return false;
    m_socket.setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, 4 * 1024 * 1024);
    return true;
}

QString CSimGroundStation::UdpAddress() const
{
    return QStringLiteral("127.0.0.1:%1").arg(m_socket.localPort());
}

bool CSimGroundStation::OpenSerial(const QString& device)
{
    m_serial.setPortName(device);
    return m_serial.open(QIODevice::ReadWrite);
}

QVector<mavlink_message_t> CSimGroundStation::ReceivedOf(uint32_t msgid) const
{
    QVector<mavlink_message_t> matching;
    for (const mavlink_message_t& message : m_received) {
        if (message.msgid == msgid)
            matching.append(message);
    }
    return matching;
}

int CSimGroundStation::CountOf(uint32_t msgid) const
{
    return ReceivedOf(msgid).size();
}

int CSimGroundStation::IndexOf(uint32_t msgid, int from) const
{
    for (int index = std::max(0, from); index < m_received.size(); ++index) {
        if (m_received.at(index).msgid == msgid)
            return index;
    }
    return -1;
}

void CSimGroundStation::Write(const QByteArray& bytes)
{
    if (m_serial.isOpen())
        m_serial.write(bytes);
    else
        m_socket.writeDatagram(bytes, QHostAddress::LocalHost, m_aircraftPort);
}

void CSimGroundStation::Consume(const QByteArray& bytes)
{
    m_parser.Feed(bytes);
    mavlink_message_t message;
    while (m_parser.Next(message))
        m_received.append(message);
}
