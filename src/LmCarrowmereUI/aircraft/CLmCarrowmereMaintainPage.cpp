#include "CLmCarrowmereMaintainPage.h"

#include "CLmFaultDiagnosisSection.h"
#include "CLmFirmwareSection.h"
#include "CLmLicencePage.h"
#include "CLmPlaneStatus.h"
#include "CLmRawDataDownloadWgt.h"
#include "CLmRtkStationSettings.h"
#include "CLmUavSettings.h"
#include "ui_CLmCarrowmereMaintainPage.h"

#include <QButtonGroup>
#include <QFileInfo>
#include <QScrollArea>

namespace {

constexpr int kOverviewSection = 0;

// One line for a plane information list as the aircraft sent it.
QString PlaneInfoText(const QStringList& info, const QString& kind)
{
    return info.isEmpty() ? QString() : kind + QStringLiteral(": ") + info.join(QStringLiteral(", "));
}

}  // namespace

CLmCarrowmereMaintainPage::CLmCarrowmereMaintainPage(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmCarrowmereMaintainPage>())
    , m_pSectionEntries(new QButtonGroup(this))
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
    m_pUi->m_pBtnPlaneStatus->SetTipMargin(5, 5);
    m_pUi->m_pBtnPlaneStatus->SetTipSize(QSize(8, 8));
    m_pUi->m_pLabelPendingRequest->setVisible(false);
    connect(m_pUi->m_pBtnBackHome, &QPushButton::clicked, this, &CLmCarrowmereMaintainPage::BackToHome);
    m_pSectionEntries->addButton(m_pUi->m_pBtnOverview, kOverviewSection);
    // Fault diagnosis (flight logs), base station and data download join the
    // list the same way; their entries stay hidden until their section is added.
    AddSection(m_pUi->m_pBtnPlaneStatus, [this] {
        m_pPlaneStatus = new CLmPlaneStatus;
        m_pPlaneStatus->SetRopeWarning(m_bParachuteNotice);
        m_pPlaneStatus->SetConnectionText(m_strKeyStatus);
        m_pPlaneStatus->SetUas(m_pUas);
        return m_pPlaneStatus;
    });
    AddSection(m_pUi->m_pBtnUavSettings, [this] {
        m_pUavSettings = new CLmUavSettings;
        m_pUavSettings->SetUas(m_pUas);
        return m_pUavSettings;
    });
    AddSection(m_pUi->m_pBtnDataDownload, [this] {
        m_pRawDataDownload = new CLmRawDataDownloadWgt;
        m_pRawDataDownload->SetCurrentUas(m_pUas);
        return m_pRawDataDownload;
    });
    AddSection(m_pUi->m_pBtnFaultDiagnosis, [this] {
        m_pFaultDiagnosis = new CLmFaultDiagnosisSection;
        m_pFaultDiagnosis->SetCurrentUas(m_pUas);
        return m_pFaultDiagnosis;
    });
    AddSection(m_pUi->m_pBtnFirmware, [this] {
        m_pFirmware = new CLmFirmwareSection;
        m_pFirmware->SetCurrentUas(m_pUas);
        return m_pFirmware;
    });
    AddSection(m_pUi->m_pBtnLicence, [this] {
        m_pLicence = new CLmLicencePage;
        m_pLicence->SetCurrentUas(m_pUas);
        return m_pLicence;
    });
    // The base station is reached over its own network, not through the
    // aircraft: its section connects whenever its entry is pressed.
    AddSection(m_pUi->m_pBtnBaseStation, [this] {
        m_pBaseStation = new CLmRtkStationSettings;
        m_pBaseStation->setObjectName(QStringLiteral("CLmRtkStationSettings"));
        return m_pBaseStation;
    });
    connect(m_pUi->m_pBtnBaseStation, &QPushButton::clicked, this, [this] { m_pBaseStation->ConnectBaseStation(); });
    connect(m_pSectionEntries, &QButtonGroup::idClicked, this, &CLmCarrowmereMaintainPage::ShowSection);
    ShowSection(kOverviewSection);
    SetUsbDisks({});
    UpdateAircraftControls();
}

CLmCarrowmereMaintainPage::~CLmCarrowmereMaintainPage() = default;

void CLmCarrowmereMaintainPage::SetMainWindow(QWidget* pMainWindow)
{
    m_pMainWindow = pMainWindow;
}

// An entry's id is its section's index in the stack; the overview is the
// form's own first page. Sections taller than the page scroll.
void CLmCarrowmereMaintainPage::AddSection(QAbstractButton* pEntry, SectionFactory createSection)
{
    auto* scroll = new QScrollArea(m_pUi->m_pStackMaintain);
    scroll->setObjectName(pEntry->objectName() + QStringLiteral("Scroll"));
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    pEntry->setVisible(true);
    const int index = m_pUi->m_pStackMaintain->addWidget(scroll);
    m_pSectionEntries->addButton(pEntry, index);
    m_mapUnbuiltSections.insert(index, std::move(createSection));
}

void CLmCarrowmereMaintainPage::BuildSection(int index)
{
    const SectionFactory createSection = m_mapUnbuiltSections.take(index);
    if (createSection)
        static_cast<QScrollArea*>(m_pUi->m_pStackMaintain->widget(index))->setWidget(createSection());
}

void CLmCarrowmereMaintainPage::ShowSection(int index)
{
    BuildSection(index);
    m_pSectionEntries->button(index)->setChecked(true);
    m_pUi->m_pStackMaintain->setCurrentIndex(index);
}

void CLmCarrowmereMaintainPage::SetCurrentUas(CLmUasProvide* pUas)
{
    // While a sibling application holds the radio, no aircraft is taken.
    if (pUas == m_pUas || (pUas && !m_bDeviceConnectionArmed))
        return;
    m_pUas = pUas;
    UpdateAircraftControls();
    HandUasToSections();
}

CLmUasProvide* CLmCarrowmereMaintainPage::CurrentUas() const
{
    return m_pUas;
}

void CLmCarrowmereMaintainPage::UpdateAircraftControls()
{
    const bool held = m_pUas != nullptr;
    m_pUi->m_pBtnPlaneStatus->setEnabled(held);
    m_pUi->m_pBtnUavSettings->setEnabled(held);
    if (held)
        m_pUi->m_pLabelUasState->setText(tr("Aircraft connected."));
    else
        m_pUi->m_pLabelUasState->setText(m_strLinkProblem.isEmpty() ? tr("No aircraft connected.") : m_strLinkProblem);
    if (!held) {
        m_pUi->m_pLabelPlaneInfo->clear();
        m_pUi->m_pLabelKeyStatus->clear();
        m_strKeyStatus.clear();
        ShowSection(kOverviewSection);
    }
}

void CLmCarrowmereMaintainPage::HandUasToSections()
{
    if (m_pPlaneStatus)
        m_pPlaneStatus->SetUas(m_pUas);
    if (m_pUavSettings)
        m_pUavSettings->SetUas(m_pUas);
    if (m_pRawDataDownload)
        m_pRawDataDownload->SetCurrentUas(m_pUas);
    if (m_pFaultDiagnosis)
        m_pFaultDiagnosis->SetCurrentUas(m_pUas);
    if (m_pFirmware)
        m_pFirmware->SetCurrentUas(m_pUas);
    if (m_pLicence)
        m_pLicence->SetCurrentUas(m_pUas);
    Q_EMIT CurrentUasChanged(m_pUas);
}

void CLmCarrowmereMaintainPage::SetUsbDisks(const QStringList& disks)
{
    m_pUi->m_pListUsbDisks->clear();
    m_pUi->m_pListUsbDisks->addItems(disks);
    m_pUi->m_pLabelNoUsbDisk->setVisible(disks.isEmpty());
}

void CLmCarrowmereMaintainPage::SetPendingRequest(bool bPending)
{
    m_pUi->m_pLabelPendingRequest->setVisible(bPending);
}

void CLmCarrowmereMaintainPage::SetParachuteNotice(bool bNotify)
{
    m_bParachuteNotice = bNotify;
    m_pUi->m_pBtnPlaneStatus->SetTipVisible(bNotify);
    if (m_pPlaneStatus)
        m_pPlaneStatus->SetRopeWarning(bNotify);
}

bool CLmCarrowmereMaintainPage::ParachuteNotice() const
{
    return m_bParachuteNotice;
}

void CLmCarrowmereMaintainPage::ReleaseDeviceConnection()
{
    SetCurrentUas(nullptr);
    m_bDeviceConnectionArmed = false;
}

void CLmCarrowmereMaintainPage::RestoreDeviceConnection()
{
    m_bDeviceConnectionArmed = true;
}

void CLmCarrowmereMaintainPage::SetLinkProblem(const QString& text)
{
    m_strLinkProblem = text;
    UpdateAircraftControls();
}

void CLmCarrowmereMaintainPage::slotRecivePlaneInfo(QStringList info)
{
    m_pUi->m_pLabelPlaneInfo->setText(PlaneInfoText(info, tr("Fixed-wing")));
}

void CLmCarrowmereMaintainPage::slotReciveMultirotorPlaneInfo(QStringList info)
{
    m_pUi->m_pLabelPlaneInfo->setText(PlaneInfoText(info, tr("Multirotor")));
}

void CLmCarrowmereMaintainPage::slotKeyStatusString(QString status)
{
    m_strKeyStatus = status;
    m_pUi->m_pLabelKeyStatus->setText(status);
    if (m_pPlaneStatus)
        m_pPlaneStatus->SetConnectionText(status);
}

void CLmCarrowmereMaintainPage::slotDownLoadFinished(QString path)
{
    m_strFirmwarePackage = path;
    m_pUi->m_pLabelFirmware->setText(tr("New firmware package: %1").arg(QFileInfo(path).fileName()));
    // The package matters to the crew only with an aircraft to update.
    if (m_pUas)
        Q_EMIT NeedUpgrade(true);
}
