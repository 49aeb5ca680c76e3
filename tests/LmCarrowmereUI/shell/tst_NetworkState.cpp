#include "CLmCarrowmereMainWindow.h"
#include "CLmControl.h"
#include "CLmDeployConfig.h"
#include "CLmCheckUpdateRet.h"
#include "CLmSureUpgrade.h"
#include "CLmTcpClientLink.h"
#include "CLmTipPushButton.h"
#include "CSkyCloudProcess.h"
#include "CLmSessionStore.h"
#include "LmConstants.h"
#include "ModalAnswer.h"

#include "TestSession.h"
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>
#include <QTcpServer>
#include <QTest>
#include <QWebEngineView>

namespace {

QStringList g_warnings;
QtMessageHandler g_previousHandler = nullptr;

void RecordWarnings(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtWarningMsg || type == QtCriticalMsg)
        g_warnings << message;
    g_previousHandler(type, context, message);
}

quint16 FreePort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    return probe.serverPort();
}

}  // namespace

// What the window does with the network tester's answers: the first one
// decides whether the online work (news page and the rest) ever starts.
class tst_NetworkState : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void firstAnswerOnlineShowsTheNews();
    void firstAnswerOfflineNeverStartsOnlineWork();
    void pushNotificationReachesTheSignedInUser();
    void newerApplicationIsOffered();

private:
    bool WifiOnline() const;
    QWebEngineView* NewsView() const;

    QPointer<CLmCarrowmereMainWindow> m_pWindow;
};

void tst_NetworkState::initTestCase()
{
    g_previousHandler = qInstallMessageHandler(RecordWarnings);
}

void tst_NetworkState::init()
{
    g_warnings.clear();
    QSettings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)}.clear();
    CLmControl::GetInstance()->SetNetWorkState(false);
    m_pWindow = new CLmCarrowmereMainWindow(nullptr);
    m_pWindow->show();
}

void tst_NetworkState::cleanup()
{
    delete m_pWindow;
    for (const QString& warning : qAsConst(g_warnings))
        QVERIFY2(!warning.contains(QLatin1String("Destroyed while thread")) && !warning.contains(QLatin1String("Timers")),
                 qPrintable(warning));
}

bool tst_NetworkState::WifiOnline() const
{
    return m_pWindow->findChild<QPushButton*>(QStringLiteral("m_pBtnNetWorkState"))
        ->styleSheet()
        .contains(QLatin1String("Home_WiFi_Online_ic"));
}

QWebEngineView* tst_NetworkState::NewsView() const
{
    return m_pWindow->findChild<QWebEngineView*>(QStringLiteral("m_pNewsWebView"));
}

void tst_NetworkState::firstAnswerOnlineShowsTheNews()
{
    CSkyCloudProcess cloud;
    QVERIFY(cloud.Start());
    TestSession::PointCloudAt(cloud.BaseUrl());

    m_pWindow->ConnectSerialPort();
    m_pWindow->ConnectUploadData();
    m_pWindow->TestNetworkConnect();
    QTRY_VERIFY_WITH_TIMEOUT(WifiOnline(), 8000);
    QVERIFY(CLmControl::GetInstance()->IsNetWorkConnected());
    QCOMPARE(m_pWindow->findChild<QStackedWidget*>(QStringLiteral("m_pHomeStackedWidget"))->currentWidget()->objectName(),
             QStringLiteral("m_pOnlineView"));
    QVERIFY(NewsView());
    QTRY_COMPARE_WITH_TIMEOUT(NewsView()->url().toString(), QString::fromLatin1(cloud.BaseUrl() + "/8083/news"), 15000);
}

void tst_NetworkState::firstAnswerOfflineNeverStartsOnlineWork()
{
    const quint16 port = FreePort();
    TestSession::PointCloudAt("http://127.0.0.1:" + QByteArray::number(port));
    m_pWindow->TestNetworkConnect();
    QTest::qWait(1500);
    QVERIFY(!WifiOnline());

    CSkyCloudProcess cloud({QStringLiteral("--port"), QString::number(port)});
    QVERIFY(cloud.Start());
    QCOMPARE(cloud.Port(), port);
    // Offline, the tester asks again every 5 s.
    QTRY_VERIFY_WITH_TIMEOUT(WifiOnline(), 12000);
    QVERIFY(!NewsView());
    QVERIFY(!m_pWindow->findChild<CLmCheckUpdateRet*>());
    QVERIFY(!m_pWindow->findChild<CLmSureUpgrade*>());
    QVERIFY(!m_pWindow->findChild<CLmTcpClientLink*>());
}

void tst_NetworkState::pushNotificationReachesTheSignedInUser()
{
    CSkyCloudProcess cloud;
    QVERIFY(cloud.Start());
    TestSession::PointCloudAt(cloud.BaseUrl());
    qputenv("SKYCONSOLE_CLOUD_PUSH_ADDRESS", "127.0.0.1:" + QByteArray::number(cloud.PushPort()));
    CLmDeployConfig::Reload();
    const QString token = cloud.Call("/user/login", "phone=13800000001&password=skyconsole&device_id=t")
                              .value("data").toObject().value("token").toString();
    QSettings settings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)};
    settings.setValue(QLatin1String(UserInfoGroupName) + QLatin1Char('/') + QLatin1String(UserInfoToken), token);
    settings.sync();

    m_pWindow->TestNetworkConnect();
    QTRY_VERIFY_WITH_TIMEOUT(WifiOnline(), 8000);
    auto* pushLink = m_pWindow->findChild<CLmTcpClientLink*>();
    QVERIFY(pushLink);
    QTRY_VERIFY_WITH_TIMEOUT(pushLink->IsConnected(), 8000);

    const QByteArray adminToken =
        cloud.Call("/admin/login", "username=admin&password=skyconsole").value("data").toObject().value("token")
            .toString().toUtf8();
    auto* badgeButton = m_pWindow->findChild<CLmTipPushButton*>(QStringLiteral("m_pBtnProjManager"));
    QVERIFY(!badgeButton->IsTipVisible());
    // The subscription may still be on its way: send until it arrives.
    QTRY_VERIFY_WITH_TIMEOUT((cloud.CallWithHeader("/push/send", "phone=13800000001&action=project_share&message=m",
                                                    "admin-token", adminToken),
                              badgeButton->IsTipVisible()),
                             8000);
}

void tst_NetworkState::newerApplicationIsOffered()
{
    CSkyCloudProcess cloud({QStringLiteral("--offer-updates")});
    QVERIFY(cloud.Start());
    TestSession::PointCloudAt(cloud.BaseUrl());
    // Only the application's offer is looked at here.
    qputenv("SKYCONSOLE_UPDATE_LAUNCHER_VERSION", "999.0");
    CLmDeployConfig::Reload();

    QString offer;
    QObject scope;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnCancel"), &offer, 15000, "CLmMessageBox", &scope);
    m_pWindow->TestNetworkConnect();
    QTRY_VERIFY_WITH_TIMEOUT(offer.contains(QLatin1String(" There is a new \"srtch\" version needs to be updated.")),
                             15000);
    qunsetenv("SKYCONSOLE_UPDATE_LAUNCHER_VERSION");
}

QTEST_MAIN(tst_NetworkState)
#include "tst_NetworkState.moc"
