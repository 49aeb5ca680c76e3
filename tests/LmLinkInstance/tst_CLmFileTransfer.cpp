// The file transfer client against replies written by hand and a clock
// stepped by hand: what it does when answers go missing or are refused.
#include "CLmFileTransfer.h"
#include "CLmUasProvide.h"
#include "LinkTestDoubles.h"

#include <QSignalSpy>
#include <QtTest>

using namespace LmMavlink;

namespace {

constexpr int kTimeoutMs = 500;
constexpr int kRetries = 2;
constexpr int kWindow = 3;
const QString kPath = QStringLiteral("/fw/package.bin");

QVector<CLmFtpPayload> SentRequests(const CCapturingLink& link)
{
    QVector<CLmFtpPayload> requests;
    for (const SFileTransferProtocol& message : link.Sent<SFileTransferProtocol>()) {
        CLmFtpPayload request;
        CLmFtpPayload::ReadFrom(message.payload, &request);
        requests << request;
    }
    return requests;
}

mavlink_message_t Reply(const CLmFtpPayload& request, uint8_t nakError = 0, uint8_t session = 1)
{
    CLmFtpPayload reply;
    reply.seqNumber = static_cast<uint16_t>(request.seqNumber + 1);
    reply.session = session;
    reply.opcode = nakError ? MAV_FTP_OPCODE_NAK : MAV_FTP_OPCODE_ACK;
    reply.reqOpcode = request.opcode;
    reply.offset = request.offset;
    if (nakError)
        reply.data = QByteArray(1, static_cast<char>(nakError));
    SFileTransferProtocol message;
    message.target_system = 255;
    reply.WriteTo(message.payload);
    return CLmMavlinkEncoder(1, 1).Pack(message);
}

QList<uint32_t> WriteOffsets(const QVector<CLmFtpPayload>& requests)
{
    QList<uint32_t> offsets;
    for (const CLmFtpPayload& request : requests) {
        if (request.opcode == MAV_FTP_OPCODE_WRITEFILE)
            offsets << request.offset;
    }
    return offsets;
}

} // namespace

class TestCLmFileTransfer : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void endsOnSilenceOrRefusal_data();
    void endsOnSilenceOrRefusal();
    void lostWriteGoesOutAgainWhenALaterOneIsAnswered();

private:
    CCapturingLink* m_pLink = nullptr;
    CLmUasProvide* m_pUas = nullptr;
    CFakeClock* m_pClock = nullptr;
    CLmFileTransfer* m_pTransfer = nullptr;
};

void TestCLmFileTransfer::init()
{
    m_pLink = new CCapturingLink;
    m_pUas = new CLmUasProvide(m_pLink, 1, 1);
    m_pClock = new CFakeClock;
    m_pTransfer = new CLmFileTransfer(m_pUas, nullptr, m_pClock);
    m_pTransfer->SetTimeoutMs(kTimeoutMs);
    m_pTransfer->SetRetries(kRetries);
    m_pTransfer->SetWindow(kWindow);
}

void TestCLmFileTransfer::cleanup()
{
    delete m_pTransfer;
    delete m_pUas;
    delete m_pLink;
}

void TestCLmFileTransfer::endsOnSilenceOrRefusal_data()
{
    QTest::addColumn<bool>("openAnswered");
    QTest::addColumn<int>("nakError"); // 0: no reply at all
    QTest::addColumn<int>("failure");
    QTest::addColumn<int>("sameRequestSent"); // times the last request went out

    QTest::newRow("no answer to the open") << false << 0 << CLmFileTransfer::ErrorTimedOut << kRetries + 1;
    QTest::newRow("open refused") << false << int(MAV_FTP_ERR_FILEPROTECTED) << int(MAV_FTP_ERR_FILEPROTECTED) << 1;
    QTest::newRow("no answer to the writes") << true << 0 << CLmFileTransfer::ErrorTimedOut << kRetries + 1;
    QTest::newRow("write refused") << true << int(MAV_FTP_ERR_INVALIDSESSION) << int(MAV_FTP_ERR_INVALIDSESSION)
                                   << 1;
}

void TestCLmFileTransfer::endsOnSilenceOrRefusal()
{
    QFETCH(bool, openAnswered);
    QFETCH(int, nakError);
    QFETCH(int, failure);
    QFETCH(int, sameRequestSent);

    QSignalSpy failed(m_pTransfer, &CLmFileTransfer::Failed);
    m_pTransfer->Upload(kPath, QByteArray(1000, 'f'));
    if (openAnswered)
        m_pUas->HandleMessage(Reply(SentRequests(*m_pLink).constFirst()));
    const CLmFtpPayload last = SentRequests(*m_pLink).constLast();
    if (nakError)
        m_pUas->HandleMessage(Reply(last, static_cast<uint8_t>(nakError)));
    for (int round = 0; round <= kRetries + 1 && failed.isEmpty(); ++round)
        m_pClock->Advance(kTimeoutMs);

    QCOMPARE(failed.count(), 1);
    QCOMPARE(failed.first().at(0).toInt(), failure);
    QCOMPARE(failed.first().at(1).toLongLong(), qint64(0));
    const QVector<CLmFtpPayload> sent = SentRequests(*m_pLink);
    const auto sameAsLast = [&last](const CLmFtpPayload& request) {
        return request.opcode == last.opcode && request.offset == last.offset;
    };
    QCOMPARE(int(std::count_if(sent.cbegin(), sent.cend(), sameAsLast)), sameRequestSent);
    // Nothing more goes out once it gave up.
    m_pLink->Clear();
    m_pClock->Advance(kTimeoutMs * 2);
    QVERIFY(SentRequests(*m_pLink).isEmpty());
    QVERIFY(!m_pTransfer->IsRunning());
}

void TestCLmFileTransfer::lostWriteGoesOutAgainWhenALaterOneIsAnswered()
{
    const uint32_t chunk = CLmFtpPayload::MAX_DATA;
    QSignalSpy finished(m_pTransfer, &CLmFileTransfer::Finished);
    m_pTransfer->Upload(kPath, QByteArray(int(chunk) * 4, 'f'));
    m_pUas->HandleMessage(Reply(SentRequests(*m_pLink).constFirst()));
    const QVector<CLmFtpPayload> firstWrites = SentRequests(*m_pLink).mid(1);
    QCOMPARE(WriteOffsets(firstWrites), (QList<uint32_t>{0, chunk, 2 * chunk}));

    // The first write is lost; the answer to the second shows it.
    m_pLink->Clear();
    m_pUas->HandleMessage(Reply(firstWrites.at(1)));
    const QVector<CLmFtpPayload> nextWrites = SentRequests(*m_pLink);
    QCOMPARE(WriteOffsets(nextWrites), (QList<uint32_t>{0, 3 * chunk}));
    QCOMPARE(m_pTransfer->AcknowledgedBytes(), qint64(0));

    // A second answer to a write already acknowledged changes nothing.
    m_pLink->Clear();
    m_pUas->HandleMessage(Reply(firstWrites.at(1)));
    QVERIFY(SentRequests(*m_pLink).isEmpty());

    m_pUas->HandleMessage(Reply(firstWrites.at(2)));
    QCOMPARE(WriteOffsets(SentRequests(*m_pLink)), QList<uint32_t>{}); // the resent first write is still on its way
    m_pUas->HandleMessage(Reply(nextWrites.at(0)));
    QCOMPARE(m_pTransfer->AcknowledgedBytes(), qint64(3 * chunk));
    m_pUas->HandleMessage(Reply(nextWrites.at(1)));
    const CLmFtpPayload terminate = SentRequests(*m_pLink).constLast();
    QCOMPARE(int(terminate.opcode), int(MAV_FTP_OPCODE_TERMINATESESSION));
    QVERIFY(finished.isEmpty());
    m_pUas->HandleMessage(Reply(terminate));
    QCOMPARE(finished.count(), 1);
}

QTEST_GUILESS_MAIN(TestCLmFileTransfer)
#include "tst_CLmFileTransfer.moc"
