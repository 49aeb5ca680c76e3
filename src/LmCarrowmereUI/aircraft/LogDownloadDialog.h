#pragma once

#include "CLmLogUploadController.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class LogDownloadDialog;
}
class CLmLogDownloadController;
class CLmUasProvide;

// "Airborne log list": the logs of the connected aircraft, their download
// and their upload with a fault report. It binds its form to the download
// and upload controllers and shows their messages; the fault-diagnosis
// section embeds it and supplies the report.
class LogDownloadDialog : public QDialog
{
    Q_OBJECT
public:
    explicit LogDownloadDialog(QWidget* parent = nullptr);
    ~LogDownloadDialog() override;

    // Where the report fields come from; without one nothing is checked.
    void SetReportSource(std::function<CLmLogUploadController::SReport()> source);
    CLmLogDownloadController* Download() const;
    CLmLogUploadController* Upload() const;

public Q_SLOTS:
    void setActiveUAS(CLmUasProvide* pUas);
    void refreshList();
    void eraseAllLogs();
    void slotUploadBtnClicked();

private:
    void BindDownload();
    void BindUpload();
    void ShowProgress(const QString& label, int value, int maximum);
    void HideProgress();
    void ShowUploadButton(bool bEnabled, const QString& text);
    void Inform(const QString& title, const QString& text, const QString& iconPath = QString());
    void AskRetry();
    void ShowCompleted(const QString& message);

    std::unique_ptr<Ui::LogDownloadDialog> m_pUi;
    CLmLogDownloadController* m_pDownload;
    CLmLogUploadController* m_pUpload;
    std::function<CLmLogUploadController::SReport()> m_reportSource;
};
