#pragma once

#include "SLmParameter.h"

#include <QWidget>

#include <memory>

namespace Ui {
class CLmUavSettings;
}
class CLmUasProvide;
class CLmUavSettingsController;
class QLineEdit;

// The aircraft settings page ("Flight Setting"): the link-loss protection
// time, and on a test server the multirotor's parameter table with "Restore"
// and "save".
class CLmUavSettings : public QWidget
{
    Q_OBJECT
public:
    explicit CLmUavSettings(QWidget* parent = nullptr);
    ~CLmUavSettings() override;

    // The aircraft from the maintenance page, null when it went away.
    void SetUas(CLmUasProvide* pUas);
    CLmUavSettingsController* Controller() const;

public Q_SLOTS:
    void slotOKBtnClicked();
    void slotRetPara();
    void slotSavePara();
    void slotTextChanged(QString text);

private:
    void ConnectController();
    void ShowParameter(const SLmParameter& parameter);
    void ClearTable();
    QLineEdit* ValueEditor(int row) const;
    void ShowProtectionTimeConfirmed(int seconds);
    void Inform(const QString& text);

    std::unique_ptr<Ui::CLmUavSettings> m_pUi;
    CLmUavSettingsController* m_pController;
};
