#include "CCannedHttpPeer.h"
#include "CLmControl.h"
#include "CLmDataBase.h"
#include "CLmDeployConfig.h"
#include "CLmFlightDataDbOperator.h"
#include "CLmFlightUploadState.h"
#include "CLmProjectGenerator.h"
#include "CSkyCloudProcess.h"
#include "LmConstants.h"
#include "LmProjectConstants.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include "TestSession.h"

#include <QSettings>
#include <QTcpServer>
#include <QThread>
#include <QtTest>

namespace {

using TestSession::PointCloudAt;
using TestSession::SetSession;

CLmProjectGenerator::SOptions Missions(int missions, int flown, int rowsPerFlight)
{
    CLmProjectGenerator::SOptions options;
    options.strProjID = CLmProjectGenerator::NewProjectID();
    options.strProjName = options.strProjID;
    options.updatedAt = QDateTime::currentDateTimeUtc();
    options.iMissions = missions;
    options.iFlownMissions = flown;
    options.iLogRowsPerFlight = rowsPerFlight;
    return options;
}

int MarkCount(const QString& filePath)
{
    CLmDataBase db(filePath);
    if (!db.Open(true) || !db.TableExists(QLatin1String(CLmFlightUploadState::TableName)))
        return 0;
    return db.SelectValue(QStringLiteral("SELECT count(*) FROM %1").arg(QLatin1String(CLmFlightUploadState::TableName)))
        .toInt();
}

// A loopback address where nobody listens.
QByteArray ClosedPortUrl()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost, 0);
    const quint16 port = server.serverPort();
    server.close();
    return "http://127.0.0.1:" + QByteArray::number(port);
}

// What one check of an uploader reported.
struct SCheckResult
{
    int iPending = -1;
    int iUpLoading = 0;
};

}  // namespace

class tst_FlightDataUpload : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void checkUploadsFlownMissionsOnce();
    void refusedUploadMarksNothing_data();
    void refusedUploadMarksNothing();
    void nothingIsSentWithoutSessionOrNetwork_data();
    void nothingIsSentWithoutSessionOrNetwork();
    void oneMissionDatabaseOnly();

private:
    QString UserFolder() const;
    QString WriteUserMissions(const QString& fileName, const CLmProjectGenerator::SOptions& options) const;
    SCheckResult RunCheck(CLmFlightDataDbOperator& uploader);
    int CloudLogCount(const CLmProjectGenerator::SOptions& options, int mission);
    QJsonArray CloudFlightLog(const QString& projectId, qint64 missionId);

    CSkyCloudProcess m_cloud;
    QByteArray m_token;
    QString m_strUserID;
};

void tst_FlightDataUpload::initTestCase()
{
    QVERIFY(m_cloud.Start());
    const QJsonObject login = m_cloud.Call("/user/login", "phone=13800000001&password=skyconsole&device_id=");
    m_token = login.value("data").toObject().value("token").toString().toUtf8();
    m_strUserID = QString::number(login.value("data").toObject().value("id").toInt());
    QVERIFY(!m_token.isEmpty());
}

void tst_FlightDataUpload::init()
{
    QDir(UserFolder()).removeRecursively();
    QVERIFY(QDir().mkpath(UserFolder()));
    SetSession(QString::fromUtf8(m_token), m_strUserID);
    PointCloudAt(m_cloud.BaseUrl());
    CLmControl::GetInstance()->SetRouteFolder(QString());
    CLmControl::GetInstance()->SetNetWorkState(true);
}

QString tst_FlightDataUpload::UserFolder() const
{
    return CLmControl::GetInstance()->GetAppDataDirectory() + QStringLiteral("/Project/") + m_strUserID
           + QStringLiteral("/Vireo_AirLine");
}

QString tst_FlightDataUpload::WriteUserMissions(const QString& fileName,
                                                const CLmProjectGenerator::SOptions& options) const
{
    const QString path = UserFolder() + QLatin1Char('/') + fileName;
    return CLmProjectGenerator::WriteMissionDatabase(path, options) ? path : QString();
}

SCheckResult tst_FlightDataUpload::RunCheck(CLmFlightDataDbOperator& uploader)
{
    SCheckResult result;
    int finished = 0;
    QObject context;
    connect(&uploader, &CLmFlightDataDbOperator::NewDataChecked, &context, [&](int n) { result.iPending = n; });
    connect(&uploader, &CLmFlightDataDbOperator::UpLoading, &context, [&] { ++result.iUpLoading; });
    connect(&uploader, &CLmFlightDataDbOperator::UploadFinished, &context, [&] { ++finished; });
    QMetaObject::invokeMethod(&uploader, "slotCheckNewData", Qt::QueuedConnection);
    [&] { QTRY_COMPARE_WITH_TIMEOUT(finished, 1, 20000); }();
    return result;
}

QJsonArray tst_FlightDataUpload::CloudFlightLog(const QString& projectId, qint64 missionId)
{
    const QJsonObject reply = m_cloud.Call(
        "/flight/getflog", "project_id=" + projectId.toUtf8() + "&flight_mission_id=" + QByteArray::number(missionId),
        m_token);
    return reply.value("data").toArray();
}

// Flight-log rows the cloud holds for mission number `mission` (0-based) of
// the generated database, or -1 when the cloud does not know the mission.
int tst_FlightDataUpload::CloudLogCount(const CLmProjectGenerator::SOptions& options, int mission)
{
    const QJsonObject reply = m_cloud.Call(
        "/flight/listbytask", "task_id=" + CLmProjectGenerator::TaskGuid(options, mission).toUtf8(), m_token);
    const QJsonArray missions = reply.value("data").toArray();
    return missions.isEmpty() ? -1 : missions.first().toObject().value("log_count").toInt();
}

void tst_FlightDataUpload::checkUploadsFlownMissionsOnce()
{
    // Two batches for the long flight, one each for the short ones.
    const auto small = Missions(4, 2, 3);
    const auto large = Missions(3, 1, CLmFlightDataDbOperator::UploadBatchRows + 40);
    const auto shared = Missions(2, 2, 3);
    const QString smallFile = WriteUserMissions(QStringLiteral("small.db"), small);
    const QString largeFile = WriteUserMissions(QStringLiteral("large.db"), large);
    QVERIFY(!WriteUserMissions(QStringLiteral("Flight_Mission.db"), shared).isEmpty());
    QVERIFY(!smallFile.isEmpty() && !largeFile.isEmpty());

    // The hub's arrangement: the uploader on a thread of its own.
    QThread thread;
    auto* uploader = new CLmFlightDataDbOperator(nullptr, EUploadEnv(2));
    uploader->moveToThread(&thread);
    connect(&thread, &QThread::finished, uploader, &QObject::deleteLater);
    thread.start();

    SCheckResult first = RunCheck(*uploader);
    QCOMPARE(first.iPending, 3);
    QCOMPARE(first.iUpLoading, 1);
    for (int mission = 0; mission < small.iMissions; ++mission)
        QCOMPARE(CloudLogCount(small, mission), mission < small.iFlownMissions ? small.iLogRowsPerFlight : -1);
    for (int mission = 0; mission < large.iMissions; ++mission)
        QCOMPARE(CloudLogCount(large, mission), mission < large.iFlownMissions ? large.iLogRowsPerFlight : -1);
    QCOMPARE(CloudLogCount(shared, 0), -1);
    QCOMPARE(MarkCount(smallFile), 2);

    const SCheckResult second = RunCheck(*uploader);
    QCOMPARE(second.iPending, 0);
    QCOMPARE(second.iUpLoading, 0);

    // Rows logged after the upload are new data; only they travel.
    {
        CLmDataBase db(smallFile);
        QVERIFY(db.Open());
        QVERIFY(db.Exec(QStringLiteral("INSERT INTO flight_monitor_detail_log (flight_mission_id, log_time, lat, lng,"
                                       " alt) VALUES (1, '2030-01-01 00:00:00', 1, 2, 3)")));
    }
    const SCheckResult third = RunCheck(*uploader);
    QCOMPARE(third.iPending, 1);
    QCOMPARE(CloudLogCount(small, 0), small.iLogRowsPerFlight + 1);

    thread.quit();
    QVERIFY(thread.wait(5000));

    // What the cloud returns can be written into a mission database again.
    const QJsonArray log = CloudFlightLog(small.strProjID, 1);
    QCOMPARE(log.size(), small.iLogRowsPerFlight + 1);
    CLmFlightDataDbOperator reader(nullptr, UploadEnvNone);
    const QString copy = UserFolder() + QStringLiteral("/copy/downloaded.db");
    QVERIFY(QDir().mkpath(UserFolder() + QStringLiteral("/copy")));
    QSignalSpy parsed(&reader, &CLmFlightDataDbOperator::FlightDataParsed);
    reader.slotParseJson(log, copy, QStringLiteral("1"), FlightDataDetailLog, small.strProjName);
    QCOMPARE(parsed.at(0).at(3).toInt(), log.size());
}

void tst_FlightDataUpload::refusedUploadMarksNothing_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("401") << CCannedHttpPeer::Reply("401 Unauthorized",
                                                   R"({"status":401,"message":"Invalid token","data":{}})");
    QTest::newRow("500") << CCannedHttpPeer::Reply("500 Internal Server Error", "broken");
    QTest::newRow("other rows confirmed") << CCannedHttpPeer::Reply(
        "200 OK", R"({"status":0,"message":"OK","data":{"flight_mission_id":1,"last_log_id":1}})");
    QTest::newRow("not JSON") << CCannedHttpPeer::Reply("200 OK", "<html>proxy login</html>");
    QTest::newRow("network error") << QByteArray();
}

void tst_FlightDataUpload::refusedUploadMarksNothing()
{
    QFETCH(QByteArray, answer);
    CCannedHttpPeer peer(answer);
    PointCloudAt(answer.isEmpty() ? ClosedPortUrl() : peer.BaseUrl());
    const QString file = WriteUserMissions(QStringLiteral("refused.db"), Missions(3, 2, 5));

    CLmFlightDataDbOperator uploader(nullptr, UploadEnvCloud);
    const SCheckResult result = RunCheck(uploader);
    QCOMPARE(result.iUpLoading, 1);
    QCOMPARE(peer.RequestCount(), answer.isEmpty() ? 0 : 1);
    QCOMPARE(MarkCount(file), 0);
    // The next check offers the same missions again.
    QCOMPARE(RunCheck(uploader).iPending, 2);
}

void tst_FlightDataUpload::nothingIsSentWithoutSessionOrNetwork_data()
{
    QTest::addColumn<QString>("token");
    QTest::addColumn<bool>("online");
    QTest::addColumn<int>("environment");
    QTest::newRow("nobody signed in") << QString() << true << 2;
    QTest::newRow("offline") << QStringLiteral("t") << false << 2;
    QTest::newRow("environment none") << QStringLiteral("t") << true << 0;
    QTest::newRow("unsupported environment") << QStringLiteral("t") << true << 1;
}

void tst_FlightDataUpload::nothingIsSentWithoutSessionOrNetwork()
{
    QFETCH(QString, token);
    QFETCH(bool, online);
    QFETCH(int, environment);
    CCannedHttpPeer peer(CCannedHttpPeer::Reply("200 OK", R"({"status":0,"message":"OK","data":{}})"));
    PointCloudAt(peer.BaseUrl());
    SetSession(token, m_strUserID);
    CLmControl::GetInstance()->SetNetWorkState(online);
    const QString file = WriteUserMissions(QStringLiteral("waiting.db"), Missions(3, 2, 5));

    if (environment == 1)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("upload environment 1 is not supported")));
    CLmFlightDataDbOperator uploader(nullptr, EUploadEnv(environment));
    const SCheckResult result = RunCheck(uploader);
    QCOMPARE(result.iPending, 2);
    QCOMPARE(result.iUpLoading, 0);
    QTest::qWait(100);
    QCOMPARE(peer.RequestCount(), 0);
    QCOMPARE(MarkCount(file), 0);
}

void tst_FlightDataUpload::oneMissionDatabaseOnly()
{
    const auto userMissions = Missions(2, 2, 3);
    const auto projectMissions = Missions(3, 1, 4);
    QVERIFY(!WriteUserMissions(QStringLiteral("user.db"), userMissions).isEmpty());
    const QString projectFile = CLmControl::GetInstance()->GetProjectDirPath() + QStringLiteral("/Shared/Shared.db");
    QVERIFY(QDir().mkpath(CLmControl::GetInstance()->GetProjectDirPath() + QStringLiteral("/Shared")));
    QVERIFY(CLmProjectGenerator::WriteMissionDatabase(projectFile, projectMissions));

    CLmFlightDataDbOperator uploader(nullptr, UploadEnvCloud);
    uploader.SetFlightMissionFilePath(projectFile);
    QCOMPARE(RunCheck(uploader).iPending, 1);
    QCOMPARE(CloudLogCount(projectMissions, 0), projectMissions.iLogRowsPerFlight);
    QCOMPARE(CloudLogCount(userMissions, 0), -1);
}

QTEST_GUILESS_MAIN(tst_FlightDataUpload)
#include "tst_FlightDataUpload.moc"
