#include "CLmDeployConfig.h"
#include "LmConstants.h"

#include <QTemporaryDir>
#include <QTest>

// Deployment data decides which service every request goes to: a wrong
// precedence between defaults, file and environment sends a crew's data to
// the wrong cloud.
class tst_CLmDeployConfig : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();
    void serverAddress_data();
    void serverAddress();
    void pageBaseFollowsServerUnlessConfigured_data();
    void pageBaseFollowsServerUnlessConfigured();
    void defaultFileIsUsedWithoutNamedFile();
    void userFileOverridesSingleKeysOfTheMachineFile();
    void badValuesKeepTheDefault_data();
    void badValuesKeepTheDefault();

private:
    QString WriteIni(const QByteArray& text);
    QTemporaryDir m_dir;
};

QString tst_CLmDeployConfig::WriteIni(const QByteArray& text)
{
    // A new name each time: QSettings keeps what it read of a path and may
    // not notice a rewrite of the same size within its clock's resolution.
    static int written = 0;
    const QString path = m_dir.filePath(QStringLiteral("deployment-%1.ini").arg(++written));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write %s", qPrintable(path));
    file.write(text);
    return path;
}

void tst_CLmDeployConfig::cleanup()
{
    for (const char* name : {"SKYCONSOLE_CONFIG", "SKYCONSOLE_CLOUD_PRODUCTION_URL", "SKYCONSOLE_CLOUD_USE_TEST_SERVER",
                             "SKYCONSOLE_CLOUD_PAGE_BASE", "SKYCONSOLE_AIRCRAFT_UDP_LISTEN_PORT"})
        qunsetenv(name);
    CLmDeployConfig::Reload();
}

void tst_CLmDeployConfig::serverAddress_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QByteArray>("envProduction");
    QTest::addColumn<QByteArray>("envUseTest");
    QTest::addColumn<QByteArray>("server");
    QTest::addColumn<bool>("test");

    QTest::newRow("built-in default") << QByteArray() << QByteArray() << QByteArray()
                                      << QByteArray("http://127.0.0.1:18080") << false;
    QTest::newRow("file production, trailing slash dropped")
        << QByteArray("[cloud]\nproduction_url=https://cloud.example.test:8443/\n") << QByteArray() << QByteArray()
        << QByteArray("https://cloud.example.test:8443") << false;
    QTest::newRow("file switches to test service")
        << QByteArray("[cloud]\nuse_test_server=true\ntest_url=http://10.0.0.5:9000\n") << QByteArray()
        << QByteArray() << QByteArray("http://10.0.0.5:9000") << true;
    QTest::newRow("environment beats file")
        << QByteArray("[cloud]\nproduction_url=http://from-file:1\n") << QByteArray("http://from-env:2")
        << QByteArray() << QByteArray("http://from-env:2") << false;
    QTest::newRow("environment turns test off")
        << QByteArray("[cloud]\nuse_test_server=true\ntest_url=http://t:1\nproduction_url=http://p:2\n")
        << QByteArray() << QByteArray("false") << QByteArray("http://p:2") << false;
}

void tst_CLmDeployConfig::serverAddress()
{
    QFETCH(QByteArray, ini);
    QFETCH(QByteArray, envProduction);
    QFETCH(QByteArray, envUseTest);
    QFETCH(QByteArray, server);
    QFETCH(bool, test);

    if (!ini.isEmpty())
        qputenv("SKYCONSOLE_CONFIG", WriteIni(ini).toUtf8());
    if (!envProduction.isEmpty())
        qputenv("SKYCONSOLE_CLOUD_PRODUCTION_URL", envProduction);
    if (!envUseTest.isEmpty())
        qputenv("SKYCONSOLE_CLOUD_USE_TEST_SERVER", envUseTest);
    CLmDeployConfig::Reload();

    QCOMPARE(GetServerIP(), server);
    QCOMPARE(IsTestServer(), test);
}

void tst_CLmDeployConfig::pageBaseFollowsServerUnlessConfigured_data()
{
    QTest::addColumn<QByteArray>("pageBase");
    QTest::addColumn<QByteArray>("newsUrl");
    QTest::newRow("emulator: path under the server") << QByteArray() << QByteArray("http://127.0.0.1:18080/8083/news");
    QTest::newRow("production: port appended to host")
        << QByteArray("http://pages.example.test:") << QByteArray("http://pages.example.test:8083/news");
}

void tst_CLmDeployConfig::pageBaseFollowsServerUnlessConfigured()
{
    QFETCH(QByteArray, pageBase);
    QFETCH(QByteArray, newsUrl);
    if (!pageBase.isEmpty())
        qputenv("SKYCONSOLE_CLOUD_PAGE_BASE", pageBase);
    CLmDeployConfig::Reload();
    QCOMPARE(GetPageIP() + "8083/news", newsUrl);
}

void tst_CLmDeployConfig::defaultFileIsUsedWithoutNamedFile()
{
    const QString path = CLmDeployConfig::DefaultFilePath();
    QVERIFY(QDir().mkpath(QFileInfo(path).absolutePath()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[launcher]\nlaunch_key={00000000-1111-2222-3333-444444444444}\n");
    file.close();
    CLmDeployConfig::Reload();
    QCOMPARE(GetLaunchKey(), QStringLiteral("{00000000-1111-2222-3333-444444444444}"));
    QVERIFY(file.remove());
}

// The installed package's machine-wide file sets the service; a user's file
// changes one key and inherits the rest.
void tst_CLmDeployConfig::userFileOverridesSingleKeysOfTheMachineFile()
{
    const QString machine = WriteIni("[cloud]\nproduction_url=http://cloud.example:8080\n"
                                     "push_address=cloud.example:8081\n");
    const QString user = WriteIni("[cloud]\npush_address=127.0.0.1:9999\n");
    const CLmDeployConfig config(QStringList{machine, user});
    QCOMPARE(config.Value(QStringLiteral("cloud"), QStringLiteral("production_url")),
             QStringLiteral("http://cloud.example:8080"));
    QCOMPARE(config.Value(QStringLiteral("cloud"), QStringLiteral("push_address")), QStringLiteral("127.0.0.1:9999"));
}

// Rows: the file's text, an environment value for the UDP port; the value
// of one key ("group/key") that results.
void tst_CLmDeployConfig::badValuesKeepTheDefault_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QByteArray>("envPort");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    const QString port = QStringLiteral("aircraft/udp_listen_port");
    const QString server = QStringLiteral("cloud/production_url");
    const QByteArray otherServer("[cloud]\nproduction_url=http://elsewhere:1\n");

    QTest::newRow("in range") << QByteArray("[aircraft]\nudp_listen_port=14551\n") << QByteArray() << port << "14551";
    QTest::newRow("port above range") << QByteArray("[aircraft]\nudp_listen_port=99999\n") << QByteArray() << port
                                      << "14550";
    QTest::newRow("port zero picks a free one") << QByteArray("[aircraft]\nudp_listen_port=0\n") << QByteArray()
                                                << port << "0";
    QTest::newRow("port not a number") << QByteArray("[aircraft]\nudp_listen_port=14550abc\n") << QByteArray()
                                       << port << "14550";
    QTest::newRow("environment out of range") << QByteArray() << QByteArray("-1") << port << "14550";
    QTest::newRow("baud negative") << QByteArray("[aircraft]\nserial_baud=-9600\n") << QByteArray()
                                   << "aircraft/serial_baud" << "57600";
    QTest::newRow("heartbeat time-out of a day")
        << QByteArray("[aircraft]\nheartbeat_timeout_ms=86400000\n") << QByteArray() << "aircraft/heartbeat_timeout_ms"
        << "3500";
    QTest::newRow("bad port, rest of the file kept")
        << otherServer + "[aircraft]\nudp_listen_port=70000\n" << QByteArray() << server << "http://elsewhere:1";
    QTest::newRow("oversized file ignored whole")
        << otherServer + "[padding]\n" + QByteArray(70 * 1024, 'x') + "=1\n" << QByteArray() << server
        << "http://127.0.0.1:18080";
}

void tst_CLmDeployConfig::badValuesKeepTheDefault()
{
    QFETCH(QByteArray, ini);
    QFETCH(QByteArray, envPort);
    QFETCH(QString, key);
    QFETCH(QString, value);
    if (!ini.isEmpty())
        qputenv("SKYCONSOLE_CONFIG", WriteIni(ini).toUtf8());
    if (!envPort.isEmpty())
        qputenv("SKYCONSOLE_AIRCRAFT_UDP_LISTEN_PORT", envPort);
    CLmDeployConfig::Reload();
    QCOMPARE(CLmDeployConfig::Instance().Value(key.section(QLatin1Char('/'), 0, 0), key.section(QLatin1Char('/'), 1)),
             value);
}

QTEST_GUILESS_MAIN(tst_CLmDeployConfig)
#include "tst_CLmDeployConfig.moc"
