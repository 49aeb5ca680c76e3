#include "CLmCarrowmereLoginDialog.h"

#include "ui_CLmCarrowmereLoginDialog.h"

#include "CLmForgetPasswordDialog.h"
#include "CLmControl.h"
#include "CLmMessageBox.h"
#include "CLmNetWorkRequest.h"
#include "CLmRegisterDialog.h"
#include "CLmReplyEnvelope.h"
#include "CLmSessionStore.h"
#include "LmCloudForm.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"
#include "LmCarrowmereUILog.h"

#include <QDir>
#include <QNetworkInterface>

namespace {

// Clicks on the login button are ignored for this long after each click.
constexpr int kLoginGuardMs = 1000;

QString MachineHardwareAddress()
{
    for (const QNetworkInterface& iface : QNetworkInterface::allInterfaces()) {
        if (iface.flags().testFlag(QNetworkInterface::IsLoopBack))
            continue;
        const QString address = iface.hardwareAddress();
        if (!address.isEmpty() && address != QLatin1String("00:00:00:00:00:00"))
            return address;
    }
    return QString();
}

}  // namespace

CLmCarrowmereLoginDialog::CLmCarrowmereLoginDialog(QWidget* parent, bool admin)
    : CLmBaseDialog(parent)
    , m_pUi(std::make_unique<Ui::CLmCarrowmereLoginDialog>())
    , m_bAdmin(admin)
{
    m_pUi->setupUi(ContentWidget());
    SetTitle(tr("Login Tolva Cloud"));
    setMinimumWidth(360);
    m_pUi->m_pEditAccount->setFocus();
    m_guardTimer.setSingleShot(true);
    connect(m_pUi->m_pBtnLogin, &QPushButton::clicked, this, &CLmCarrowmereLoginDialog::slotLogin);
    connect(m_pUi->m_pBtnForgot, &QPushButton::clicked, this, &CLmCarrowmereLoginDialog::slotForgetPWD);
    connect(m_pUi->m_pBtnRegister, &QPushButton::clicked, this, &CLmCarrowmereLoginDialog::slotRegister);
}

CLmCarrowmereLoginDialog::~CLmCarrowmereLoginDialog() = default;

QString CLmCarrowmereLoginDialog::ResultText() const
{
    return m_strResultText;
}

void CLmCarrowmereLoginDialog::slotLogin()
{
    m_pUi->m_pBtnLogin->blockSignals(true);
    m_guardTimer.disconnect(this);
    connect(&m_guardTimer, &QTimer::timeout, this, &CLmCarrowmereLoginDialog::slotNetWorkError);
    m_guardTimer.start(kLoginGuardMs);

    CLmNetWorkRequest* request =
        LmCloudRequest::NewAnonymous(m_bAdmin ? LmCloudPath::AdminLogin : LmCloudPath::UserLogin);
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmCarrowmereLoginDialog::slotReciveLogIn);
    connect(request, &CLmNetWorkRequest::FailedMsg, this, &CLmCarrowmereLoginDialog::slotFailedAction);
    connect(request, &CLmNetWorkRequest::NetWorkError, this, &CLmCarrowmereLoginDialog::slotNetWorkError);

    // Letters and digits go out as typed; other characters percent-encoded,
    // so a password holding "&", "+" or "=" reaches the service intact.
    const QString account = m_pUi->m_pEditAccount->text();
    const QString password = m_pUi->m_pEditPassword->text();
    if (m_bAdmin) {
        request->SetBody(LmCloudForm::Body({{"username", account}, {"password", password}}));
    } else {
        request->SetBody(LmCloudForm::Body(
            {{"phone", account}, {"password", password}, {"device_id", MachineHardwareAddress()}}));
    }
    request->PostNetWorkReplyMessage();
}

void CLmCarrowmereLoginDialog::slotReciveLogIn(const QByteArray& reply)
{
    const QJsonObject data = CLmReplyEnvelope::Parse(reply).DataObject();
    if (data.isEmpty())
        return;
    if (m_bAdmin) {
        m_strResultText = data.value(QStringLiteral("username")).toString();
        close();
        m_pUi->m_pBtnLogin->blockSignals(false);
        return;
    }
    StoreUserSession(data);
    Q_EMIT LoginAccept();
    accept();
    m_pUi->m_pBtnLogin->blockSignals(false);
}

void CLmCarrowmereLoginDialog::StoreUserSession(const QJsonObject& data)
{
    SLmUserInfo user;
    user.strToken = data.value(QStringLiteral("token")).toString();
    user.strNickName = data.value(QStringLiteral("nick_name")).toString();
    user.strAccount = m_pUi->m_pEditAccount->text();
    user.strUserID = data.value(QStringLiteral("id")).toVariant().toString();
    user.strUserType = data.value(QStringLiteral("type")).toVariant().toString();
    CLmSessionStore().SaveSignIn(user, data.value(QStringLiteral("permission")).toString());
    FormUserProjectFolder(user.strAccount);
}

// The account's own project folder exists from its first sign-in on.
void CLmCarrowmereLoginDialog::FormUserProjectFolder(const QString& account)
{
    const QString folder =
        CLmControl::GetInstance()->GetAppDataDirectory() + QStringLiteral("/Project/") + account + QLatin1Char('/');
    if (!QDir().mkpath(folder))
        qCWarning(lcMainWnd) << "cannot make the project folder" << folder;
}

void CLmCarrowmereLoginDialog::slotFailedAction(const QString& message)
{
    CLmMessageBox box(message, QString(), tr("SkyConsole"), CLmMessageBox::BtnOk, this);
    box.exec();
    m_pUi->m_pBtnLogin->blockSignals(false);
}

void CLmCarrowmereLoginDialog::slotNetWorkError()
{
    m_pUi->m_pBtnLogin->blockSignals(false);
}

void CLmCarrowmereLoginDialog::slotForgetPWD()
{
    CLmForgetPasswordDialog dialog(this);
    RunAccountDialog(dialog);
}

void CLmCarrowmereLoginDialog::slotRegister()
{
    CLmRegisterDialog dialog(this);
    RunAccountDialog(dialog);
}

void CLmCarrowmereLoginDialog::RunAccountDialog(CLmPhoneCodeDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_pUi->m_pEditAccount->setText(dialog.Phone());
    m_pUi->m_pEditPassword->clear();
    m_pUi->m_pEditPassword->setFocus();
}
