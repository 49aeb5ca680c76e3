#pragma once

#include <QJsonObject>
#include <QObject>

class QUrl;
class QWebEngineView;
class QWidget;
class CLmLinkManager;
class CLmLinkProvide;
class CLmMessageBox;

// What the cloud tells the user: the news page, the push notifications and
// the offers of newer firmware, application and launcher. The window decides
// where each notice shows; this class reads them and runs their boxes and
// dialogs.
class CLmNoticeCenter : public QObject
{
    Q_OBJECT
public:
    // pWindow parents the center, its boxes and dialogs; the news view is
    // made inside pNewsHost, which has a layout.
    CLmNoticeCenter(QWidget* pWindow, QWidget* pNewsHost);

    // Acts on one push notification ("status", "action", "message", "data").
    void Dispatch(const QJsonObject& notice);

    // Loads the news page; its browser view is made the first time.
    void ShowNews(const QUrl& url);
    // Asks the cloud once for newer firmware, application and launcher.
    void StartUpdateChecks();
    // Opens the push channel; its text comes in through pLinkManager's bytesReceived.
    void OpenPushLink(CLmLinkManager* pLinkManager);
    // Subscribes the push channel again with the session of now.
    void RefreshPushSubscription();

    // Offers the firmware update, once until ForgetFirmwareOffer(); true when
    // the user accepts.
    bool OfferFirmwareUpdate();
    void ForgetFirmwareOffer();
    void OfferApplicationUpgrade(const QJsonObject& release);
    void OfferLauncherUpgrade();

Q_SIGNALS:
    // A project was shared with or assigned to the user.
    void ProjectNoticeArrived();
    // A share message or an access request waits in the message centre.
    void MessageNoticeArrived();
    void AccessRequestArrived();
    void NewsArrived(const QString& text);
    // The user has read that a no-fly zone was lifted.
    void LiftCheckConfirmed();

    // From the update checks.
    void DownLoadFinished(const QString& filePath);
    void LauncherUpgradeInfor();
    void NeedUpgradeSureNewVersion(const QJsonObject& release);

private:
    void ConfirmLiftCheck(const QString& message);

    QWidget* m_pWindow;
    QWidget* m_pNewsHost;
    QWebEngineView* m_pNewsView = nullptr;
    CLmLinkProvide* m_pPushLink = nullptr;
    CLmMessageBox* m_pFirmwareNoticeBox = nullptr;
};
