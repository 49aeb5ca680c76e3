#include "CLmDeployConfig.h"
#include "CLmNetWorkGlobal.h"
#include "CSkyCloudProcess.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <QThread>

// The tester runs on its own thread, is stopped and restarted by the window
// and must answer every start with the cloud's reachability.
class tst_CLmNetWorkGlobal : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void answersOnEveryThreadStart_data();
    void answersOnEveryThreadStart();
    void pollsAtTheGivenInterval();
};

namespace {

QByteArray ClosedPortUrl()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    return "http://127.0.0.1:" + QByteArray::number(probe.serverPort());
}

struct TesterOnThread
{
    QThread thread;
    CLmNetWorkGlobal* tester = new CLmNetWorkGlobal;
    TesterOnThread()
    {
        QObject::connect(&thread, &QThread::started, tester, &CLmNetWorkGlobal::slotTestNetWorkConnectState);
        QObject::connect(&thread, &QThread::finished, tester, &CLmNetWorkGlobal::StopProbing, Qt::DirectConnection);
        tester->moveToThread(&thread);
    }
    ~TesterOnThread()
    {
        thread.quit();
        thread.wait();
        delete tester;
    }
};

}  // namespace

void tst_CLmNetWorkGlobal::answersOnEveryThreadStart_data()
{
    QTest::addColumn<bool>("cloudRunning");
    QTest::newRow("cloud up") << true;
    QTest::newRow("cloud down") << false;
}

void tst_CLmNetWorkGlobal::answersOnEveryThreadStart()
{
    QFETCH(bool, cloudRunning);
    CSkyCloudProcess cloud;
    if (cloudRunning)
        QVERIFY(cloud.Start());
    qputenv("SKYCONSOLE_CLOUD_PRODUCTION_URL", cloudRunning ? cloud.BaseUrl() : ClosedPortUrl());
    CLmDeployConfig::Reload();

    TesterOnThread runner;
    QSignalSpy answers(runner.tester, &CLmNetWorkGlobal::NetWorkConnectState);
    for (int start = 1; start <= 2; ++start) {
        runner.thread.start();
        QTRY_COMPARE_WITH_TIMEOUT(answers.count(), start, 8000);
        QCOMPARE(answers.last().first().toBool(), cloudRunning);
        runner.thread.quit();
        QVERIFY(runner.thread.wait(5000));
    }
}

void tst_CLmNetWorkGlobal::pollsAtTheGivenInterval()
{
    CSkyCloudProcess cloud;
    QVERIFY(cloud.Start());
    qputenv("SKYCONSOLE_CLOUD_PRODUCTION_URL", cloud.BaseUrl());
    CLmDeployConfig::Reload();

    TesterOnThread runner;
    runner.tester->SetTimerInterval(100);
    QSignalSpy answers(runner.tester, &CLmNetWorkGlobal::NetWorkConnectState);
    runner.thread.start();
    QTRY_VERIFY_WITH_TIMEOUT(answers.count() >= 4, 5000);
}

QTEST_GUILESS_MAIN(tst_CLmNetWorkGlobal)
#include "tst_CLmNetWorkGlobal.moc"
