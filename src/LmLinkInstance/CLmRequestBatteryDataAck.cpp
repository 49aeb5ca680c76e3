#include "CLmRequestBatteryDataAck.h"

#include "LmMavlinkMessages.h"

#include <QMap>

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
    QMap<int, QStringList> batteries;
    for (const mavlink_message_t& reply : replies) {
        const SSmartBatteryInfo info = SSmartBatteryInfo::unpack(reply);
        batteries.insert(info.id, BatteryFields(info));
    }
    QStringList data;
    for (const QStringList& fields : qAsConst(batteries))
        data << fields;
    for (int i = 0; i < kGroupSettingCount; ++i)
        data << QStringLiteral("0");
    emit BatteryData(data);
}
