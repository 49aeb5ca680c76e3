// Log download goodput from the skysim emulator over loopback UDP at an
// emulated radio rate, as a share of what the log protocol can carry at that
// rate: each 109-byte MAVLink 2 LOG_DATA frame carries 90 bytes of log.
#include "BenchSkySim.h"
#include "CLmMavlinkEncoder.h"
#include "CLmMavlinkParser.h"
#include "LmMavlinkMessages.h"
#include "SimLogStore.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QNetworkDatagram>
#include <QProcess>
#include <QTimer>
#include <QUdpSocket>

#include <cstdio>
#include <vector>

using namespace LmMavlink;

namespace {

constexpr double LINK_RATE = 115200.0;       // bytes per second
constexpr uint32_t LOG_SIZE = 1500000;       // about 16 s at the ceiling
constexpr uint32_t BLOCK = 90;               // log bytes per LOG_DATA
constexpr double FRAME = 109.0;              // MAVLink 2 LOG_DATA frame: 10 header + 97 payload + 2 checksum
constexpr int GAP_TIMEOUT_MS = 700;          // silence after which missing blocks are asked for again
constexpr int GIVE_UP_MS = 120000;

// A ground station downloading log 1: one request for the whole log, then
// re-requests of the first run of missing blocks whenever the data stops.
class LogDownload : public QObject
{
public:
    LogDownload(QUdpSocket& socket, quint16 aircraftPort)
        : m_socket(socket)
        , m_aircraftPort(aircraftPort)
        , m_received((LOG_SIZE + BLOCK - 1) / BLOCK, false)
        , m_log(LOG_SIZE, 0)
    {
        connect(&m_socket, &QUdpSocket::readyRead, this, &LogDownload::readDatagrams);
        m_gapTimer.setSingleShot(true);
        connect(&m_gapTimer, &QTimer::timeout, this, &LogDownload::requestFirstGap);
    }

    void start()
    {
        m_clock.start();
        request(0, 0xFFFFFFFF);
        m_gapTimer.start(GAP_TIMEOUT_MS);
    }

    bool finished() const { return m_missing == 0; }
    qint64 elapsedNs() const { return m_finishedNs; }
    int reRequests() const { return m_reRequests; }
    const std::vector<uint8_t>& log() const { return m_log; }

private:
    void request(uint32_t offset, uint32_t count)
    {
        SLogRequestData message;
        message.target_system = 1;
        message.target_component = 1;
        message.id = 1;
        message.ofs = offset;
        message.count = count;
        m_socket.writeDatagram(m_encoder.Encode(message), QHostAddress(QHostAddress::LocalHost), m_aircraftPort);
    }

    void readDatagrams()
    {
        while (m_socket.hasPendingDatagrams()) {
            m_parser.Feed(m_socket.receiveDatagram().data());
            mavlink_message_t frame;
            while (m_parser.Next(frame)) {
                if (frame.msgid == MSG_ID_LOG_DATA)
                    take(SLogData::Unpack(frame));
            }
        }
    }

    void take(const SLogData& data)
    {
        m_gapTimer.start(GAP_TIMEOUT_MS);
        const uint32_t block = data.ofs / BLOCK;
        if (data.count == 0 || block >= m_received.size() || m_received[block])
            return;
        std::copy(data.data, data.data + data.count, m_log.begin() + data.ofs);
        m_received[block] = true;
        if (--m_missing == 0) {
            m_finishedNs = m_clock.nsecsElapsed();
            m_gapTimer.stop();
            QCoreApplication::quit();
        }
    }

    void requestFirstGap()
    {
        const auto first = std::find(m_received.begin(), m_received.end(), false);
        const auto end = std::find(first, m_received.end(), true);
        const auto firstBlock = static_cast<uint32_t>(first - m_received.begin());
        const auto blocks = static_cast<uint32_t>(end - first);
        ++m_reRequests;
        request(firstBlock * BLOCK, blocks * BLOCK);
        m_gapTimer.start(GAP_TIMEOUT_MS);
    }

    QUdpSocket& m_socket;
    quint16 m_aircraftPort;
    CLmMavlinkEncoder m_encoder{255, 190};
    CLmMavlinkParser m_parser;
    QTimer m_gapTimer;
    QElapsedTimer m_clock;
    std::vector<bool> m_received;
    std::vector<uint8_t> m_log;
    std::size_t m_missing = (LOG_SIZE + BLOCK - 1) / BLOCK;
    qint64 m_finishedNs = 0;
    int m_reRequests = 0;
};

bool matchesSource(const std::vector<uint8_t>& log)
{
    std::vector<uint8_t> expected(LOG_SIZE);
    SimLogStore::fill(1, 0, LOG_SIZE, expected.data());
    return log == expected;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QUdpSocket socket;
    if (!socket.bind(QHostAddress(QHostAddress::LocalHost), 0)) {
        std::fprintf(stderr, "log_goodput: cannot bind a loopback UDP socket\n");
        return 1;
    }
    QProcess aircraft;
    const quint16 aircraftPort = BenchSkySim::Start(
        aircraft, {QStringLiteral("--udp"), QStringLiteral("127.0.0.1:%1").arg(socket.localPort()),
                   QStringLiteral("--link-rate"), QString::number(LINK_RATE), QStringLiteral("--logs"),
                   QStringLiteral("1"), QStringLiteral("--log-size"), QString::number(LOG_SIZE)});
    if (aircraftPort == 0) {
        std::fprintf(stderr, "log_goodput: skysim did not start\n");
        return 1;
    }

    LogDownload download(socket, aircraftPort);
    QTimer::singleShot(0, &download, &LogDownload::start);
    QTimer::singleShot(GIVE_UP_MS, &app, &QCoreApplication::quit);
    app.exec();
    aircraft.terminate();
    aircraft.waitForFinished(5000);

    if (!download.finished() || !matchesSource(download.log())) {
        std::fprintf(stderr, "log_goodput: download %s\n", download.finished() ? "corrupt" : "incomplete");
        return 1;
    }
    const double ceiling = LINK_RATE * BLOCK / FRAME;
    const double rate = LOG_SIZE / (static_cast<double>(download.elapsedNs()) / 1e9);
    std::printf("log_goodput: %.1f %% of protocol ceiling (target >= 95 %%)\n", 100.0 * rate / ceiling);
    std::printf("log_goodput_rate: %.0f B/s (baseline ceiling %.0f B/s)\n", rate, ceiling);
    if (download.reRequests() > 0)
        std::fprintf(stderr, "log_goodput: %d gap re-requests\n", download.reRequests());
    return 0;
}
