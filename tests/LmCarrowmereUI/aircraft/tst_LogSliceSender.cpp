#include "CCannedHttpPeer.h"
#include "CLmLogSliceSender.h"
#include "LmLogMultipart.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

// The slice sender against a peer that answers every request alike: the
// bytes of a slice as they reach the storage, and which replies count as
// the storage's answer.
class tst_LogSliceSender : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void replyOrFailure_data();
    void replyOrFailure();
};

namespace {

constexpr int kLogSize = 100000;
constexpr int kOffset = 30000;

QByteArray LogBytes()
{
    QByteArray log(kLogSize, Qt::Uninitialized);
    for (int i = 0; i < kLogSize; ++i)
        log[i] = char(i * 7 + i / 251);
    return log;
}

}  // namespace

void tst_LogSliceSender::replyOrFailure_data()
{
    QTest::addColumn<QByteArray>("statusLine");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("sliceBytes");
    QTest::addColumn<bool>("answered");

    const QByteArray storageAnswer = R"({"code":0,"message":"SUCCESS","data":{"offset":80000}})";
    QTest::newRow("success") << QByteArray("200 OK") << storageAnswer << 50000 << true;
    QTest::newRow("last bytes of the log") << QByteArray("200 OK") << storageAnswer << kLogSize - kOffset << true;
    QTest::newRow("refusal in the storage's envelope")
        << QByteArray("401 Unauthorized") << QByteArray(R"({"code":-70,"message":"authorization invalid"})")
        << 50000 << true;
    QTest::newRow("refusal that is not the storage's") << QByteArray("403 Forbidden") << QByteArray("forbidden")
                                                        << 50000 << false;
    QTest::newRow("server error") << QByteArray("500 Internal Server Error") << QByteArray("<html>oops</html>")
                                  << 50000 << false;
    QTest::newRow("slice past the end of the log") << QByteArray("200 OK") << storageAnswer << kLogSize << false;
}

void tst_LogSliceSender::replyOrFailure()
{
    QFETCH(QByteArray, statusLine);
    QFETCH(QByteArray, body);
    QFETCH(int, sliceBytes);
    QFETCH(bool, answered);

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("LM_1_2024-05-01_10-22-07.zf"));
    QFile log(path);
    QVERIFY(log.open(QIODevice::WriteOnly) && log.write(LogBytes()) == kLogSize);
    log.close();
    CCannedHttpPeer storage(CCannedHttpPeer::Reply(statusLine, body));

    CLmLogSliceSender sender(storage.BaseUrl() + "/files/v1/10008291/files/airlog/log.zf",
                             {{"Content-Type", LmLogMultipart::ContentType()}, {"Authorization", "1:grant"}}, path,
                             kLogSize);
    QSignalSpy replies(&sender, &CLmLogSliceSender::Answered);
    QSignalSpy failures(&sender, &CLmLogSliceSender::Failed);
    sender.Send(kOffset, sliceBytes, QStringLiteral("session-1"));
    QTRY_COMPARE_WITH_TIMEOUT(replies.count() + failures.count(), 1, 10000);

    QCOMPARE(replies.count(), answered ? 1 : 0);
    if (!answered)
        return;
    QCOMPARE(replies.first().first().toByteArray(), body);
    const QByteArray request = storage.LastRequest();
    QVERIFY(request.contains("\r\nAuthorization: 1:grant\r\n"));
    const QByteArray expected = LmLogMultipart::SliceHead(kOffset, QStringLiteral("session-1"),
                                                          QStringLiteral("LM_1_2024-05-01_10-22-07.zf"))
                                + LogBytes().mid(kOffset, sliceBytes) + LmLogMultipart::SliceTail();
    QVERIFY(request.endsWith("\r\n\r\n" + expected));
}

QTEST_GUILESS_MAIN(tst_LogSliceSender)
#include "tst_LogSliceSender.moc"
