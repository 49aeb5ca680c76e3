#pragma once

#include <QWidget>

class CLmFirmwareController;
class CLmUasProvide;
class QLabel;
class QProgressBar;
class QPushButton;

// The maintenance page's firmware section: the aircraft's and the package's
// versions, "Upgrade" (confirmed by the user, refused with the reason while
// the aircraft is armed or in the air), the upload's progress and remaining
// time, and the outcome; "Resume" continues an upload the lost link cut. Bound to CLmFirmwareController.
class CLmFirmwareSection : public QWidget
{
    Q_OBJECT
public:
    explicit CLmFirmwareSection(QWidget* parent = nullptr);

    void SetCurrentUas(CLmUasProvide* pUas);
    CLmFirmwareController* Controller() const { return m_pController; }

private:
    void BuildCard();
    void ShowVersions();
    void ShowProgress(int percent, int remainingSeconds);
    void AskToUpgrade();
    bool Ask(const QString& text, bool bWithCancel);

    CLmFirmwareController* m_pController;
    QLabel* m_pLblAircraftVersion = nullptr;
    QLabel* m_pLblPackageVersion = nullptr;
    QPushButton* m_pBtnUpgrade = nullptr;
    QPushButton* m_pBtnResume = nullptr;
    QProgressBar* m_pProgressUpgrade = nullptr;
    QLabel* m_pLblRemaining = nullptr;
    QLabel* m_pLblUpgradeStatus = nullptr;
};
