#pragma once

#include <QJsonArray>
#include <QWidget>

#include <memory>

namespace Ui {
class CLmUserMessagePage;
}
class CLmNetWorkRequest;

// The user information page: the message centre and the profile, which the
// user edits here and signs out from.
class CLmUserMessagePage : public QWidget
{
    Q_OBJECT
public:
    explicit CLmUserMessagePage(QWidget* parent = nullptr);
    ~CLmUserMessagePage() override;

    // Shows the messages and fetches the current list from the cloud.
    void ShowMessageView();
    // Shows the profile carried by a "/user/profile" reply; a reply that
    // does not parse leaves the fields as they were.
    void ShowProfileView(const QByteArray& reply);
    void SetMessages(const QJsonArray& messages);
    // Forgets the messages and the profile of the account that left.
    void ForgetAccount();

Q_SIGNALS:
    void BackToHome();
    void saveUserInfoSucced();
    void LogoutSucced();

private Q_SLOTS:
    void slotSaveProfile();
    void slotProfileSaved(const QByteArray& reply);
    void slotChangePhone();
    void slotLogout();
    void slotMessageListRet(const QByteArray& reply);
    void slotRequestFailed(const QString& message);
    void slotNetWorkError();

private:
    void FetchProfile();
    void FillProfile(const QJsonObject& profile);
    CLmNetWorkRequest* NewUserRequest(const char* path);

    std::unique_ptr<Ui::CLmUserMessagePage> m_pUi;
};
