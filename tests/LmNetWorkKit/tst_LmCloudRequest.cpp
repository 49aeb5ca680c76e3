#include "CCannedHttpPeer.h"
#include "CLmNetWorkRequest.h"
#include "CLmSessionStore.h"
#include "LmCloudRequest.h"
#include "TestSession.h"

#include <QSignalSpy>
#include <QTest>

// What the cloud receives from the request factory: the path under the
// configured base address and the session token only on signed-in calls.
class tst_LmCloudRequest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void carriesTheSessionOnlyWhenAsked_data();
    void carriesTheSessionOnlyWhenAsked();
};

void tst_LmCloudRequest::carriesTheSessionOnlyWhenAsked_data()
{
    QTest::addColumn<bool>("signedInCall");
    QTest::addColumn<QString>("storedToken");
    QTest::addColumn<QByteArray>("expectedHeader");

    QTest::newRow("signed-in call") << true << "tok-123" << QByteArray("token: tok-123\r\n");
    QTest::newRow("signed-in call, nobody signed in") << true << "" << QByteArray("token: \r\n");
    QTest::newRow("anonymous call keeps the token home") << false << "tok-123" << QByteArray();
}

void tst_LmCloudRequest::carriesTheSessionOnlyWhenAsked()
{
    QFETCH(bool, signedInCall);
    QFETCH(QString, storedToken);
    QFETCH(QByteArray, expectedHeader);

    CCannedHttpPeer peer(CCannedHttpPeer::Reply("200 OK", R"({"status":0})"));
    TestSession::PointCloudAt(peer.BaseUrl());
    TestSession::SetSession(storedToken, QStringLiteral("7"));

    CLmNetWorkRequest* request = signedInCall ? LmCloudRequest::NewSignedIn("/user/profile?x=1")
                                              : LmCloudRequest::NewAnonymous("/user/profile?x=1");
    QSignalSpy answered(request, &CLmNetWorkRequest::ActionSucced);
    request->PostNetWorkReplyMessage();
    QVERIFY(answered.wait(10000));

    const QByteArray sent = peer.LastRequest();
    QVERIFY2(sent.startsWith("GET /user/profile?x=1 HTTP/1.1\r\n"), sent.constData());
    const bool hasTokenHeader = sent.toLower().contains("\r\ntoken:");
    QCOMPARE(hasTokenHeader, !expectedHeader.isEmpty());
    if (hasTokenHeader)
        QVERIFY2(sent.contains(expectedHeader), sent.constData());
}

QTEST_GUILESS_MAIN(tst_LmCloudRequest)
#include "tst_LmCloudRequest.moc"
