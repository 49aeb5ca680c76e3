#include "CLmRtkDataLink.h"
#include "CLmUasProvide.h"
#include "LinkTestDoubles.h"

#include <QtTest>

using namespace LmMavlink;

namespace {

constexpr int kQuietMs = 700;
constexpr quint32 kEntrySize = 200; // chunks at 0, 90 and 180 (20 bytes)

// One letter per chunk in the test tables: a = offset 0, b = 90, c = 180.
quint32 ChunkOffset(QChar letter)
{
    return quint32(letter.toLatin1() - 'a') * 90;
}

}  // namespace

// The receiver link: what reaches the downloader when the radio loses,
// repeats or reorders packets, and what is asked of the receiver again.
class tst_CLmRtkDataLink : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void entryBytesPassOnInOrder_data();
    void entryBytesPassOnInOrder();
    void lastEntryClosesTheListOnlyAfterTheOthers();
    void silentReceiverEndsInFailure_data();
    void silentReceiverEndsInFailure();

private:
    template <typename TMessage>
    void Receive(const TMessage& message)
    {
        for (const mavlink_message_t& frame : m_parser.Parse(m_aircraft.Encode(message)))
            m_pUas->HandleMessage(frame);
    }
    void ReceiveChunk(QChar letter);
    void ReceiveEntry(quint16 entryId, quint16 lastEntry);

    CCapturingLink* m_pWire = nullptr;
    CLmUasProvide* m_pUas = nullptr;
    CFakeClock* m_pClock = nullptr;
    CLmRtkDataLink* m_pLink = nullptr;
    CLmMavlinkEncoder m_aircraft{1, 1};
    CLmMavlinkParser m_parser;
};

void tst_CLmRtkDataLink::init()
{
    m_pWire = new CCapturingLink;
    m_pUas = new CLmUasProvide(m_pWire, 1, 1);
    m_pClock = new CFakeClock;
    m_pLink = new CLmRtkDataLink(m_pUas, nullptr, m_pClock);
}

void tst_CLmRtkDataLink::cleanup()
{
    delete m_pLink;
    delete m_pUas;
    delete m_pWire;
}

void tst_CLmRtkDataLink::ReceiveChunk(QChar letter)
{
    SSkyRawEntryData data;
    data.folder_id = 7;
    data.entry_id = 1;
    data.ofs = ChunkOffset(letter);
    data.count = quint8(std::min<quint32>(90, kEntrySize - data.ofs));
    std::fill(std::begin(data.data), std::end(data.data), uint8_t(letter.toLatin1()));
    Receive(data);
}

void tst_CLmRtkDataLink::ReceiveEntry(quint16 entryId, quint16 lastEntry)
{
    SSkyRawEntry entry;
    entry.folder_id = 7;
    entry.entry_id = entryId;
    entry.last_entry_num = lastEntry;
    entry.entry_count = quint16(lastEntry + 1);
    entry.size = kEntrySize;
    Receive(entry);
}

void tst_CLmRtkDataLink::entryBytesPassOnInOrder_data()
{
    QTest::addColumn<QString>("arrivals"); // chunks as they come; '.' lets the quiet time pass
    QTest::addColumn<QString>("passedOn");
    QTest::addColumn<QStringList>("askedAgain"); // "offset+count" of every request after the first
    QTest::newRow("clean stream") << "abc" << "abc" << QStringList{};
    QTest::newRow("middle lost, asked for at the end of the stream") << "acb" << "abc" << QStringList{"90+90"};
    QTest::newRow("last lost, asked for after the quiet time") << "ab.c" << "abc" << QStringList{"180+20"};
    QTest::newRow("repeats are dropped") << "aabbcc" << "abc" << QStringList{};
    QTest::newRow("first lost") << "bca" << "abc" << QStringList{"0+90"};
    QTest::newRow("two holes, one after the other") << "ca.b" << "abc" << QStringList{"0+180", "90+90"};
}

void tst_CLmRtkDataLink::entryBytesPassOnInOrder()
{
    QFETCH(QString, arrivals);
    QFETCH(QString, passedOn);
    QFETCH(QStringList, askedAgain);
    m_pLink->RequestEntryList(0, 65535, 7);
    ReceiveEntry(0, 1);
    ReceiveEntry(1, 1);
    QSignalSpy data(m_pLink, &CLmRtkDataLink::RtkData);
    m_pWire->Clear();
    m_pLink->RequestEntryData(7, 1, CLmRtkDataLink::WholeEntry, 0);
    for (QChar arrival : arrivals) {
        if (arrival == '.')
            m_pClock->Advance(kQuietMs);
        else
            ReceiveChunk(arrival);
    }
    QString order;
    quint32 expectedOffset = 0;
    for (const QList<QVariant>& chunk : data) {
        QCOMPARE(chunk.at(4).toUInt(), expectedOffset);
        expectedOffset += chunk.at(2).toUInt();
        order += QChar(chunk.at(3).toByteArray().at(0));
    }
    QCOMPARE(order, passedOn);
    const QVector<SSkyRawEntryRequestData> requests = m_pWire->Sent<SSkyRawEntryRequestData>();
    QStringList again;
    for (int i = 1; i < requests.size(); ++i)
        again << QStringLiteral("%1+%2").arg(requests[i].ofs).arg(requests[i].count);
    QCOMPARE(again, askedAgain);
    QVERIFY(!m_pClock->IsActive());
}

void tst_CLmRtkDataLink::lastEntryClosesTheListOnlyAfterTheOthers()
{
    QSignalSpy entries(m_pLink, &CLmRtkDataLink::RtkEntry);
    m_pLink->RequestEntryList(0, 65535, 7);
    ReceiveEntry(0, 2);
    ReceiveEntry(2, 2);
    ReceiveEntry(0, 2);
    QCOMPARE(entries.count(), 1);
    m_pClock->Advance(kQuietMs);
    QCOMPARE(m_pWire->Sent<SSkyRawEntryRequestList>().size(), 2);
    ReceiveEntry(1, 2);
    QList<int> order;
    for (const QList<QVariant>& entry : entries)
        order << entry.at(1).toInt();
    QCOMPARE(order, (QList<int>{0, 1, 2}));
}

void tst_CLmRtkDataLink::silentReceiverEndsInFailure_data()
{
    QTest::addColumn<QString>("request");
    QTest::newRow("folder list") << "folders";
    QTest::newRow("entry list") << "entries";
    QTest::newRow("entry data") << "data";
}

void tst_CLmRtkDataLink::silentReceiverEndsInFailure()
{
    QFETCH(QString, request);
    m_pLink->SetRetries(2);
    QSignalSpy failed(m_pLink, &CLmRtkDataLink::RtkRequestFailed);
    if (request == "folders")
        m_pLink->RequestFolderList();
    else if (request == "entries")
        m_pLink->RequestEntryList(0, 65535, 7);
    else
        m_pLink->RequestEntryData(7, 1, CLmRtkDataLink::WholeEntry, 0);
    m_pClock->Advance(2 * kQuietMs);
    QCOMPARE(failed.count(), 0);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("stopped answering"));
    m_pClock->Advance(kQuietMs);
    QCOMPARE(failed.count(), 1);
    const int sent = m_pWire->Sent<SSkyRawFolderRequestList>().size() + m_pWire->Sent<SSkyRawEntryRequestList>().size()
        + m_pWire->Sent<SSkyRawEntryRequestData>().size();
    QCOMPARE(sent, 3);
}

QTEST_GUILESS_MAIN(tst_CLmRtkDataLink)
#include "tst_CLmRtkDataLink.moc"
