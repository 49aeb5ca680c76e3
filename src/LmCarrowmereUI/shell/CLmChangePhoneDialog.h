#pragma once

#include "CLmPhoneCodeDialog.h"

#include <memory>

namespace Ui {
class CLmChangePhoneDialog;
}

// Moves the signed-in account to a new phone number confirmed with a
// verification code sent to it. Once accepted, SubmitReplyData() is the
// account's updated profile.
class CLmChangePhoneDialog : public CLmPhoneCodeDialog
{
    Q_OBJECT
public:
    explicit CLmChangePhoneDialog(QWidget* parent = nullptr);
    ~CLmChangePhoneDialog() override;

private:
    std::unique_ptr<Ui::CLmChangePhoneDialog> m_pUi;
};
