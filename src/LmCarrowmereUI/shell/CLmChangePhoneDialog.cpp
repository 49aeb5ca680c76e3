#include "CLmChangePhoneDialog.h"

#include "ui_CLmChangePhoneDialog.h"

#include "LmCloudPaths.h"

CLmChangePhoneDialog::CLmChangePhoneDialog(QWidget* parent)
    : CLmPhoneCodeDialog(parent)
    , m_pUi(std::make_unique<Ui::CLmChangePhoneDialog>())
{
    m_pUi->setupUi(ContentWidget());
    SetTitle(tr("Change phone"));
    SetUpForm({LmCloudPath::UserSendValidate,
               LmCloudPath::UserChangePhone,
               tr("The phone number has been changed."),
               m_pUi->m_pEditPhone,
               m_pUi->m_pBtnSendCode,
               nullptr,
               nullptr,
               m_pUi->m_pBtnConfirm,
               m_pUi->m_pLabelStatus,
               {{"phone", m_pUi->m_pEditPhone, tr("Please enter the new phone number.")},
                {"validate", m_pUi->m_pEditCode, tr("Please enter the verification code.")}},
               true});
}

CLmChangePhoneDialog::~CLmChangePhoneDialog() = default;
