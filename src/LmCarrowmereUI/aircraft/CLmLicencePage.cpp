#include "CLmLicencePage.h"

#include "CLmLicenceController.h"
#include "ui_CLmLicencePage.h"

#include <QLocale>
#include <QStyle>

namespace {

// The state label's colour comes from the style sheet's [licenceState=...] rules.
const char* const kStateProperty = "licenceState";

}  // namespace

CLmLicencePage::CLmLicencePage(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmLicencePage>())
    , m_pController(new CLmLicenceController(this))
{
    m_pUi->setupUi(this);
    connect(m_pUi->m_pBtnLicenceRefresh, &QPushButton::clicked, m_pController, &CLmLicenceController::Refresh);
    connect(m_pController, &CLmLicenceController::LicenceChanged, this, &CLmLicencePage::ShowLicence);
    connect(m_pController, &CLmLicenceController::StatusChanged, m_pUi->m_pLblLicenceStatus, &QLabel::setText);
    connect(m_pController, &CLmLicenceController::BusyChanged, this, &CLmLicencePage::UpdateRefreshButton);
    ShowLicence();
    UpdateRefreshButton();
}

CLmLicencePage::~CLmLicencePage() = default;

void CLmLicencePage::SetCurrentUas(CLmUasProvide* pUas)
{
    m_pController->SetCurrentUas(pUas);
    UpdateRefreshButton();
}

void CLmLicencePage::ShowLicence()
{
    const SLmLicenceInfo& licence = m_pController->Licence();
    const QString none = tr("None");
    m_pUi->m_pLblLicenceSerial->setText(licence.bHasLicence ? licence.strLicenceSerial : none);
    m_pUi->m_pLblLicenceExpiry->setText(licence.bHasLicence && licence.dateExpires.isValid()
                                            ? QLocale().toString(licence.dateExpires, QLocale::LongFormat)
                                            : none);
    m_pUi->m_pLblLicenceFeatures->setText(licence.lstFeatures.isEmpty() ? none
                                                                        : licence.lstFeatures.join(QStringLiteral(", ")));
    ShowState();
}

void CLmLicencePage::ShowState()
{
    using LmLicenceState::EState;
    QString text;
    QString look;
    switch (m_pController->State()) {
    case EState::Valid: text = tr("Valid"); look = QStringLiteral("valid"); break;
    case EState::Expiring: text = tr("Expiring within 30 days"); look = QStringLiteral("expiring"); break;
    case EState::Expired: text = tr("Expired"); look = QStringLiteral("expired"); break;
    case EState::Missing: text = tr("Missing"); look = QStringLiteral("missing"); break;
    }
    if (!m_pController->Uas())
        text = tr("No aircraft connected");
    m_pUi->m_pLblLicenceState->setText(text);
    m_pUi->m_pLblLicenceState->setProperty(kStateProperty, look);
    m_pUi->m_pLblLicenceState->style()->unpolish(m_pUi->m_pLblLicenceState);
    m_pUi->m_pLblLicenceState->style()->polish(m_pUi->m_pLblLicenceState);
}

void CLmLicencePage::UpdateRefreshButton()
{
    m_pUi->m_pBtnLicenceRefresh->setEnabled(m_pController->Uas() && !m_pController->IsBusy());
}
