// FTP download of a 200 MB static file from skybase's FTP server with the
// link library's FTP client, against curl fetching the same file from the
// same server in the same run. Each round runs the two back to back, so
// both meet the same load on a shared machine; the figure is the median of
// the rounds' ratios, the rates are the best of each side. Rounds alternate
// the order (curl, ours, curl, then the reverse) so neither side always runs
// after the other's writes. One untimed round comes first: curl's time
// leaves out its program start, and our first download in a process also
// sets up Qt's network layer. The process treats transfer buffers as the hub
// does (LmTransferMemory). Each round's times go to stderr.
//
// base_ftp_download_200MB: the client's work ends with the file's bytes held
// in memory (the page takes them from there); curl's ends with the file on a
// memory file system (/dev/shm). Both end with the bytes in memory.
// base_ftp_download_200MB_saved: the page's whole path, the bytes written to a
// file on disk after the transfer, against curl writing the same disk file
// while it receives.
#include "CLmFtpClientLink.h"
#include "LmTransferMemory.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr qint64 kFileSize = 200ll * 1000 * 1000;
constexpr int kRounds = 9;
const QString kFileName = QStringLiteral("SKB20261123120000.GNS");

bool WriteStaticFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QByteArray chunk(1 << 20, '\0');
    QRandomGenerator noise(7);
    for (qint64 written = 0; written < kFileSize; written += chunk.size()) {
        noise.fillRange(reinterpret_cast<quint32*>(chunk.data()), chunk.size() / 4);
        if (file.write(chunk.constData(), qMin<qint64>(chunk.size(), kFileSize - written)) < 0)
            return false;
    }
    return true;
}

// Starts skybase on free ports; its FTP port, 0 when it did not start.
quint16 StartStation(QProcess& station, const QString& dataDir)
{
    station.setProcessChannelMode(QProcess::SeparateChannels);
    station.setStandardErrorFile(QProcess::nullDevice());
    station.start(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("skybase")),
                  {QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--ftp-port"), QStringLiteral("0"),
                   QStringLiteral("--data"), dataDir});
    while (!station.canReadLine() && station.waitForReadyRead(20000)) {
    }
    const QRegularExpressionMatch match =
        QRegularExpression(QStringLiteral("ftp .*:(\\d+)")).match(QString::fromUtf8(station.readLine()));
    return match.hasMatch() ? static_cast<quint16>(match.captured(1).toUInt()) : 0;
}

struct STimes
{
    double held = 0.0;   // until the whole file is held in memory
    double saved = 0.0;  // until it is also written to the target file
};

// Our client fetching the file, then the bytes written out as the page does;
// false on failure.
bool OurDownload(quint16 port, const QString& target, STimes& times)
{
    CLmFtpClientLink ftp;
    ftp.SetFtpHostPort(QStringLiteral("127.0.0.1"), port);
    bool ok = false;
    QElapsedTimer clock;
    QObject::connect(&ftp, &CLmFtpClientLink::downLoadFinished, [&] {
        times.held = clock.nsecsElapsed() / 1e9;
        QFile file(target);
        ok = file.open(QIODevice::WriteOnly) && file.write(ftp.ReceivedData()) == kFileSize;
        file.close();
        times.saved = clock.nsecsElapsed() / 1e9;
        ftp.ClearReceivedData();
        QCoreApplication::quit();
    });
    QObject::connect(&ftp, &CLmFtpClientLink::NetWorkError, &QCoreApplication::quit);
    clock.start();
    ftp.FtpGet(QStringLiteral("/static/") + kFileName);
    QCoreApplication::exec();
    return ok;
}

// Seconds curl reports for the same transfer into the target; negative on failure.
double CurlDownload(quint16 port, const QString& target)
{
    QProcess curl;
    curl.start(QStringLiteral("curl"),
               {QStringLiteral("-s"), QStringLiteral("-o"), target, QStringLiteral("-w"),
                QStringLiteral("%{time_total} %{size_download}"),
                QStringLiteral("ftp://127.0.0.1:%1/static/%2").arg(port).arg(kFileName)});
    if (!curl.waitForFinished(300000) || curl.exitCode() != 0)
        return -1.0;
    const QList<QByteArray> report = curl.readAllStandardOutput().trimmed().split(' ');
    return report.size() == 2 && report.at(1).toLongLong() == kFileSize ? report.at(0).toDouble() : -1.0;
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

int main(int argc, char* argv[])
{
    // As the hub does when it starts.
    if (!LmTransferMemory::KeepTransferBuffersForReuse())
        std::fprintf(stderr, "base_ftp_download: the allocator keeps its own thresholds\n");
    QCoreApplication app(argc, argv);
    QTemporaryDir work;
    const QString staticDir = work.filePath(QStringLiteral("station/ftp/static"));
    if (!work.isValid() || !QDir().mkpath(staticDir) || !WriteStaticFile(QDir(staticDir).filePath(kFileName))) {
        std::fprintf(stderr, "base_ftp_download: cannot write the static file\n");
        return 1;
    }
    QProcess station;
    const quint16 port = StartStation(station, work.filePath(QStringLiteral("station")));
    if (port == 0) {
        std::fprintf(stderr, "base_ftp_download: skybase did not start\n");
        return 1;
    }
    QTemporaryDir memory(QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm/skybench-XXXXXX")
                                                                     : QString());
    const QString curlInMemory = memory.filePath(QStringLiteral("curl.GNS"));
    const QString oursOnDisk = work.filePath(QStringLiteral("ours.GNS"));
    const QString curlOnDisk = work.filePath(QStringLiteral("curl.GNS"));
    STimes ours{1e9, 1e9};
    double curlToMemory = 1e9, curlToDisk = 1e9;
    std::vector<double> heldRatios, savedRatios;
    for (int round = -1; round < kRounds; ++round) {
        STimes times;
        double toMemory = -1.0, toDisk = -1.0;
        bool oursOk = false;
        if (round % 2 == 0) {
            toMemory = CurlDownload(port, curlInMemory);
            oursOk = OurDownload(port, oursOnDisk, times);
            toDisk = CurlDownload(port, curlOnDisk);
        } else {
            toDisk = CurlDownload(port, curlOnDisk);
            oursOk = OurDownload(port, oursOnDisk, times);
            toMemory = CurlDownload(port, curlInMemory);
        }
        // Removed rather than overwritten: ext4 flushes a truncated and
        // rewritten file when it is closed, inside the timed download.
        for (const QString& copy : {curlInMemory, oursOnDisk, curlOnDisk})
            QFile::remove(copy);
        if (toMemory <= 0 || toDisk <= 0 || !oursOk) {
            std::fprintf(stderr, "base_ftp_download: a download failed\n");
            return 1;
        }
        std::fprintf(stderr,
                     "round %d: curl into memory %.3f s, ours held %.3f s (written %.3f s), curl onto disk %.3f s\n",
                     round, toMemory, times.held, times.saved, toDisk);
        if (round < 0)
            continue;
        heldRatios.push_back(toMemory / times.held);
        savedRatios.push_back(toDisk / times.saved);
        curlToMemory = qMin(curlToMemory, toMemory);
        curlToDisk = qMin(curlToDisk, toDisk);
        ours.held = qMin(ours.held, times.held);
        ours.saved = qMin(ours.saved, times.saved);
    }
    station.terminate();
    station.waitForFinished(5000);
    const auto rate = [](double seconds) { return kFileSize / seconds / 1e6; };
    std::printf("base_ftp_download_200MB: %.1f %% of ceiling (%.1f MB/s held in memory; ceiling curl %.1f MB/s into "
                "memory from the same server; target >= 90 %%)\n",
                100.0 * Median(heldRatios), rate(ours.held), rate(curlToMemory));
    std::printf("base_ftp_download_200MB_saved: %.1f %% of ceiling (%.1f MB/s written after the transfer; ceiling "
                "curl %.1f MB/s writing the disk file as it receives)\n",
                100.0 * Median(savedRatios), rate(ours.saved), rate(curlToDisk));
    return 0;
}
