#include "CLmForgetPasswordDialog.h"

#include "ui_CLmForgetPasswordDialog.h"

#include "LmCloudPaths.h"

CLmForgetPasswordDialog::CLmForgetPasswordDialog(QWidget* parent)
    : CLmPhoneCodeDialog(parent)
    , m_pUi(std::make_unique<Ui::CLmForgetPasswordDialog>())
{
    m_pUi->setupUi(ContentWidget());
    SetTitle(tr("Reset password"));
    SetUpForm({LmCloudPath::UserResetPasswordSendSms,
               LmCloudPath::UserResetPassword,
               tr("The password has been reset."),
               m_pUi->m_pEditPhone,
               m_pUi->m_pBtnSendCode,
               m_pUi->m_pEditNewPassword,
               m_pUi->m_pEditRepeatPassword,
               m_pUi->m_pBtnReset,
               m_pUi->m_pLabelStatus,
               {{"phone", m_pUi->m_pEditPhone, tr("Please enter the phone number.")},
                {"validate", m_pUi->m_pEditCode, tr("Please enter the verification code.")},
                {"password", m_pUi->m_pEditNewPassword, tr("Please enter the new password.")},
                {"repeat_password", m_pUi->m_pEditRepeatPassword, tr("Please repeat the new password.")}}});
}

CLmForgetPasswordDialog::~CLmForgetPasswordDialog() = default;
