#include "SimSerialTransport.h"

SimSerialTransport::SimSerialTransport(const QString& device, int baudRate, double bytesPerSecond,
                                       double lossPercent, uint32_t seed, QObject* parent)
    : SimTransport(bytesPerSecond, lossPercent, seed, parent)
    , m_device(device)
{
    m_port.setPortName(device);
    m_port.setBaudRate(baudRate);
    connect(&m_port, &QSerialPort::readyRead, this, [this] { emit bytesReceived(m_port.readAll()); });
}

bool SimSerialTransport::open(QString* error)
{
    if (m_port.open(QIODevice::ReadWrite))
        return true;
    *error = m_port.errorString();
    return false;
}

QString SimSerialTransport::description() const
{
    return QStringLiteral("serial %1").arg(m_device);
}

void SimSerialTransport::writeFrame(const QByteArray& frame)
{
    m_port.write(frame);
}
