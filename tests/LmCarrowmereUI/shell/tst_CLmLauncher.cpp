#include "CLmDeployConfig.h"
#include "CLmLauncher.h"
#include "CLmSessionStore.h"
#include "TestSession.h"

#include <QDesktopServices>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QUrl>
#include <QWidget>

// The launch table without the window: what each key gives the sibling
// application it starts, or which page it opens, for the session at hand.
class tst_CLmLauncher : public QObject
{
    Q_OBJECT
public Q_SLOTS:
    // Stands in for the desktop's browser.
    void slotOpenUrl(const QUrl& url);

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void launchTable_data();
    void launchTable();

private:
    QStringList m_listOpenedUrls;
};

void tst_CLmLauncher::slotOpenUrl(const QUrl& url)
{
    m_listOpenedUrls << url.toString();
}

void tst_CLmLauncher::initTestCase()
{
    qputenv("SKYCONSOLE_LAUNCHER_APPLICATION_DIR", "/opt/skyconsole/hub");
    qputenv("SKYCONSOLE_LAUNCHER_LAUNCH_KEY", "{launch-key}");
    qputenv("SKYCONSOLE_CLOUD_MONITOR_PRODUCTION_URL", "http://monitor.example:8090/");
    qputenv("SKYCONSOLE_CLOUD_MONITOR_TEST_URL", "http://monitor-test.example");
    TestSession::PointCloudAt("http://cloud.example:8080");
    QDesktopServices::setUrlHandler(QStringLiteral("http"), this, "slotOpenUrl");
}

void tst_CLmLauncher::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler(QStringLiteral("http"));
}

void tst_CLmLauncher::launchTable_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("token");
    QTest::addColumn<bool>("testServer");
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("urls");

    const QStringList noUrl;
    QTest::newRow("fly: attached, key, launch key, server")
        << "VireoFly" << "tok-1" << false << "/opt/skyconsole/hub/VireoFly"
        << QStringList{"VireoFly", "{launch-key}", "http://cloud.example:8080"} << noUrl;
    QTest::newRow("check: attached, key, launch key, server")
        << "Vireo_Check" << "tok-1" << false << "/opt/skyconsole/hub/Vireo_Check"
        << QStringList{"Vireo_Check", "{launch-key}", "http://cloud.example:8080"} << noUrl;
    QTest::newRow("monitor: production page with the token")
        << "Vireo_Monitor" << "tok-1" << false << QString() << QStringList()
        << QStringList{"http://monitor.example:8090/monitor/monitor4new?token=tok-1"};
    QTest::newRow("monitor: test page on the test service")
        << "Vireo_Monitor" << "tok-2" << true << QString() << QStringList()
        << QStringList{"http://monitor-test.example/monitor/monitor4new?token=tok-2"};
    QTest::newRow("monitor: signed out opens nothing")
        << "Vireo_Monitor" << QString() << false << QString() << QStringList() << noUrl;
}

void tst_CLmLauncher::launchTable()
{
    QFETCH(QString, key);
    QFETCH(QString, token);
    QFETCH(bool, testServer);
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, urls);
    qputenv("SKYCONSOLE_CLOUD_USE_TEST_SERVER", testServer ? "true" : "false");
    CLmDeployConfig::Reload();
    CLmSessionStore().Clear();
    if (!token.isEmpty())
        TestSession::SetSession(token, QStringLiteral("7"));
    m_listOpenedUrls.clear();

    QWidget window;
    QProcess process;
    QThread uploadThread;
    CLmLauncher launcher(process, uploadThread, &window);
    QSignalSpy signInNeeded(&launcher, &CLmLauncher::SignInNeeded);
    launcher.Launch(key);
    // The programs do not exist here: the start fails, and what they were to
    // be given is kept.
    QVERIFY(!process.waitForStarted());

    QCOMPARE(process.program(), program);
    QCOMPARE(process.arguments(), arguments);
    QCOMPARE(process.workingDirectory(), QString());
    QCOMPARE(m_listOpenedUrls, urls);
    QCOMPARE(signInNeeded.count(), token.isEmpty() ? 1 : 0);
}

QTEST_MAIN(tst_CLmLauncher)
#include "tst_CLmLauncher.moc"
