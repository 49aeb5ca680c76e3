#include "CLmUserMessagePage.h"

#include "ui_CLmUserMessagePage.h"

#include "CLmChangePhoneDialog.h"
#include "CLmNetWorkRequest.h"
#include "CLmReplyEnvelope.h"
#include "CLmSessionStore.h"
#include "LmCloudForm.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"

#include <QJsonObject>

CLmUserMessagePage::CLmUserMessagePage(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmUserMessagePage>())
{
    m_pUi->setupUi(this);
    connect(m_pUi->m_pBtnBackHome, &QPushButton::clicked, this, &CLmUserMessagePage::BackToHome);
    connect(m_pUi->m_pBtnShowMessages, &QPushButton::clicked, this, &CLmUserMessagePage::ShowMessageView);
    connect(m_pUi->m_pBtnShowProfile, &QPushButton::clicked, this, [this] {
        m_pUi->m_pUserStackedWidget->setCurrentWidget(m_pUi->m_pProfileView);
        m_pUi->m_pBtnShowMessages->setChecked(false);
        m_pUi->m_pBtnShowProfile->setChecked(true);
        FetchProfile();
    });
    connect(m_pUi->m_pBtnSaveProfile, &QPushButton::clicked, this, &CLmUserMessagePage::slotSaveProfile);
    connect(m_pUi->m_pBtnLogout, &QPushButton::clicked, this, &CLmUserMessagePage::slotLogout);
    connect(m_pUi->m_pBtnChangePhone, &QPushButton::clicked, this, &CLmUserMessagePage::slotChangePhone);
    SetMessages({});
}

CLmUserMessagePage::~CLmUserMessagePage() = default;

CLmNetWorkRequest* CLmUserMessagePage::NewUserRequest(const char* path)
{
    CLmNetWorkRequest* request = LmCloudRequest::NewSignedIn(path);
    connect(request, &CLmNetWorkRequest::FailedMsg, this, &CLmUserMessagePage::slotRequestFailed);
    connect(request, &CLmNetWorkRequest::NetWorkError, this, &CLmUserMessagePage::slotNetWorkError);
    return request;
}

void CLmUserMessagePage::ShowMessageView()
{
    m_pUi->m_pUserStackedWidget->setCurrentWidget(m_pUi->m_pMessageView);
    m_pUi->m_pBtnShowMessages->setChecked(true);
    m_pUi->m_pBtnShowProfile->setChecked(false);
    if (!CLmSessionStore().IsSignedIn())
        return;
    CLmNetWorkRequest* request = NewUserRequest(LmCloudPath::PushMessageList);
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmUserMessagePage::slotMessageListRet);
    request->PostNetWorkReplyMessage();
}

void CLmUserMessagePage::slotMessageListRet(const QByteArray& reply)
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    if (envelope.IsSuccess() && envelope.Data().isArray())
        SetMessages(envelope.DataArray());
}

void CLmUserMessagePage::ShowProfileView(const QByteArray& reply)
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    if (envelope.IsSuccess())
        FillProfile(envelope.DataObject());
    m_pUi->m_pLabelProfileState->clear();
    m_pUi->m_pUserStackedWidget->setCurrentWidget(m_pUi->m_pProfileView);
    m_pUi->m_pBtnShowMessages->setChecked(false);
    m_pUi->m_pBtnShowProfile->setChecked(true);
}

// The tab always shows the signed-in account, however the page was reached.
void CLmUserMessagePage::FetchProfile()
{
    if (!CLmSessionStore().IsSignedIn())
        return;
    CLmNetWorkRequest* request = NewUserRequest(LmCloudPath::UserProfile);
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmUserMessagePage::ShowProfileView);
    request->PostNetWorkReplyMessage();
}

void CLmUserMessagePage::ForgetAccount()
{
    SetMessages({});
    for (QLineEdit* edit : {m_pUi->m_pEditNickName, m_pUi->m_pEditEmail, m_pUi->m_pEditCompany})
        edit->clear();
    m_pUi->m_pLabelPhone->clear();
    m_pUi->m_pLabelProfileState->clear();
}

void CLmUserMessagePage::FillProfile(const QJsonObject& profile)
{
    if (profile.isEmpty())
        return;
    m_pUi->m_pEditNickName->setText(profile.value(QStringLiteral("nick_name")).toString());
    m_pUi->m_pLabelPhone->setText(profile.value(QStringLiteral("phone")).toString());
    m_pUi->m_pEditEmail->setText(profile.value(QStringLiteral("email")).toString());
    m_pUi->m_pEditCompany->setText(profile.value(QStringLiteral("company")).toString());
}

void CLmUserMessagePage::SetMessages(const QJsonArray& messages)
{
    m_pUi->m_pListMessages->clear();
    for (const QJsonValue& value : messages) {
        const QJsonObject message = value.toObject();
        m_pUi->m_pListMessages->addItem(message.value(QStringLiteral("created_at")).toString() + QStringLiteral("  ")
                                        + message.value(QStringLiteral("message")).toString());
    }
    m_pUi->m_pLabelNoMessage->setVisible(messages.isEmpty());
}

void CLmUserMessagePage::slotSaveProfile()
{
    const QString nickName = m_pUi->m_pEditNickName->text().trimmed();
    if (nickName.isEmpty()) {
        m_pUi->m_pLabelProfileState->setText(tr("The nick name cannot be empty."));
        return;
    }
    CLmNetWorkRequest* request = NewUserRequest(LmCloudPath::UserEditProfile);
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmUserMessagePage::slotProfileSaved);
    request->SetBody(LmCloudForm::Body({{"nick_name", nickName},
                                        {"email", m_pUi->m_pEditEmail->text().trimmed()},
                                        {"company", m_pUi->m_pEditCompany->text().trimmed()}}));
    request->PostNetWorkReplyMessage();
}

void CLmUserMessagePage::slotProfileSaved(const QByteArray& reply)
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    const QJsonObject profile = envelope.DataObject();
    if (!envelope.IsSuccess() || profile.isEmpty())
        return;
    FillProfile(profile);
    CLmSessionStore().SetNickName(profile.value(QStringLiteral("nick_name")).toString());
    m_pUi->m_pLabelProfileState->setText(tr("Saved."));
    Q_EMIT saveUserInfoSucced();
}

// The account signs in with its new phone from now on; the session itself
// (its token) stays valid.
void CLmUserMessagePage::slotChangePhone()
{
    CLmChangePhoneDialog dialog(this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QJsonObject profile = dialog.SubmitReplyData();
    FillProfile(profile);
    CLmSessionStore().SetAccount(profile.value(QStringLiteral("phone")).toString());
    Q_EMIT saveUserInfoSucced();
}

void CLmUserMessagePage::slotLogout()
{
    // The cloud is told when it can be reached; signing out here never waits
    // for it, so a user can sign out offline or with an expired session.
    CLmSessionStore session;
    if (session.IsSignedIn())
        NewUserRequest(LmCloudPath::UserLogout)->PostNetWorkReplyMessage();
    session.Clear();
    Q_EMIT LogoutSucced();
}

void CLmUserMessagePage::slotRequestFailed(const QString& message)
{
    m_pUi->m_pLabelProfileState->setText(message);
}

void CLmUserMessagePage::slotNetWorkError()
{
    m_pUi->m_pLabelProfileState->setText(tr("Network fault"));
}
