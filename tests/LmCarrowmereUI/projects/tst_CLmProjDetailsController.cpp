#include "CCannedHttpPeer.h"
#include "CDemoProjectCloud.h"
#include "CLmDataBase.h"
#include "CFlightWriterThread.h"
#include "CLmProjDetailsController.h"
#include "LmProjectConstants.h"
#include "ProjectTestHelpers.h"
#include "TestSession.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonObject>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

// The cloud and the writer thread answer well within this even on a loaded
// machine; it only bounds how long a broken run waits.
constexpr int kAnswerMs = 20000;

using EState = CLmProjDetailsController::EMissionState;

EState StateOf(const CLmProjDetailsController& controller, const QString& strMissionId)
{
    for (const CLmProjDetailsController::SMission& mission : controller.Missions()) {
        if (mission.strMissionId == strMissionId)
            return mission.eState;
    }
    return EState(-1);
}

QJsonArray TableRows(const QString& dbPath, const char* table, const char* keyColumn, const QString& strMissionId)
{
    QJsonArray rows;
    CLmDataBase db(dbPath);
    QSqlQuery query(db.Database());
    if (!db.Open(true)
        || !db.Exec(QStringLiteral("SELECT * FROM %1 WHERE %2 = ? ORDER BY id").arg(table, keyColumn),
                    {strMissionId}, &query))
        return rows;
    while (query.next()) {
        QJsonObject row;
        for (int i = 0; i < query.record().count(); ++i)
            row.insert(query.record().fieldName(i), QJsonValue::fromVariant(query.value(i)));
        rows.append(row);
    }
    return rows;
}

}  // namespace

class tst_CLmProjDetailsController : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void listsTheFlightsOfTheProjectsTasks();
    void downloadWritesTheCloudsRowsOnTheUploadThread();
    void unreadableListReplyListsNothing_data();
    void unreadableListReplyListsNothing();
    void unreadableDownloadReplyChangesNothing_data();
    void unreadableDownloadReplyChangesNothing();
    void failedDownloadOffersReDownload_data();
    void failedDownloadOffersReDownload();

private:
    void AddUnreadableReplies();
    void ShowDemoProject(CLmProjDetailsController& controller);
    QString SecondMissionId(const CLmProjDetailsController& controller);

    CDemoProjectCloud m_cloud;
    std::unique_ptr<QTemporaryDir> m_pProjectRoot;
    QString m_strProjectFile;
    // Each test's controller, served by the writer on its thread.
    std::unique_ptr<CLmProjDetailsController> m_pController;
    std::unique_ptr<CFlightWriterThread> m_pWriter;
};

void tst_CLmProjDetailsController::initTestCase()
{
    QVERIFY(m_cloud.Start());
}

void tst_CLmProjDetailsController::init()
{
    m_pProjectRoot = std::make_unique<QTemporaryDir>();
    m_strProjectFile = m_cloud.WriteProjectFile(m_pProjectRoot->path());
    QVERIFY(!m_strProjectFile.isEmpty());
    m_pController = std::make_unique<CLmProjDetailsController>();
    m_pWriter = std::make_unique<CFlightWriterThread>();
    m_pWriter->Serve(m_pController.get());
}

void tst_CLmProjDetailsController::cleanup()
{
    TestSession::PointCloudAt(m_cloud.BaseUrl());
    m_pWriter.reset();
    m_pController.reset();
    m_pProjectRoot.reset();
}

void tst_CLmProjDetailsController::ShowDemoProject(CLmProjDetailsController& controller)
{
    controller.ShowProject(m_cloud.ProjectId(), QLatin1String(CDemoProjectCloud::ProjectName), m_strProjectFile);
    QTRY_VERIFY_WITH_TIMEOUT(!controller.IsListing(), kAnswerMs);
}

QString tst_CLmProjDetailsController::SecondMissionId(const CLmProjDetailsController& controller)
{
    return controller.Missions().size() > 1 ? controller.Missions().at(1).strMissionId : QString();
}

// The demo project has eight flight tasks; the first was flown once, the
// second twice.
void tst_CLmProjDetailsController::listsTheFlightsOfTheProjectsTasks()
{
    CLmProjDetailsController& controller = *m_pController;
    ShowDemoProject(controller);

    QCOMPARE(controller.FlightTaskCount(), 8);
    QCOMPARE(controller.Missions().size(), 3);
    QStringList names;
    for (const CLmProjDetailsController::SMission& mission : controller.Missions()) {
        names.append(mission.strName);
        QVERIFY(mission.iLogRows > 0);
        QCOMPARE(mission.iPositions, qint64(24));
        QCOMPARE(mission.eState, CLmProjDetailsController::MissionNotDownloaded);
    }
    QCOMPARE(names, QStringList({"Mission 1", "Mission 2", "Mission 3"}));
    QCOMPARE(controller.DownloadedCount(), 0);
    QVERIFY(!QFileInfo::exists(controller.MissionDatabasePath()));
}

void tst_CLmProjDetailsController::downloadWritesTheCloudsRowsOnTheUploadThread()
{
    CLmProjDetailsController& controller = *m_pController;
    ShowDemoProject(controller);
    const QString strMissionId = SecondMissionId(controller);
    QVERIFY(!strMissionId.isEmpty());
    QSignalSpy handedOn(&controller, &CLmProjDetailsController::parseJsonArray);

    controller.DownloadMission(strMissionId);
    QCOMPARE(StateOf(controller, strMissionId), CLmProjDetailsController::MissionDownloading);
    QTRY_COMPARE_WITH_TIMEOUT(StateOf(controller, strMissionId), CLmProjDetailsController::MissionDownloaded, kAnswerMs);
    QCOMPARE(controller.DownloadedCount(), 1);
    QCOMPARE(handedOn.count(), 3);

    const QString dbPath = controller.MissionDatabasePath();
    const QByteArray missionForm = "flight_mission_id=" + strMissionId.toUtf8();
    QCOMPARE(TableRows(dbPath, FlightLogTableName, "flight_mission_id", strMissionId),
             m_cloud.Rows("/flight/getflog", missionForm));
    QCOMPARE(TableRows(dbPath, PosDataTableName, "flight_mission_id", strMissionId),
             m_cloud.Rows("/flight/downloadPos?" + missionForm, {}));
    QJsonObject listed = controller.Missions().at(1).jRow;
    for (const char* cloudOnlyKey : {"uploaded_at", "log_count", "pos_count"})
        listed.remove(QLatin1String(cloudOnlyKey));
    QCOMPARE(TableRows(dbPath, FlightMissionTableName, "id", strMissionId), QJsonArray({listed}));

    // Read again from disk: only the downloaded mission is on this computer.
    CLmProjDetailsController reread;
    ShowDemoProject(reread);
    for (const CLmProjDetailsController::SMission& mission : reread.Missions()) {
        QCOMPARE(mission.eState, mission.strMissionId == strMissionId ? CLmProjDetailsController::MissionDownloaded
                                                                      : CLmProjDetailsController::MissionNotDownloaded);
    }
}

void tst_CLmProjDetailsController::AddUnreadableReplies()
{
    QTest::addColumn<QByteArray>("body");

    QTest::newRow("not JSON") << QByteArray("<html>gateway busy</html>");
    QTest::newRow("empty body") << QByteArray();
    QTest::newRow("JSON without envelope") << QByteArray("[1, 2, 3]");
    QTest::newRow("success without an array") << QByteArray(R"({"status": 0, "message": "OK", "data": {}})");
}

void tst_CLmProjDetailsController::unreadableListReplyListsNothing_data()
{
    AddUnreadableReplies();
}

// A project of one flight task, so that the one canned reply answers its one
// list request.
void tst_CLmProjDetailsController::unreadableListReplyListsNothing()
{
    QFETCH(QByteArray, body);
    CLmProjectGenerator::SOptions project = ProjectTestHelpers::Project(
        m_cloud.ProjectId(), QStringLiteral("One Task"), QStringLiteral("2026-05-04 08:00:00"));
    project.iMissions = 1;
    const QString strProjectFile =
        CLmProjectGenerator::WriteProject(m_pProjectRoot->filePath(project.strProjName), project);
    CCannedHttpPeer peer(CCannedHttpPeer::Reply("200 OK", body));
    TestSession::PointCloudAt(peer.BaseUrl());
    CLmProjDetailsController& controller = *m_pController;

    controller.ShowProject(project.strProjID, project.strProjName, strProjectFile);
    QTRY_VERIFY_WITH_TIMEOUT(!controller.IsListing(), kAnswerMs);

    QVERIFY(controller.Missions().isEmpty());
    QVERIFY2(controller.StatusText().contains(QLatin1String("could not be read")),
             qPrintable(controller.StatusText()));
}

void tst_CLmProjDetailsController::unreadableDownloadReplyChangesNothing_data()
{
    AddUnreadableReplies();
}

void tst_CLmProjDetailsController::unreadableDownloadReplyChangesNothing()
{
    QFETCH(QByteArray, body);
    CLmProjDetailsController& controller = *m_pController;
    ShowDemoProject(controller);
    const QString strMissionId = SecondMissionId(controller);
    QSignalSpy handedOn(&controller, &CLmProjDetailsController::parseJsonArray);
    QSignalSpy states(&controller, &CLmProjDetailsController::MissionStateChanged);
    CCannedHttpPeer peer(CCannedHttpPeer::Reply("200 OK", body));
    TestSession::PointCloudAt(peer.BaseUrl());

    controller.DownloadMission(strMissionId);

    QTRY_COMPARE_WITH_TIMEOUT(states.count(), 2, kAnswerMs);
    QCOMPARE(StateOf(controller, strMissionId), CLmProjDetailsController::MissionNotDownloaded);
    QVERIFY2(controller.StatusText().contains(QLatin1String("could not be read")),
             qPrintable(controller.StatusText()));
    QCOMPARE(handedOn.count(), 0);
    QVERIFY(!QFileInfo::exists(controller.MissionDatabasePath()));
}

void tst_CLmProjDetailsController::failedDownloadOffersReDownload_data()
{
    QTest::addColumn<QByteArray>("refusal");
    QTest::addColumn<bool>("unreachable");
    QTest::addColumn<bool>("damagedDatabase");

    const QByteArray unknownMission = CCannedHttpPeer::Reply(
        "404 Not Found", R"({"status": 404, "message": "Unknown flight mission", "data": {}})");
    QTest::newRow("cloud refuses") << unknownMission << false << false;
    QTest::newRow("cloud unreachable") << QByteArray() << true << false;
    QTest::newRow("mission database damaged") << QByteArray() << false << true;
}

// The mission offers its download again, and the second try succeeds once
// the fault is gone.
void tst_CLmProjDetailsController::failedDownloadOffersReDownload()
{
    QFETCH(QByteArray, refusal);
    QFETCH(bool, unreachable);
    QFETCH(bool, damagedDatabase);
    CLmProjDetailsController& controller = *m_pController;
    ShowDemoProject(controller);
    const QString strMissionId = SecondMissionId(controller);
    const QByteArray damage("this is not a database");
    QFile database(controller.MissionDatabasePath());
    if (damagedDatabase)
        QVERIFY(database.open(QIODevice::WriteOnly) && database.write(damage) == damage.size());
    database.close();
    CCannedHttpPeer peer(refusal);
    if (!refusal.isEmpty())
        TestSession::PointCloudAt(peer.BaseUrl());
    if (unreachable)
        TestSession::PointCloudAt("http://127.0.0.1:1");

    controller.DownloadMission(strMissionId);

    QTRY_COMPARE_WITH_TIMEOUT(StateOf(controller, strMissionId), CLmProjDetailsController::MissionDownloadFailed, kAnswerMs);
    QVERIFY2(controller.StatusText().startsWith(QLatin1String("Could not download Mission 2")),
             qPrintable(controller.StatusText()));
    QCOMPARE(controller.DownloadedCount(), 0);

    TestSession::PointCloudAt(m_cloud.BaseUrl());
    if (damagedDatabase)
        QVERIFY(database.remove());
    controller.DownloadMission(strMissionId);
    QTRY_COMPARE_WITH_TIMEOUT(StateOf(controller, strMissionId), CLmProjDetailsController::MissionDownloaded, kAnswerMs);
}

QTEST_GUILESS_MAIN(tst_CLmProjDetailsController)
#include "tst_CLmProjDetailsController.moc"
