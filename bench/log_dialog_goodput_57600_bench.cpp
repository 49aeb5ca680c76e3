// The flight-log dialog's own download of a 200 kB log from the skysim
// emulator over loopback UDP at 5,760 B/s (a 57,600 baud radio), through the
// log download controller with its gap recovery and its writer thread: the
// log's bytes per second until the file is complete, as a share of what the
// log protocol can carry at that rate (90 log bytes in each 109-byte
// LOG_DATA frame). Once on a clean link and once with 2 % of the aircraft's
// packets lost.
#include "BenchSkySim.h"
#include "CLmLogDownloadController.h"
#include "CLmMavlinkParser.h"
#include "CLmUasProvide.h"
#include "CLmUdpLink.h"
#include "SimLogStore.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <optional>

namespace {

constexpr double LINK_RATE = 5760.0;  // bytes per second
constexpr uint32_t LOG_SIZE = 200000;
constexpr double BLOCK = 90.0;
constexpr double FRAME = 109.0;
constexpr int GIVE_UP_MS = 180000;

struct SRun
{
    double lossPercent;
    double targetPercent;
};

bool MatchesAircraft(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QByteArray expected(int(LOG_SIZE), Qt::Uninitialized);
    SimLogStore::fill(1, 0, LOG_SIZE, reinterpret_cast<uint8_t*>(expected.data()));
    return file.readAll() == expected;
}

// Seconds from the request of log 1 until its file is complete; nothing
// when skysim does not start, the download stalls or the file differs.
std::optional<double> DownloadSeconds(double lossPercent)
{
    CLmUdpLink link(1, 0);
    link.Connect();
    QProcess aircraft;
    const quint16 port = BenchSkySim::Start(
        aircraft, {QStringLiteral("--udp"), QStringLiteral("127.0.0.1:%1").arg(link.GetLocalPort()),
                   QStringLiteral("--logs"), QStringLiteral("2"), QStringLiteral("--log-size"),
                   QString::number(LOG_SIZE), QStringLiteral("--link-rate"), QString::number(LINK_RATE),
                   QStringLiteral("--loss"), QString::number(lossPercent)});
    if (port == 0)
        return std::nullopt;
    CLmUasProvide uas(&link, 1, 1);
    CLmMavlinkParser parser;
    QObject::connect(&link, &CLmLinkProvide::bytesReceived, &uas, [&](const QByteArray& bytes) {
        for (const mavlink_message_t& message : parser.Parse(bytes))
            uas.HandleMessage(message);
    });

    CLmLogDownloadController download;
    QEventLoop loop;
    QElapsedTimer clock;
    std::optional<double> seconds;
    QObject::connect(&download, &CLmLogDownloadController::UploadButtonChanged, &loop, [&](bool bEnabled) {
        if (!bEnabled || clock.isValid() || download.Model()->rowCount() == 0)
            return;
        download.Model()->item(0, CLmLogDownloadController::ColumnSelection)->setCheckState(Qt::Checked);
        download.getSelectedLogs();
        clock.start();
        download.triggerNextDownloadRequest();
    });
    QObject::connect(&download, &CLmLogDownloadController::LogDownloadFinished, &loop, [&] {
        const double elapsed = static_cast<double>(clock.nsecsElapsed()) / 1e9;
        if (download.Waiting().size() == 1 && MatchesAircraft(download.Waiting().first().first))
            seconds = elapsed;
        loop.quit();
    });
    // The list is asked for once the aircraft's first heartbeat shows it
    // listens to this ground station.
    QTimer::singleShot(1000, &loop, [&] { download.setActiveUAS(&uas); });
    QTimer::singleShot(GIVE_UP_MS, &loop, &QEventLoop::quit);
    loop.exec();
    aircraft.terminate();
    aircraft.waitForFinished(5000);
    return seconds;
}

}  // namespace

int main(int argc, char* argv[])
{
    QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toUtf8());
    QCoreApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("sky.*=false"));  // keep the figures alone on the terminal
    const double ceiling = LINK_RATE * BLOCK / FRAME;
    int status = 0;
    for (const SRun& run : {SRun{0.0, 95.0}, SRun{2.0, 85.0}}) {
        const std::optional<double> seconds = DownloadSeconds(run.lossPercent);
        if (!seconds) {
            std::fprintf(stderr, "log_dialog_goodput_57600: download at %g %% loss failed\n", run.lossPercent);
            status = 1;
            continue;
        }
        std::printf("log_dialog_goodput_57600: %.1f %% of ceiling at %g %% loss (target >= %g %%)\n",
                    100.0 * (LOG_SIZE / *seconds) / ceiling, run.lossPercent, run.targetPercent);
        std::fflush(stdout);
    }
    return status;
}
