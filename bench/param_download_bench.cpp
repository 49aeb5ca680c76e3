// Parameter download of 1,000 parameters from the skysim emulator over
// loopback UDP at 5,760 B/s (a 57,600 baud radio), through the link library's
// CLmParameterDownload: the time until all are in hand as a share of the
// protocol ceiling, the air time of 1,000 PARAM_VALUE frames at that rate.
#include "BenchSkySim.h"
#include "CLmMavlinkEncoder.h"
#include "CLmMavlinkParser.h"
#include "CLmUasProvide.h"
#include "CLmUdpLink.h"
#include "LmMavlinkMessages.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLoggingCategory>
#include <QTimer>

#include <cstdio>
#include <optional>

using namespace LmMavlink;

namespace {

constexpr int PARAMETERS = 1000;
constexpr double LINK_RATE = 5760.0; // bytes per second
constexpr int GIVE_UP_MS = 120000;

struct SRun {
    double lossPercent;
    double targetPercent;
};

double ParamValueFrameBytes()
{
    SParamValue value;
    value.param_type = MAV_PARAM_TYPE_REAL32;
    return CLmMavlinkEncoder(1, 1).Encode(value).size();
}

// Seconds from the download request until every parameter is in hand;
// nothing when skysim does not start or the download fails.
std::optional<double> DownloadSeconds(double lossPercent)
{
    CLmUdpLink link(1, 0);
    link.Connect();
    QProcess aircraft;
    const quint16 port = BenchSkySim::Start(
        aircraft, {QStringLiteral("--udp"), QStringLiteral("127.0.0.1:%1").arg(link.GetLocalPort()),
                   QStringLiteral("--params"), QString::number(PARAMETERS), QStringLiteral("--link-rate"),
                   QString::number(LINK_RATE), QStringLiteral("--loss"), QString::number(lossPercent)});
    if (port == 0)
        return std::nullopt;

    CLmUasProvide uas(&link, 1, 1);
    CLmMavlinkParser parser;
    QEventLoop loop;
    QElapsedTimer clock;
    std::optional<double> seconds;
    QObject::connect(&link, &CLmLinkProvide::bytesReceived, &uas, [&](const QByteArray& bytes) {
        for (const mavlink_message_t& message : parser.Parse(bytes)) {
            const bool bFirstHeartbeat = message.msgid == MSG_ID_HEARTBEAT && !clock.isValid();
            uas.HandleMessage(message);
            if (bFirstHeartbeat) {
                clock.start();
                uas.DownloadParameters();
            }
        }
    });
    QObject::connect(&uas, &CLmUasProvide::ParametersLoaded, &loop, [&](const QList<SLmParameter>& parameters) {
        if (parameters.size() == PARAMETERS)
            seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
        loop.quit();
    });
    QObject::connect(&uas, &CLmUasProvide::ParameterDownloadFailed, &loop, &QEventLoop::quit);
    QTimer::singleShot(GIVE_UP_MS, &loop, &QEventLoop::quit);
    loop.exec();
    aircraft.terminate();
    aircraft.waitForFinished(5000);
    return seconds;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("sky.*=false")); // keep the figures alone on the terminal
    const double ceilingSeconds = PARAMETERS * ParamValueFrameBytes() / LINK_RATE;
    int status = 0;
    for (const SRun& run : {SRun{0.0, 110.0}, SRun{2.0, 130.0}}) {
        const std::optional<double> seconds = DownloadSeconds(run.lossPercent);
        if (!seconds) {
            std::fprintf(stderr, "param_download_1000_57600: download at %g %% loss failed\n", run.lossPercent);
            status = 1;
            continue;
        }
        std::printf("param_download_1000_57600: %.1f %% of ceiling at %g %% loss (target <= %g %%)\n",
                    100.0 * *seconds / ceilingSeconds, run.lossPercent, run.targetPercent);
        std::fflush(stdout);
    }
    return status;
}
