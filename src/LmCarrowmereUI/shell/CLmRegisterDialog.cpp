#include "CLmRegisterDialog.h"

#include "ui_CLmRegisterDialog.h"

#include "LmCloudPaths.h"

CLmRegisterDialog::CLmRegisterDialog(QWidget* parent)
    : CLmPhoneCodeDialog(parent)
    , m_pUi(std::make_unique<Ui::CLmRegisterDialog>())
{
    m_pUi->setupUi(ContentWidget());
    SetTitle(tr("Register"));
    SetUpForm({LmCloudPath::UserSendValidate,
               LmCloudPath::UserRegister,
               tr("Registration succeeded, please sign in."),
               m_pUi->m_pEditPhone,
               m_pUi->m_pBtnSendCode,
               m_pUi->m_pEditPassword,
               m_pUi->m_pEditRepeatPassword,
               m_pUi->m_pBtnRegister,
               m_pUi->m_pLabelStatus,
               {{"phone", m_pUi->m_pEditPhone, tr("Please enter the phone number.")},
                {"validate", m_pUi->m_pEditCode, tr("Please enter the verification code.")},
                {"nick_name", m_pUi->m_pEditNickName, tr("Please enter a nick name.")},
                {"password", m_pUi->m_pEditPassword, tr("Please enter a password.")},
                {QByteArray(), m_pUi->m_pEditRepeatPassword, tr("Please repeat the password.")}}});
}

CLmRegisterDialog::~CLmRegisterDialog() = default;
