#include "CLmBattery.h"

void CLmBattery::SetCellVoltage(int cell, int milliVolts)
{
    if (!IsCellNumber(cell))
        return;
    m_arrCellVoltage[cell] = milliVolts;
    m_arrHasCell[cell] = true;
}

int CLmBattery::GetCellVoltage(int cell) const
{
    return HasCell(cell) ? m_arrCellVoltage[cell] : 0;
}

bool CLmBattery::HasCell(int cell) const
{
    return IsCellNumber(cell) && m_arrHasCell[cell];
}

bool CLmBattery::IsCellNumber(int cell)
{
    return cell >= 0 && cell < MaxCells;
}
