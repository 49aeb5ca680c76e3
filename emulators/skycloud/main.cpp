#include "CloudLog.h"
#include "CloudServer.h"
#include "CloudStore.h"
#include "SignalWatcher.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <cstdio>

namespace {

constexpr int kDefaultPort = 18080;

QString DefaultDataDir()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("skycloud"));
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
    parser.addOptions({portOption, dataOption, exposeCodesOption});
    parser.process(app);

    bool portIsNumber = false;
    const uint port = parser.value(portOption).toUInt(&portIsNumber);
    if (!portIsNumber || port > 65535)
        return Fail(QStringLiteral("invalid port %1").arg(parser.value(portOption)));

    CloudStore store(parser.value(dataOption));
    QString error;
    if (!store.Open(&error))
        return Fail(error);

    CloudServer server(store, parser.isSet(exposeCodesOption));
    const int boundPort = server.Bind(static_cast<int>(port));
    if (boundPort < 0)
        return Fail(QStringLiteral("cannot listen on 127.0.0.1:%1").arg(port));

    std::printf("skycloud listening on http://127.0.0.1:%d\n", boundPort);
    std::fflush(stdout);
    qCInfo(lcSkyCloud).noquote() << "data folder" << parser.value(dataOption);

    signalWatcher.Start([&server] { server.Stop(); });
    const bool served = server.Run();
    qCInfo(lcSkyCloud) << "stopped";
    return served ? 0 : 1;
}
