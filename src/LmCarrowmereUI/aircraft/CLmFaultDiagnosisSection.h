#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class CLmFaultDiagnosisSection;
}
class CLmUasProvide;
class LogDownloadDialog;

// The maintenance page's fault-diagnosis section: the fault report (software
// version, OS version, level, question) and the aircraft's log list, whose
// logs are uploaded with the report.
//
// The levels are the severities the cloud's fault reports accept:
// 1 minor, 2 normal, 3 serious, 4 critical.
class CLmFaultDiagnosisSection : public QWidget
{
    Q_OBJECT
public:
    explicit CLmFaultDiagnosisSection(QWidget* parent = nullptr);
    ~CLmFaultDiagnosisSection() override;

    void SetCurrentUas(CLmUasProvide* pUas);
    LogDownloadDialog* LogDialog() const;

private:
    std::unique_ptr<Ui::CLmFaultDiagnosisSection> m_pUi;
    LogDownloadDialog* m_pLogDialog;
};
