#include "CLmTcpClientLink.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QtTest>

// The TCP client link against a local server the test controls.
class tst_CLmTcpClientLink : public QObject
{
    Q_OBJECT

private slots:
    void deliversOnlyWholeFrames_data();
    void deliversOnlyWholeFrames();
    void droppedConnectionsAreRetriedWithGrowingPauses();
    void disconnectStopsRetrying();
};

namespace {

QString AddressOf(const QTcpServer& server)
{
    return QStringLiteral("127.0.0.1:%1").arg(server.serverPort());
}

}  // namespace

void tst_CLmTcpClientLink::deliversOnlyWholeFrames_data()
{
    QTest::addColumn<QByteArrayList>("writes");
    QTest::addColumn<QByteArrayList>("expected");

    QTest::newRow("one frame in one write") << QByteArrayList{"{\"a\":1}END"} << QByteArrayList{"{\"a\":1}END"};
    QTest::newRow("frame split in two writes")
        << QByteArrayList{"{\"a\":", "1}END"} << QByteArrayList{"{\"a\":1}END"};
    QTest::newRow("delimiter split across writes")
        << QByteArrayList{"{\"a\":1}E", "ND"} << QByteArrayList{"{\"a\":1}END"};
    QTest::newRow("two frames, tail of the second later")
        << QByteArrayList{"{\"a\":1}END{\"b\"", ":2}END"} << QByteArrayList{"{\"a\":1}END", "{\"b\":2}END"};
}

void tst_CLmTcpClientLink::deliversOnlyWholeFrames()
{
    QFETCH(QByteArrayList, writes);
    QFETCH(QByteArrayList, expected);

    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost, 0));
    CLmTcpClientLink link(100, AddressOf(server));
    link.SetFrameDelimiter("END");
    QSignalSpy received(&link, &CLmLinkProvide::bytesReceived);
    link.Connect();
    QTRY_VERIFY(server.hasPendingConnections());
    QTcpSocket* peer = server.nextPendingConnection();
    QTRY_VERIFY(link.IsConnected());

    for (const QByteArray& chunk : writes) {
        peer->write(chunk);
        QVERIFY(peer->waitForBytesWritten(2000));
        QTest::qWait(50);  // lets the chunk arrive as a read of its own
    }
    QTRY_COMPARE(received.count(), expected.count());
    QByteArrayList delivered;
    for (const QList<QVariant>& call : received)
        delivered << call.at(0).toByteArray();
    QCOMPARE(delivered, expected);
}

void tst_CLmTcpClientLink::droppedConnectionsAreRetriedWithGrowingPauses()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost, 0));
    QList<qint64> acceptedAt;
    QElapsedTimer clock;
    clock.start();
    connect(&server, &QTcpServer::newConnection, this, [&] {
        while (QTcpSocket* peer = server.nextPendingConnection()) {
            acceptedAt << clock.elapsed();
            peer->close();
        }
    });

    CLmTcpClientLink link(100, AddressOf(server));
    link.Connect();
    QTRY_VERIFY_WITH_TIMEOUT(acceptedAt.count() >= 3, 10000);
    QVERIFY2(acceptedAt.at(1) - acceptedAt.at(0) >= 900, "first retry came too soon");
    QVERIFY2(acceptedAt.at(2) - acceptedAt.at(1) >= 1900, "second retry did not wait longer");
    link.Disconnect();
}

void tst_CLmTcpClientLink::disconnectStopsRetrying()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost, 0));
    int accepted = 0;
    connect(&server, &QTcpServer::newConnection, this, [&] {
        while (QTcpSocket* peer = server.nextPendingConnection()) {
            ++accepted;
            peer->close();
        }
    });

    CLmTcpClientLink link(100, AddressOf(server));
    QSignalSpy disconnected(&link, &CLmLinkProvide::disconnected);
    link.Connect();
    QTRY_COMPARE(disconnected.count(), 1);
    link.Disconnect();
    QTest::qWait(1500);  // longer than the first back-off
    QCOMPARE(accepted, 1);
    QVERIFY(!link.IsConnected());
}

QTEST_GUILESS_MAIN(tst_CLmTcpClientLink)
#include "tst_CLmTcpClientLink.moc"
