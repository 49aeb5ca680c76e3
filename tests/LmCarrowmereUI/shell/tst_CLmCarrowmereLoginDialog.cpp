#include "CCannedHttpPeer.h"
#include "CLmCarrowmereLoginDialog.h"
#include "CLmDeployConfig.h"
#include "CLmHttpSender.h"
#include "CSkyCloudProcess.h"
#include "CLmSessionStore.h"
#include "LmConstants.h"
#include "ModalAnswer.h"

#include "TestSession.h"
#include <QLineEdit>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

class tst_CLmCarrowmereLoginDialog : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void userSignInWritesTheSession();
    void administratorSignIn();
    void passwordWithFormCharactersSignsIn();
    void wrongPasswordShowsTheServiceText();
    void emptyDataChangesNothing();
    void loginButtonIgnoresClicksForOneSecond();

private:
    void Fill(CLmCarrowmereLoginDialog& dialog, const QString& account, const QString& password);
    QSettings* UserSettings();

    CSkyCloudProcess m_cloud;
    std::unique_ptr<QSettings> m_pSettings;
};

void tst_CLmCarrowmereLoginDialog::initTestCase()
{
    QVERIFY(m_cloud.Start());
}

void tst_CLmCarrowmereLoginDialog::init()
{
    TestSession::PointCloudAt(m_cloud.BaseUrl());
    m_pSettings = std::make_unique<QSettings>(QLatin1String(OrganizationName), QLatin1String(CloundApplicationName));
    m_pSettings->clear();
    m_pSettings->sync();
}

void tst_CLmCarrowmereLoginDialog::Fill(CLmCarrowmereLoginDialog& dialog, const QString& account,
                                         const QString& password)
{
    dialog.findChild<QLineEdit*>(QStringLiteral("m_pEditAccount"))->setText(account);
    dialog.findChild<QLineEdit*>(QStringLiteral("m_pEditPassword"))->setText(password);
}

QSettings* tst_CLmCarrowmereLoginDialog::UserSettings()
{
    m_pSettings->sync();
    return m_pSettings.get();
}

void tst_CLmCarrowmereLoginDialog::userSignInWritesTheSession()
{
    CLmCarrowmereLoginDialog dialog(nullptr, false);
    QSignalSpy accepted(&dialog, &CLmCarrowmereLoginDialog::LoginAccept);
    dialog.show();
    Fill(dialog, QStringLiteral("13800000001"), QStringLiteral("skyconsole"));
    dialog.findChild<QPushButton*>(QStringLiteral("m_pBtnLogin"))->click();
    QTRY_COMPARE_WITH_TIMEOUT(accepted.count(), 1, 8000);
    QVERIFY(!dialog.isVisible());

    QSettings* settings = UserSettings();
    settings->beginGroup(QLatin1String(UserInfoGroupName));
    QCOMPARE(settings->value(QLatin1String(UserInfoToken)).toString().size(), 32);
    QCOMPARE(settings->value(QLatin1String(UserInfoNickName)).toString(), QStringLiteral("Demo Pilot One"));
    QCOMPARE(settings->value(QLatin1String(UserInfoAccount)).toString(), QStringLiteral("13800000001"));
    QCOMPARE(settings->value(QLatin1String(UserInfoUserID)).toString(), QStringLiteral("1"));
    QCOMPARE(settings->value(QStringLiteral("User_Type")).toString(), QStringLiteral("enterprise"));
    QVERIFY(settings->contains(QStringLiteral("PWD")));
    QCOMPARE(settings->value(QStringLiteral("PWD")).toString(), QString());
    QCOMPARE(QByteArray::fromBase64(settings->value(QStringLiteral("permissions")).toString().toLatin1()),
             QByteArray("project,share,flightlog,noflyzone"));
    settings->endGroup();
    QCOMPARE(GetCurUserInfo().strNickName, QStringLiteral("Demo Pilot One"));
}

void tst_CLmCarrowmereLoginDialog::administratorSignIn()
{
    CLmCarrowmereLoginDialog dialog(nullptr, true);
    dialog.show();
    Fill(dialog, QStringLiteral("admin"), QStringLiteral("skyconsole"));
    dialog.findChild<QPushButton*>(QStringLiteral("m_pBtnLogin"))->click();
    QTRY_COMPARE_WITH_TIMEOUT(dialog.ResultText(), QStringLiteral("admin"), 8000);
    QTRY_VERIFY(!dialog.isVisible());
    QVERIFY(GetCurUserInfo().strToken.isEmpty());
}

void tst_CLmCarrowmereLoginDialog::passwordWithFormCharactersSignsIn()
{
    CSkyCloudProcess cloud({QStringLiteral("--expose-codes")});
    QVERIFY(cloud.Start());
    const QString code = cloud.Call("/user/resetpasswordsendsms", "phone=13800000002")
                             .value("data").toObject().value("validate_hint").toString();
    QVERIFY(!code.isEmpty());
    const QByteArray encoded = QUrl::toPercentEncoding(QStringLiteral("p+w&d=1%é"));
    int httpStatus = 0;
    cloud.Call("/user/resetpassword",
               "phone=13800000002&validate=" + code.toLatin1() + "&password=" + encoded + "&repeat_password=" + encoded,
               {}, &httpStatus);
    QCOMPARE(httpStatus, 200);
    TestSession::PointCloudAt(cloud.BaseUrl());

    CLmCarrowmereLoginDialog dialog(nullptr, false);
    QSignalSpy accepted(&dialog, &CLmCarrowmereLoginDialog::LoginAccept);
    dialog.show();
    Fill(dialog, QStringLiteral("13800000002"), QStringLiteral("p+w&d=1%é"));
    dialog.findChild<QPushButton*>(QStringLiteral("m_pBtnLogin"))->click();
    QTRY_COMPARE_WITH_TIMEOUT(accepted.count(), 1, 8000);
    QCOMPARE(GetCurUserInfo().strNickName, QStringLiteral("Demo Pilot Two"));
}

void tst_CLmCarrowmereLoginDialog::wrongPasswordShowsTheServiceText()
{
    CLmCarrowmereLoginDialog dialog(nullptr, false);
    dialog.show();
    Fill(dialog, QStringLiteral("13800000001"), QStringLiteral("not-it"));
    QString shown;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &shown, 8000, "CLmMessageBox");
    auto* login = dialog.findChild<QPushButton*>(QStringLiteral("m_pBtnLogin"));
    login->click();
    QTRY_VERIFY_WITH_TIMEOUT(shown.contains(QLatin1String("Wrong phone number or password")), 8000);
    QVERIFY(dialog.isVisible());
    QVERIFY(!login->signalsBlocked());
    QVERIFY(GetCurUserInfo().strToken.isEmpty());
}

void tst_CLmCarrowmereLoginDialog::emptyDataChangesNothing()
{
    CCannedHttpPeer peer(CCannedHttpPeer::Reply("200 OK", R"({"status":0,"message":"OK","data":{}})"));
    TestSession::PointCloudAt(peer.BaseUrl());
    CLmCarrowmereLoginDialog dialog(nullptr, false);
    QSignalSpy accepted(&dialog, &CLmCarrowmereLoginDialog::LoginAccept);
    dialog.show();
    Fill(dialog, QStringLiteral("13800000001"), QStringLiteral("skyconsole"));
    dialog.findChild<QPushButton*>(QStringLiteral("m_pBtnLogin"))->click();
    QTRY_COMPARE(peer.RequestCount(), 1);
    QTest::qWait(200);
    QCOMPARE(accepted.count(), 0);
    QVERIFY(dialog.isVisible());
    QVERIFY(UserSettings()->allKeys().isEmpty());
    QVERIFY(peer.LastRequest().contains("phone=13800000001&password=skyconsole&device_id="));
}

void tst_CLmCarrowmereLoginDialog::loginButtonIgnoresClicksForOneSecond()
{
    CCannedHttpPeer silent({}, false);
    TestSession::PointCloudAt(silent.BaseUrl());
    CLmCarrowmereLoginDialog dialog(nullptr, false);
    dialog.show();
    Fill(dialog, QStringLiteral("13800000001"), QStringLiteral("skyconsole"));
    auto* login = dialog.findChild<QPushButton*>(QStringLiteral("m_pBtnLogin"));
    login->click();
    login->click();
    login->click();
    QTRY_COMPARE(silent.RequestCount(), 1);
    QTRY_VERIFY_WITH_TIMEOUT(!login->signalsBlocked(), 3000);
    login->click();
    QTRY_COMPARE(silent.RequestCount(), 2);
    // Nothing may stay in flight when the test ends: the service goes away
    // and both sign-ins end as network errors.
    silent.HangUp();
    QTRY_VERIFY(CLmHttpSender::ThreadAccessManager()->findChildren<QNetworkReply*>().isEmpty());
}

QTEST_MAIN(tst_CLmCarrowmereLoginDialog)
#include "tst_CLmCarrowmereLoginDialog.moc"
