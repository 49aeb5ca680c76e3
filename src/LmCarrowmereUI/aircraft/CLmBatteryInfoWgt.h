#pragma once

#include <QWidget>

#include <array>
#include <memory>

namespace Ui {
class LmBatteryInfoWgt;
}
class CLmBattery;
class QLabel;
class QProgressBar;

// One battery of a multirotor: its figures, a bar per cell coloured by the
// cell's charge, and the failure texts that concern the batteries.
class CLmBatteryInfoWgt : public QWidget
{
    Q_OBJECT
public:
    static constexpr int CellCount = 8;

    explicit CLmBatteryInfoWgt(QWidget* parent = nullptr);
    ~CLmBatteryInfoWgt() override;

    void ShowBattery(const CLmBattery& battery);
    // Shows the texts under the cells; none hides the warning.
    void ShowWarnings(const QStringList& texts);

private:
    void AddCellBars();
    void ShowCell(int cell, int milliVolts);

    std::unique_ptr<Ui::LmBatteryInfoWgt> m_pUi;
    std::array<QProgressBar*, CellCount> m_arrCellBars{};
    std::array<QLabel*, CellCount> m_arrCellLabels{};
};
