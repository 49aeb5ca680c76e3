#include "CCannedHttpPeer.h"
#include "CLmCarrowmereMainWindow.h"
#include "CLmControl.h"
#include "CLmDeployConfig.h"
#include "CSkyCloudProcess.h"
#include "CLmSessionStore.h"
#include "LmConstants.h"
#include "ModalAnswer.h"

#include "TestSession.h"
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QApplication>
#include <QTest>
#include <QTimer>

// The session decides what a crew can reach; a session lost by mistake or
// kept after the service refused it is what users meet here.
class tst_AccountSession : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void noTokenAsksToLogIn();
    void offlineStartTrustsTheStoredSession();
    void refusedCheckWithCancelledLoginClearsTheSession();
    void acceptedCheckRestoresTheSession();
    void signInFromTheAvatar();

private:
    void StoreSession(const QString& token);
    QString UserLabel() const;
    bool AccountButtonsEnabled() const;

    QPointer<CLmCarrowmereMainWindow> m_pWindow;
};

void tst_AccountSession::init()
{
    QSettings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)}.clear();
    CLmControl::GetInstance()->SetRouteFolder(QString());
    m_pWindow = new CLmCarrowmereMainWindow(nullptr);
    m_pWindow->show();
}

void tst_AccountSession::cleanup()
{
    delete m_pWindow;
    CLmControl::GetInstance()->SetNetWorkState(false);
}

void tst_AccountSession::StoreSession(const QString& token)
{
    QSettings settings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)};
    settings.beginGroup(QLatin1String(UserInfoGroupName));
    settings.setValue(QLatin1String(UserInfoToken), token);
    settings.setValue(QLatin1String(UserInfoNickName), QStringLiteral("Stored Pilot"));
    settings.setValue(QLatin1String(UserInfoAccount), QStringLiteral("13800000001"));
    settings.setValue(QLatin1String(UserInfoUserID), QStringLiteral("7"));
    settings.setValue(QStringLiteral("User_Type"), QStringLiteral("enterprise"));
    settings.setValue(QStringLiteral("PWD"), QString());
    settings.setValue(QStringLiteral("permissions"), QStringLiteral("cHJvamVjdA=="));
    settings.setValue(QStringLiteral("AutoLogin"), true);
}

QString tst_AccountSession::UserLabel() const
{
    return m_pWindow->findChild<QLabel*>(QStringLiteral("m_pLabelUserName"))->text();
}

bool tst_AccountSession::AccountButtonsEnabled() const
{
    return m_pWindow->findChild<QPushButton*>(QStringLiteral("m_pBtnProjManager"))->isEnabled()
           && m_pWindow->findChild<QPushButton*>(QStringLiteral("m_pBtnMainWndMaintain"))->isEnabled();
}

void tst_AccountSession::noTokenAsksToLogIn()
{
    QVERIFY(!m_pWindow->ValidAccoutState());
    QCOMPARE(UserLabel(), QStringLiteral("Please Login"));
    QVERIFY(!m_pWindow->IsLogin());
}

void tst_AccountSession::offlineStartTrustsTheStoredSession()
{
    CCannedHttpPeer peer(CCannedHttpPeer::Reply("200 OK", "{}"));
    TestSession::PointCloudAt(peer.BaseUrl());
    StoreSession(QStringLiteral("stored-token"));
    CLmControl::GetInstance()->SetNetWorkState(false);

    QVERIFY(m_pWindow->ValidAccoutState());
    QCOMPARE(UserLabel(), QStringLiteral("Stored Pilot"));
    QVERIFY(AccountButtonsEnabled());
    QCOMPARE(CLmControl::GetInstance()->GetRouteFolder(),
             CLmControl::GetInstance()->GetAppDataDirectory() + QStringLiteral("/Project/7/Vireo_AirLine/"));
    QTest::qWait(100);
    QCOMPARE(peer.RequestCount(), 0);
}

void tst_AccountSession::refusedCheckWithCancelledLoginClearsTheSession()
{
    CCannedHttpPeer peer(
        CCannedHttpPeer::Reply("401 Unauthorized", R"({"status":401,"message":"Invalid token","data":{}})"));
    TestSession::PointCloudAt(peer.BaseUrl());
    StoreSession(QStringLiteral("expired-token"));
    CLmControl::GetInstance()->SetNetWorkState(true);

    QString failure;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &failure, 8000, "CLmMessageBox");
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnClose"), nullptr, 8000, "CLmCarrowmereLoginDialog");
    QVERIFY(m_pWindow->ValidAccoutState());
    QTRY_VERIFY_WITH_TIMEOUT(failure.contains(QLatin1String(" Failed to get user information.")), 8000);
    QTRY_VERIFY(GetCurUserInfo().strToken.isEmpty());
    QVERIFY(peer.LastRequest().contains("token: expired-token"));

    QSettings settings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)};
    settings.beginGroup(QLatin1String(UserInfoGroupName));
    QCOMPARE(settings.value(QLatin1String(UserInfoNickName)).toString(), QString());
    QCOMPARE(settings.value(QLatin1String(UserInfoUserID)).toString(), QString());
    QCOMPARE(settings.value(QStringLiteral("PWD")).toString(), QString());
    QCOMPARE(settings.value(QStringLiteral("AutoLogin")).toBool(), false);
    // The account, the user type and the permissions stay for the next sign-in.
    QCOMPARE(settings.value(QLatin1String(UserInfoAccount)).toString(), QStringLiteral("13800000001"));
    QCOMPARE(settings.value(QStringLiteral("User_Type")).toString(), QStringLiteral("enterprise"));
    QCOMPARE(settings.value(QStringLiteral("permissions")).toString(), QStringLiteral("cHJvamVjdA=="));
}

void tst_AccountSession::acceptedCheckRestoresTheSession()
{
    CSkyCloudProcess cloud;
    QVERIFY(cloud.Start());
    TestSession::PointCloudAt(cloud.BaseUrl());
    const QJsonObject login =
        cloud.Call("/user/login", "phone=13800000002&password=skyconsole&device_id=x").value("data").toObject();
    StoreSession(login.value(QStringLiteral("token")).toString());
    CLmControl::GetInstance()->SetNetWorkState(true);

    QVERIFY(m_pWindow->ValidAccoutState());
    QTRY_COMPARE_WITH_TIMEOUT(UserLabel(), QStringLiteral("Stored Pilot"), 8000);
    QVERIFY(AccountButtonsEnabled());
}

void tst_AccountSession::signInFromTheAvatar()
{
    CSkyCloudProcess cloud;
    QVERIFY(cloud.Start());
    TestSession::PointCloudAt(cloud.BaseUrl());
    CLmControl::GetInstance()->SetNetWorkState(true);

    QTimer::singleShot(0, this, [] {
        QTRY_VERIFY(QApplication::activeModalWidget());
        QWidget* dialog = QApplication::activeModalWidget();
        dialog->findChild<QLineEdit*>(QStringLiteral("m_pEditAccount"))->setText(QStringLiteral("13800000001"));
        dialog->findChild<QLineEdit*>(QStringLiteral("m_pEditPassword"))->setText(QStringLiteral("skyconsole"));
        dialog->findChild<QPushButton*>(QStringLiteral("m_pBtnLogin"))->click();
    });
    m_pWindow->findChild<QPushButton*>(QStringLiteral("m_pBtnMainWndUserIcon"))->click();
    QTRY_COMPARE_WITH_TIMEOUT(UserLabel(), QStringLiteral("Demo Pilot One"), 8000);
    QVERIFY(AccountButtonsEnabled());
    QVERIFY(m_pWindow->IsLogin());
    QCOMPARE(CLmControl::GetInstance()->GetRouteFolder(),
             CLmControl::GetInstance()->GetAppDataDirectory() + QStringLiteral("/Project/1/Vireo_AirLine/"));
}

QTEST_MAIN(tst_AccountSession)
#include "tst_AccountSession.moc"
