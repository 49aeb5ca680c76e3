#include "CLmAccountSession.h"

#include "CLmCarrowmereLoginDialog.h"
#include "CLmControl.h"
#include "CLmMessageBox.h"
#include "CLmNetWorkRequest.h"
#include "CLmSessionStore.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"

#include <QLabel>

namespace {

const char kIconOffNetwork[] = ":/images/Normal/userinfo/off_network_ico.png";

// Account checks ("/user/profile") wait this long for the service.
constexpr int kAccountCheckTimeoutMs = 10000;

}  // namespace

CLmAccountSession::CLmAccountSession(QWidget* pWindow, QLabel* pNameLabel, const QList<QWidget*>& accountButtons)
    : QObject(pWindow)
    , m_pWindow(pWindow)
    , m_pNameLabel(pNameLabel)
    , m_listAccountButtons(accountButtons)
{
    SetAccountButtonsEnabled(false);
}

bool CLmAccountSession::IsSignedIn() const
{
    return CLmSessionStore().IsSignedIn();
}

bool CLmAccountSession::CheckStoredSession()
{
    if (!IsSignedIn()) {
        m_pNameLabel->setText(tr("Please Login"));
        return false;
    }
    if (!CLmControl::GetInstance()->IsNetWorkConnected()) {
        ShowSignedIn();
        return true;
    }
    CLmNetWorkRequest* request = NewProfileRequest();
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmAccountSession::ShowSignedIn);
    request->PostNetWorkReplyMessage();
    return true;
}

void CLmAccountSession::OpenAccount()
{
    if (!ConfirmOnline())
        return;
    if (!IsSignedIn()) {
        SignInByDialog();
        return;
    }
    CLmNetWorkRequest* request = NewProfileRequest();
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmAccountSession::ProfileArrived);
    request->PostNetWorkReplyMessage();
}

void CLmAccountSession::OfferSignIn()
{
    if (ConfirmOnline())
        SignInByDialog();
}

void CLmAccountSession::ShowAccountInfo()
{
    if (ConfirmOnline() && IsSignedIn())
        SignInByDialog();
}

bool CLmAccountSession::MayOpenCloudPages()
{
    if (!ConfirmOnline())
        return false;
    if (!IsSignedIn()) {
        ShowOffNetworkBox(tr("Please Login"));
        return false;
    }
    return true;
}

CLmNetWorkRequest* CLmAccountSession::NewProfileRequest()
{
    CLmNetWorkRequest* request = LmCloudRequest::NewSignedIn(LmCloudPath::UserProfile);
    connect(request, &CLmNetWorkRequest::FailedMsg, this, &CLmAccountSession::slotAccountFailed);
    connect(request, &CLmNetWorkRequest::NetWorkError, this, &CLmAccountSession::slotAccountFailed);
    request->SetNetWorkReplyTimeout(kAccountCheckTimeoutMs);
    return request;
}

void CLmAccountSession::slotAccountFailed()
{
    ShowOffNetworkBox(tr(" Failed to get user information."));
    if (SignInByDialog())
        return;
    CLmSessionStore().Clear();
    ShowStoredUser();
}

void CLmAccountSession::ShowSignedIn()
{
    const SLmUserInfo user = GetCurUserInfo();
    CLmControl::GetInstance()->SetRouteFolder(CLmControl::GetInstance()->GetAppDataDirectory()
                                              + QStringLiteral("/Project/") + user.strUserID
                                              + QStringLiteral("/Vireo_AirLine/"));
    m_pNameLabel->setText(user.strNickName);
    SetAccountButtonsEnabled(true);
    const bool switched = !m_strShownUserId.isEmpty() && m_strShownUserId != user.strUserID;
    m_strShownUserId = user.strUserID;
    if (switched)
        Q_EMIT AccountSwitched();
    Q_EMIT SignedIn();
}

void CLmAccountSession::ShowStoredUser()
{
    const QString nickName = GetCurUserInfo().strNickName;
    if (!nickName.isEmpty()) {
        m_pNameLabel->setText(nickName);
        return;
    }
    m_pNameLabel->setText(tr("Sign in"));
    SetAccountButtonsEnabled(false);
    m_strShownUserId.clear();
    Q_EMIT SignedOut();
}

// Offline the user is told so and nothing else happens.
bool CLmAccountSession::ConfirmOnline()
{
    if (CLmControl::GetInstance()->IsNetWorkConnected())
        return true;
    ShowOffNetworkBox(tr("Network fault"));
    return false;
}

bool CLmAccountSession::SignInByDialog()
{
    CLmCarrowmereLoginDialog dialog(m_pWindow, false);
    connect(&dialog, &CLmCarrowmereLoginDialog::LoginAccept, this, &CLmAccountSession::ShowSignedIn);
    return dialog.exec() == QDialog::Accepted;
}

void CLmAccountSession::ShowOffNetworkBox(const QString& text)
{
    CLmMessageBox box(text, QLatin1String(kIconOffNetwork), tr("SkyConsole"), CLmMessageBox::BtnOk, m_pWindow);
    box.exec();
}

void CLmAccountSession::SetAccountButtonsEnabled(bool bEnabled)
{
    for (QWidget* button : qAsConst(m_listAccountButtons))
        button->setEnabled(bEnabled);
}
