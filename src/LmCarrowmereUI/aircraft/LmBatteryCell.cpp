#include "LmBatteryCell.h"

namespace LmBatteryCell {

namespace {

// The band's colour, invalid below any band. The bands are tested from the
// top; a cell at or above 100 % fails the first test and takes the second
// band's colour.
QColor BandColour(double percent)
{
    if (percent > 87.5 && percent < 100)
        return QColor(26, 188, 156);
    if (percent > 75)
        return QColor(21, 179, 178);
    if (percent > 62.5)
        return QColor(17, 170, 198);
    if (percent > 50)
        return QColor(49, 150, 220);
    if (percent > 37.5)
        return QColor(58, 136, 244);
    if (percent > 25)
        return QColor(139, 103, 179);
    if (percent > 12.5)
        return QColor(170, 90, 153);
    if (percent > 0)
        return QColor(255, 54, 84);
    return {};
}

}  // namespace

double Percent(int milliVolts)
{
    return milliVolts / double(FullMilliVolts) * 100;
}

int BarValue(int milliVolts)
{
    return static_cast<int>(Percent(milliVolts));
}

QString VoltageText(int milliVolts)
{
    return QString::number(milliVolts / 1000.0, 'f', 2);
}

QColor ChunkColour(int milliVolts)
{
    return BandColour(Percent(milliVolts));
}

QString BarStyle(int milliVolts)
{
    const QColor colour = ChunkColour(milliVolts);
    if (!colour.isValid())
        return {};
    return QStringLiteral("  QProgressBar {\t\t\tborder:2px solid #a6b3c3;\t\t\tborder - radius: 5px;\t\t\t}\t\t\t"
                          "QProgressBar::chunk{\t\t\tmargin: 0.5px;\t\t\tbackground - color: rgb(%1, %2, %3);\t\t\t}")
        .arg(colour.red())
        .arg(colour.green())
        .arg(colour.blue());
}

}  // namespace LmBatteryCell
