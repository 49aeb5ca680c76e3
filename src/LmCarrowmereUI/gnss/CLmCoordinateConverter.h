#pragma once

#include "CLmBaseDialog.h"

#include <memory>

namespace Ui {
class CLmCoordinateConverter;
}

// "Format converter": one angle as decimal degrees, as degrees, minutes and
// seconds, and in the station's ddmm form.
class CLmCoordinateConverter : public CLmBaseDialog
{
    Q_OBJECT
public:
    explicit CLmCoordinateConverter(QWidget* parent = nullptr);
    ~CLmCoordinateConverter() override;

    void SetDegrees(double degrees);

private:
    void ConvertFromDecimal();
    void ConvertFromDms();
    void ShowAll(double degrees);

    std::unique_ptr<Ui::CLmCoordinateConverter> m_pUi;
};
