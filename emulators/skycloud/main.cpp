#include "CloudLog.h"
#include "CloudServer.h"
#include "CloudStore.h"
#include "DemoSeeder.h"
#include "FlightEndpoints.h"
#include "FlightStore.h"
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

#include <cstdio>
#include <memory>

namespace {

constexpr int kDefaultPort = 18080;
constexpr int kDefaultPushPort = 18081;

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

    LicenceStore licences(parser.value(dataOption));
    if (!licences.Open(&error))
        return Fail(error);

    PushChannel channel(store);
    CloudServer server(store, channel, shelf, parser.isSet(exposeCodesOption));
    server.AddGroup(std::make_unique<ProjectEndpoints>(store, projects));
    server.AddGroup(std::make_unique<FlightEndpoints>(store, flights));
    server.AddGroup(std::make_unique<ShareEndpoints>(store, projects, shares, channel));
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

    signalWatcher.Start([&server] { server.Stop(); });
    const bool served = server.Run();
    qCInfo(lcSkyCloud) << "stopped";
    return served ? 0 : 1;
}
