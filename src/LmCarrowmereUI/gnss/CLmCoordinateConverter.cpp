#include "CLmCoordinateConverter.h"

#include "LmBaseStationMath.h"
#include "LmStationRules.h"
#include "ui_CLmCoordinateConverter.h"

namespace {

constexpr double kMaxDegrees = 180.0;

}  // namespace

CLmCoordinateConverter::CLmCoordinateConverter(QWidget* parent)
    : CLmBaseDialog(parent)
    , m_pUi(std::make_unique<Ui::CLmCoordinateConverter>())
{
    setObjectName(QStringLiteral("CLmCoordinateConverter"));
    m_pUi->setupUi(ContentWidget());
    SetTitle(tr("Format converter"));
    setMinimumWidth(520);
    connect(m_pUi->m_pBtnFromDecimal, &QPushButton::clicked, this, &CLmCoordinateConverter::ConvertFromDecimal);
    connect(m_pUi->m_pBtnFromDms, &QPushButton::clicked, this, &CLmCoordinateConverter::ConvertFromDms);
    connect(m_pUi->m_pBtnClose, &QPushButton::clicked, this, &QDialog::accept);
}

CLmCoordinateConverter::~CLmCoordinateConverter() = default;

void CLmCoordinateConverter::SetDegrees(double degrees)
{
    ShowAll(degrees);
}

void CLmCoordinateConverter::ConvertFromDecimal()
{
    bool ok = false;
    const double degrees = m_pUi->m_pEditDecimal->text().toDouble(&ok);
    if (ok && qAbs(degrees) <= kMaxDegrees)
        ShowAll(degrees);
    else
        m_pUi->m_pLblDdmm->setText(tr("Not an angle"));
}

void CLmCoordinateConverter::ConvertFromDms()
{
    const std::optional<double> degrees = LmStationRules::ReadDms(
        m_pUi->m_pEditDeg->text(), m_pUi->m_pEditMin->text(), m_pUi->m_pEditSec->text(), kMaxDegrees);
    if (degrees)
        ShowAll(*degrees);
    else
        m_pUi->m_pLblDdmm->setText(tr("Not an angle"));
}

void CLmCoordinateConverter::ShowAll(double degrees)
{
    const LmStationRules::SDmsText dms = LmStationRules::DmsText(degrees);
    m_pUi->m_pEditDecimal->setText(QString::number(degrees, 'f', 9));
    m_pUi->m_pEditDeg->setText(dms.degrees);
    m_pUi->m_pEditMin->setText(dms.minutes);
    m_pUi->m_pEditSec->setText(dms.seconds);
    m_pUi->m_pLblDdmm->setText(QString::number(LmBaseStationMath::PackDdmm(degrees), 'f', 7));
}
