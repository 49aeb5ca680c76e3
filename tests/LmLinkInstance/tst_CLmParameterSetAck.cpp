#include "CLmParameterSetAck.h"
#include "CLmUasProvide.h"
#include "LinkTestDoubles.h"

#include <QSignalSpy>
#include <QtTest>

#include <cstring>

using namespace LmMavlink;

namespace {

constexpr int kRetries = 3;
constexpr int kIntervalMs = 700;
const QString kName = QStringLiteral("GCS_TIMEOUT");

mavlink_message_t Echo(const QString& name, float value)
{
    SParamValue echo;
    const QByteArray bytes = name.toLatin1();
    std::memcpy(echo.param_id, bytes.constData(), size_t(bytes.size()));
    echo.param_value = value;
    echo.param_type = MAV_PARAM_TYPE_UINT16;
    echo.param_count = 1;
    return CLmMavlinkEncoder(1, 1).Pack(echo);
}

} // namespace

class TestCLmParameterSetAck : public QObject
{
    Q_OBJECT

private slots:
    void confirmedOnlyByTheValueWritten_data();
    void confirmedOnlyByTheValueWritten();
};

void TestCLmParameterSetAck::confirmedOnlyByTheValueWritten_data()
{
    QTest::addColumn<int>("echoedCopy"); // 0-based copy after which the aircraft echoes, -1 for none
    QTest::addColumn<QString>("echoName");
    QTest::addColumn<float>("echoValue");
    QTest::addColumn<bool>("confirmed");
    QTest::addColumn<int>("expectedCopies");

    QTest::newRow("echo of the first copy") << 0 << kName << 30.0f << true << 1;
    QTest::newRow("echo of a retry") << 2 << kName << 30.0f << true << 3;
    QTest::newRow("wrong value") << 0 << kName << 60.0f << false << kRetries + 1;
    QTest::newRow("another parameter") << 0 << QStringLiteral("GCS_TIMEOUT2") << 30.0f << false << kRetries + 1;
    QTest::newRow("never echoed") << -1 << kName << 30.0f << false << kRetries + 1;
}

void TestCLmParameterSetAck::confirmedOnlyByTheValueWritten()
{
    QFETCH(int, echoedCopy);
    QFETCH(QString, echoName);
    QFETCH(float, echoValue);
    QFETCH(bool, confirmed);
    QFETCH(int, expectedCopies);

    CCapturingLink link;
    CLmUasProvide uas(&link, 1, 1);
    auto* pClock = new CFakeClock;
    CLmParameterSetAck set(nullptr, pClock);
    QSignalSpy confirmations(&set, &CLmParameterSetAck::ParameterSetConfirmed);
    QSignalSpy failures(&set, &CLmParameterSetAck::ParameterSetFailed);
    set.SetUAS(&uas);
    set.Write(126, kName, 30, kRetries, kIntervalMs);

    for (int copy = 0; copy <= kRetries + 2; ++copy) {
        if (copy == echoedCopy)
            uas.HandleMessage(Echo(echoName, echoValue));
        pClock->Advance(kIntervalMs);
    }

    const QVector<SParamSet> copies = link.Sent<SParamSet>();
    QCOMPARE(copies.size(), expectedCopies);
    for (const SParamSet& copy : copies) {
        QCOMPARE(int(copy.target_component), 126);
        QCOMPARE(copy.param_value, 30.0f);
        QCOMPARE(QString::fromLatin1(copy.param_id, int(strnlen(copy.param_id, sizeof copy.param_id))), kName);
    }
    QCOMPARE(confirmations.count(), confirmed ? 1 : 0);
    QCOMPARE(failures.count(), confirmed ? 0 : 1);
    if (confirmed)
        QCOMPARE(confirmations.at(0), (QList<QVariant>{kName, QVariant(30)}));

    // Finished either way: a late echo is not listened to.
    uas.HandleMessage(Echo(kName, 30.0f));
    QCOMPARE(confirmations.count(), confirmed ? 1 : 0);
    QVERIFY(!set.IsWaiting());
}

QTEST_GUILESS_MAIN(TestCLmParameterSetAck)
#include "tst_CLmParameterSetAck.moc"
