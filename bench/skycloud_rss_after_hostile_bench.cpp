// Resident memory of skycloud while and after 20 clients at once each post a
// 400 MB body without a token, against its own idle figure in the same run.
// A server that reads bodies before it checks them grows by the body sizes.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

namespace {

constexpr int kClients = 20;
constexpr qint64 kBodyBytes = 400LL * 1000 * 1000;
constexpr auto kClientTimeLimit = std::chrono::seconds(60);

// VmRSS of the process in MB, or 0 when it cannot be read.
double ResidentMb(qint64 pid)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024.0;
    }
    return 0;
}

int PortOf(QProcess& cloud)
{
    if (!cloud.waitForReadyRead(15000))
        return -1;
    const QByteArray line = cloud.readLine().trimmed();
    return line.startsWith("skycloud listening on") ? line.mid(line.lastIndexOf(':') + 1).toInt() : -1;
}

// Sends the headers and then body bytes until the server closes, the body
// is complete or the time limit is reached.
void PostWithoutToken(int port)
{
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (socket < 0 || ::connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        ::close(socket);
        return;
    }
    const std::string headers = "POST /project/upload HTTP/1.1\r\nHost: 127.0.0.1\r\n"
                                "Content-Type: application/x-www-form-urlencoded\r\nContent-Length: "
                                + std::to_string(kBodyBytes) + "\r\n\r\n";
    const std::vector<char> chunk(64 * 1024, 'A');
    const auto until = std::chrono::steady_clock::now() + kClientTimeLimit;
    bool open = ::send(socket, headers.data(), headers.size(), MSG_NOSIGNAL) > 0;
    for (qint64 sent = 0; open && sent < kBodyBytes && std::chrono::steady_clock::now() < until;) {
        const ssize_t written = ::send(socket, chunk.data(), chunk.size(), MSG_NOSIGNAL);
        open = written > 0;
        sent += std::max<ssize_t>(written, 0);
    }
    ::close(socket);
}

}  // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir data;
    QProcess cloud;
    cloud.setProcessChannelMode(QProcess::SeparateChannels);
    cloud.setStandardErrorFile(QProcess::nullDevice());
    cloud.start(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("skycloud")),
                {QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--data"), data.path()});
    const int port = PortOf(cloud);
    if (port <= 0) {
        std::fprintf(stderr, "skycloud_rss_after_hostile: skycloud did not start\n");
        return 1;
    }
    // Let the start (demo projects written) settle before the idle figure.
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const double idle = ResidentMb(cloud.processId());

    std::atomic<bool> attacking{true};
    std::vector<std::thread> clients;
    for (int i = 0; i < kClients; ++i)
        clients.emplace_back(PostWithoutToken, port);
    double peak = idle;
    std::thread sampler([&] {
        while (attacking) {
            peak = std::max(peak, ResidentMb(cloud.processId()));
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    });
    for (std::thread& client : clients)
        client.join();
    attacking = false;
    sampler.join();
    peak = std::max(peak, ResidentMb(cloud.processId()));

    cloud.terminate();
    const bool stopped = cloud.waitForFinished(5000) && cloud.exitStatus() == QProcess::NormalExit;
    if (!stopped || idle <= 0) {
        std::fprintf(stderr, "skycloud_rss_after_hostile: skycloud %s\n", stopped ? "unreadable" : "did not stop");
        return 1;
    }
    std::printf("skycloud_rss_after_hostile: %.1f MB = %.2fx floor\n", peak, peak / idle);
    return 0;
}
