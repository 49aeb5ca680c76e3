#pragma once

#include <QString>

#include <array>

// One smart battery as the aircraft reports it: the status stream gives
// voltage, current, temperature and charge; the battery-data answer gives
// capacity, life, cycles and identity; the cell-voltage answer the cells.
class CLmBattery
{
public:
    static constexpr int MaxCells = 8;

    void SetTotalVoltage(int milliVolts) { m_iTotalVoltage = milliVolts; }
    int GetTotalVoltage() const { return m_iTotalVoltage; }
    void SetCurrent(int current) { m_iCurrent = current; }
    int GetCurrent() const { return m_iCurrent; }
    // Whole degrees Celsius.
    void SetTemperature(int degrees) { m_iTemperature = degrees; }
    double GetTemperature() const { return m_iTemperature; }
    void SetCapacityRemainingPercent(int percent) { m_iCapacityRemainingPercent = percent; }
    int GetCapacityRemainingPercent() const { return m_iCapacityRemainingPercent; }
    void SetFullCapacity(int milliAmpHours) { m_iFullCapacity = milliAmpHours; }
    int GetFullCapacity() const { return m_iFullCapacity; }
    void SetLifePercent(int percent) { m_iLifePercent = percent; }
    int GetLifePercent() const { return m_iLifePercent; }
    void SetCycleTime(int cycles) { m_iCycleTime = cycles; }
    int GetCycleTime() const { return m_iCycleTime; }
    void SetBatteryID(const QString& id) { m_strBatteryID = id; }
    QString GetBatteryID() const { return m_strBatteryID; }

    // Cells are numbered 0..MaxCells-1; other numbers are ignored.
    void SetCellVoltage(int cell, int milliVolts);
    // 0 for a cell the battery does not have.
    int GetCellVoltage(int cell) const;
    bool HasCell(int cell) const;

private:
    static bool IsCellNumber(int cell);

    int m_iTotalVoltage = 0;
    int m_iCurrent = 0;
    int m_iTemperature = 0;
    int m_iCapacityRemainingPercent = 0;
    int m_iFullCapacity = 0;
    int m_iLifePercent = 0;
    int m_iCycleTime = 0;
    QString m_strBatteryID;
    std::array<int, MaxCells> m_arrCellVoltage{};
    std::array<bool, MaxCells> m_arrHasCell{};
};
