#include "CLmBatteryInfoWgt.h"

#include "CLmBattery.h"
#include "LmBatteryCell.h"
#include "ui_CLmBatteryInfoWgt.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

CLmBatteryInfoWgt::CLmBatteryInfoWgt(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::LmBatteryInfoWgt>())
{
    m_pUi->setupUi(this);
    AddCellBars();
}

CLmBatteryInfoWgt::~CLmBatteryInfoWgt() = default;

// Cell k's bar is m_pBarCell<k+1>, its voltage m_pLblCell<k+1>.
void CLmBatteryInfoWgt::AddCellBars()
{
    for (int cell = 0; cell < CellCount; ++cell) {
        auto* column = new QVBoxLayout;
        auto* bar = new QProgressBar(m_pUi->m_pCellBarsWgt);
        bar->setObjectName(QStringLiteral("m_pBarCell%1").arg(cell + 1));
        bar->setOrientation(Qt::Vertical);
        bar->setRange(0, 100);
        bar->setValue(0);
        bar->setTextVisible(false);
        auto* label = new QLabel(LmBatteryCell::VoltageText(0), m_pUi->m_pCellBarsWgt);
        label->setObjectName(QStringLiteral("m_pLblCell%1").arg(cell + 1));
        label->setAlignment(Qt::AlignCenter);
        column->addWidget(bar, 1, Qt::AlignHCenter);
        column->addWidget(label);
        m_pUi->m_pCellBarsLayout->addLayout(column);
        m_arrCellBars[cell] = bar;
        m_arrCellLabels[cell] = label;
    }
}

void CLmBatteryInfoWgt::ShowBattery(const CLmBattery& battery)
{
    m_pUi->m_pLblRemainValue->setText(QString::number(battery.GetCapacityRemainingPercent()));
    m_pUi->m_pLblTotalValue->setText(QString::number(battery.GetTotalVoltage() / 1000.0, 'f', 2));
    m_pUi->m_pLblTempValue->setText(QString::number(battery.GetTemperature()));
    m_pUi->m_pLblCurrentValue->setText(QString::number(battery.GetCurrent()));
    m_pUi->m_pLblSerialValue->setText(battery.GetBatteryID());
    m_pUi->m_pLblCyclesValue->setText(QString::number(battery.GetCycleTime()));
    m_pUi->m_pLblCapacityValue->setText(QString::number(battery.GetFullCapacity()));
    m_pUi->m_pLblLifeValue->setText(QString::number(battery.GetLifePercent()));
    for (int cell = 0; cell < CellCount; ++cell)
        ShowCell(cell, battery.HasCell(cell) ? battery.GetCellVoltage(cell) : 0);
}

void CLmBatteryInfoWgt::ShowCell(int cell, int milliVolts)
{
    QProgressBar* bar = m_arrCellBars[cell];
    bar->setValue(LmBatteryCell::BarValue(milliVolts));
    bar->setStyleSheet(LmBatteryCell::BarStyle(milliVolts));
    // The style's chunk rule names no colour the style sheet engine reads, so
    // the band's colour reaches the chunk through the palette.
    QPalette palette = bar->palette();
    const QColor colour = LmBatteryCell::ChunkColour(milliVolts);
    palette.setColor(QPalette::Highlight, colour.isValid() ? colour : QApplication::palette(bar).color(QPalette::Highlight));
    bar->setPalette(palette);
    m_arrCellLabels[cell]->setText(LmBatteryCell::VoltageText(milliVolts));
}

void CLmBatteryInfoWgt::ShowWarnings(const QStringList& texts)
{
    m_pUi->m_pLblWarning->setText(texts.join(QLatin1Char('\n')));
    m_pUi->m_pLblWarning->setStyleSheet(QStringLiteral("color: rgb(255, 54, 54);\t\t\tfont: 12pt \"Arial\"; "));
    m_pUi->m_pLblWarning->setVisible(!texts.isEmpty());
}
