#include "CLmSerialLink.h"

#include "LmLinkInstanceLog.h"

#include <QSerialPortInfo>

namespace {

constexpr quint16 kVendorFtdi = 0x0403;
constexpr quint16 kVendorSiliconLabs = 0x10C4;
constexpr quint16 kVendorWch = 0x1A86;
constexpr quint16 kVendorProlific = 0x067B;

bool IsRadioVendor(quint16 vendorId)
{
    return vendorId == kVendorFtdi || vendorId == kVendorSiliconLabs || vendorId == kVendorWch
           || vendorId == kVendorProlific;
}

}  // namespace

CLmSerialLink::CLmSerialLink(int linkId, const QString& portName, int baudRate, QObject* parent)
    : CLmLinkProvide(linkId, parent)
{
    m_port.setPortName(portName);
    m_port.setBaudRate(baudRate);
    connect(&m_port, &QSerialPort::readyRead, this, &CLmSerialLink::OnReadyRead);
    connect(&m_port, &QSerialPort::errorOccurred, this, &CLmSerialLink::OnError);
}

CLmSerialLink::~CLmSerialLink()
{
    m_port.close();
}

bool CLmSerialLink::IsOpen() const
{
    return m_port.isOpen();
}

void CLmSerialLink::Connect()
{
    if (m_port.isOpen())
        return;
    if (!m_port.open(QIODevice::ReadWrite)) {
        qCWarning(lcLinkInstanceUav) << "cannot open serial port" << m_port.portName() << m_port.errorString();
        emit openFailed(m_port.portName());
        return;
    }
    qCInfo(lcLinkInstanceUav) << "serial port open:" << m_port.portName();
    emit connected();
}

void CLmSerialLink::Disconnect()
{
    if (!m_port.isOpen())
        return;
    m_port.close();
    qCInfo(lcLinkInstanceUav) << "serial port closed:" << m_port.portName();
    emit disconnected();
}

void CLmSerialLink::WriteBytes(const QByteArray& bytes)
{
    if (m_port.isOpen())
        m_port.write(bytes);
}

QStringList CLmSerialLink::AvailableRadioPorts()
{
    QStringList names;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        if (info.hasVendorIdentifier() && IsRadioVendor(info.vendorIdentifier()))
            names << info.systemLocation();
    }
    return names;
}

void CLmSerialLink::OnReadyRead()
{
    emit bytesReceived(m_port.readAll());
}

void CLmSerialLink::OnError(QSerialPort::SerialPortError error)
{
    // A radio pulled out of its socket: the device is gone, close our end.
    if (error == QSerialPort::ResourceError && m_port.isOpen()) {
        qCWarning(lcLinkInstanceUav) << "serial port lost:" << m_port.portName() << m_port.errorString();
        Disconnect();
    }
}
