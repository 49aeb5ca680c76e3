#include "CLmCoordinateCalculator.h"

#include "ui_CLmCoordinateCalculator.h"

#include <optional>

namespace {

std::optional<double> ReadAngle(const QLineEdit* edit, double maxDegrees)
{
    bool ok = false;
    const double value = edit->text().toDouble(&ok);
    if (!ok || qAbs(value) > maxDegrees)
        return std::nullopt;
    return value;
}

}  // namespace

CLmCoordinateCalculator::CLmCoordinateCalculator(QWidget* parent)
    : CLmBaseDialog(parent)
    , m_pUi(std::make_unique<Ui::CLmCoordinateCalculator>())
{
    setObjectName(QStringLiteral("CLmCoordinateCalculator"));
    m_pUi->setupUi(ContentWidget());
    SetTitle(tr("Calculator"));
    setMinimumWidth(520);
    connect(m_pUi->m_pBtnCalculate, &QPushButton::clicked, this, &CLmCoordinateCalculator::Calculate);
    connect(m_pUi->m_pBtnClose, &QPushButton::clicked, this, &QDialog::accept);
}

CLmCoordinateCalculator::~CLmCoordinateCalculator() = default;

void CLmCoordinateCalculator::SetFirstPoint(const LmBaseStationMath::SGeoPoint& point)
{
    m_pUi->m_pEditFirstLat->setText(QString::number(point.lat, 'f', 9));
    m_pUi->m_pEditFirstLng->setText(QString::number(point.lng, 'f', 9));
}

void CLmCoordinateCalculator::SetSecondPoint(const LmBaseStationMath::SGeoPoint& point)
{
    m_pUi->m_pEditSecondLat->setText(QString::number(point.lat, 'f', 9));
    m_pUi->m_pEditSecondLng->setText(QString::number(point.lng, 'f', 9));
}

void CLmCoordinateCalculator::Calculate()
{
    const auto lat1 = ReadAngle(m_pUi->m_pEditFirstLat, 90.0);
    const auto lng1 = ReadAngle(m_pUi->m_pEditFirstLng, 180.0);
    const auto lat2 = ReadAngle(m_pUi->m_pEditSecondLat, 90.0);
    const auto lng2 = ReadAngle(m_pUi->m_pEditSecondLng, 180.0);
    if (!lat1 || !lng1 || !lat2 || !lng2) {
        m_pUi->m_pLblDistance->setText(tr("Not a position"));
        return;
    }
    const double metres = LmBaseStationMath::DistanceBetweenTwoLatLng(*lat1, *lng1, *lat2, *lng2) * 1000.0;
    m_pUi->m_pLblDistance->setText(QString::number(metres, 'f', 3) + QStringLiteral(" m"));
}
