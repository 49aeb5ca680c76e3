#pragma once

#include "SimTransport.h"

// The ground-to-aircraft direction of the emulated radio for the traffic
// that needs it (the firmware package upload): frames handed to send() come
// out of frameArrived() after their air time at the link rate, and a share
// of them never does, as SimTransport does it for the other direction.
class SimInboundLink : public SimTransport
{
    Q_OBJECT
public:
    using SimTransport::SimTransport;

    bool open(QString* error) override;
    QString description() const override;

signals:
    void frameArrived(const QByteArray& frame);

protected:
    void writeFrame(const QByteArray& frame) override;
};
