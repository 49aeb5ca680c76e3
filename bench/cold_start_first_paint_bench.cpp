// Time from process start to the first paint of the top-level window: the hub's
// main window, created as the application creates it (offline, fresh
// settings), against a bare widgets window of the same size with a few
// buttons. Each figure is the median over fresh child processes of this same
// binary; a child measures from the parent's launch timestamp (the monotonic
// clock, passed through the environment) to the first paint event of its
// window, prints it and ends.
#include "CLmCarrowmereMainWindow.h"

#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QLoggingCategory>
#include <QProcess>
#include <QPushButton>
#include <QTcpServer>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

constexpr int Runs = 9;
constexpr int ChildTimeoutMs = 60000;
const char LaunchVariable[] = "SKYCONSOLE_BENCH_LAUNCH_NS";
const char HubMode[] = "--hub-child";
const char FloorMode[] = "--floor-child";

qint64 MonotonicNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// ---- the child: one window, measured up to its first paint ----------------------------

// Prints the time since launch and the window's size at the first paint, then
// ends the process at once: tearing the window down is not part of the figure.
class CFirstPaintProbe : public QObject
{
public:
    explicit CFirstPaintProbe(qint64 launchNs)
        : m_launchNs(launchNs)
    {
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            const double ms = (MonotonicNs() - m_launchNs) / 1e6;
            const QSize size = static_cast<QWidget*>(watched)->size();
            std::printf("%.3f %d %d\n", ms, size.width(), size.height());
            std::fflush(stdout);
            std::_Exit(0);
        }
        return false;
    }

private:
    qint64 m_launchNs;
};

// As the application's main() does: log filter, style sheet, window, its workers.
void ShowHubWindow(QObject* probe)
{
    QApplication::setApplicationName(QStringLiteral("SkyConsole"));
    QLoggingCategory::setFilterRules(QStringLiteral(
        "sky.*.debug=false\nsky.carrowmereui.mainwindow.debug=true\nsky.carrowmereui.notices.debug=true"));
    QFile style(QStringLiteral(":/styles/skyconsole.qss"));
    if (style.open(QIODevice::ReadOnly))
        qApp->setStyleSheet(QString::fromUtf8(style.readAll()));
    auto* window = new CLmCarrowmereMainWindow(nullptr);
    window->installEventFilter(probe);
    window->show();
    window->ConnectSerialPort();
    window->ConnectUploadData();
    window->TestNetworkConnect();
}

void ShowFloorWindow(QObject* probe, const QSize& size)
{
    auto* window = new QWidget;
    auto* layout = new QHBoxLayout(window);
    for (const char* text : {"Plan", "Fly", "Check", "Process", "Map", "Monitor"})
        layout->addWidget(new QPushButton(QString::fromLatin1(text), window));
    window->resize(size);
    window->installEventFilter(probe);
    window->show();
}

int RunChild(int argc, char* argv[])
{
    const qint64 launchNs = qgetenv(LaunchVariable).toLongLong();
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    CFirstPaintProbe probe(launchNs);
    if (qstrcmp(argv[1], HubMode) == 0)
        ShowHubWindow(&probe);
    else
        ShowFloorWindow(&probe, QSize(QString::fromLatin1(argv[2]).toInt(), QString::fromLatin1(argv[3]).toInt()));
    return app.exec();
}

// ---- the parent: fresh children, medians --------------------------------------------

struct SFirstPaint
{
    double ms = -1;
    QSize size;
};

// A loopback port nobody listens on: the cloud calls fail at once.
quint16 ClosedLoopbackPort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost, 0);
    const quint16 port = server.serverPort();
    server.close();
    return port;
}

QProcessEnvironment ChildEnvironment(const QString& home, quint16 closedPort)
{
    const QString cloud = QStringLiteral("http://127.0.0.1:%1").arg(closedPort);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("HOME"), home + QStringLiteral("/home"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/config"));
    env.insert(QStringLiteral("XDG_DATA_HOME"), home + QStringLiteral("/data"));
    env.insert(QStringLiteral("XDG_CACHE_HOME"), home + QStringLiteral("/cache"));
    env.insert(QStringLiteral("XDG_RUNTIME_DIR"), home);
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("QTWEBENGINE_DISABLE_SANDBOX"), QStringLiteral("1"));
    env.insert(QStringLiteral("SKYCONSOLE_CLOUD_PRODUCTION_URL"), cloud);
    env.insert(QStringLiteral("SKYCONSOLE_CLOUD_TEST_URL"), cloud);
    env.insert(QStringLiteral("SKYCONSOLE_CLOUD_PUSH_ADDRESS"), QStringLiteral("127.0.0.1:%1").arg(closedPort));
    env.insert(QStringLiteral("SKYCONSOLE_AIRCRAFT_UDP_LISTEN_PORT"), QStringLiteral("0"));
    env.remove(QStringLiteral("SKYCONSOLE_CONFIG"));
    return env;
}

SFirstPaint RunOnce(const QStringList& arguments, quint16 closedPort)
{
    QTemporaryDir home;
    QProcess child;
    QProcessEnvironment env = ChildEnvironment(home.path(), closedPort);
    child.setStandardErrorFile(QProcess::nullDevice());
    env.insert(QString::fromLatin1(LaunchVariable), QString::number(MonotonicNs()));
    child.setProcessEnvironment(env);
    child.start(QCoreApplication::applicationFilePath(), arguments);
    SFirstPaint result;
    if (!child.waitForFinished(ChildTimeoutMs)) {
        child.kill();
        child.waitForFinished();
        return result;
    }
    const QList<QByteArray> fields = child.readAllStandardOutput().trimmed().split(' ');
    if (fields.size() == 3) {
        result.ms = fields.at(0).toDouble();
        result.size = QSize(fields.at(1).toInt(), fields.at(2).toInt());
    }
    return result;
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

int RunParent(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const quint16 closedPort = ClosedLoopbackPort();
    // The first hub run gives the size the bare window takes.
    const SFirstPaint probe = RunOnce({QString::fromLatin1(HubMode)}, closedPort);
    if (probe.ms < 0) {
        std::fprintf(stderr, "cold_start_first_paint_bench: the hub window did not paint\n");
        return 1;
    }
    const QStringList floorArguments = {QString::fromLatin1(FloorMode), QString::number(probe.size.width()),
                                        QString::number(probe.size.height())};
    std::vector<double> hub;
    std::vector<double> floor;
    // Interleaved, so that load from other work falls on both alike.
    for (int run = 0; run < Runs; ++run) {
        const SFirstPaint hubRun = RunOnce({QString::fromLatin1(HubMode)}, closedPort);
        const SFirstPaint floorRun = RunOnce(floorArguments, closedPort);
        if (hubRun.ms < 0 || floorRun.ms < 0) {
            std::fprintf(stderr, "cold_start_first_paint_bench: a child did not paint\n");
            return 1;
        }
        hub.push_back(hubRun.ms);
        floor.push_back(floorRun.ms);
    }
    const double hubMs = Median(hub);
    const double floorMs = Median(floor);
    std::printf("cold_start_bare_window_first_paint: %.1f ms (baseline: a bare %dx%d widgets window with buttons, "
                "median of %d)\n",
                floorMs, probe.size.width(), probe.size.height(), Runs);
    std::printf("cold_start_first_paint: %.1f ms = %.2fx floor (target <= 1.3x)\n", hubMs, hubMs / floorMs);
    return 0;
}

}  // namespace

int main(int argc, char* argv[])
{
    if (argc > 1 && (qstrcmp(argv[1], HubMode) == 0 || (qstrcmp(argv[1], FloorMode) == 0 && argc == 4)))
        return RunChild(argc, argv);
    return RunParent(argc, argv);
}
