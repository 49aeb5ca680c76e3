#include "CLmFirmwareSection.h"

#include "CLmFirmwareController.h"
#include "CLmMessageBox.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <QVariant>

namespace {

QLabel* NewLabel(const QString& objectName, const char* property, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(objectName);
    if (property)
        label->setProperty(property, QVariant(true));
    return label;
}

}  // namespace

CLmFirmwareSection::CLmFirmwareSection(QWidget* parent)
    : QWidget(parent)
    , m_pController(new CLmFirmwareController(this))
{
    setObjectName(QStringLiteral("CLmFirmwareSection"));
    BuildCard();
    connect(m_pController, &CLmFirmwareController::Changed, this, &CLmFirmwareSection::ShowVersions);
    connect(m_pController, &CLmFirmwareController::ProgressChanged, this, &CLmFirmwareSection::ShowProgress);
    connect(m_pController, &CLmFirmwareController::StatusChanged, m_pLblUpgradeStatus, &QLabel::setText);
    connect(m_pBtnUpgrade, &QPushButton::clicked, this, &CLmFirmwareSection::AskToUpgrade);
    connect(m_pBtnResume, &QPushButton::clicked, m_pController, &CLmFirmwareController::ResumeUpgrade);
    m_pController->LoadHeldPackage();
    ShowVersions();
}

void CLmFirmwareSection::SetCurrentUas(CLmUasProvide* pUas)
{
    m_pController->LoadHeldPackage();
    m_pController->SetCurrentUas(pUas);
}

void CLmFirmwareSection::BuildCard()
{
    auto* card = new QFrame(this);
    card->setObjectName(QStringLiteral("m_pCardFirmware"));
    card->setProperty("card", QVariant(true));
    auto* grid = new QGridLayout(card);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(10);
    QLabel* title = NewLabel(QStringLiteral("m_pLblFirmwareTitle"), "cardTitle", card);
    title->setText(tr("Aircraft firmware"));
    grid->addWidget(title, 0, 0, 1, 3);
    QLabel* aircraftCaption = NewLabel(QStringLiteral("m_pLblAircraftVersionCaption"), nullptr, card);
    aircraftCaption->setText(tr("Version on the aircraft"));
    m_pLblAircraftVersion = NewLabel(QStringLiteral("m_pLblAircraftVersion"), "cardValue", card);
    QLabel* packageCaption = NewLabel(QStringLiteral("m_pLblPackageVersionCaption"), nullptr, card);
    packageCaption->setText(tr("Downloaded package"));
    m_pLblPackageVersion = NewLabel(QStringLiteral("m_pLblPackageVersion"), "cardValue", card);
    grid->addWidget(aircraftCaption, 1, 0);
    grid->addWidget(m_pLblAircraftVersion, 1, 1);
    grid->addWidget(packageCaption, 2, 0);
    grid->addWidget(m_pLblPackageVersion, 2, 1);
    m_pBtnUpgrade = new QPushButton(tr("Upgrade"), card);
    m_pBtnUpgrade->setObjectName(QStringLiteral("m_pBtnUpgrade"));
    grid->addWidget(m_pBtnUpgrade, 1, 2);
    m_pBtnResume = new QPushButton(tr("Resume"), card);
    m_pBtnResume->setObjectName(QStringLiteral("m_pBtnResume"));
    m_pBtnResume->setVisible(false);
    grid->addWidget(m_pBtnResume, 2, 2);
    m_pProgressUpgrade = new QProgressBar(card);
    m_pProgressUpgrade->setObjectName(QStringLiteral("m_pProgressUpgrade"));
    m_pProgressUpgrade->setRange(0, 100);
    m_pProgressUpgrade->setVisible(false);
    grid->addWidget(m_pProgressUpgrade, 3, 0, 1, 2);
    m_pLblRemaining = NewLabel(QStringLiteral("m_pLblRemaining"), nullptr, card);
    grid->addWidget(m_pLblRemaining, 3, 2);
    m_pLblUpgradeStatus = NewLabel(QStringLiteral("m_pLblUpgradeStatus"), nullptr, card);
    m_pLblUpgradeStatus->setWordWrap(true);
    grid->addWidget(m_pLblUpgradeStatus, 4, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(card);
    layout->addStretch();
}

void CLmFirmwareSection::ShowVersions()
{
    const QString unknown = tr("unknown");
    const QString aircraft = m_pController->AircraftVersion();
    const QString package = m_pController->PackageVersion();
    m_pLblAircraftVersion->setText(aircraft.isEmpty() ? unknown : aircraft);
    m_pLblPackageVersion->setText(package.isEmpty() ? tr("none") : package);
    m_pBtnUpgrade->setEnabled(!m_pController->IsUpgrading());
    m_pBtnResume->setVisible(m_pController->CanResume());
}

void CLmFirmwareSection::ShowProgress(int percent, int remainingSeconds)
{
    m_pProgressUpgrade->setVisible(true);
    m_pProgressUpgrade->setValue(percent);
    if (remainingSeconds < 0 || percent >= 100) {
        m_pLblRemaining->clear();
        return;
    }
    m_pLblRemaining->setText(tr("%1 min %2 s remaining").arg(remainingSeconds / 60).arg(remainingSeconds % 60));
}

void CLmFirmwareSection::AskToUpgrade()
{
    const QString refusal = m_pController->UpgradeRefusal();
    if (!refusal.isEmpty()) {
        Ask(refusal, false);
        return;
    }
    const QString question = tr("Install firmware %1 on the aircraft? Keep it on the ground and powered until it "
                                "has restarted.")
                                 .arg(m_pController->PackageVersion());
    if (Ask(question, true))
        m_pController->StartUpgrade();
}

bool CLmFirmwareSection::Ask(const QString& text, bool bWithCancel)
{
    CLmMessageBox box(text, QStringLiteral(":/images/Normal/ProjMgr/warn_question_ic.png"), tr("Firmware upgrade"),
                      bWithCancel ? CLmMessageBox::BtnOkCancel : CLmMessageBox::BtnOk, this);
    return box.exec() == 1;
}
