#include "CLmBatteryGroup.h"

CLmBatteryGroup::CLmBatteryGroup(const CLmBatteryGroup& other)
    : m_iLowCapacityAlarm(other.m_iLowCapacityAlarm)
    , m_iSevereLowCapacityAlarm(other.m_iSevereLowCapacityAlarm)
    , m_iStartingSelfDischargeTime(other.m_iStartingSelfDischargeTime)
{
    for (int index = 0; index < MaxBatteries; ++index) {
        if (other.m_arrBatteries[index])
            m_arrBatteries[index] = std::make_unique<CLmBattery>(*other.m_arrBatteries[index]);
    }
}

CLmBatteryGroup& CLmBatteryGroup::operator=(const CLmBatteryGroup& other)
{
    if (this != &other)
        *this = CLmBatteryGroup(other);
    return *this;
}

void CLmBatteryGroup::AddBattery(int index, CLmBattery* pBattery)
{
    std::unique_ptr<CLmBattery> battery(pBattery);
    if (IsBatteryIndex(index))
        m_arrBatteries[index] = std::move(battery);
}

CLmBattery* CLmBatteryGroup::GetBattery(int index)
{
    return IsBatteryIndex(index) ? m_arrBatteries[index].get() : nullptr;
}

const CLmBattery* CLmBatteryGroup::GetBattery(int index) const
{
    return IsBatteryIndex(index) ? m_arrBatteries[index].get() : nullptr;
}

bool CLmBatteryGroup::IsBatteryIndex(int index)
{
    return index >= 0 && index < MaxBatteries;
}
