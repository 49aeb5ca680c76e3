#pragma once

#include <QTabWidget>

class CLmBatteryGroup;
class CLmBatteryInfoWgt;

// A multirotor's batteries, one tab each ("Battery_1" .. "Battery_3").
class CLmBatteryFrameWgt : public QTabWidget
{
    Q_OBJECT
public:
    explicit CLmBatteryFrameWgt(QWidget* parent = nullptr);

    // Shows every battery the group holds on its tab; tabs without a battery
    // keep what they showed.
    void ShowBatteryGroup(const CLmBatteryGroup& group);
    // Every tab shows an empty battery.
    void ClearBatteries();
    void ShowWarnings(const QStringList& texts);

public Q_SLOTS:
    void slotBatteryIndexChanged(int index);

private:
    CLmBatteryInfoWgt* BatteryTab(int index) const;
};
