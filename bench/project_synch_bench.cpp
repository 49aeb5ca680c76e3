// Figures of the project synchronisation: the local scan against the cost of
// merely opening the same databases, and the classification of large lists.
#include "BenchStore.h"
#include "CLmCarrowmereProjMgrObj.h"
#include "CLmControl.h"
#include "CLmLocalProjectCache.h"
#include "CLmProjClassifier.h"
#include "CLmSessionStore.h"
#include "LmConstants.h"
#include "LmProjectConstants.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int ScanProjects = 2000;
constexpr int MissionsPerProject = 10;
constexpr int ClassifiedProjects = 10000;

QString TimeText(const QDateTime& time)
{
    return time.toString(QLatin1String(DateTimeSFormat));
}

QStringList ProjectFiles(const QString& root)
{
    QStringList files;
    QDirIterator it(root, {QLatin1String(ProjectFileFilter)}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(it.next());
    return files;
}

// Opens and closes each file; with a statement, also runs it once. Qt's
// SQLite driver reads nothing on open, so only a statement makes SQLite read
// the file and its schema.
void OpenAndClose(const QString& file, const char* statement)
{
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("floor"));
        db.setDatabaseName(file);
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        db.open();
        if (statement) {
            QSqlQuery query(db);
            query.exec(QLatin1String(statement));
            query.next();
        }
        db.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("floor"));
}

double OpenCloseFloorMs(const QStringList& files)
{
    QElapsedTimer timer;
    timer.start();
    for (const QString& file : files)
        OpenAndClose(file, nullptr);
    return timer.nsecsElapsed() / 1e6;
}

// The least a scan can do: read one row of the project and of the mission
// database of every project.
double ReadFloorMs(const QStringList& files)
{
    QElapsedTimer timer;
    timer.start();
    for (const QString& file : files) {
        OpenAndClose(file, "select id from project limit 1");
        OpenAndClose(CLmControl::GetInstance()->GetFlightMissionFilePath(file), "select id from flight_mission limit 1");
    }
    return timer.nsecsElapsed() / 1e6;
}

// One scan of the store, as a read of all projects runs it. Signed out, the
// read scans the store and stops before the cloud.
double ScanMs(CLmCarrowmereProjMgrObj&& engine, int* projectsFound)
{
    int found = 0;
    const QMetaObject::Connection counter =
        QObject::connect(&engine, &CLmCarrowmereProjMgrObj::LocalProjInfor, [&found](const SProjInfor&) { ++found; });
    QElapsedTimer timer;
    timer.start();
    engine.slotReadAllPrject();
    const double ms = timer.nsecsElapsed() / 1e6;
    QObject::disconnect(counter);
    *projectsFound = found;
    return ms;
}

double ClassifyMs()
{
    const QDateTime base = QDateTime::fromString(QStringLiteral("2026-01-01 08:00:00"), QLatin1String(DateTimeSFormat));
    QMap<QString, SProjInfor> local;
    QJsonArray cloud;
    for (int i = 0; i < ClassifiedProjects; ++i) {
        SProjInfor info;
        info.strProjID = QStringLiteral("id-%1").arg(i, 6, 10, QLatin1Char('0'));
        info.strProjName = QStringLiteral("Project %1").arg(i);
        info.strUpdateTime = TimeText(base.addSecs(i));
        local.insert(info.strProjID, info);
        // A quarter each: in step, cloud later, cloud earlier, cloud only.
        const int kind = i % 4;
        const QString cloudId = kind == 3 ? QStringLiteral("cloud-%1").arg(i) : info.strProjID;
        const QDateTime cloudTime = base.addSecs(i + (kind == 1 ? 30 : kind == 2 ? -30 : 0));
        cloud.append(QJsonObject{{"id", cloudId},
                                 {"project_name", QString(info.strProjName + QStringLiteral("  "))},
                                 {"updated_at", TimeText(cloudTime)},
                                 {"flight_mission_count", 10}});
    }
    const QByteArray reply = QJsonDocument(QJsonObject{{"status", 0}, {"data", cloud}}).toJson();

    QElapsedTimer timer;
    timer.start();
    const QJsonArray parsed = QJsonDocument::fromJson(reply).object().value(QStringLiteral("data")).toArray();
    const QVector<CLmProjClassifier::SDecision> decisions =
        CLmProjClassifier::Classify(local, parsed, QStringLiteral("/projects"));
    const double ms = timer.nsecsElapsed() / 1e6;
    if (decisions.size() != ClassifiedProjects + ClassifiedProjects / 4)
        std::fprintf(stderr, "project_synch_bench: unexpected decision count %d\n", decisions.size());
    return ms;
}

}  // namespace

int main(int argc, char* argv[])
{
    // Everything the engine touches lives in a throw-away home.
    QTemporaryDir home;
    BenchStore::UseHome(home);
    QCoreApplication app(argc, argv);
    {
        // Pilot 1 owns the generated projects; no token keeps the cloud out.
        QSettings settings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)};
        settings.setValue(QLatin1String(UserInfoGroupName) + QLatin1Char('/') + QLatin1String(UserInfoUserID),
                          QStringLiteral("1"));
    }

    const QString root = CLmControl::GetInstance()->GetProjectDirPath();
    if (!BenchStore::GenerateProjects(root, ScanProjects)) {
        std::fprintf(stderr, "project_synch_bench: cannot generate projects\n");
        return 1;
    }
    const QStringList files = ProjectFiles(root);
    // Warm the file cache and the city table so every run starts alike.
    ReadFloorMs(files);
    int warmUpFound = 0;
    ScanMs(CLmCarrowmereProjMgrObj(), &warmUpFound);

    const double floorMs = OpenCloseFloorMs(files);
    const double readFloorMs = ReadFloorMs(files);
    // A store never scanned before: every database is read.
    QFile::remove(CLmLocalProjectCache::DefaultStorePath());
    int firstFound = 0;
    const double firstScanMs = ScanMs(CLmCarrowmereProjMgrObj(), &firstFound);
    // The everyday case: a new engine (the application started again) on a
    // store that has not changed since the last scan.
    int found = 0;
    const double scanMs = ScanMs(CLmCarrowmereProjMgrObj(), &found);
    if (firstFound != ScanProjects || found != ScanProjects) {
        std::fprintf(stderr, "project_synch_bench: the scans found %d and %d of %d projects\n", firstFound, found,
                     ScanProjects);
        return 1;
    }
    const double classifyMs = ClassifyMs();

    std::printf("project_open_close_floor_%d: %.1f ms (baseline)\n", ScanProjects, floorMs);
    std::printf("project_read_floor_%d: %.1f ms = %.2fx floor (baseline: one row of both databases)\n",
                ScanProjects, readFloorMs, readFloorMs / floorMs);
    std::printf("project_first_scan_%dx%d: %.1f ms = %.2fx floor, %.2fx read floor (never scanned before)\n",
                ScanProjects, MissionsPerProject, firstScanMs, firstScanMs / floorMs, firstScanMs / readFloorMs);
    std::printf("project_local_scan_%dx%d: %.1f ms = %.2fx floor (target <= 3x floor; unchanged since the last run)\n",
                ScanProjects, MissionsPerProject, scanMs, scanMs / floorMs);
    std::printf("project_classify_%dx%d: %.1f ms (target <= 100 ms)\n", ClassifiedProjects, ClassifiedProjects,
                classifyMs);
    return scanMs <= 3 * floorMs && classifyMs <= 100 ? 0 : 1;
}
