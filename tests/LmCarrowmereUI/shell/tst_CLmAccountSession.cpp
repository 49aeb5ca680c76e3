#include "CLmAccountSession.h"
#include "CLmControl.h"
#include "CLmSessionStore.h"
#include "CSkyCloudProcess.h"
#include "ModalAnswer.h"
#include "TestSession.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>

// The session without the window, against the cloud emulator: what the user
// meets at each way into the account, and the looks the session leaves.
class tst_CLmAccountSession : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void whatTheUserMeets_data();
    void whatTheUserMeets();
    void refusedCheckThenSignInKeepsTheSession();
    void storedUserAfterTheUserPage_data();
    void storedUserAfterTheUserPage();

private:
    bool AccountButtonsEnabled() const;

    CSkyCloudProcess m_cloud;
    QString m_strToken;
    std::unique_ptr<QWidget> m_pWindow;
    QLabel* m_pNameLabel = nullptr;
    QList<QWidget*> m_listAccountButtons;
    CLmAccountSession* m_pSession = nullptr;
};

void tst_CLmAccountSession::initTestCase()
{
    QVERIFY(m_cloud.Start());
    TestSession::PointCloudAt(m_cloud.BaseUrl());
    m_strToken = QString::fromUtf8(m_cloud.SignIn("13800000001"));
    QVERIFY(!m_strToken.isEmpty());
}

void tst_CLmAccountSession::init()
{
    CLmSessionStore().Clear();
    m_pWindow = std::make_unique<QWidget>();
    m_pNameLabel = new QLabel(m_pWindow.get());
    m_listAccountButtons = {new QPushButton(m_pWindow.get()), new QPushButton(m_pWindow.get())};
    m_pSession = new CLmAccountSession(m_pWindow.get(), m_pNameLabel, m_listAccountButtons);
    m_pWindow->show();
}

void tst_CLmAccountSession::cleanup()
{
    m_pWindow.reset();
    CLmControl::GetInstance()->SetNetWorkState(false);
}

bool tst_CLmAccountSession::AccountButtonsEnabled() const
{
    return std::all_of(m_listAccountButtons.cbegin(), m_listAccountButtons.cend(),
                       [](const QWidget* button) { return button->isEnabled(); });
}

void tst_CLmAccountSession::whatTheUserMeets_data()
{
    QTest::addColumn<QString>("entry");
    // "offline" (with a stored session), "signed out" or "signed in".
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("met");

    QTest::newRow("avatar offline: network fault") << "avatar" << "offline" << "network fault";
    QTest::newRow("avatar signed in: the profile") << "avatar" << "signed in" << "profile";
    QTest::newRow("account info offline: network fault") << "accountInfo" << "offline" << "network fault";
    QTest::newRow("account info signed in: a fresh sign-in") << "accountInfo" << "signed in" << "login dialog";
    QTest::newRow("account info signed out: nothing") << "accountInfo" << "signed out" << "nothing";
    QTest::newRow("cloud pages offline: network fault") << "cloudPages" << "offline" << "network fault";
    QTest::newRow("cloud pages signed out: please login") << "cloudPages" << "signed out" << "please login";
    QTest::newRow("cloud pages signed in: open") << "cloudPages" << "signed in" << "nothing";
}

void tst_CLmAccountSession::whatTheUserMeets()
{
    QFETCH(QString, entry);
    QFETCH(QString, state);
    QFETCH(QString, met);
    // The modal widget the user has to answer: its class and a text in it.
    static const QHash<QString, QPair<QString, QString>> modals = {
        {"network fault", {"CLmMessageBox", "Network fault"}},
        {"please login", {"CLmMessageBox", "Please Login"}},
        {"login dialog", {"CLmCarrowmereLoginDialog", ""}},
    };
    const QPair<QString, QString> modal = modals.value(met);
    if (state != QLatin1String("signed out"))
        TestSession::SetSession(m_strToken, QStringLiteral("1"));
    CLmControl::GetInstance()->SetNetWorkState(state != QLatin1String("offline"));

    QString shownClass;
    QString shownText;
    QObject scope;
    ModalAnswer::RunWhenShown(
        nullptr,
        [&](QWidget* shown) {
            shownClass = QString::fromLatin1(shown->metaObject()->className());
            shownText = ModalAnswer::VisibleTexts(shown);
            shown->findChild<QPushButton*>(QStringLiteral("m_pBtnClose"))->click();
        },
        5000, &scope);
    QSignalSpy profiles(m_pSession, &CLmAccountSession::ProfileArrived);
    const QHash<QString, std::function<void()>> entries = {
        {"avatar", [this] { m_pSession->OpenAccount(); }},
        {"accountInfo", [this] { m_pSession->ShowAccountInfo(); }},
        // The page opens exactly when the user was not stopped.
        {"cloudPages", [&] { QCOMPARE(m_pSession->MayOpenCloudPages(), modal.first.isEmpty()); }},
    };
    entries.value(entry)();

    QCOMPARE(shownClass, modal.first);
    QVERIFY2(shownText.contains(modal.second), qPrintable(shownText));
    const bool profile = met == QLatin1String("profile");
    if (profile) {
        QTRY_COMPARE_WITH_TIMEOUT(profiles.count(), 1, 8000);
        QVERIFY(profiles.first().first().toByteArray().contains("Demo Pilot One"));
    }
    QCOMPARE(profiles.count(), profile ? 1 : 0);
}

void tst_CLmAccountSession::refusedCheckThenSignInKeepsTheSession()
{
    TestSession::SetSession(QStringLiteral("expired-token"), QStringLiteral("7"));
    CLmControl::GetInstance()->SetNetWorkState(true);
    QSignalSpy signedOut(m_pSession, &CLmAccountSession::SignedOut);

    QString failure;
    QObject scope;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &failure, 8000, "CLmMessageBox", &scope);
    ModalAnswer::RunWhenShown(
        "CLmCarrowmereLoginDialog",
        [](QWidget* dialog) {
            dialog->findChild<QLineEdit*>(QStringLiteral("m_pEditAccount"))->setText(QStringLiteral("13800000001"));
            dialog->findChild<QLineEdit*>(QStringLiteral("m_pEditPassword"))->setText(QStringLiteral("skyconsole"));
            dialog->findChild<QPushButton*>(QStringLiteral("m_pBtnLogin"))->click();
        },
        8000, &scope);
    QVERIFY(m_pSession->CheckStoredSession());

    QTRY_COMPARE_WITH_TIMEOUT(m_pNameLabel->text(), QStringLiteral("Demo Pilot One"), 8000);
    QVERIFY(failure.contains(QLatin1String(" Failed to get user information.")));
    QVERIFY(AccountButtonsEnabled());
    const QString token = GetCurUserInfo().strToken;
    QVERIFY(!token.isEmpty() && token != QLatin1String("expired-token"));
    QCOMPARE(CLmControl::GetInstance()->GetRouteFolder(),
             CLmControl::GetInstance()->GetAppDataDirectory() + QStringLiteral("/Project/1/Vireo_AirLine/"));
    QCOMPARE(signedOut.count(), 0);
}

void tst_CLmAccountSession::storedUserAfterTheUserPage_data()
{
    QTest::addColumn<QString>("nickName");
    QTest::addColumn<QString>("label");
    QTest::addColumn<bool>("buttonsEnabled");
    QTest::newRow("profile saved: the new name") << "Renamed Pilot" << "Renamed Pilot" << true;
    QTest::newRow("signed out: the signed-out look") << "" << "Sign in" << false;
}

void tst_CLmAccountSession::storedUserAfterTheUserPage()
{
    QFETCH(QString, nickName);
    QFETCH(QString, label);
    QFETCH(bool, buttonsEnabled);
    TestSession::SetSession(m_strToken, QStringLiteral("1"));
    m_pSession->ShowSignedIn();
    QSignalSpy signedOut(m_pSession, &CLmAccountSession::SignedOut);

    CLmSessionStore store;
    if (nickName.isEmpty())
        store.Clear();
    else
        store.SetNickName(nickName);
    m_pSession->ShowStoredUser();

    QCOMPARE(m_pNameLabel->text(), label);
    QCOMPARE(AccountButtonsEnabled(), buttonsEnabled);
    QCOMPARE(signedOut.count(), buttonsEnabled ? 0 : 1);
}

QTEST_MAIN(tst_CLmAccountSession)
#include "tst_CLmAccountSession.moc"
