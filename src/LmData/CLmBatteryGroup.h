#pragma once

#include "CLmBattery.h"

#include <array>
#include <memory>

// The batteries of one multirotor (up to three, by index) and the group's
// alarm settings. The group owns its batteries; a copy copies them.
class CLmBatteryGroup
{
public:
    static constexpr int MaxBatteries = 3;

    CLmBatteryGroup() = default;
    CLmBatteryGroup(const CLmBatteryGroup& other);
    CLmBatteryGroup& operator=(const CLmBatteryGroup& other);
    CLmBatteryGroup(CLmBatteryGroup&&) noexcept = default;
    CLmBatteryGroup& operator=(CLmBatteryGroup&&) noexcept = default;
    ~CLmBatteryGroup() = default;

    // Takes the battery, replacing (and deleting) one held at that index. A
    // battery for an index outside 0..MaxBatteries-1 is deleted at once.
    void AddBattery(int index, CLmBattery* pBattery);
    // Null when the group holds no battery at that index.
    CLmBattery* GetBattery(int index);
    const CLmBattery* GetBattery(int index) const;

    void SetLowCapacityAlarm(int percent) { m_iLowCapacityAlarm = percent; }
    int GetLowCapacityAlarm() const { return m_iLowCapacityAlarm; }
    void SetSevereLowCapacityAlarm(int percent) { m_iSevereLowCapacityAlarm = percent; }
    int GetSevereLowCapacityAlarm() const { return m_iSevereLowCapacityAlarm; }
    // Days a charged battery waits before it starts discharging itself.
    void SetStartingSelfDischargeTime(int days) { m_iStartingSelfDischargeTime = days; }
    int GetStartingSelfDischargeTime() const { return m_iStartingSelfDischargeTime; }

private:
    static bool IsBatteryIndex(int index);

    std::array<std::unique_ptr<CLmBattery>, MaxBatteries> m_arrBatteries;
    int m_iLowCapacityAlarm = 0;
    int m_iSevereLowCapacityAlarm = 0;
    int m_iStartingSelfDischargeTime = 0;
};
