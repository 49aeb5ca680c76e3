#include "CLmCarrowmereMainWindow.h"
#include "CLmControl.h"
#include "CLmDeployConfig.h"
#include "CLmSessionStore.h"
#include "CLmTcpClientLink.h"
#include "CLmTipPushButton.h"
#include "CSkyCloudProcess.h"
#include "LmConstants.h"
#include "ModalAnswer.h"
#include "TestSession.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLoggingCategory>
#include <QMutex>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QTest>

namespace {

QMutex g_logMutex;
QStringList g_log;
QtMessageHandler g_previousHandler = nullptr;

void RecordLog(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    {
        QMutexLocker lock(&g_logMutex);
        g_log << QString::fromLatin1(context.category ? context.category : "") + QLatin1Char(' ') + message;
    }
    g_previousHandler(type, context, message);
}

bool LogContains(const QString& text)
{
    QMutexLocker lock(&g_logMutex);
    for (const QString& line : qAsConst(g_log)) {
        if (line.contains(text))
            return true;
    }
    return false;
}

}  // namespace

// A crew shares one machine: whoever signs in next must see nothing of the
// account before, the push channel must follow the new session at once, and
// no session token may end up in the log of any of it.
class tst_AccountSwitch : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void switchingAccountsLeavesNoTrace();
    void staleTokenThenSignInGetsPushesAtOnce();

private:
    void StartCloudAndWindow();
    void SignInByDialog(const QString& phone);
    void SignInFromTheAvatar(const QString& phone, const QString& nickName);
    void Push(const QByteArray& phone, const QByteArray& action, const QByteArray& message);
    void RememberSessionToken();
    QMap<QString, bool> HomeButtonStates() const;
    QString UserLabel() const;
    QString SystemMessage() const;
    bool EnvelopeLit() const;
    bool ProjectBadgeLit() const;
    QListWidget* MessageList() const;
    QString ProfilePhone() const;
    template <class T>
    T* Child(const char* name) const;

    std::unique_ptr<CSkyCloudProcess> m_cloud;
    QByteArray m_adminToken;
    QStringList m_listTokens;
    QPointer<CLmCarrowmereMainWindow> m_pWindow;
};

template <class T>
T* tst_AccountSwitch::Child(const char* name) const
{
    return m_pWindow->findChild<T*>(QLatin1String(name));
}

void tst_AccountSwitch::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("sky.*=true"));
    g_previousHandler = qInstallMessageHandler(RecordLog);
}

void tst_AccountSwitch::init()
{
    QSettings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)}.clear();
    CLmControl::GetInstance()->SetNetWorkState(false);
    m_listTokens.clear();
    QMutexLocker lock(&g_logMutex);
    g_log.clear();
}

// Whatever the run did, the log names no token it was given.
void tst_AccountSwitch::cleanup()
{
    delete m_pWindow;
    m_cloud.reset();
    QMutexLocker lock(&g_logMutex);
    for (const QString& token : qAsConst(m_listTokens)) {
        QVERIFY(!token.isEmpty());
        for (const QString& line : qAsConst(g_log))
            QVERIFY2(!line.contains(token), qPrintable(line));
    }
}

void tst_AccountSwitch::StartCloudAndWindow()
{
    m_cloud = std::make_unique<CSkyCloudProcess>();
    QVERIFY(m_cloud->Start());
    TestSession::PointCloudAt(m_cloud->BaseUrl());
    qputenv("SKYCONSOLE_CLOUD_PUSH_ADDRESS", "127.0.0.1:" + QByteArray::number(m_cloud->PushPort()));
    CLmDeployConfig::Reload();
    m_adminToken = m_cloud->Call("/admin/login", "username=admin&password=skyconsole")
                       .value("data").toObject().value("token").toString().toUtf8();
    QVERIFY(!m_adminToken.isEmpty());
    m_listTokens << QString::fromUtf8(m_adminToken);
    m_pWindow = new CLmCarrowmereMainWindow(nullptr);
    m_pWindow->show();
}

void tst_AccountSwitch::SignInByDialog(const QString& phone)
{
    ModalAnswer::RunWhenShown("CLmCarrowmereLoginDialog", [phone](QWidget* dialog) {
        dialog->findChild<QLineEdit*>(QStringLiteral("m_pEditAccount"))->setText(phone);
        dialog->findChild<QLineEdit*>(QStringLiteral("m_pEditPassword"))->setText(QStringLiteral("skyconsole"));
        dialog->findChild<QPushButton*>(QStringLiteral("m_pBtnLogin"))->click();
    }, 40000, m_pWindow);
}

void tst_AccountSwitch::SignInFromTheAvatar(const QString& phone, const QString& nickName)
{
    SignInByDialog(phone);
    Child<QPushButton>("m_pBtnMainWndUserIcon")->click();
    QTRY_COMPARE_WITH_TIMEOUT(UserLabel(), nickName, 8000);
    RememberSessionToken();
}

void tst_AccountSwitch::RememberSessionToken()
{
    m_listTokens << CLmSessionStore().Token();
}

void tst_AccountSwitch::Push(const QByteArray& phone, const QByteArray& action, const QByteArray& message)
{
    m_cloud->CallWithHeader("/push/send", "phone=" + phone + "&action=" + action + "&message=" + message,
                            "admin-token", m_adminToken);
}

QMap<QString, bool> tst_AccountSwitch::HomeButtonStates() const
{
    QMap<QString, bool> states;
    for (QPushButton* button : Child<QWidget>("m_pHomePage")->findChildren<QPushButton*>())
        states.insert(button->objectName(), button->isEnabled());
    for (const char* name : {"m_pBtnMessage", "m_pBtnMainWndUserIcon", "m_pBtnSysMessage"})
        states.insert(QLatin1String(name), Child<QPushButton>(name)->isEnabled());
    return states;
}

QString tst_AccountSwitch::UserLabel() const
{
    return Child<QLabel>("m_pLabelUserName")->text();
}

QString tst_AccountSwitch::SystemMessage() const
{
    return Child<QPushButton>("m_pBtnSysMessage")->text();
}

bool tst_AccountSwitch::EnvelopeLit() const
{
    return Child<QPushButton>("m_pBtnMessage")->styleSheet().contains(QLatin1String("Mymessage_news_ic"));
}

bool tst_AccountSwitch::ProjectBadgeLit() const
{
    return Child<CLmTipPushButton>("m_pBtnProjManager")->IsTipVisible();
}

QListWidget* tst_AccountSwitch::MessageList() const
{
    return Child<QListWidget>("m_pListMessages");
}

QString tst_AccountSwitch::ProfilePhone() const
{
    return Child<QLabel>("m_pLabelPhone")->text();
}

void tst_AccountSwitch::switchingAccountsLeavesNoTrace()
{
    StartCloudAndWindow();
    m_pWindow->TestNetworkConnect();
    QTRY_VERIFY_WITH_TIMEOUT(CLmControl::GetInstance()->IsNetWorkConnected(), 8000);
    QTRY_COMPARE(UserLabel(), QStringLiteral("Please Login"));
    const QMap<QString, bool> firstStart = HomeButtonStates();
    // Offscreen there is no OpenGL: the news page gives way to a status text.
    QVERIFY(Child<QLabel>("m_pLabelNewsUnavailable"));

    SignInFromTheAvatar(QStringLiteral("13800000001"), QStringLiteral("Demo Pilot One"));
    // The subscription may still be on its way: send until the news arrives.
    QTRY_VERIFY_WITH_TIMEOUT((Push("13800000001", "news", "Season%20one"),
                              SystemMessage() == QLatin1String("Season one")),
                             8000);
    // News in Chinese arrives intact (the channel escapes what is not ASCII).
    Push("13800000001", "news", "%E5%AD%A3%E5%BA%A6%E4%B8%80%F0%9F%9A%81");
    QTRY_COMPARE(SystemMessage(), QStringLiteral("季度一🚁"));
    Push("13800000001", "project_share_message", "shared");
    Push("13800000001", "project_share", "shared");
    QTRY_VERIFY(EnvelopeLit() && ProjectBadgeLit());
    Child<QPushButton>("m_pBtnMainWndVireoMoniter")->click();

    // Viewing the messages clears the envelope; the profile tab shows this account.
    Child<QPushButton>("m_pBtnMessage")->click();
    QTRY_VERIFY_WITH_TIMEOUT(MessageList()->count() > 0, 8000);
    QVERIFY(!EnvelopeLit());
    Child<QPushButton>("m_pBtnShowProfile")->click();
    QTRY_COMPARE_WITH_TIMEOUT(ProfilePhone(), QStringLiteral("13800000001"), 8000);
    Push("13800000001", "project_share_message", "again");
    QTRY_VERIFY(EnvelopeLit());

    Child<QPushButton>("m_pBtnLogout")->click();
    QTRY_COMPARE(UserLabel(), QStringLiteral("Sign in"));
    QCOMPARE(SystemMessage(), QString());
    QVERIFY(!EnvelopeLit());
    QVERIFY(!ProjectBadgeLit());
    QCOMPARE(MessageList()->count(), 0);
    QCOMPARE(ProfilePhone(), QString());
    QCOMPARE(HomeButtonStates(), firstStart);

    SignInFromTheAvatar(QStringLiteral("13800000002"), QStringLiteral("Demo Pilot Two"));
    QCOMPARE(SystemMessage(), QString());
    QVERIFY(!EnvelopeLit() && !ProjectBadgeLit());
    Child<QPushButton>("m_pBtnMessage")->click();
    Child<QPushButton>("m_pBtnShowProfile")->click();
    QTRY_COMPARE_WITH_TIMEOUT(ProfilePhone(), QStringLiteral("13800000002"), 8000);
    for (int row = 0; row < MessageList()->count(); ++row)
        QVERIFY(!MessageList()->item(row)->text().contains(QLatin1String("Season one")));
}

void tst_AccountSwitch::staleTokenThenSignInGetsPushesAtOnce()
{
    TestSession::SetSession(QStringLiteral("stale-token-0123456789"), QStringLiteral("1"));
    m_listTokens << QStringLiteral("stale-token-0123456789");
    StartCloudAndWindow();

    // The failure box is answered only once the push channel, refusing the
    // stale token, has backed off a few times.
    ModalAnswer::RunWhenShown("CLmMessageBox", [](QWidget* box) {
        QTRY_VERIFY_WITH_TIMEOUT(LogContains(QStringLiteral("reconnects in 4000 ms")), 20000);
        box->findChild<QPushButton*>(QStringLiteral("m_pBtnOk"))->click();
    }, 15000, m_pWindow);
    SignInByDialog(QStringLiteral("13800000001"));
    m_pWindow->TestNetworkConnect();
    QTRY_COMPARE_WITH_TIMEOUT(UserLabel(), QStringLiteral("Demo Pilot One"), 30000);
    RememberSessionToken();

    Push("13800000001", "news", "Fresh%20session");
    QTRY_COMPARE_WITH_TIMEOUT(SystemMessage(), QStringLiteral("Fresh session"), 2000);
}

QTEST_MAIN(tst_AccountSwitch)
#include "tst_AccountSwitch.moc"
