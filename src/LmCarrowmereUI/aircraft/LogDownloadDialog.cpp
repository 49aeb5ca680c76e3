#include "LogDownloadDialog.h"

#include "CLmLogDownloadController.h"
#include "CLmMessageBox.h"
#include "ui_LogDownloadDialog.h"

#include <QHeaderView>

LogDownloadDialog::LogDownloadDialog(QWidget* parent)
    : QDialog(parent)
    , m_pUi(std::make_unique<Ui::LogDownloadDialog>())
    , m_pDownload(new CLmLogDownloadController(this))
    , m_pUpload(new CLmLogUploadController(m_pDownload, this))
{
    m_pUi->setupUi(this);
    setWindowFlags(Qt::Widget);
    m_pUi->m_pTableLogs->setModel(m_pDownload->Model());
    m_pUi->m_pTableLogs->verticalHeader()->setVisible(false);
    m_pUi->m_pTableLogs->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_pUi->m_pProgressBar->setVisible(false);
    m_pUi->m_pBtnUpload->setEnabled(false);
    connect(m_pUi->m_pBtnRefresh, &QPushButton::clicked, this, &LogDownloadDialog::refreshList);
    connect(m_pUi->m_pBtnErase, &QPushButton::clicked, this, &LogDownloadDialog::eraseAllLogs);
    connect(m_pUi->m_pBtnUpload, &QPushButton::clicked, this, &LogDownloadDialog::slotUploadBtnClicked);
    BindDownload();
    BindUpload();
}

LogDownloadDialog::~LogDownloadDialog() = default;

void LogDownloadDialog::BindDownload()
{
    connect(m_pDownload, &CLmLogDownloadController::TitleChanged, this, [this](const QString& title) {
        setWindowTitle(title);
        m_pUi->m_pLabelMav->setText(title);
    });
    connect(m_pDownload, &CLmLogDownloadController::UploadButtonChanged, this, &LogDownloadDialog::ShowUploadButton);
    connect(m_pDownload, &CLmLogDownloadController::TableEnabled, m_pUi->m_pTableLogs, &QWidget::setEnabled);
    connect(m_pDownload, &CLmLogDownloadController::StatusText, m_pUi->m_pLabelStatus, &QLabel::setText);
    connect(m_pDownload, &CLmLogDownloadController::ProgressShown, this, &LogDownloadDialog::ShowProgress);
    connect(m_pDownload, &CLmLogDownloadController::ProgressHidden, this, &LogDownloadDialog::HideProgress);
    connect(m_pDownload, &CLmLogDownloadController::Message, this,
            [this](const QString& title, const QString& text) { Inform(title, text); });
    connect(m_pDownload, &CLmLogDownloadController::LogDownloadFinished, m_pUpload,
            &CLmLogUploadController::slotUploadToCloud);
}

void LogDownloadDialog::BindUpload()
{
    connect(m_pUpload, &CLmLogUploadController::ButtonsEnabled, this, [this](bool bEnabled) {
        m_pUi->m_pBtnUpload->setEnabled(bEnabled);
        m_pUi->m_pBtnRefresh->setEnabled(bEnabled);
    });
    connect(m_pUpload, &CLmLogUploadController::UploadButtonChanged, this, &LogDownloadDialog::ShowUploadButton);
    connect(m_pUpload, &CLmLogUploadController::StatusText, this, [this](const QString& text) {
        m_pUi->m_pLabelStatus->setVisible(true);
        m_pUi->m_pLabelStatus->setText(text);
    });
    connect(m_pUpload, &CLmLogUploadController::ProgressShown, this, &LogDownloadDialog::ShowProgress);
    connect(m_pUpload, &CLmLogUploadController::Message, this, &LogDownloadDialog::Inform);
    connect(m_pUpload, &CLmLogUploadController::NetworkQuestion, this, &LogDownloadDialog::AskRetry);
    connect(m_pUpload, &CLmLogUploadController::UploadCompleted, this, &LogDownloadDialog::ShowCompleted);
}

void LogDownloadDialog::SetReportSource(std::function<CLmLogUploadController::SReport()> source)
{
    m_reportSource = std::move(source);
}

CLmLogDownloadController* LogDownloadDialog::Download() const
{
    return m_pDownload;
}

CLmLogUploadController* LogDownloadDialog::Upload() const
{
    return m_pUpload;
}

void LogDownloadDialog::setActiveUAS(CLmUasProvide* pUas)
{
    m_pDownload->setActiveUAS(pUas);
}

void LogDownloadDialog::refreshList()
{
    m_pDownload->refreshList();
}

void LogDownloadDialog::eraseAllLogs()
{
    if (!m_pDownload->Uas())
        return;
    CLmMessageBox box(tr("Delete logs"), QString(), tr("Fault diagnosis"), CLmMessageBox::BtnOkCancel, this);
    if (box.exec() == 1)
        m_pDownload->eraseAllLogs();
}

void LogDownloadDialog::slotUploadBtnClicked()
{
    if (m_reportSource) {
        m_pUpload->SetReport(m_reportSource());
        const QString problem = m_pUpload->ReportProblem();
        if (!problem.isEmpty()) {
            Inform(tr("Fault Diagnosis"), problem);
            return;
        }
    }
    if (!m_pDownload->Waiting().isEmpty()) {
        m_pUpload->slotUploadToCloud();
        return;
    }
    if (m_pDownload->getSelectedLogs())
        ShowProgress(QString(), 0, 1);
}

void LogDownloadDialog::ShowProgress(const QString& label, int value, int maximum)
{
    m_pUi->m_pProgressBar->setVisible(true);
    m_pUi->m_pLabelStatus->setVisible(true);
    if (!label.isEmpty())
        m_pUi->m_pLabelStatus->setText(label);
    if (m_pUi->m_pProgressBar->maximum() != maximum)
        m_pUi->m_pProgressBar->setMaximum(maximum);
    m_pUi->m_pProgressBar->setValue(value);
}

void LogDownloadDialog::HideProgress()
{
    m_pUi->m_pProgressBar->setVisible(false);
    m_pUi->m_pLabelStatus->setVisible(false);
}

void LogDownloadDialog::ShowUploadButton(bool bEnabled, const QString& text)
{
    m_pUi->m_pBtnUpload->setEnabled(bEnabled);
    m_pUi->m_pBtnUpload->setText(text);
}

void LogDownloadDialog::Inform(const QString& title, const QString& text, const QString& iconPath)
{
    CLmMessageBox box(text, iconPath, title, CLmMessageBox::BtnOk, this);
    box.exec();
}

void LogDownloadDialog::AskRetry()
{
    CLmMessageBox box(tr("Network failure or remote server is not available."), QString(), tr("Fault diagnosis"),
                      CLmMessageBox::BtnOkCancel, this);
    box.SetOkText(tr("Retry"));
    box.SetCancelText(tr("Close"));
    if (box.exec() == 1)
        m_pUpload->slotUploadToCloud();
}

void LogDownloadDialog::ShowCompleted(const QString& message)
{
    Inform(tr("SkyConsole"), message, QString::fromLatin1(CLmLogUploadController::SuccessIcon));
    m_pUi->m_pTableLogs->setEnabled(true);
}
