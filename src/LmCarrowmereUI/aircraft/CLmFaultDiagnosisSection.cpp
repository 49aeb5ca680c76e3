#include "CLmFaultDiagnosisSection.h"

#include "LogDownloadDialog.h"
#include "ui_CLmFaultDiagnosisSection.h"

#include <QSysInfo>

namespace {

constexpr int kNormalLevel = 2;

}  // namespace

CLmFaultDiagnosisSection::CLmFaultDiagnosisSection(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmFaultDiagnosisSection>())
    , m_pLogDialog(new LogDownloadDialog)
{
    m_pUi->setupUi(this);
    m_pUi->m_pEditOsVersion->setText(QSysInfo::prettyProductName());
    m_pUi->m_pComboLevel->addItem(tr("Minor"), 1);
    m_pUi->m_pComboLevel->addItem(tr("Normal"), kNormalLevel);
    m_pUi->m_pComboLevel->addItem(tr("Serious"), 3);
    m_pUi->m_pComboLevel->addItem(tr("Critical"), 4);
    m_pUi->m_pComboLevel->setCurrentIndex(m_pUi->m_pComboLevel->findData(kNormalLevel));
    m_pUi->m_pLogDialogHolder->addWidget(m_pLogDialog);
    m_pLogDialog->SetReportSource([this] {
        CLmLogUploadController::SReport report;
        report.strSoftwareVersion = m_pUi->m_pEditSoftwareVersion->text();
        report.strOsVersion = m_pUi->m_pEditOsVersion->text();
        report.strQuestion = m_pUi->m_pEditQuestion->toPlainText();
        report.nLevel = m_pUi->m_pComboLevel->currentData().toInt();
        return report;
    });
}

CLmFaultDiagnosisSection::~CLmFaultDiagnosisSection() = default;

void CLmFaultDiagnosisSection::SetCurrentUas(CLmUasProvide* pUas)
{
    m_pLogDialog->setActiveUAS(pUas);
}

LogDownloadDialog* CLmFaultDiagnosisSection::LogDialog() const
{
    return m_pLogDialog;
}
