#pragma once

#include "CLmRequestMessageAck.h"

#include <QStringList>

// Asks a multirotor for the data of its smart batteries (SMART_BATTERY_INFO).
// BatteryData carries four texts per battery in id order: full capacity mAh,
// life % (full against design capacity), cycle count, serial number; then
// the group's severe-low capacity alarm, low capacity alarm and starting
// self-discharge time, which the aircraft does not report (always "0").
class CLmRequestBatteryDataAck : public CLmRequestMessageAck
{
    Q_OBJECT
public:
    explicit CLmRequestBatteryDataAck(QObject* parent = nullptr, CLmClock* pClock = nullptr);

signals:
    void BatteryData(QStringList data);

protected:
    void Deliver(const QList<mavlink_message_t>& replies) override;
};
