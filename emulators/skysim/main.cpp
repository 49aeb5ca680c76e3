// skysim: an emulated survey aircraft (fixed-wing or multirotor) speaking
// MAVLink 2 over UDP or a serial line, with failure switches for tests.
#include "SimConsole.h"
#include "SimLicenceKey.h"
#include "SimLog.h"
#include "SimOptions.h"
#include "SimSerialTransport.h"
#include "SimStopSignals.h"
#include "SimUdpTransport.h"
#include "SimVehicle.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QHostAddress>

#include <cstdio>
#include <memory>
#include <optional>

namespace {

struct SOptionSet {
    QCommandLineOption type{QStringLiteral("type"), QStringLiteral("Airframe: fixedwing or multirotor (default fixedwing)."),
                            QStringLiteral("KIND"), QStringLiteral("fixedwing")};
    QCommandLineOption udp{QStringLiteral("udp"), QStringLiteral("Send to the ground station at HOST:PORT over UDP."),
                           QStringLiteral("HOST:PORT")};
    QCommandLineOption bind{QStringLiteral("bind"),
                            QStringLiteral("Local UDP port on 127.0.0.1 (default 0: a free one)."),
                            QStringLiteral("PORT"), QStringLiteral("0")};
    QCommandLineOption serial{QStringLiteral("serial"), QStringLiteral("Use the serial device instead of UDP."),
                              QStringLiteral("DEVICE")};
    QCommandLineOption baud{QStringLiteral("baud"), QStringLiteral("Serial baud rate (default 57600)."),
                            QStringLiteral("RATE"), QStringLiteral("57600")};
    QCommandLineOption sysid{QStringLiteral("sysid"), QStringLiteral("MAVLink system id (default 1)."),
                             QStringLiteral("ID"), QStringLiteral("1")};
    QCommandLineOption firmware{QStringLiteral("firmware"), QStringLiteral("Firmware version (default 2.4.1)."),
                                QStringLiteral("X.Y.Z"), QStringLiteral("2.4.1")};
    QCommandLineOption statusRate{QStringLiteral("status-rate"),
                                  QStringLiteral("Status stream rate when a request asks for the default (default 1)."),
                                  QStringLiteral("HZ"), QStringLiteral("1")};
    QCommandLineOption parachuteCount{QStringLiteral("parachute-count"),
                                      QStringLiteral("Parachute deployments so far (default 0)."),
                                      QStringLiteral("N"), QStringLiteral("0")};
    QCommandLineOption logs{QStringLiteral("logs"), QStringLiteral("Number of onboard logs (default 3)."),
                            QStringLiteral("N"), QStringLiteral("3")};
    QCommandLineOption logSize{QStringLiteral("log-size"), QStringLiteral("Size of each log (default 100000)."),
                               QStringLiteral("BYTES"), QStringLiteral("100000")};
    QCommandLineOption rawFolders{QStringLiteral("raw-folders"),
                                  QStringLiteral("GNSS receiver raw-data folders (default 2)."), QStringLiteral("N"),
                                  QStringLiteral("2")};
    QCommandLineOption rawEntries{QStringLiteral("raw-entries"),
                                  QStringLiteral("Entries per raw-data folder, 1 to 255 (default 3)."),
                                  QStringLiteral("N"), QStringLiteral("3")};
    QCommandLineOption rawEntrySize{QStringLiteral("raw-entry-size"),
                                    QStringLiteral("Size of each raw-data entry (default 20000)."),
                                    QStringLiteral("BYTES"), QStringLiteral("20000")};
    QCommandLineOption rawFirstTime{QStringLiteral("raw-first-time"),
                                    QStringLiteral("Recording time of folder 1, seconds since 1970 UTC "
                                                   "(default 1714550400); the next ones an hour apart."),
                                    QStringLiteral("SECONDS"), QStringLiteral("1714550400")};
    QCommandLineOption linkRate{QStringLiteral("link-rate"),
                                QStringLiteral("Pace all output to this rate (default 0: unlimited)."),
                                QStringLiteral("BYTES_PER_S"), QStringLiteral("0")};
    QCommandLineOption loss{QStringLiteral("loss"), QStringLiteral("Drop this share of outgoing packets (default 0)."),
                            QStringLiteral("PERCENT"), QStringLiteral("0")};
    QCommandLineOption seed{QStringLiteral("seed"), QStringLiteral("Seed of the packet loss (default 1)."),
                            QStringLiteral("N"), QStringLiteral("1")};
    QCommandLineOption noAck{QStringLiteral("no-ack"), QStringLiteral("Carry out commands but never send COMMAND_ACK.")};
    QCommandLineOption ackOnRetry{QStringLiteral("ack-on-retry"),
                                  QStringLiteral("Ignore the first copy of each command; answer its retry.")};
    QCommandLineOption silentAfter{QStringLiteral("silent-after"),
                                   QStringLiteral("Stop sending heartbeats after this many seconds."),
                                   QStringLiteral("SECONDS")};
    QCommandLineOption silentFor{QStringLiteral("silent-for"),
                                 QStringLiteral("Resume heartbeats after this long a silence (default: never)."),
                                 QStringLiteral("SECONDS")};
    QCommandLineOption batteries{QStringLiteral("batteries"),
                                 QStringLiteral("Number of batteries, 1 to 3 (default: fixed-wing 1, multirotor 2)."),
                                 QStringLiteral("N"), QStringLiteral("0")};
    QCommandLineOption cells{QStringLiteral("cells"),
                             QStringLiteral("Cells per battery, one number for all or one per battery (e.g. 6,6,12)."),
                             QStringLiteral("LIST")};
    QCommandLineOption lowCell{QStringLiteral("low-cell"),
                               QStringLiteral("Cell CELL of battery BATTERY (both from 0) reads MV (default 3300); "
                                              "repeatable."),
                               QStringLiteral("BATTERY:CELL[:MV]")};
    QCommandLineOption missingBattery{QStringLiteral("missing-battery"),
                                      QStringLiteral("Battery ID (from 0) does not answer; repeatable."),
                                      QStringLiteral("ID")};
    QCommandLineOption failureCodes{QStringLiteral("failure-codes"),
                                    QStringLiteral("Active failure codes 0..127 of the multirotor (e.g. 7,45)."),
                                    QStringLiteral("LIST")};
    QCommandLineOption params{QStringLiteral("params"),
                              QStringLiteral("Fill the parameter table up to N parameters (default: its own ~360)."),
                              QStringLiteral("N"), QStringLiteral("0")};
    QCommandLineOption licenceKey{QStringLiteral("licence-key"),
                                  QStringLiteral("The cloud's public licence key (64 hexadecimal digits); licences "
                                                 "are then checked and kept (default: a key dongle, no licences)."),
                                  QStringLiteral("HEX")};
    QCommandLineOption licenceCloud{QStringLiteral("licence-cloud"),
                                    QStringLiteral("Fetch the public licence key from this cloud at start "
                                                   "(e.g. http://127.0.0.1:18080)."),
                                    QStringLiteral("URL")};

    QCommandLineOption armed{QStringLiteral("armed"),
                             QStringLiteral("The aircraft is armed and in the air: firmware upgrades are refused.")};
    QCommandLineOption ftpLoseLastReply{
        QStringLiteral("ftp-lose-last-reply"),
        QStringLiteral("Lose the reply to the write that completes a firmware package, once.")};
    QList<QCommandLineOption> all() const
    {
        return {type, udp, bind, serial, baud, sysid, firmware, statusRate, parachuteCount, logs, logSize,
                linkRate, loss, seed, noAck, ackOnRetry, silentAfter, silentFor, batteries, cells, lowCell,
                missingBattery, failureCodes, params, rawFolders, rawEntries, rawEntrySize, rawFirstTime,
                armed, ftpLoseLastReply, licenceKey, licenceCloud};
    }
};

// Reads the option as a number within [minimum, maximum]; reports and fails otherwise.
std::optional<double> number(const QCommandLineParser& parser, const QCommandLineOption& option, double minimum,
                             double maximum)
{
    bool ok = false;
    const QString text = parser.value(option);
    const double value = text.toDouble(&ok);
    if (ok && value >= minimum && value <= maximum)
        return value;
    std::fprintf(stderr, "skysim: --%s must be a number from %g to %g, not \"%s\"\n",
                 qPrintable(option.names().constFirst()), minimum, maximum, qPrintable(text));
    return std::nullopt;
}

bool parseEndpoint(const QString& text, SimOptions& options)
{
    const int colon = text.lastIndexOf(QLatin1Char(':'));
    bool ok = false;
    const uint port = text.mid(colon + 1).toUInt(&ok);
    if (colon <= 0 || !ok || port == 0 || port > 65535 || QHostAddress(text.left(colon)).isNull()) {
        std::fprintf(stderr, "skysim: --udp wants HOST:PORT with a numeric address, not \"%s\"\n", qPrintable(text));
        return false;
    }
    options.udpHost = text.left(colon);
    options.udpPort = static_cast<uint16_t>(port);
    return true;
}

bool parseAirframe(const QString& text, SimOptions& options)
{
    if (text == QLatin1String("fixedwing") || text == QLatin1String("multirotor")) {
        options.airframe = text == QLatin1String("fixedwing") ? SimAirframe::FixedWing : SimAirframe::Multirotor;
        return true;
    }
    std::fprintf(stderr, "skysim: --type must be fixedwing or multirotor, not \"%s\"\n", qPrintable(text));
    return false;
}

bool parseLink(const QCommandLineParser& parser, const SOptionSet& set, SimOptions& options)
{
    if (parser.isSet(set.udp) == parser.isSet(set.serial)) {
        std::fprintf(stderr, "skysim: give exactly one of --udp HOST:PORT and --serial DEVICE (see --help)\n");
        return false;
    }
    const auto bind = number(parser, set.bind, 0, 65535);
    const auto baud = number(parser, set.baud, 50, 4000000);
    if (!bind || !baud)
        return false;
    options.bindPort = static_cast<uint16_t>(*bind);
    options.baudRate = static_cast<int>(*baud);
    options.serialDevice = parser.value(set.serial);
    return !parser.isSet(set.udp) || parseEndpoint(parser.value(set.udp), options);
}

bool parseNumbers(const QCommandLineParser& parser, const SOptionSet& set, SimOptions& options)
{
    const auto sysid = number(parser, set.sysid, 1, 255);
    const auto statusRate = number(parser, set.statusRate, 0.01, 1000);
    const auto parachuteCount = number(parser, set.parachuteCount, 0, 1e9);
    const auto logs = number(parser, set.logs, 0, 65535);
    const auto logSize = number(parser, set.logSize, 0, 4e9);
    const auto linkRate = number(parser, set.linkRate, 0, 1e9);
    const auto loss = number(parser, set.loss, 0, 100);
    const auto seed = number(parser, set.seed, 0, 4294967295.0);
    if (!sysid || !statusRate || !parachuteCount || !logs || !logSize || !linkRate || !loss || !seed)
        return false;
    options.systemId = static_cast<uint8_t>(*sysid);
    options.statusRateHz = *statusRate;
    options.parachuteCount = static_cast<uint32_t>(*parachuteCount);
    options.logCount = static_cast<int>(*logs);
    options.logSize = static_cast<uint32_t>(*logSize);
    options.linkRate = *linkRate;
    options.lossPercent = *loss;
    options.seed = static_cast<uint32_t>(*seed);
    return true;
}

bool parseRawData(const QCommandLineParser& parser, const SOptionSet& set, SimOptions& options)
{
    const auto folders = number(parser, set.rawFolders, 0, 65534);
    const auto entries = number(parser, set.rawEntries, 1, 255);
    const auto entrySize = number(parser, set.rawEntrySize, 0, 16e6); // 255 entries still fit a 32-bit folder size
    const auto firstTime = number(parser, set.rawFirstTime, 0, 4e9);
    if (!folders || !entries || !entrySize || !firstTime)
        return false;
    options.rawFolders = static_cast<int>(*folders);
    options.rawEntries = static_cast<int>(*entries);
    options.rawEntrySize = static_cast<uint32_t>(*entrySize);
    options.rawFirstTimeUtc = static_cast<uint32_t>(*firstTime);
    return true;
}

bool parseSilence(const QCommandLineParser& parser, const SOptionSet& set, SimOptions& options)
{
    for (const auto& [option, target] : {std::pair{&set.silentAfter, &options.silentAfterS},
                                         std::pair{&set.silentFor, &options.silentForS}}) {
        if (!parser.isSet(*option))
            continue;
        const auto seconds = number(parser, *option, 0, 1e6);
        if (!seconds)
            return false;
        *target = *seconds;
    }
    return true;
}

constexpr int MAX_BATTERIES = 3;
constexpr int MAX_CELLS = 14; // BATTERY_STATUS: 10 cells in voltages, 4 in voltages_ext
constexpr int DEFAULT_LOW_CELL_MV = 3300;

bool reportBad(const char* option, const QString& text, const char* wanted)
{
    std::fprintf(stderr, "skysim: --%s wants %s, not \"%s\"\n", option, wanted, qPrintable(text));
    return false;
}

// "a,b,c" as whole numbers within [minimum, maximum].
std::optional<QVector<int>> numberList(const QString& text, int minimum, int maximum)
{
    QVector<int> values;
    for (const QString& item : text.split(QLatin1Char(','))) {
        bool ok = false;
        const int value = item.toInt(&ok);
        if (!ok || value < minimum || value > maximum)
            return std::nullopt;
        values << value;
    }
    return values;
}

bool parseLowCell(const QString& text, SimOptions& options)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    const auto numbers = numberList(parts.join(QLatin1Char(',')), 0, 65534);
    if (parts.size() < 2 || parts.size() > 3 || !numbers || numbers->at(0) >= MAX_BATTERIES
        || numbers->at(1) >= MAX_CELLS)
        return reportBad("low-cell", text, "BATTERY:CELL[:MV] with battery 0..2 and cell 0..13");
    options.lowCells << SimLowCell{numbers->at(0), numbers->at(1),
                                   static_cast<uint16_t>(parts.size() == 3 ? numbers->at(2) : DEFAULT_LOW_CELL_MV)};
    return true;
}

bool parseBatteries(const QCommandLineParser& parser, const SOptionSet& set, SimOptions& options)
{
    const auto batteries = number(parser, set.batteries, 0, MAX_BATTERIES);
    if (!batteries)
        return false;
    options.batteryCount = static_cast<int>(*batteries);
    if (parser.isSet(set.cells)) {
        const auto cells = numberList(parser.value(set.cells), 1, MAX_CELLS);
        if (!cells)
            return reportBad("cells", parser.value(set.cells), "cell counts 1..14 separated by commas");
        options.cellsPerBattery = *cells;
    }
    for (const QString& text : parser.values(set.lowCell)) {
        if (!parseLowCell(text, options))
            return false;
    }
    for (const QString& text : parser.values(set.missingBattery)) {
        const auto id = numberList(text, 0, MAX_BATTERIES - 1);
        if (!id || id->size() != 1)
            return reportBad("missing-battery", text, "a battery id 0..2");
        options.missingBatteries.insert(id->first());
    }
    return true;
}

bool parseFaultsAndParameters(const QCommandLineParser& parser, const SOptionSet& set, SimOptions& options)
{
    if (parser.isSet(set.failureCodes)
        && !SimConsole::parseFailureCodes(parser.value(set.failureCodes), &options.failureCodes))
        return reportBad("failure-codes", parser.value(set.failureCodes), "codes 0..127 separated by commas");
    const auto params = number(parser, set.params, 0, 65535);
    if (!params)
        return false;
    options.parameterCount = static_cast<int>(*params);
    return true;
}

constexpr int LICENCE_KEY_FETCH_TIMEOUT_MS = 10000;

bool resolveLicenceKey(const QCommandLineParser& parser, const SOptionSet& set, SimOptions& options)
{
    if (!parser.isSet(set.licenceKey) && !parser.isSet(set.licenceCloud))
        return true;
    QString error;
    const std::optional<QByteArray> key =
        parser.isSet(set.licenceKey)
            ? SimLicenceKey::fromHex(parser.value(set.licenceKey), &error)
            : SimLicenceKey::fetch(parser.value(set.licenceCloud), LICENCE_KEY_FETCH_TIMEOUT_MS, &error);
    if (!key) {
        std::fprintf(stderr, "skysim: %s\n", qPrintable(error));
        return false;
    }
    options.licencePublicKey = *key;
    return true;
}

std::optional<SimOptions> parseOptions(const QCoreApplication& app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Emulated survey aircraft speaking MAVLink 2 over UDP or a serial line.\n"
        "Prints \"skysim ready on udp 127.0.0.1:PORT\" or \"skysim ready on serial DEVICE\" once it runs."));
    parser.addHelpOption();
    const SOptionSet set;
    parser.addOptions(set.all());
    parser.process(app);

    SimOptions options;
    if (!parseAirframe(parser.value(set.type), options) || !parseLink(parser, set, options)
        || !parseNumbers(parser, set, options) || !parseSilence(parser, set, options)
        || !parseBatteries(parser, set, options) || !parseFaultsAndParameters(parser, set, options)
        || !parseRawData(parser, set, options) || !resolveLicenceKey(parser, set, options))
        return std::nullopt;
    options.firmware = parser.value(set.firmware);
    options.noAck = parser.isSet(set.noAck);
    options.ackOnRetry = parser.isSet(set.ackOnRetry);
    options.armed = parser.isSet(set.armed);
    options.ftpLoseLastReply = parser.isSet(set.ftpLoseLastReply);
    return options;
}

std::unique_ptr<SimTransport> makeTransport(const SimOptions& options)
{
    if (!options.serialDevice.isEmpty())
        return std::make_unique<SimSerialTransport>(options.serialDevice, options.baudRate, options.linkRate,
                                                    options.lossPercent, options.seed);
    return std::make_unique<SimUdpTransport>(QHostAddress(options.udpHost), options.udpPort, options.bindPort,
                                             options.linkRate, options.lossPercent, options.seed);
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("skysim"));
    const std::optional<SimOptions> options = parseOptions(app);
    if (!options)
        return 2;

    SimStopSignals stopSignals;
    QObject::connect(&stopSignals, &SimStopSignals::stopRequested, &app, &QCoreApplication::quit);

    const std::unique_ptr<SimTransport> transport = makeTransport(*options);
    QString error;
    if (!transport->open(&error)) {
        std::fprintf(stderr, "skysim: cannot open the link: %s\n", qPrintable(error));
        return 1;
    }
    SimVehicle vehicle(*options, *transport);
    SimConsole console;
    QObject::connect(&console, &SimConsole::failureCodesChanged, &vehicle, &SimVehicle::setFailureCodes);
    vehicle.start();
    std::printf("skysim ready on %s\n", qPrintable(transport->description()));
    std::fflush(stdout);
    qCInfo(lcSkySim) << (options->airframe == SimAirframe::FixedWing ? "fixed-wing" : "multirotor") << "system"
                     << options->systemId << "firmware" << options->firmware;
    return QCoreApplication::exec();
}
