#pragma once

#include "CLmBaseDialog.h"
#include "LmBaseStationMath.h"

#include <memory>

namespace Ui {
class CLmCoordinateCalculator;
}

// "Calculator": the distance between two points given in decimal degrees,
// to compare a point with the station's position or with another point.
class CLmCoordinateCalculator : public CLmBaseDialog
{
    Q_OBJECT
public:
    explicit CLmCoordinateCalculator(QWidget* parent = nullptr);
    ~CLmCoordinateCalculator() override;

    void SetFirstPoint(const LmBaseStationMath::SGeoPoint& point);
    void SetSecondPoint(const LmBaseStationMath::SGeoPoint& point);

private:
    void Calculate();

    std::unique_ptr<Ui::CLmCoordinateCalculator> m_pUi;
};
