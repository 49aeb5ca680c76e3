#pragma once

#include <QColor>
#include <QString>

// How one battery cell is drawn: its bar value, its voltage text and the bar's
// style, whose chunk colour steps through eight bands of the cell's charge.
namespace LmBatteryCell {

// A full cell.
constexpr int FullMilliVolts = 4350;

// Share of a full cell in percent; more than 100 for an over-charged cell.
double Percent(int milliVolts);
int BarValue(int milliVolts);
// Volts with two decimals, "3.85".
QString VoltageText(int milliVolts);
// The colour of the cell's charge band; invalid for an empty (or missing) cell.
QColor ChunkColour(int milliVolts);
// The bar's style sheet; empty for an empty (or missing) cell.
QString BarStyle(int milliVolts);

}  // namespace LmBatteryCell
