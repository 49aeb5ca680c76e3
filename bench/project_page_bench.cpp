// Figures of the project manager page: filling the list from the engine's
// row reports against a plain tree filled with the same rows (sorting on,
// as the page's tree has it), one name filter over a full list, and the
// longest stall of the GUI thread while the page's first synchronisation of
// a large store runs against skycloud.
#include "BenchStore.h"
#include "CLmCarrowmereProjMgrObj.h"
#include "CLmControl.h"
#include "CLmDeployConfig.h"
#include "CLmProgressWgt.h"
#include "CLmProjMgrWgt.h"
#include "CLmSessionStore.h"
#include "LmProjectConstants.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

constexpr int FillRows = 10000;
constexpr int SyncProjects = 2000;
constexpr int Rounds = 7;

const QDateTime BaseTime = QDateTime(QDate(2026, 1, 1), QTime(8, 0));

QVector<SProjInfor> Rows()
{
    QVector<SProjInfor> rows;
    for (int i = 0; i < FillRows; ++i) {
        SProjInfor info;
        info.strProjID = QStringLiteral("bench-%1").arg(i);
        info.strProjName = QStringLiteral("Survey %1").arg(i, 5, 10, QLatin1Char('0'));
        info.strUpdateTime = BaseTime.addSecs(i * 97).toString(QLatin1String(DateTimeSFormat));
        info.iMissionCount = 10;
        info.iFlownCount = i % 11;
        info.iSynchState = i % 4;
        rows.append(info);
    }
    return rows;
}

// Runs the event loop until done() holds; false after the time-out.
bool SpinUntil(const std::function<bool()>& done, int timeoutMs = 120000)
{
    const QDeadlineTimer deadline(timeoutMs);
    while (!done()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return true;
}

void CloseProgressDialogs(const QWidget& page)
{
    for (CLmProgressWgt* dialog : page.findChildren<CLmProgressWgt*>())
        dialog->close();
}

double PlainFillMs(const QVector<SProjInfor>& rows)
{
    QTreeWidget tree;
    tree.setHeaderLabels({QStringLiteral("Project"), QStringLiteral("Flight Log"), QStringLiteral("Create time")});
    tree.resize(1100, 640);
    tree.setSortingEnabled(true);
    tree.show();
    SpinUntil([&tree] { return tree.isVisible(); });
    QElapsedTimer timer;
    timer.start();
    for (const SProjInfor& row : rows) {
        new QTreeWidgetItem(&tree, QStringList{
            row.strProjName, QStringLiteral("%1/%2").arg(row.iFlownCount).arg(row.iMissionCount), row.strUpdateTime});
    }
    // The tree sorts what it was given on its next pass through the event loop.
    QCoreApplication::processEvents();
    tree.viewport()->repaint();
    return timer.nsecsElapsed() / 1e6;
}

// The engine's row reports cross from its thread, as they do in the page.
double PageFillMs(CLmProjMgrWgt& page, CLmCarrowmereProjMgrObj& emitter, const QVector<SProjInfor>& rows)
{
    page.Reset();
    auto* tree = page.findChild<QTreeWidget*>(QStringLiteral("m_pTreeProject"));
    QCoreApplication::processEvents();
    QElapsedTimer timer;
    timer.start();
    QMetaObject::invokeMethod(&emitter, [&emitter, &rows] {
        for (const SProjInfor& row : rows)
            Q_EMIT emitter.LocalProjInfor(row);
    });
    // Drawn means all rows in the list, sorted.
    if (!SpinUntil([tree] { return tree->topLevelItemCount() == FillRows && tree->isSortingEnabled(); }))
        return -1;
    tree->viewport()->repaint();
    return timer.nsecsElapsed() / 1e6;
}

double FilterMs(CLmProjMgrWgt& page)
{
    auto* search = page.findChild<QLineEdit*>(QStringLiteral("m_pEditSearchLv2"));
    auto* tree = page.findChild<QTreeWidget*>(QStringLiteral("m_pTreeProject"));
    QElapsedTimer timer;
    timer.start();
    search->setText(QStringLiteral("survey 0042"));
    const double ms = timer.nsecsElapsed() / 1e6;
    int shown = 0;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        shown += tree->topLevelItem(i)->isHidden() ? 0 : 1;
    search->clear();
    return shown == 10 ? ms : -1;
}

// ---- the synchronisation against skycloud ------------------------------------------

QByteArray StartCloud(QProcess& cloud, const QString& dataDir)
{
    cloud.setStandardErrorFile(QProcess::nullDevice());
    cloud.start(QCoreApplication::applicationDirPath() + QStringLiteral("/skycloud"),
                {QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--push-port"), QStringLiteral("0"),
                 QStringLiteral("--data"), dataDir});
    if (!cloud.waitForReadyRead(10000))
        return {};
    const QByteArray line = cloud.readLine().trimmed();
    const QByteArray prefix = "skycloud listening on ";
    return line.startsWith(prefix) ? line.mid(prefix.size()) : QByteArray();
}

bool SignIn(const QByteArray& baseUrl)
{
    QNetworkAccessManager manager;
    QNetworkRequest request(QUrl(QString::fromLatin1(baseUrl + "/user/login")));
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/x-www-form-urlencoded"));
    QNetworkReply* reply = manager.post(request, QByteArrayLiteral("phone=13800000001&password=skyconsole&device_id="));
    SpinUntil([reply] { return reply->isFinished(); }, 10000);
    const QJsonObject data = QJsonDocument::fromJson(reply->readAll()).object().value(QStringLiteral("data")).toObject();
    reply->deleteLater();
    SLmUserInfo user;
    user.strToken = data.value(QStringLiteral("token")).toString();
    user.strUserID = QString::number(data.value(QStringLiteral("id")).toInt());
    CLmSessionStore().SaveSignIn(user, QString());
    return !user.strToken.isEmpty();
}

// Longest gap between the ticks of a 1 ms timer on the GUI thread while a
// new page reads the store and the cloud's list for the first time.
double SyncStallMs()
{
    QTemporaryDir cloudData;
    QProcess cloud;
    const QByteArray baseUrl = StartCloud(cloud, cloudData.path());
    if (baseUrl.isEmpty()) {
        std::fprintf(stderr, "project_page_bench: skycloud did not start\n");
        return -1;
    }
    qputenv("SKYCONSOLE_CLOUD_PRODUCTION_URL", baseUrl);
    qputenv("SKYCONSOLE_CLOUD_TEST_URL", baseUrl);
    CLmDeployConfig::Reload();
    CLmControl::GetInstance()->SetNetWorkState(true);
    const QString root = CLmControl::GetInstance()->GetProjectDirPath();
    QDir(root).removeRecursively();
    if (!SignIn(baseUrl) || !BenchStore::GenerateProjects(root, SyncProjects)) {
        std::fprintf(stderr, "project_page_bench: cannot sign in or generate the store\n");
        return -1;
    }

    QElapsedTimer clock;
    clock.start();
    qint64 lastTickNs = 0;
    qint64 longestNs = 0;
    QTimer probe;
    probe.setTimerType(Qt::PreciseTimer);
    probe.setInterval(1);
    QObject::connect(&probe, &QTimer::timeout, [&] {
        const qint64 now = clock.nsecsElapsed();
        longestNs = std::max(longestNs, now - lastTickNs);
        lastTickNs = now;
    });
    probe.start();
    CLmProjMgrWgt page;
    page.resize(1280, 744);
    page.show();
    auto* projects = page.findChild<QTreeWidget*>(QStringLiteral("m_pTreeProject"));
    auto* uploads = page.findChild<QTreeWidget*>(QStringLiteral("m_pTreeUploading"));
    // Every generated project is new to the cloud, which holds three of its own.
    const bool done = SpinUntil([&] {
        return projects->topLevelItemCount() == SyncProjects + 3 && uploads->topLevelItemCount() == SyncProjects;
    });
    probe.stop();
    cloud.terminate();
    cloud.waitForFinished(5000);
    return done ? longestNs / 1e6 : -1;
}

}  // namespace

int main(int argc, char* argv[])
{
    QTemporaryDir home;
    BenchStore::UseHome(home);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    const QVector<SProjInfor> rows = Rows();
    double plainMs = 1e9;
    double pageMs = 1e9;
    double filterMs = 1e9;
    {
        // Nobody signed in: the page's own reads find nothing.
        CLmProjMgrWgt page;
        page.resize(1280, 744);
        page.show();
        SpinUntil([&page] { return !page.findChildren<CLmProgressWgt*>().isEmpty(); }, 5000);
        CloseProgressDialogs(page);
        CLmCarrowmereProjMgrObj emitter;
        QThread emitterThread;
        emitter.moveToThread(&emitterThread);
        emitterThread.start();
        QObject::connect(&emitter, &CLmCarrowmereProjMgrObj::LocalProjInfor, &page,
                         &CLmProjMgrWgt::slotAddProjItem2Tree);
        for (int round = 0; round < Rounds; ++round) {
            plainMs = std::min(plainMs, PlainFillMs(rows));
            const double ms = PageFillMs(page, emitter, rows);
            pageMs = ms < 0 ? ms : std::min(pageMs, ms);
            const double filter = FilterMs(page);
            filterMs = filter < 0 ? filter : std::min(filterMs, filter);
        }
        QMetaObject::invokeMethod(&emitter, [&emitter, &app] { emitter.moveToThread(app.thread()); },
                                  Qt::BlockingQueuedConnection);
        emitterThread.quit();
        emitterThread.wait();
    }
    if (pageMs < 0 || filterMs < 0) {
        std::fprintf(stderr, "project_page_bench: the page did not show the %d rows or filter them\n", FillRows);
        return 1;
    }
    const double stallMs = SyncStallMs();
    if (stallMs < 0)
        return 1;

    std::printf("projects_plain_tree_fill_%d: %.1f ms (baseline: a plain sorting QTreeWidget filled row by row)\n",
                FillRows, plainMs);
    std::printf("projects_page_fill_%d: %.1f ms = %.2fx floor (target <= 2x)\n", FillRows, pageMs,
                pageMs / plainMs);
    std::printf("projects_filter_%d: %.1f ms (target <= 20 ms)\n", FillRows, filterMs);
    std::printf("projects_gui_stall_sync_%d: %.1f ms (target <= 50 ms)\n", SyncProjects, stallMs);
    return pageMs <= 2 * plainMs && filterMs <= 20 && stallMs <= 50 ? 0 : 1;
}
