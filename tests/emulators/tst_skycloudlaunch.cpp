#include "CSkyCloudProcess.h"

#include <QHostAddress>
#include <QProcess>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

#include <signal.h>

// The process contract every integration test relies on: the first stdout
// line names the port, port 0 gives distinct free ports, signals end it cleanly.
class tst_SkyCloudLaunch : public QObject
{
    Q_OBJECT

private slots:
    void firstLineNamesTheBoundPort();
    void portZeroGivesDistinctPorts();
    void stopsCleanlyOnSignal_data();
    void stopsCleanlyOnSignal();
    void unknownPathGetsEnvelope404();
    void helpListsOptions();
};

void tst_SkyCloudLaunch::firstLineNamesTheBoundPort()
{
    QTemporaryDir data;
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(CSkyCloudProcess::ProgramPath(), {"--port", "0", "--data", data.path()});
    QVERIFY(process.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(process.canReadLine(), 10000);
    const QByteArray line = process.readLine();
    QVERIFY2(line.startsWith("skycloud listening on http://127.0.0.1:"), line.constData());
    QVERIFY(line.endsWith('\n'));
    const int port = line.mid(line.lastIndexOf(':') + 1).trimmed().toInt();
    QVERIFY(port > 0 && port < 65536);

    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, static_cast<quint16>(port));
    QVERIFY(socket.waitForConnected(5000));
    process.terminate();
    QVERIFY(process.waitForFinished(5000));
}

void tst_SkyCloudLaunch::portZeroGivesDistinctPorts()
{
    CSkyCloudProcess first;
    CSkyCloudProcess second;
    QVERIFY(first.Start());
    QVERIFY(second.Start());
    QVERIFY(first.Port() != second.Port());
    QCOMPARE(first.BaseUrl(), "http://127.0.0.1:" + QByteArray::number(first.Port()));

    for (CSkyCloudProcess* cloud : {&first, &second}) {
        int httpStatus = 0;
        const QJsonObject reply = cloud->Call("/ping", {}, {}, &httpStatus);
        QCOMPARE(httpStatus, 200);
        QCOMPARE(reply.value("status").toInt(-1), 0);
    }
}

void tst_SkyCloudLaunch::stopsCleanlyOnSignal_data()
{
    QTest::addColumn<int>("signalNumber");
    QTest::newRow("SIGTERM") << int(SIGTERM);
    QTest::newRow("SIGINT") << int(SIGINT);
}

void tst_SkyCloudLaunch::stopsCleanlyOnSignal()
{
    QFETCH(int, signalNumber);
    QTemporaryDir data;
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(CSkyCloudProcess::ProgramPath(), {"--port", "0", "--data", data.path()});
    QVERIFY(process.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(process.canReadLine(), 10000);

    QCOMPARE(::kill(static_cast<pid_t>(process.processId()), signalNumber), 0);
    QVERIFY(process.waitForFinished(5000));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
}

void tst_SkyCloudLaunch::unknownPathGetsEnvelope404()
{
    CSkyCloudProcess cloud;
    QVERIFY(cloud.Start());
    int httpStatus = 0;
    const QJsonObject reply = cloud.Call("/no/such/path", "a=b", {}, &httpStatus);
    QCOMPARE(httpStatus, 404);
    QVERIFY(reply.value("status").toInt() != 0);
    QVERIFY(!reply.value("message").toString().isEmpty());
}

void tst_SkyCloudLaunch::helpListsOptions()
{
    QProcess process;
    process.start(CSkyCloudProcess::ProgramPath(), {"--help"});
    QVERIFY(process.waitForFinished(5000));
    QCOMPARE(process.exitCode(), 0);
    const QByteArray help = process.readAllStandardOutput();
    for (const char* option : {"--port", "--data", "--expose-codes"})
        QVERIFY2(help.contains(option), option);
}

QTEST_GUILESS_MAIN(tst_SkyCloudLaunch)
#include "tst_skycloudlaunch.moc"
