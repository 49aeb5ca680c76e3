#include "CLmRequestBatteryDataAck.h"

#include "LmMavlinkMessages.h"

#include <cstring>

using LmMavlink::SSmartBatteryInfo;

namespace {

constexpr int kGroupSettingCount = 3;

QStringList BatteryFields(const SSmartBatteryInfo& info)
{
    const int lifePercent = info.capacity_full_specification > 0
                                ? static_cast<int>(qint64(info.capacity_full) * 100 / info.capacity_full_specification)
                                : 0;
    const auto serialLength = static_cast<int>(strnlen(info.serial_number, sizeof info.serial_number));
    return {QString::number(info.capacity_full), QString::number(lifePercent), QString::number(info.cycle_count),
            QString::fromLatin1(info.serial_number, serialLength)};
}

}  // namespace

CLmRequestBatteryDataAck::CLmRequestBatteryDataAck(QObject* parent, CLmClock* pClock)
    : CLmRequestMessageAck(LmMavlink::MSG_ID_SMART_BATTERY_INFO, parent, pClock)
{
}

void CLmRequestBatteryDataAck::Deliver(const QList<mavlink_message_t>& replies)
{
    QStringList data = FieldsInIdOrder<SSmartBatteryInfo>(replies, BatteryFields);
    for (int i = 0; i < kGroupSettingCount; ++i)
        data << QStringLiteral("0");
    emit BatteryData(data);
}
