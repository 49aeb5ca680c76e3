#include "CLmParameterDownload.h"
#include "CLmUasProvide.h"
#include "LinkTestDoubles.h"

#include <QSignalSpy>
#include <QtTest>

#include <cstring>

using namespace LmMavlink;

namespace {

constexpr int kQuietMs = 700;
constexpr int kRetries = 3;
constexpr int kAlways = 1000; // losses enough to never arrive

using LossScript = QMap<int, int>; // index -> answers lost

// The aircraft's side: answers the list and reads by index from a table of
// `count` parameters (even indices integers, odd ones floats), losing the
// answers the script names. Answers go out when the test pumps.
class ScriptedAircraft
{
public:
    ScriptedAircraft(CCapturingLink& link, CLmUasProvide& uas, int count)
        : m_link(link)
        , m_uas(uas)
        , m_iCount(count)
    {
    }

    void LoseList(int times) { m_iListLosses = times; }
    void Lose(int index, int times) { m_mapLosses[index] = times; }
    int ReadRequests() const { return m_iReadRequests; }

    // Answers everything asked since the last pump; false when nothing was.
    bool Pump()
    {
        const QVector<SParamRequestList> lists = m_link.Sent<SParamRequestList>();
        const QVector<SParamRequestRead> reads = m_link.Sent<SParamRequestRead>();
        m_link.Clear();
        QList<int> answers;
        for (int list = 0; list < lists.size(); ++list) {
            if (m_iListLosses-- > 0)
                continue;
            for (int index = 0; index < m_iCount; ++index)
                answers << index;
        }
        for (const SParamRequestRead& read : reads) {
            ++m_iReadRequests;
            answers << read.param_index;
        }
        for (int index : answers) {
            if (m_mapLosses.value(index) > 0)
                --m_mapLosses[index];
            else
                m_uas.HandleMessage(Value(index));
        }
        return !lists.isEmpty() || !reads.isEmpty();
    }

    static QVariant ExpectedValue(int index)
    {
        return index % 2 == 0 ? QVariant(index * 10) : QVariant(index + 0.5);
    }

private:
    mavlink_message_t Value(int index)
    {
        SParamValue value;
        const QByteArray name = "PARAM_" + QByteArray::number(index);
        std::memcpy(value.param_id, name.constData(), size_t(name.size()));
        value.param_type = index % 2 == 0 ? MAV_PARAM_TYPE_UINT16 : MAV_PARAM_TYPE_REAL32;
        value.param_value = ExpectedValue(index).toFloat();
        value.param_count = uint16_t(m_iCount);
        value.param_index = uint16_t(index);
        return m_encoder.Pack(value);
    }

    CCapturingLink& m_link;
    CLmUasProvide& m_uas;
    const int m_iCount;
    CLmMavlinkEncoder m_encoder{1, 1};
    int m_iListLosses = 0;
    QMap<int, int> m_mapLosses;
    int m_iReadRequests = 0;
};

} // namespace

class TestCLmParameterDownload : public QObject
{
    Q_OBJECT

private slots:
    void recoversLostParameters_data();
    void recoversLostParameters();
};

void TestCLmParameterDownload::recoversLostParameters_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("listLosses");
    QTest::addColumn<LossScript>("losses");
    QTest::addColumn<int>("expectedReads");
    QTest::addColumn<QList<int>>("expectedMissing"); // empty: the download completes

    QTest::newRow("nothing lost") << 10 << 0 << LossScript{} << 0 << QList<int>{};
    QTest::newRow("gaps asked for once") << 10 << 0 << LossScript{{2, 1}, {5, 1}} << 2 << QList<int>{};
    QTest::newRow("last one lost") << 10 << 0 << LossScript{{9, 1}} << 1 << QList<int>{};
    QTest::newRow("lost again on the first read") << 10 << 0 << LossScript{{4, 2}} << 2 << QList<int>{};
    QTest::newRow("list request lost") << 10 << 1 << LossScript{} << 0 << QList<int>{};
    LossScript many;
    for (int index = 0; index < 150; ++index)
        many.insert(index * 2, 1);
    QTest::newRow("more gaps than a round") << 300 << 0 << many << 150 << QList<int>{};
    QTest::newRow("one never answers") << 10 << 0 << LossScript{{3, kAlways}, {6, 1}} << 3 + kRetries
                                       << QList<int>{3};
    QTest::newRow("aircraft never answers") << 10 << kAlways << LossScript{} << 0 << QList<int>{};
}

void TestCLmParameterDownload::recoversLostParameters()
{
    QFETCH(int, count);
    QFETCH(int, listLosses);
    QFETCH(LossScript, losses);
    QFETCH(int, expectedReads);
    QFETCH(QList<int>, expectedMissing);
    const bool bNeverAnswered = listLosses == kAlways;

    CCapturingLink link;
    CLmUasProvide uas(&link, 1, 1);
    ScriptedAircraft aircraft(link, uas, count);
    aircraft.LoseList(listLosses);
    for (auto it = losses.cbegin(); it != losses.cend(); ++it)
        aircraft.Lose(it.key(), it.value());
    auto* pClock = new CFakeClock;
    CLmParameterDownload download(&uas, nullptr, pClock);
    download.SetQuietMs(kQuietMs);
    download.SetRetries(kRetries);
    QSignalSpy loaded(&download, &CLmParameterDownload::ParametersLoaded);
    QSignalSpy failed(&download, &CLmParameterDownload::ParameterDownloadFailed);

    download.Start();
    for (int step = 0; step < 100 && download.IsRunning(); ++step) {
        while (aircraft.Pump()) {
        }
        pClock->Advance(kQuietMs);
    }

    QVERIFY(!download.IsRunning());
    QVERIFY(!pClock->IsActive());
    QCOMPARE(aircraft.ReadRequests(), expectedReads);
    const bool bComplete = expectedMissing.isEmpty() && !bNeverAnswered;
    QCOMPARE(loaded.count(), bComplete ? 1 : 0);
    QCOMPARE(failed.count(), bComplete ? 0 : 1);
    if (!bComplete) {
        QCOMPARE(failed.at(0).at(0).value<QList<int>>(), expectedMissing);
        // Given up: a late answer changes nothing and asks for nothing.
        aircraft.Lose(3, 0);
        link.Clear();
        uas.RequestParameterByIndex(3);
        aircraft.Pump();
        QVERIFY(link.Sent<SParamRequestRead>().isEmpty());
        QCOMPARE(loaded.count(), 0);
        return;
    }
    const QList<SLmParameter> parameters = loaded.at(0).at(0).value<QList<SLmParameter>>();
    QCOMPARE(parameters.size(), count);
    for (int index = 0; index < count; ++index) {
        const SLmParameter& parameter = parameters.at(index);
        QCOMPARE(parameter.index, index);
        QCOMPARE(parameter.name, QStringLiteral("PARAM_%1").arg(index));
        QCOMPARE(parameter.value, ScriptedAircraft::ExpectedValue(index));
        QCOMPARE(parameter.TypeName(), index % 2 == 0 ? QStringLiteral("UInt") : QStringLiteral("Double"));
    }
}

QTEST_GUILESS_MAIN(TestCLmParameterDownload)
#include "tst_CLmParameterDownload.moc"
