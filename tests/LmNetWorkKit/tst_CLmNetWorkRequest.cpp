#include "CLmNetWorkRequest.h"
#include "CCannedHttpPeer.h"
#include "CSkyCloudProcess.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <QThread>

#include <atomic>

namespace {

enum class Outcome { Succeeded, Failed, Unreachable };

struct Result
{
    Outcome outcome;
    QByteArray body;
    QString message;
    bool deleted;
};

Result Send(const QByteArray& url, const QByteArray& body = {}, const QByteArray& token = {}, int timeoutMs = 0)
{
    auto* request = new CLmNetWorkRequest;
    QPointer<CLmNetWorkRequest> guard(request);
    QSignalSpy succeeded(request, &CLmNetWorkRequest::ActionSucced);
    QSignalSpy failed(request, &CLmNetWorkRequest::FailedMsg);
    QSignalSpy unreachable(request, &CLmNetWorkRequest::NetWorkError);
    request->SetUrl(url);
    if (!token.isEmpty())
        request->SetRawHeader("token", token);
    if (!body.isEmpty())
        request->SetBody(body);
    if (timeoutMs > 0)
        request->SetNetWorkReplyTimeout(timeoutMs);
    request->PostNetWorkReplyMessage();

    Result result{Outcome::Unreachable, {}, {}, false};
    if (!QTest::qWaitFor([&] { return succeeded.count() + failed.count() + unreachable.count() > 0; }, 15000))
        qFatal("no result signal");
    if (succeeded.count()) {
        result.outcome = Outcome::Succeeded;
        result.body = succeeded.first().first().toByteArray();
    } else if (failed.count()) {
        result.outcome = Outcome::Failed;
        result.message = failed.first().first().toString();
    }
    result.deleted = QTest::qWaitFor([&] { return guard.isNull(); }, 1000);
    return result;
}

}  // namespace

Q_DECLARE_METATYPE(Outcome)

class tst_CLmNetWorkRequest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void againstCloud_data();
    void againstCloud();
    void faultyPeers_data();
    void faultyPeers();
    void refusedConnectionIsNetworkError();
    void silentPeerTimesOut();
    void unansweredRequestEndsWithItsThread();

private:
    CSkyCloudProcess m_cloud;
};

void tst_CLmNetWorkRequest::initTestCase()
{
    QVERIFY(m_cloud.Start());
}

void tst_CLmNetWorkRequest::againstCloud_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<Outcome>("outcome");
    QTest::addColumn<QString>("textInReply");

    QTest::newRow("form post signs in") << QByteArray("/user/login")
                                        << QByteArray("phone=13800000001&password=skyconsole&device_id=aa")
                                        << Outcome::Succeeded << QStringLiteral("Demo Pilot One");
    QTest::newRow("service message shown as it is")
        << QByteArray("/user/login") << QByteArray("phone=13800000001&password=wrong&device_id=aa") << Outcome::Failed
        << QStringLiteral("Wrong phone number or password");
    QTest::newRow("get without token refused") << QByteArray("/user/profile") << QByteArray() << Outcome::Failed
                                               << QString();
    QTest::newRow("get of reachability path") << QByteArray("/ping") << QByteArray() << Outcome::Succeeded
                                              << QStringLiteral("\"status\"");
}

void tst_CLmNetWorkRequest::againstCloud()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, body);
    QFETCH(Outcome, outcome);
    QFETCH(QString, textInReply);

    const Result result = Send(m_cloud.BaseUrl() + path, body);
    QCOMPARE(result.outcome, outcome);
    QVERIFY(result.deleted);
    if (outcome == Outcome::Succeeded)
        QVERIFY2(QString::fromUtf8(result.body).contains(textInReply), result.body.constData());
    else
        QVERIFY2(!result.message.isEmpty() && result.message.contains(textInReply), qPrintable(result.message));
}

void tst_CLmNetWorkRequest::faultyPeers_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<Outcome>("outcome");
    QTest::addColumn<QByteArray>("body");

    QTest::newRow("unparsable 200 body is handed over raw")
        << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 9\r\nConnection: close\r\n\r\nnot json!") << Outcome::Succeeded
        << QByteArray("not json!");
    QTest::newRow("empty 200 body")
        << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 0\r\nConnection: close\r\n\r\n") << Outcome::Succeeded
        << QByteArray();
    QTest::newRow("server error without envelope")
        << QByteArray("HTTP/1.1 502 Bad Gateway\r\nContent-Length: 6\r\nConnection: close\r\n\r\n<html>")
        << Outcome::Failed << QByteArray();
    QTest::newRow("body cut short is not a success")
        << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 100\r\nConnection: close\r\n\r\n{\"status\":0,")
        << Outcome::Failed << QByteArray();
}

void tst_CLmNetWorkRequest::faultyPeers()
{
    QFETCH(QByteArray, answer);
    QFETCH(Outcome, outcome);
    QFETCH(QByteArray, body);

    CCannedHttpPeer peer(answer);
    const Result result = Send(peer.BaseUrl() + "/user/profile", "phone=1");
    QCOMPARE(result.outcome, outcome);
    QVERIFY(result.deleted);
    if (outcome == Outcome::Succeeded)
        QCOMPARE(result.body, body);
    else
        QVERIFY(!result.message.isEmpty());
}

void tst_CLmNetWorkRequest::refusedConnectionIsNetworkError()
{
    quint16 closedPort = 0;
    {
        QTcpServer probe;
        QVERIFY(probe.listen(QHostAddress::LocalHost, 0));
        closedPort = probe.serverPort();
    }
    const Result result = Send("http://127.0.0.1:" + QByteArray::number(closedPort) + "/ping");
    QCOMPARE(result.outcome, Outcome::Unreachable);
    QVERIFY(result.deleted);
}

void tst_CLmNetWorkRequest::silentPeerTimesOut()
{
    CCannedHttpPeer silent({}, false);
    QElapsedTimer clock;
    clock.start();
    const Result result = Send(silent.BaseUrl() + "/user/profile", {}, {}, 300);
    QCOMPARE(result.outcome, Outcome::Unreachable);
    QVERIFY(clock.elapsed() < 10000);
}

// A request still waiting for its reply when its thread ends (the
// application quitting) must not outlive the thread.
void tst_CLmNetWorkRequest::unansweredRequestEndsWithItsThread()
{
    CCannedHttpPeer silent({}, false);
    std::atomic<bool> deleted{false};
    QThread thread;
    connect(&thread, &QThread::started, [&] {
        auto* request = new CLmNetWorkRequest;
        connect(request, &QObject::destroyed, [&deleted] { deleted = true; });
        request->SetUrl(silent.BaseUrl() + "/user/profile");
        request->PostNetWorkReplyMessage();
        thread.quit();
    });
    thread.start();
    QVERIFY(thread.wait(10000));
    QVERIFY(deleted);
}

QTEST_GUILESS_MAIN(tst_CLmNetWorkRequest)
#include "tst_CLmNetWorkRequest.moc"
