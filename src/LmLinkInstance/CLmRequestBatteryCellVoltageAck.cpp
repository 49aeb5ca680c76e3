#include "CLmRequestBatteryCellVoltageAck.h"

#include "LmMavlinkMessages.h"

using LmMavlink::SBatteryStatus;

namespace {

// BATTERY_STATUS marks cells it does not have with this value.
constexpr uint16_t kUnusedCell = UINT16_MAX;

QStringList CellFields(const SBatteryStatus& status)
{
    QStringList cells;
    for (int i = 0; i < CLmRequestBatteryCellVoltageAck::CellsPerBattery; ++i) {
        const uint16_t cell = status.voltages[i];
        cells << QString::number(cell == kUnusedCell ? 0 : cell);
    }
    return cells;
}

}  // namespace

CLmRequestBatteryCellVoltageAck::CLmRequestBatteryCellVoltageAck(QObject* parent, CLmClock* pClock)
    : CLmRequestMessageAck(LmMavlink::MSG_ID_BATTERY_STATUS, parent, pClock)
{
}

void CLmRequestBatteryCellVoltageAck::Deliver(const QList<mavlink_message_t>& replies)
{
    emit BatteryCellVoltage(FieldsInIdOrder<SBatteryStatus>(replies, CellFields));
}
