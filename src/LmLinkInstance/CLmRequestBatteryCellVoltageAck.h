#pragma once

#include "CLmRequestMessageAck.h"

#include <QStringList>

// Asks the aircraft for its battery status (BATTERY_STATUS) for the cell
// voltages. BatteryCellVoltage carries eight texts per battery in id order:
// the voltages of cells 1..8 in mV, "0" for a cell the battery lacks.
class CLmRequestBatteryCellVoltageAck : public CLmRequestMessageAck
{
    Q_OBJECT
public:
    static constexpr int CellsPerBattery = 8;

    explicit CLmRequestBatteryCellVoltageAck(QObject* parent = nullptr, CLmClock* pClock = nullptr);

signals:
    void BatteryCellVoltage(QStringList data);

protected:
    void Deliver(const QList<mavlink_message_t>& replies) override;
};
