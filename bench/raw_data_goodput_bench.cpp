// Receiver raw-data download from the skysim emulator over loopback UDP at
// 5,760 B/s (a 57,600 baud radio), through the link library's receiver link
// and the hub's raw-data downloader and writer: the bytes of every entry
// over the time from the download request (entry lists included) to the
// last byte, as a share of the protocol ceiling, the link rate times the
// share of entry bytes in a SKY_RAW_ENTRY_DATA frame.
#include "BenchSkySim.h"
#include "CLmMavlinkEncoder.h"
#include "CLmMavlinkParser.h"
#include "CLmRtkDataDownloadObject.h"
#include "CLmRtkDataLink.h"
#include "CLmUasProvide.h"
#include "CLmUdpLink.h"
#include "LmMavlinkMessages.h"
#include "SimRawDataStore.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

using namespace LmMavlink;

namespace {

constexpr double LINK_RATE = 5760.0; // bytes per second
constexpr int FOLDERS = 2;
constexpr int ENTRIES = 3;
constexpr quint32 ENTRY_SIZE = 16000; // about 20 s at the ceiling for all
constexpr int GIVE_UP_MS = 120000;

double DataFrameBytes()
{
    SSkyRawEntryData data;
    data.count = sizeof data.data;
    data.data[sizeof data.data - 1] = 1; // no zero trimming of the payload
    return CLmMavlinkEncoder(1, 1).Encode(data).size();
}

bool MatchesReceiver(const QByteArray& bytes, const QString& path, const QList<STrimbleFolderInfo>& folders)
{
    for (const STrimbleFolderInfo& folder : folders) {
        for (const STrimbleEntryInfo& entry : folder.entries) {
            if (!path.endsWith(entry.fileName) || entry.received != ENTRY_SIZE || bytes.size() != int(ENTRY_SIZE))
                continue;
            QByteArray expected(int(ENTRY_SIZE), '\0');
            SimRawDataStore::fill(folder.folderId, entry.entryId, 0, ENTRY_SIZE,
                                  reinterpret_cast<uint8_t*>(expected.data()));
            if (expected == bytes)
                return true;
        }
    }
    return false;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("sky.*=false")); // keep the figures alone on the terminal
    CLmUdpLink link(1, 0);
    link.Connect();
    QProcess aircraft;
    const quint16 port = BenchSkySim::Start(
        aircraft, {QStringLiteral("--udp"), QStringLiteral("127.0.0.1:%1").arg(link.GetLocalPort()),
                   QStringLiteral("--link-rate"), QString::number(LINK_RATE), QStringLiteral("--raw-folders"),
                   QString::number(FOLDERS), QStringLiteral("--raw-entries"), QString::number(ENTRIES),
                   QStringLiteral("--raw-entry-size"), QString::number(ENTRY_SIZE)});
    if (port == 0) {
        std::fprintf(stderr, "raw_data_goodput: skysim did not start\n");
        return 1;
    }

    CLmUasProvide uas(&link, 1, 1);
    CLmMavlinkParser parser;
    CLmRtkDataLink receiver(&uas);
    CLmRtkDataDownloadObject download(&receiver);
    QTemporaryDir target;
    download.SetTargetDir(target.path());
    QEventLoop loop;
    QElapsedTimer clock;
    qint64 elapsedNs = 0;
    int wrongFiles = 0;
    QObject::connect(&link, &CLmLinkProvide::bytesReceived, &uas, [&](const QByteArray& bytes) {
        for (const mavlink_message_t& message : parser.Parse(bytes)) {
            const bool bFirstHeartbeat = message.msgid == MSG_ID_HEARTBEAT && download.Folders().isEmpty()
                && !clock.isValid();
            uas.HandleMessage(message);
            if (bFirstHeartbeat)
                download.RequestFolderList();
        }
    });
    QObject::connect(&receiver, &CLmRtkDataLink::RtkFolderListFinished, &loop, [&](int count) {
        QList<quint16> ids;
        for (int id = 1; id <= count; ++id)
            ids << quint16(id);
        download.SetDownloadFolders(ids);
        clock.start();
        download.StartDownload();
    });
    QObject::connect(&download, &CLmTrimbleDataDownloadObject::RecivedData, &loop,
                     [&](const QByteArray& bytes, const QString& path) {
                         if (!MatchesReceiver(bytes, path, download.Folders()))
                             ++wrongFiles;
                     });
    QObject::connect(&download, &CLmTrimbleDataDownloadObject::AllDownloadCompleted, &loop, [&] {
        elapsedNs = clock.nsecsElapsed();
        loop.quit();
    });
    QObject::connect(&receiver, &CLmRtkDataLink::RtkRequestFailed, &loop, &QEventLoop::quit);
    QTimer::singleShot(GIVE_UP_MS, &loop, &QEventLoop::quit);
    loop.exec();
    aircraft.terminate();
    aircraft.waitForFinished(5000);

    if (elapsedNs == 0 || wrongFiles > 0) {
        std::fprintf(stderr, "raw_data_goodput: download %s\n", elapsedNs == 0 ? "incomplete" : "corrupt");
        return 1;
    }
    const double bytes = double(FOLDERS) * ENTRIES * ENTRY_SIZE;
    const double ceiling = LINK_RATE * sizeof(SSkyRawEntryData::data) / DataFrameBytes();
    const double rate = bytes / (static_cast<double>(elapsedNs) / 1e9);
    std::printf("raw_data_goodput: %.1f %% of protocol ceiling (target >= 95 %%)\n", 100.0 * rate / ceiling);
    std::printf("raw_data_goodput_rate: %.0f B/s (baseline ceiling %.0f B/s)\n", rate, ceiling);
    return 0;
}
