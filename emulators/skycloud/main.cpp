#include "CloudLog.h"
#include "CloudServer.h"
#include "CloudStore.h"
#include "DemoSeeder.h"
#include "FaultReportEndpoints.h"
#include "FaultReportStore.h"
#include "FlightEndpoints.h"
#include "FlightStore.h"
#include "LogStorageEndpoints.h"
#include "LogStorageStore.h"
#include "NoflyZoneEndpoints.h"
#include "NoflyZoneStore.h"
#include "LicenceEndpoints.h"
#include "LicenceStore.h"
#include "ProjectEndpoints.h"
#include "ProjectStore.h"
#include "PushChannel.h"
#include "ReleaseShelf.h"
#include "ShareEndpoints.h"
#include "ShareStore.h"
#include "SignalWatcher.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <chrono>
#include <cstdio>
#include <memory>

namespace {

constexpr int kDefaultPort = 18080;
constexpr int kDefaultPushPort = 18081;
constexpr size_t kFileBodyLimit = 256 * 1024 * 1024;
// Busy requests get this long to finish after SIGTERM or SIGINT.
constexpr std::chrono::milliseconds kStopGrace{900};

QString DefaultDataDir()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("skycloud"));
}

// A port option's value, or -1 when it is not a port number.
int PortValue(const QString& text)
{
    bool isNumber = false;
    const uint port = text.toUInt(&isNumber);
    return isNumber && port <= 65535 ? static_cast<int>(port) : -1;
}

int Fail(const QString& message)
{
    std::fprintf(stderr, "skycloud: %s\n", qPrintable(message));
    return 1;
}

}  // namespace

int main(int argc, char* argv[])
{
    SignalWatcher signalWatcher;
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("skycloud"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Local emulation of the SkyConsole cloud service."));
    parser.addHelpOption();
    const QCommandLineOption portOption(
        QStringLiteral("port"),
        QStringLiteral("TCP port on 127.0.0.1; 0 picks a free one (default %1).").arg(kDefaultPort),
        QStringLiteral("N"), QString::number(kDefaultPort));
    const QCommandLineOption dataOption(QStringLiteral("data"),
                                        QStringLiteral("Folder of the persistent state (default %1).").arg(DefaultDataDir()),
                                        QStringLiteral("DIR"), DefaultDataDir());
    const QCommandLineOption exposeCodesOption(
        QStringLiteral("expose-codes"),
        QStringLiteral("Also return verification codes in data.validate_hint (for tests)."));
    const QCommandLineOption pushPortOption(
        QStringLiteral("push-port"),
        QStringLiteral("TCP port of the push channel on 127.0.0.1; 0 picks a free one (default %1, or a free one "
                       "when --port is 0).")
            .arg(kDefaultPushPort),
        QStringLiteral("N"));
    const QCommandLineOption offerUpdatesOption(
        QStringLiteral("offer-updates"),
        QStringLiteral("Seed a new data folder with application and launcher releases newer than this build, so "
                       "the hub offers its updates (otherwise they match this build)."));
    const QCommandLineOption sliceSizeOption(
        QStringLiteral("slice-size"),
        QStringLiteral("Slice size the log storage asks uploads for (default %1).")
            .arg(LogStorageStore::DefaultSliceSize),
        QStringLiteral("BYTES"), QString::number(LogStorageStore::DefaultSliceSize));
    parser.addOption(sliceSizeOption);
    parser.addOptions({portOption, pushPortOption, dataOption, exposeCodesOption, offerUpdatesOption});
    parser.process(app);

    const int port = PortValue(parser.value(portOption));
    if (port < 0)
        return Fail(QStringLiteral("invalid port %1").arg(parser.value(portOption)));
    const QString pushPortText =
        parser.isSet(pushPortOption) ? parser.value(pushPortOption) : QString::number(port == 0 ? 0 : kDefaultPushPort);
    const int pushPort = PortValue(pushPortText);
    if (pushPort < 0)
        return Fail(QStringLiteral("invalid push port %1").arg(pushPortText));

    CloudStore store(parser.value(dataOption));
    QString error;
    if (!store.Open(&error))
        return Fail(error);

    ReleaseShelf shelf(parser.value(dataOption), QStringLiteral(SKYCONSOLE_VERSION), parser.isSet(offerUpdatesOption));
    if (!shelf.Open(&error))
        return Fail(error);

    ProjectStore projects(parser.value(dataOption));
    if (!projects.Open(&error))
        return Fail(error);

    FlightStore flights(parser.value(dataOption));
    if (!flights.Open(&error))
        return Fail(error);
    if (projects.IsNew())
        DemoSeeder(projects, flights).Seed();

    ShareStore shares(parser.value(dataOption));
    if (!shares.Open(&error))
        return Fail(error);

    const qint64 sliceSize = parser.value(sliceSizeOption).toLongLong();
    if (sliceSize <= 0)
        return Fail(QStringLiteral("invalid slice size %1").arg(parser.value(sliceSizeOption)));
    LogStorageStore logStorage(parser.value(dataOption), sliceSize);
    if (!logStorage.Open(&error))
        return Fail(error);
    FaultReportStore faultReports(parser.value(dataOption));
    NoflyZoneStore noflyZones(parser.value(dataOption));
    if (!noflyZones.Open(&error))
        return Fail(error);
    LicenceStore licences(parser.value(dataOption));
    if (!licences.Open(&error))
        return Fail(error);

    PushChannel channel(store);
    CloudServer server(store, channel, shelf, parser.isSet(exposeCodesOption));
    server.AddGroup(std::make_unique<ProjectEndpoints>(store, projects));
    server.AddGroup(std::make_unique<FlightEndpoints>(store, flights));
    server.AddGroup(std::make_unique<ShareEndpoints>(store, projects, shares, channel));
    server.AddGroup(std::make_unique<LogStorageEndpoints>(store, logStorage));
    server.AddGroup(std::make_unique<FaultReportEndpoints>(store, faultReports));
    // Request bodies: CloudServer::DefaultBodyLimit (1 MB) but where files and logs arrive.
    server.AllowLargeBody("/project/upload", kFileBodyLimit);
    server.AllowLargeBody("/flight/upload", kFileBodyLimit);
    server.AllowLargeBodyUnder(LogStorageEndpoints::UploadPrefix, kFileBodyLimit,
                               [&logStorage](const httplib::Request& req, httplib::Response& res) {
                                   return LogStorageEndpoints::AdmitUploader(logStorage, req, res);
                               });
    server.AddGroup(std::make_unique<NoflyZoneEndpoints>(store, noflyZones));
    server.AddGroup(std::make_unique<LicenceEndpoints>(store, licences));
    const int boundPort = server.Bind(port);
    if (boundPort < 0)
        return Fail(QStringLiteral("cannot listen on 127.0.0.1:%1").arg(port));
    const int boundPushPort = channel.Start(pushPort);
    if (boundPushPort < 0)
        return Fail(QStringLiteral("cannot listen on 127.0.0.1:%1 for the push channel").arg(pushPort));

    std::printf("skycloud listening on http://127.0.0.1:%d\n", boundPort);
    std::printf("skycloud push on 127.0.0.1:%d\n", boundPushPort);
    std::fflush(stdout);
    qCInfo(lcSkyCloud).noquote() << "data folder" << parser.value(dataOption);

    signalWatcher.Start([&server] { server.Stop(); }, kStopGrace);
    const bool served = server.Run();
    signalWatcher.Finished();
    qCInfo(lcSkyCloud) << "stopped";
    return served ? 0 : 1;
}
