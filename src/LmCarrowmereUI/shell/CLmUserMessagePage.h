#pragma once

#include <QJsonArray>
#include <QWidget>

#include <memory>

namespace Ui {
class CLmUserMessagePage;
}

// The user information page: the message centre and the profile view.
class CLmUserMessagePage : public QWidget
{
    Q_OBJECT
public:
    explicit CLmUserMessagePage(QWidget* parent = nullptr);
    ~CLmUserMessagePage() override;

    void ShowMessageView();
    // Shows the profile carried by a "/user/profile" reply; a reply that
    // does not parse leaves the view as it was.
    void ShowProfileView(const QByteArray& reply);
    void SetMessages(const QJsonArray& messages);

Q_SIGNALS:
    void BackToHome();
    void saveUserInfoSucced();
    void LogoutSucced();

private:
    std::unique_ptr<Ui::CLmUserMessagePage> m_pUi;
};
