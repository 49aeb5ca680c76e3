#include "CLmBatteryFrameWgt.h"

#include "CLmBatteryGroup.h"
#include "CLmBatteryInfoWgt.h"

CLmBatteryFrameWgt::CLmBatteryFrameWgt(QWidget* parent)
    : QTabWidget(parent)
{
    setStyleSheet(QStringLiteral("QTabWidget:pane\n{\nborder:none;\n}"));
    for (int index = 0; index < CLmBatteryGroup::MaxBatteries; ++index) {
        auto* tab = new CLmBatteryInfoWgt(this);
        addTab(tab, tr("Battery_%1").arg(index + 1));
    }
}

void CLmBatteryFrameWgt::ShowBatteryGroup(const CLmBatteryGroup& group)
{
    for (int index = 0; index < count(); ++index) {
        if (const CLmBattery* pBattery = group.GetBattery(index))
            BatteryTab(index)->ShowBattery(*pBattery);
    }
}

void CLmBatteryFrameWgt::ClearBatteries()
{
    for (int index = 0; index < count(); ++index)
        BatteryTab(index)->ShowBattery(CLmBattery());
}

void CLmBatteryFrameWgt::ShowWarnings(const QStringList& texts)
{
    for (int index = 0; index < count(); ++index)
        BatteryTab(index)->ShowWarnings(texts);
}

void CLmBatteryFrameWgt::slotBatteryIndexChanged(int index)
{
    setCurrentIndex(index);
}

CLmBatteryInfoWgt* CLmBatteryFrameWgt::BatteryTab(int index) const
{
    return static_cast<CLmBatteryInfoWgt*>(widget(index));
}
