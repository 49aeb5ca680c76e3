#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class CLmLicencePage;
}
class CLmLicenceController;
class CLmUasProvide;

// The licence section of the maintenance page: the serial number the
// aircraft's licence is bound to, its state, expiry date and features, and
// "Refresh" for a renewed licence from the cloud.
class CLmLicencePage : public QWidget
{
    Q_OBJECT
public:
    explicit CLmLicencePage(QWidget* parent = nullptr);
    ~CLmLicencePage() override;

    // The aircraft from the maintenance page, null when it went away.
    void SetCurrentUas(CLmUasProvide* pUas);
    CLmLicenceController* Controller() const { return m_pController; }

private:
    void ShowLicence();
    void ShowState();
    void UpdateRefreshButton();

    std::unique_ptr<Ui::CLmLicencePage> m_pUi;
    CLmLicenceController* m_pController;
};
