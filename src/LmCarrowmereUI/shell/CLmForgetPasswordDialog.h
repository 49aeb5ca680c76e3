#pragma once

#include "CLmPhoneCodeDialog.h"

#include <memory>

namespace Ui {
class CLmForgetPasswordDialog;
}

// Sets a new password for a registered phone number after confirming it with
// a verification code.
class CLmForgetPasswordDialog : public CLmPhoneCodeDialog
{
    Q_OBJECT
public:
    explicit CLmForgetPasswordDialog(QWidget* parent = nullptr);
    ~CLmForgetPasswordDialog() override;

private:
    std::unique_ptr<Ui::CLmForgetPasswordDialog> m_pUi;
};
