// skybase: an emulated GNSS RTK base station. Control sentences and GGA
// reports on a TCP port, raw static files over FTP (pyftpdlib as a child),
// NTRIP source tables and logins against a real caster.
#include "BaseControlServer.h"
#include "BaseLog.h"
#include "BaseOptions.h"
#include "BaseStation.h"
#include "FtpServerProcess.h"
#include "SimStopSignals.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QHostAddress>

#include <cstdio>
#include <optional>

namespace {

struct SOptionSet {
    QCommandLineOption port{QStringLiteral("port"), QStringLiteral("Control port (default 18060; 0: a free one)."),
                            QStringLiteral("N"), QStringLiteral("18060")};
    QCommandLineOption ftpPort{QStringLiteral("ftp-port"), QStringLiteral("FTP port (default 18061; 0: a free one)."),
                               QStringLiteral("M"), QStringLiteral("18061")};
    QCommandLineOption listen{QStringLiteral("listen"), QStringLiteral("Address to listen on (default 127.0.0.1)."),
                              QStringLiteral("ADDRESS"), QStringLiteral("127.0.0.1")};
    QCommandLineOption data{QStringLiteral("data"),
                            QStringLiteral("Folder of the settings and static files (created when missing)."),
                            QStringLiteral("DIR")};
    QCommandLineOption storage{QStringLiteral("storage"), QStringLiteral("Storage capacity (default 8589934592)."),
                               QStringLiteral("BYTES"), QStringLiteral("8589934592")};
    QCommandLineOption epochBytes{QStringLiteral("epoch-bytes"),
                                  QStringLiteral("Raw data per epoch (default 1200; one epoch per Hz each second)."),
                                  QStringLiteral("BYTES"), QStringLiteral("1200")};
    QCommandLineOption noFix{QStringLiteral("no-fix"), QStringLiteral("The receiver has no position.")};
    QCommandLineOption dropOn{QStringLiteral("drop-on"),
                              QStringLiteral("Close the connection instead of answering this operation."),
                              QStringLiteral("OPERATION")};
    QCommandLineOption serialNumber{QStringLiteral("serial-number"), QStringLiteral("Serial number."),
                                    QStringLiteral("SN"), QStringLiteral("SKB2611000123")};
    QCommandLineOption battery{QStringLiteral("battery"), QStringLiteral("Battery charge (default 87)."),
                               QStringLiteral("PERCENT"), QStringLiteral("87")};

    QList<QCommandLineOption> all() const
    {
        return {port, ftpPort, listen, data, storage, epochBytes, noFix, dropOn, serialNumber, battery};
    }
};

std::optional<qulonglong> number(const QCommandLineParser& parser, const QCommandLineOption& option,
                                 qulonglong minimum, qulonglong maximum)
{
    bool ok = false;
    const qulonglong value = parser.value(option).toULongLong(&ok);
    if (ok && value >= minimum && value <= maximum)
        return value;
    std::fprintf(stderr, "skybase: --%s must be a number from %llu to %llu\n",
                 qPrintable(option.names().constFirst()), minimum, maximum);
    return std::nullopt;
}

std::optional<BaseOptions> parse(const QCommandLineParser& parser, const SOptionSet& set)
{
    BaseOptions options;
    const auto port = number(parser, set.port, 0, 65535);
    const auto ftpPort = number(parser, set.ftpPort, 0, 65535);
    const auto storage = number(parser, set.storage, 0, 1ull << 50);
    const auto epochBytes = number(parser, set.epochBytes, 64, 1 << 20);
    const auto battery = number(parser, set.battery, 0, 100);
    if (!port || !ftpPort || !storage || !epochBytes || !battery)
        return std::nullopt;
    if (!parser.isSet(set.data) || QHostAddress(parser.value(set.listen)).isNull()) {
        std::fprintf(stderr, "skybase: give --data DIR and a numeric --listen address (see --help)\n");
        return std::nullopt;
    }
    options.controlPort = static_cast<quint16>(*port);
    options.ftpPort = static_cast<quint16>(*ftpPort);
    options.storageBytes = *storage;
    options.epochBytes = static_cast<int>(*epochBytes);
    options.battery = static_cast<int>(*battery);
    options.listenAddress = parser.value(set.listen);
    options.dataDir = QDir(parser.value(set.data)).absolutePath();
    options.noFix = parser.isSet(set.noFix);
    options.dropOn = parser.value(set.dropOn).toLatin1();
    options.serialNumber = parser.value(set.serialNumber);
    return options;
}

}  // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("skybase"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Emulated GNSS RTK base station."));
    parser.addHelpOption();
    const SOptionSet set;
    parser.addOptions(set.all());
    parser.process(app);
    const std::optional<BaseOptions> options = parse(parser, set);
    if (!options)
        return 2;
    if (!QDir().mkpath(options->dataDir)) {
        std::fprintf(stderr, "skybase: cannot create %s\n", qPrintable(options->dataDir));
        return 1;
    }

    BaseStation station(*options);
    FtpServerProcess ftp;
    if (!ftp.StartServing(options->listenAddress, options->ftpPort, station.FtpRoot())) {
        std::fprintf(stderr, "skybase: the FTP server (/usr/bin/python3 -m pyftpdlib) did not start\n");
        return 1;
    }
    BaseControlServer control(station, options->dropOn);
    if (!control.Listen(QHostAddress(options->listenAddress), options->controlPort)) {
        std::fprintf(stderr, "skybase: cannot listen on port %u: %s\n", options->controlPort,
                     qPrintable(control.ErrorString()));
        return 1;
    }
    std::printf("skybase listening on control %s:%u ftp %s:%u\n", qPrintable(options->listenAddress),
                control.Port(), qPrintable(options->listenAddress), ftp.Port());
    std::fflush(stdout);

    SimStopSignals stop;
    QObject::connect(&stop, &SimStopSignals::stopRequested, &app, &QCoreApplication::quit);
    QObject::connect(&ftp, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &app, [] {
        qCCritical(lcSkyBase) << "the FTP server ended";
        QCoreApplication::exit(1);
    });
    return app.exec();
}
