// Firmware package upload to the skysim aircraft over loopback UDP at
// 5,760 B/s each way (a 57,600 baud radio), through the link library's file
// transfer client and firmware upgrade: the package bytes over the time from
// the manifest to the aircraft's answer that the package matched it (so a
// corrupt upload counts as a failure), as a share of the protocol ceiling,
// the link rate times the share of package bytes in a full WriteFile frame.
// Once without loss and once with 2 % of the frames lost in each direction.
// An optional argument sets the package size (default 2 MiB).
#include "BenchSkySim.h"
#include "CLmFirmwareUpgrade.h"
#include "CLmFtpPayload.h"
#include "CLmMavlinkEncoder.h"
#include "CLmMavlinkParser.h"
#include "CLmUasProvide.h"
#include "CLmUdpLink.h"
#include "LmMavlinkMessages.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLoggingCategory>
#include <QTimer>

#include <cstdio>

using namespace LmMavlink;

namespace {

constexpr double LINK_RATE = 5760.0; // bytes per second
constexpr int DEFAULT_PACKAGE_SIZE = 2 * 1024 * 1024;

double WriteFrameBytes()
{
    SFileTransferProtocol message;
    CLmFtpPayload write;
    write.opcode = MAV_FTP_OPCODE_WRITEFILE;
    write.data = QByteArray(CLmFtpPayload::MAX_DATA, '\x5a'); // no zero trimming of the payload
    write.WriteTo(message.payload);
    return CLmMavlinkEncoder(1, 1).Encode(message).size();
}

QByteArray Package(int size)
{
    QByteArray package(size, '\0');
    for (int i = 0; i < size; ++i)
        package[i] = static_cast<char>((i * 197 + i / 4093) & 0xff);
    return package;
}

// Seconds from the manifest to the aircraft accepting the package; 0 when it failed.
double UploadSeconds(const QByteArray& package, double lossPercent)
{
    CLmUdpLink link(1, 0);
    link.Connect();
    QProcess aircraft;
    const quint16 port = BenchSkySim::Start(
        aircraft, {QStringLiteral("--udp"), QStringLiteral("127.0.0.1:%1").arg(link.GetLocalPort()),
                   QStringLiteral("--link-rate"), QString::number(LINK_RATE), QStringLiteral("--loss"),
                   QString::number(lossPercent)});
    if (port == 0) {
        std::fprintf(stderr, "firmware_upload_goodput: skysim did not start\n");
        return 0;
    }
    CLmUasProvide uas(&link, 1, 1);
    CLmMavlinkParser parser;
    CLmFirmwareUpgrade upgrade(&uas);
    QEventLoop loop;
    QElapsedTimer clock;
    double seconds = 0;
    QObject::connect(&link, &CLmLinkProvide::bytesReceived, &uas, [&](const QByteArray& bytes) {
        for (const mavlink_message_t& message : parser.Parse(bytes)) {
            uas.HandleMessage(message);
            if (!clock.isValid()) {
                clock.start();
                upgrade.Start(package, QStringLiteral("9.9.9"), QStringLiteral("bench.bin"),
                              QCryptographicHash::hash(package, QCryptographicHash::Sha256));
            }
        }
    });
    QObject::connect(&upgrade, &CLmFirmwareUpgrade::Installing, &loop, [&] {
        seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
        loop.quit();
    });
    QObject::connect(&upgrade, &CLmFirmwareUpgrade::Failed, &loop, &QEventLoop::quit);
    QTimer::singleShot(static_cast<int>(package.size() / LINK_RATE * 4000) + 30000, &loop, &QEventLoop::quit);
    loop.exec();
    aircraft.terminate();
    aircraft.waitForFinished(5000);
    if (seconds == 0)
        std::fprintf(stderr, "firmware_upload_goodput: upload at %.0f %% loss did not complete\n", lossPercent);
    return seconds;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("sky.*=false")); // keep the figures alone on the terminal
    const int size = argc > 1 ? QByteArray(argv[1]).toInt() : DEFAULT_PACKAGE_SIZE;
    const QByteArray package = Package(size > 0 ? size : DEFAULT_PACKAGE_SIZE);
    const double ceiling = LINK_RATE * CLmFtpPayload::MAX_DATA / WriteFrameBytes();

    const struct {
        const char* name;
        double lossPercent;
        double target;
    } conditions[] = {{"firmware_upload_goodput_57600", 0.0, 90.0},
                      {"firmware_upload_goodput_57600_loss2", 2.0, 75.0}};
    int status = 0;
    for (const auto& condition : conditions) {
        const double seconds = UploadSeconds(package, condition.lossPercent);
        if (seconds == 0) {
            status = 1;
            continue;
        }
        const double rate = package.size() / seconds;
        std::printf("%s: %.1f %% of ceiling (%.0f B/s of %.0f B/s at %.0f %% loss; target >= %.0f %%)\n",
                    condition.name, 100.0 * rate / ceiling, rate, ceiling, condition.lossPercent, condition.target);
        std::fflush(stdout);
    }
    return status;
}
