#pragma once

#include "CLmBaseDialog.h"
#include "lmcarrowmereui_export.h"

#include <QJsonObject>
#include <QTimer>

#include <memory>

class CLmPhoneCodeDialog;

namespace Ui {
class CLmCarrowmereLoginDialog;
}

// Signs a user (or, in administrator mode, an administrator) in to the cloud
// and stores the session in the user settings.
class LMCARROWMEREUI_EXPORT CLmCarrowmereLoginDialog : public CLmBaseDialog
{
    Q_OBJECT
public:
    CLmCarrowmereLoginDialog(QWidget* parent, bool admin);
    ~CLmCarrowmereLoginDialog() override;

    // The administrator's name after an administrator sign-in.
    QString ResultText() const;

Q_SIGNALS:
    void LoginAccept();

private Q_SLOTS:
    void slotLogin();
    void slotReciveLogIn(const QByteArray& reply);
    void slotFailedAction(const QString& message);
    void slotNetWorkError();
    void slotForgetPWD();
    void slotRegister();

private:
    void StoreUserSession(const QJsonObject& data);
    void FormUserProjectFolder(const QString& account);
    // Runs an account dialog; once it succeeds its phone becomes the account.
    void RunAccountDialog(CLmPhoneCodeDialog& dialog);

    std::unique_ptr<Ui::CLmCarrowmereLoginDialog> m_pUi;
    QTimer m_guardTimer;
    bool m_bAdmin;
    QString m_strResultText;
};
