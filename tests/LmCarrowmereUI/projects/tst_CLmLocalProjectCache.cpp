#include "CLmControl.h"
#include "CLmDataBase.h"
#include "CLmLocalProjectCache.h"
#include "LmProjectConstants.h"
#include "ProjectTestHelpers.h"

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

#include <sys/stat.h>

using namespace ProjectTestHelpers;

namespace {

const QString Early = QStringLiteral("2026-03-01 10:00:00");
const QString Changed = QStringLiteral("2026-03-01 11:00:00");

// Hands a file its old modification time back, so only its size, inode or
// status-change time can tell that it changed.
void RestoreModificationTime(const QString& path, const QDateTime& time)
{
    QVERIFY(CLmProjectGenerator::SetModificationTime(path, time));
}

void Execute(const QString& path, const QString& sql)
{
    CLmDataBase db(path);
    QVERIFY(db.Open());
    QVERIFY2(db.Exec(sql), qPrintable(db.LastError()));
}

QString RewriteUpdateTime()
{
    return QStringLiteral("update %1 set updated_at = '%2'").arg(QLatin1String(ProjectTableName), Changed);
}

// Flies the last mission, which had no flight log yet.
QString AddFlightLog()
{
    return QStringLiteral("insert into %1 (flight_mission_id, log_time, lat, lng, alt)"
                          " select max(id), '2026-03-01 10:30:00', 0, 0, 0 from %2")
        .arg(QLatin1String(FlightLogTableName), QLatin1String(FlightMissionTableName));
}

struct SReading
{
    int iProjects = 0;
    QString strUpdateTime;
    int iMissions = 0;
    int iFlown = 0;
    QStringList listCities;
};

// Scans the one folder as the engine scans the store, then ends the scan.
SReading Scan(CLmLocalProjectCache& cache, const QString& folder, const QString& userId = QStringLiteral("1"))
{
    SReading reading;
    for (const SLocalProjectFile& file : cache.ReadFolder(folder, userId)) {
        for (const SProjInfor& info : file.listProjects) {
            ++reading.iProjects;
            reading.strUpdateTime = info.strUpdateTime;
            reading.iMissions = info.iMissionCount;
            reading.iFlown = info.iFlownCount;
        }
        for (const auto& cities : file.listCities)
            reading.listCities += cities.second;
    }
    cache.FinishScan();
    return reading;
}

// The first scan of a new run, starting from the readings kept in the store.
SReading ScanNextRun(const QString& store, const QString& folder, const QString& userId = QStringLiteral("1"))
{
    CLmLocalProjectCache cache(store);
    return Scan(cache, folder, userId);
}

quint64 Inode(const QString& path)
{
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? quint64(status.st_ino) : 0;
}

// Changes a project's databases after the first scan.
using Change = std::function<void(const QString& projectFile, const QString& missionFile)>;

}  // namespace

Q_DECLARE_METATYPE(Change)

// What a scan reports must follow every change to a project's databases,
// including the ones that leave the modification time as it was.
class tst_CLmLocalProjectCache : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void changeAfterAScanIsSeen_data();
    void changeAfterAScanIsSeen();
    void changeWaitingInAWalIsSeen_data();
    void changeWaitingInAWalIsSeen();
    void lockedDatabaseIsReadAgain_data();
    void lockedDatabaseIsReadAgain();
    void justWrittenFileIsNotKept_data();
    void justWrittenFileIsNotKept();
    void hiddenFilesAreNotProjects();
    void hostileDatabaseIsRefused_data();
    void hostileDatabaseIsRefused();
    void readingsAreKeptBetweenRuns();
    void damagedStoreIsIgnored_data();
    void damagedStoreIsIgnored();

private:
    QTemporaryDir m_cacheDir;
    QString m_strStore;
    QString m_strProjectFile;
    QString m_strMissionFile;
    QString m_strFolder;
    QDateTime m_fileTime;
};

void tst_CLmLocalProjectCache::init()
{
    ClearProjectRoot();
    m_strStore = m_cacheDir.filePath(QStringLiteral("scan.cbor"));
    QFile::remove(m_strStore);
    CLmProjectGenerator::SOptions options = Project(QStringLiteral("P1"), QStringLiteral("Field"), Early);
    options.iMissions = 4;
    options.iFlownMissions = 2;
    m_strProjectFile = WriteLocal(options);
    QVERIFY(!m_strProjectFile.isEmpty());
    m_strMissionFile = CLmControl::GetInstance()->GetFlightMissionFilePath(m_strProjectFile);
    m_strFolder = QFileInfo(m_strProjectFile).absolutePath();
    m_fileTime = QFileInfo(m_strProjectFile).lastModified();
}

void tst_CLmLocalProjectCache::changeAfterAScanIsSeen_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("userId");
    QTest::addColumn<int>("projects");
    QTest::addColumn<QString>("updateTime");
    QTest::addColumn<int>("missions");
    QTest::addColumn<int>("flown");
    QTest::addColumn<QStringList>("cities");
    const QStringList zurich{QStringLiteral("Zurich")};

    QTest::newRow("nothing") << Change([](const QString&, const QString&) {}) << "1" << 1 << Early << 4 << 2
                             << zurich;
    QTest::newRow("project row rewritten, same size")
        << Change([](const QString& project, const QString&) { Execute(project, RewriteUpdateTime()); }) << "1"
        << 1 << Changed << 4 << 2 << zurich;
    QTest::newRow("flight-log row added")
        << Change([](const QString&, const QString& missions) { Execute(missions, AddFlightLog()); }) << "1" << 1
        << Early << 4 << 3 << zurich;
    QTest::newRow("survey areas moved")
        << Change([](const QString& project, const QString&) {
               Execute(project, QStringLiteral("update %1 set home_lat = 48.8566, home_lng = 2.3522")
                                    .arg(QLatin1String(SurveyAreaTableName)));
           })
        << "1" << 1 << Early << 4 << 2 << QStringList{QStringLiteral("Paris")};
    QTest::newRow("flight task deleted")
        << Change([](const QString& project, const QString&) {
               Execute(project, QStringLiteral("delete from %1 where id = (select max(id) from %1)")
                                    .arg(QLatin1String(FlightTaskTableName)));
           })
        << "1" << 1 << Early << 3 << 2 << zurich;
    QTest::newRow("mission database removed")
        << Change([](const QString&, const QString& missions) { QVERIFY(QFile::remove(missions)); }) << "1" << 1
        << Early << 0 << 0 << zurich;
    QTest::newRow("project replaced by another file")
        << Change([](const QString& project, const QString&) {
               const QString replacement = project + QStringLiteral(".new");
               QVERIFY(QFile::copy(project, replacement));
               Execute(replacement, RewriteUpdateTime());
               QVERIFY(QFile::remove(project));
               QVERIFY(QFile::rename(replacement, project));
           })
        << "1" << 1 << Changed << 4 << 2 << zurich;
    QTest::newRow("another user signed in")
        << Change([](const QString&, const QString&) {}) << "2" << 0 << QString() << 0 << 0 << QStringList();
}

void tst_CLmLocalProjectCache::changeAfterAScanIsSeen()
{
    QFETCH(Change, change);
    QFETCH(QString, userId);
    QFETCH(int, projects);
    QFETCH(QString, updateTime);
    QFETCH(int, missions);
    QFETCH(int, flown);
    QFETCH(QStringList, cities);

    CLmLocalProjectCache cache(m_strStore);
    const SReading before = Scan(cache, m_strFolder);
    QCOMPARE(before.iMissions, 4);
    QCOMPARE(before.iFlown, 2);

    change(m_strProjectFile, m_strMissionFile);
    for (const QString& file : {m_strProjectFile, m_strMissionFile}) {
        if (QFile::exists(file))
            RestoreModificationTime(file, m_fileTime);
    }

    // The same run, and the next one starting from the kept readings.
    for (const SReading& after : {Scan(cache, m_strFolder, userId),
                                  ScanNextRun(m_strStore, m_strFolder, userId)}) {
        QCOMPARE(after.iProjects, projects);
        QCOMPARE(after.strUpdateTime, updateTime);
        QCOMPARE(after.iMissions, missions);
        QCOMPARE(after.iFlown, flown);
        QCOMPARE(after.listCities, cities);
    }
}

// Rows: which of the project's databases the change is made in.
void tst_CLmLocalProjectCache::changeWaitingInAWalIsSeen_data()
{
    QTest::addColumn<bool>("inMissionDatabase");
    QTest::newRow("project database") << false;
    QTest::newRow("mission database") << true;
}

// A writer in WAL mode keeps its commits beside the main file, whose stamp
// stays as it was until a checkpoint.
void tst_CLmLocalProjectCache::changeWaitingInAWalIsSeen()
{
    QFETCH(bool, inMissionDatabase);
    const QString file = inMissionDatabase ? m_strMissionFile : m_strProjectFile;
    Execute(file, QStringLiteral("PRAGMA journal_mode=WAL"));
    RestoreModificationTime(file, m_fileTime);
    CLmLocalProjectCache cache;
    QCOMPARE(Scan(cache, m_strFolder).iFlown, 2);

    CLmDataBase writer(file);
    QVERIFY(writer.Open());
    QVERIFY(writer.Exec(QStringLiteral("PRAGMA wal_autocheckpoint=0")));
    QVERIFY(writer.Exec(inMissionDatabase ? AddFlightLog() : RewriteUpdateTime()));
    QVERIFY(QFileInfo(file + QStringLiteral("-wal")).size() > 0);

    const SReading after = Scan(cache, m_strFolder);
    QCOMPARE(after.strUpdateTime, inMissionDatabase ? Early : Changed);
    QCOMPARE(after.iFlown, inMissionDatabase ? 3 : 2);
}

void tst_CLmLocalProjectCache::lockedDatabaseIsReadAgain_data()
{
    changeWaitingInAWalIsSeen_data();
}

// A database another program holds locked cannot be read; once it is free the
// project is read whole, though its files never changed.
void tst_CLmLocalProjectCache::lockedDatabaseIsReadAgain()
{
    QFETCH(bool, inMissionDatabase);
    CLmLocalProjectCache cache(m_strStore);
    {
        CLmDataBase locker(inMissionDatabase ? m_strMissionFile : m_strProjectFile);
        QVERIFY(locker.Open());
        QVERIFY(locker.Exec(QStringLiteral("BEGIN EXCLUSIVE")));
        const SReading locked = Scan(cache, m_strFolder);
        QVERIFY(locked.iProjects == 0 || locked.iMissions == 0);
        QVERIFY(locker.Exec(QStringLiteral("ROLLBACK")));
    }
    for (const SReading& after : {Scan(cache, m_strFolder), ScanNextRun(m_strStore, m_strFolder)}) {
        QCOMPARE(after.iProjects, 1);
        QCOMPARE(after.iMissions, 4);
        QCOMPARE(after.iFlown, 2);
    }
}

void tst_CLmLocalProjectCache::justWrittenFileIsNotKept_data()
{
    changeWaitingInAWalIsSeen_data();
}

// A file written a moment ago may be written again within its file system's
// clock tick: its reading is used but not kept.
void tst_CLmLocalProjectCache::justWrittenFileIsNotKept()
{
    QFETCH(bool, inMissionDatabase);
    RestoreModificationTime(inMissionDatabase ? m_strMissionFile : m_strProjectFile, QDateTime::currentDateTime());
    QCOMPARE(ScanNextRun(m_strStore, m_strFolder).iMissions, 4);
    QVERIFY(!QFile::exists(m_strStore));
}

void tst_CLmLocalProjectCache::hiddenFilesAreNotProjects()
{
    QVERIFY(QFile::copy(m_strProjectFile, m_strFolder + QStringLiteral("/.Field-backup.proj")));
    QFile junk(m_strFolder + QStringLiteral("/._Field.proj"));
    QVERIFY(junk.open(QIODevice::WriteOnly));
    junk.write(QByteArray(4096, 'x'));
    junk.close();

    CLmLocalProjectCache cache;
    const QList<SLocalProjectFile> files = cache.ReadFolder(m_strFolder, QStringLiteral("1"));
    QCOMPARE(files.size(), 1);
    QCOMPARE(files.first().listProjects.first().strProjPath, m_strProjectFile);
}

namespace {

// A view in place of a table, whose rows never end.
QStringList EndlessViewFor(const QString& table, const QString& columns)
{
    return {QStringLiteral("DROP TABLE %1").arg(table),
            QStringLiteral("CREATE VIEW %1 AS WITH RECURSIVE r(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM r)"
                           " SELECT %2 FROM r")
                .arg(table, columns)};
}

}  // namespace

// Rows: statements run on the project or the mission database; whether the
// project is still listed and whether its missions are still counted.
void tst_CLmLocalProjectCache::hostileDatabaseIsRefused_data()
{
    QTest::addColumn<bool>("inMissionDatabase");
    QTest::addColumn<QStringList>("statements");
    QTest::addColumn<int>("projects");
    QTest::addColumn<int>("missions");
    QTest::newRow("project table an endless view")
        << false
        << EndlessViewFor(QLatin1String(ProjectTableName),
                          QStringLiteral("'1' AS user_id, x AS id, 'n' AS project_name, '' AS updated_at"))
        << 0 << 0;
    QTest::newRow("survey areas an endless view")
        << false
        << EndlessViewFor(QLatin1String(SurveyAreaTableName),
                          QStringLiteral("x AS project_id, 0.0 AS home_lat, 0.0 AS home_lng"))
        << 0 << 0;
    QTest::newRow("trigger in the project database")
        << false
        << QStringList{QStringLiteral("CREATE TRIGGER t AFTER UPDATE ON %1 BEGIN DELETE FROM %1; END")
                           .arg(QLatin1String(ProjectTableName))}
        << 0 << 0;
    QTest::newRow("flight log an endless view")
        << true << EndlessViewFor(QLatin1String(FlightLogTableName), QStringLiteral("x AS flight_mission_id"))
        << 1 << 0;
}

void tst_CLmLocalProjectCache::hostileDatabaseIsRefused()
{
    QFETCH(bool, inMissionDatabase);
    QFETCH(QStringList, statements);
    QFETCH(int, projects);
    QFETCH(int, missions);
    for (const QString& statement : statements)
        Execute(inMissionDatabase ? m_strMissionFile : m_strProjectFile, statement);

    CLmLocalProjectCache cache(m_strStore);
    const SReading reading = Scan(cache, m_strFolder);
    QCOMPARE(reading.iProjects, projects);
    QCOMPARE(reading.iMissions, missions);
}

void tst_CLmLocalProjectCache::readingsAreKeptBetweenRuns()
{
    const SReading first = ScanNextRun(m_strStore, m_strFolder);
    QCOMPARE(first.listCities, QStringList{QStringLiteral("Zurich")});
    const quint64 keptStore = Inode(m_strStore);
    QVERIFY(keptStore != 0);

    // Every reading still holds, so the next run rewrites nothing.
    const SReading second = ScanNextRun(m_strStore, m_strFolder);
    QCOMPARE(Inode(m_strStore), keptStore);
    QCOMPARE(second.iProjects, first.iProjects);
    QCOMPARE(second.strUpdateTime, first.strUpdateTime);
    QCOMPARE(second.iMissions, first.iMissions);
    QCOMPARE(second.iFlown, first.iFlown);
    QCOMPARE(second.listCities, first.listCities);

    // A project that is gone is forgotten.
    QVERIFY(QDir(m_strFolder).removeRecursively());
    QCOMPARE(ScanNextRun(m_strStore, m_strFolder).iProjects, 0);
    QVERIFY(Inode(m_strStore) != keptStore);
}

void tst_CLmLocalProjectCache::damagedStoreIsIgnored_data()
{
    QTest::addColumn<QByteArray>("store");  // empty: a real store cut in half
    QTest::newRow("cut short") << QByteArray();
    QTest::newRow("not CBOR") << QByteArray("\xff\x00 not a cache at all", 22);
    QTest::newRow("another format") << QCborMap{{QStringLiteral("format"), 99}}.toCborValue().toCbor();
    QTest::newRow("entries of the wrong shape")
        << QCborMap{{QStringLiteral("format"), 1},
                    {QStringLiteral("entries"),
                     QCborArray{1, QStringLiteral("x"),
                                QCborMap{{QStringLiteral("path"), QStringLiteral("/nowhere.proj")},
                                         {QStringLiteral("project"), QCborArray{true}}}}}}
               .toCborValue()
               .toCbor();
}

void tst_CLmLocalProjectCache::damagedStoreIsIgnored()
{
    QFETCH(QByteArray, store);
    if (store.isEmpty()) {
        ScanNextRun(m_strStore, m_strFolder);
        store = ReadFile(m_strStore);
        store.chop(store.size() / 2);
    }
    QFile file(m_strStore);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(store);
    file.close();

    const SReading reading = ScanNextRun(m_strStore, m_strFolder);
    QCOMPARE(reading.iProjects, 1);
    QCOMPARE(reading.strUpdateTime, Early);
    QCOMPARE(reading.iMissions, 4);
    QCOMPARE(reading.iFlown, 2);
}

QTEST_GUILESS_MAIN(tst_CLmLocalProjectCache)
#include "tst_CLmLocalProjectCache.moc"
