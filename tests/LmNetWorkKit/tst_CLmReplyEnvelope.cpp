#include "CLmReplyEnvelope.h"

#include <QTest>

class tst_CLmReplyEnvelope : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void readsTheEnvelope_data();
    void readsTheEnvelope();
    void readsTheShareAcceptState();
};

void tst_CLmReplyEnvelope::readsTheEnvelope_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("parsed");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("success");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("dataType");

    const int none = int(QJsonValue::Undefined);
    QTest::newRow("done with an object") << QByteArray(R"({"status":0,"message":"ok","data":{"id":7}})") << true
                                         << 0 << true << "ok" << int(QJsonValue::Object);
    QTest::newRow("done with an array") << QByteArray(R"({"status":0,"data":[1,2]})") << true << 0 << true << ""
                                        << int(QJsonValue::Array);
    QTest::newRow("refused with a text") << QByteArray(R"({"status":401,"message":"Token expired"})") << true
                                         << 401 << false << "Token expired" << none;
    QTest::newRow("no status is no success") << QByteArray(R"({"data":{}})") << true << -1 << false << ""
                                             << int(QJsonValue::Object);
    QTest::newRow("status as text") << QByteArray(R"({"status":"0"})") << true << -1 << false << "" << none;
    QTest::newRow("status not whole") << QByteArray(R"({"status":0.5})") << true << -1 << false << "" << none;
    QTest::newRow("empty body") << QByteArray() << false << -1 << false << "" << none;
    QTest::newRow("not JSON") << QByteArray("<html>502 Bad Gateway</html>") << false << -1 << false << ""
                              << none;
    QTest::newRow("cut short") << QByteArray(R"({"status":0,"data":{"id")") << false << -1 << false << ""
                               << none;
    QTest::newRow("array at the top") << QByteArray(R"([{"status":0}])") << false << -1 << false << "" << none;
}

void tst_CLmReplyEnvelope::readsTheEnvelope()
{
    QFETCH(QByteArray, body);
    QFETCH(bool, parsed);
    QFETCH(int, status);
    QFETCH(bool, success);
    QFETCH(QString, message);
    QFETCH(int, dataType);

    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(body);
    QCOMPARE(envelope.IsParsed(), parsed);
    QCOMPARE(envelope.Status(), status);
    QCOMPARE(envelope.IsSuccess(), success);
    QCOMPARE(envelope.Message(), message);
    QCOMPARE(int(envelope.Data().type()), dataType);
}

void tst_CLmReplyEnvelope::readsTheShareAcceptState()
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(R"({"state":0,"message":"accepted"})");
    QCOMPARE(envelope.StatusUnder(QStringLiteral("state")), 0);
    QCOMPARE(envelope.Status(), CLmReplyEnvelope::NoStatus);
}

QTEST_GUILESS_MAIN(tst_CLmReplyEnvelope)
#include "tst_CLmReplyEnvelope.moc"
