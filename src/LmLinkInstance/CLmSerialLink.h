#pragma once

#include "CLmLinkProvide.h"

#include <QSerialPort>
#include <QStringList>

// A serial device (a telemetry radio). Connect() opens the device
// exclusively, Disconnect() closes it so another program can open it.
class CLmSerialLink : public CLmLinkProvide
{
    Q_OBJECT
public:
    CLmSerialLink(int linkId, const QString& portName, int baudRate, QObject* parent = nullptr);
    ~CLmSerialLink() override;

    bool IsOpen() const;

    void Connect() override;
    void Disconnect() override;
    void WriteBytes(const QByteArray& bytes) override;

    // Names of the present serial ports whose USB vendor is one that
    // telemetry radios are built on: FTDI, Silicon Labs CP210x, WCH
    // CH340/CH341 and Prolific PL2303.
    static QStringList AvailableRadioPorts();

private:
    void OnReadyRead();
    void OnError(QSerialPort::SerialPortError error);

    QSerialPort m_port{this};
};
