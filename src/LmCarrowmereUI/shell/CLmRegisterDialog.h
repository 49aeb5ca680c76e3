#pragma once

#include "CLmPhoneCodeDialog.h"

#include <memory>

namespace Ui {
class CLmRegisterDialog;
}

// Creates a cloud account for a phone number confirmed with a verification
// code. Phone() is the new account's sign-in name.
class CLmRegisterDialog : public CLmPhoneCodeDialog
{
    Q_OBJECT
public:
    explicit CLmRegisterDialog(QWidget* parent = nullptr);
    ~CLmRegisterDialog() override;

private:
    std::unique_ptr<Ui::CLmRegisterDialog> m_pUi;
};
