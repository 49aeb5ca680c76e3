#pragma once

#include "SimTransport.h"

#include <QSerialPort>

// Serial side of the aircraft: the radio's serial line (or one end of a pty
// pair standing in for it).
class SimSerialTransport : public SimTransport
{
    Q_OBJECT
public:
    SimSerialTransport(const QString& device, int baudRate, double bytesPerSecond, double lossPercent,
                       uint32_t seed, QObject* parent = nullptr);

    bool open(QString* error) override;
    QString description() const override;

protected:
    void writeFrame(const QByteArray& frame) override;

private:
    QString m_device;
    QSerialPort m_port;
};
