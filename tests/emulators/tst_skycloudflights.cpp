#include "CLmFlightDataWriter.h"
#include "CLmFlightUploadState.h"
#include "CLmProjectGenerator.h"
#include "CSkyCloudProcess.h"
#include "LmProjectConstants.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

namespace {

QDateTime TimeOf(const QJsonValue& text)
{
    return QDateTime::fromString(text.toString(), QLatin1String(DateTimeSFormat));
}

// Metres between two rows' positions, flat-earth, which is close enough over a block.
double MetresBetween(const QJsonObject& a, const QJsonObject& b)
{
    const double north = (a.value("lat").toDouble() - b.value("lat").toDouble()) * 111320.0;
    const double east = (a.value("lng").toDouble() - b.value("lng").toDouble()) * 111320.0
                        * std::cos(a.value("lat").toDouble() * M_PI / 180.0);
    return std::hypot(north, east);
}

}  // namespace

// The flight data of the emulated cloud as the project details page reads
// it: the missions of a flight task, and the flight log and photo positions
// of one mission, which must go back into a mission database as they came.
class tst_SkyCloudFlights : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void demoProjectsHaveFlownMissions();
    void demoTracksArePlausible();
    void downloadedMissionWritesBack();
    void missionRows_data();
    void missionRows();
    void sharedMissionIdNeedsProject_data();
    void sharedMissionIdNeedsProject();

private:
    // The missions of every flight task of the account's projects.
    QJsonArray MissionsOfAccount(const QByteArray& token);
    QJsonArray Rows(const QByteArray& path, const QByteArray& fields, const QByteArray& token, int* httpStatus);
    void UploadMission(const QByteArray& projectId, qint64 missionId, qint64 logId);

    CSkyCloudProcess m_cloud;
    QByteArray m_tokenOne;
    QByteArray m_tokenTwo;
    QJsonArray m_missionsOne;
    QJsonArray m_missionsTwo;
};

void tst_SkyCloudFlights::initTestCase()
{
    QVERIFY(m_cloud.Start());
    m_tokenOne = m_cloud.SignIn("13800000001");
    m_tokenTwo = m_cloud.SignIn("13800000002");
    m_missionsOne = MissionsOfAccount(m_tokenOne);
    m_missionsTwo = MissionsOfAccount(m_tokenTwo);
}

QJsonArray tst_SkyCloudFlights::MissionsOfAccount(const QByteArray& token)
{
    QJsonArray missions;
    for (const QJsonValue& value : m_cloud.Call("/project/list", {}, token).value("data").toArray()) {
        const QJsonObject project = value.toObject();
        CLmProjectGenerator::SOptions options;
        options.strProjID = project.value("id").toString();
        for (int task = 0; task < project.value("flight_mission_count").toInt(); ++task) {
            const QByteArray taskId = CLmProjectGenerator::TaskGuid(options, task).toUtf8();
            for (const QJsonValue& mission : m_cloud.Call("/flight/listbytask", "task_id=" + taskId, token)
                                                 .value("data")
                                                 .toArray())
                missions.append(mission);
        }
    }
    return missions;
}

QJsonArray tst_SkyCloudFlights::Rows(const QByteArray& path, const QByteArray& fields, const QByteArray& token,
                                     int* httpStatus)
{
    // The hub names the mission of "/flight/downloadPos" in the query; the other calls post a form.
    const QJsonObject reply = path == "/flight/downloadPos" ? m_cloud.Call(path + "?" + fields, {}, token, httpStatus)
                                                            : m_cloud.Call(path, fields, token, httpStatus);
    return reply.value("data").toArray();
}

void tst_SkyCloudFlights::demoProjectsHaveFlownMissions()
{
    const std::pair<QJsonArray, int> accounts[] = {{m_missionsOne, 3}, {m_missionsTwo, 2}};
    for (const auto& [missions, projectCount] : accounts) {
        QSet<qint64> ids;
        QSet<QString> projects;
        for (const QJsonValue& value : missions) {
            const QJsonObject mission = value.toObject();
            QVERIFY(mission.value("log_count").toInt() > 0);
            QVERIFY(mission.value("pos_count").toInt() > 0);
            ids.insert(mission.value("id").toVariant().toLongLong());
            projects.insert(mission.value("project_id").toString());
        }
        // The bare "/flight/downloadPos?flight_mission_id=" of the hub must name one mission.
        QCOMPARE(ids.size(), missions.size());
        QCOMPARE(projects.size(), projectCount);
    }
}

void tst_SkyCloudFlights::demoTracksArePlausible()
{
    for (const QJsonValue& value : m_missionsOne) {
        const QByteArray missionField = "flight_mission_id=" + QByteArray::number(value.toObject().value("id").toInt());
        int status = 0;
        const QJsonArray log = Rows("/flight/getflog", missionField, m_tokenOne, &status);
        const QJsonArray positions = Rows("/flight/downloadPos", missionField, m_tokenOne, &status);
        QVERIFY(log.size() > 10);
        QCOMPARE(log.first().toObject().value("alt").toDouble(), 0.0);
        QCOMPARE(log.last().toObject().value("alt").toDouble(), 0.0);
        QVERIFY(MetresBetween(log.first().toObject(), log.last().toObject()) < 1.0);
        for (int i = 1; i < log.size(); ++i) {
            const QJsonObject previous = log.at(i - 1).toObject();
            const QJsonObject row = log.at(i).toObject();
            const qint64 seconds = TimeOf(previous.value("log_time")).secsTo(TimeOf(row.value("log_time")));
            QVERIFY(seconds > 0);
            // No jumps: a survey aircraft covers at most some 30 m a second.
            QVERIFY(MetresBetween(previous, row) <= 30.0 * seconds);
            QVERIFY(row.value("alt").toDouble() >= 0 && row.value("alt").toDouble() <= 150);
            QVERIFY(row.value("battery").toInt() <= previous.value("battery").toInt());
        }
        const QDateTime landed = TimeOf(log.last().toObject().value("log_time"));
        for (int i = 0; i < positions.size(); ++i) {
            const QJsonObject photo = positions.at(i).toObject();
            QCOMPARE(photo.value("photo_index").toInt(), i + 1);
            QVERIFY(TimeOf(photo.value("shot_time")) <= landed);
            QVERIFY(photo.value("alt").toDouble() > 100);
            QVERIFY(MetresBetween(photo, log.first().toObject()) < 1000);
        }
    }
}

void tst_SkyCloudFlights::downloadedMissionWritesBack()
{
    const QJsonObject mission = m_missionsOne.at(1).toObject();
    const qint64 missionId = mission.value("id").toInt();
    const QByteArray fields = "project_id=" + mission.value("project_id").toString().toUtf8()
                              + "&flight_mission_id=" + QByteArray::number(missionId);
    int status = 0;
    const QJsonArray log = Rows("/flight/getflog", fields, m_tokenOne, &status);
    const QJsonArray positions = Rows("/flight/downloadPos", fields, m_tokenOne, &status);

    QTemporaryDir folder;
    const QString file = folder.filePath("mission.db");
    const QString missionText = QString::number(missionId);
    QCOMPARE(CLmFlightDataWriter::Write(file, FlightDataMission, {mission}, missionText), 1);
    QCOMPARE(CLmFlightDataWriter::Write(file, FlightDataDetailLog, log, missionText), log.size());
    QCOMPARE(CLmFlightDataWriter::Write(file, FlightDataPosData, positions, missionText), positions.size());

    // Read back the way the uploader reads a mission database: the same rows, key for key.
    const QList<CLmFlightUploadState::SMission> pending = CLmFlightUploadState::PendingMissions(file);
    QCOMPARE(pending.size(), 1);
    QCOMPARE(pending.first().iMissionID, missionId);
    QCOMPARE(pending.first().strTaskID, mission.value("flight_task_id").toString());
    for (const QString& key : pending.first().jMission.keys())
        QCOMPARE(pending.first().jMission.value(key), mission.value(key));
    QCOMPARE(CLmFlightUploadState::NextBatch(file, missionId, log.size() + 1).jRows, log);
}

void tst_SkyCloudFlights::missionRows_data()
{
    QTest::addColumn<QByteArray>("path");
    // "own", "own other" and "other" name account one's first and last mission and account two's first.
    QTest::addColumn<QString>("project");
    QTest::addColumn<QString>("mission");
    QTest::addColumn<int>("httpStatus");

    for (const char* path : {"/flight/getflog", "/flight/downloadPos"}) {
        QTest::addRow("%s own mission", path) << QByteArray(path) << "" << "own" << 200;
        QTest::addRow("%s own mission in its project", path) << QByteArray(path) << "own" << "own" << 200;
        QTest::addRow("%s own mission in another own project", path) << QByteArray(path) << "own other" << "own"
                                                                      << 404;
        QTest::addRow("%s another account's mission", path) << QByteArray(path) << "other" << "other" << 404;
        QTest::addRow("%s unknown mission", path) << QByteArray(path) << "" << "987654" << 404;
        QTest::addRow("%s mission id not a number", path) << QByteArray(path) << "" << "1x" << 400;
        QTest::addRow("%s no mission id", path) << QByteArray(path) << "own" << "" << 400;
    }
}

void tst_SkyCloudFlights::missionRows()
{
    QFETCH(QByteArray, path);
    QFETCH(QString, project);
    QFETCH(QString, mission);
    QFETCH(int, httpStatus);

    // Account two's first mission has an id that account one has too, in another project.
    const QHash<QString, QJsonObject> picks{{"own", m_missionsOne.first().toObject()},
                                           {"own other", m_missionsOne.last().toObject()},
                                           {"other", m_missionsTwo.first().toObject()}};
    const QJsonObject own = picks.value("own");
    QVERIFY(own.value("project_id") != picks.value("own other").value("project_id"));
    QByteArray fields;
    if (picks.contains(project))
        fields += "project_id=" + picks.value(project).value("project_id").toString().toUtf8() + "&";
    fields += "flight_mission_id="
              + (picks.contains(mission) ? QByteArray::number(picks.value(mission).value("id").toInt()) : mission.toUtf8());

    int status = 0;
    const QJsonArray rows = Rows(path, fields, m_tokenOne, &status);
    QCOMPARE(status, httpStatus);
    if (httpStatus != 200) {
        QVERIFY(rows.isEmpty());
        return;
    }
    QCOMPARE(rows.size(), own.value(path == "/flight/getflog" ? "log_count" : "pos_count").toInt());
    qint64 previousId = 0;
    for (const QJsonValue& row : rows) {
        QCOMPARE(row.toObject().value("flight_mission_id"), own.value("id"));
        QVERIFY(row.toObject().value("id").toInt() > previousId);
        previousId = row.toObject().value("id").toInt();
    }
}

void tst_SkyCloudFlights::UploadMission(const QByteArray& projectId, qint64 missionId, qint64 logId)
{
    const QJsonArray rows{QJsonObject{{"id", logId}, {"log_time", "2030-01-01 08:00:00"}, {"lat", 1.0}, {"lng", 2.0},
                                      {"alt", 3.0}}};
    int status = 0;
    m_cloud.Call("/flight/upload",
                 "project_id=" + projectId + "&flight_mission_id=" + QByteArray::number(missionId) + "&rows="
                     + QUrl::toPercentEncoding(QJsonDocument(rows).toJson(QJsonDocument::Compact)),
                 m_tokenOne, &status);
    QCOMPARE(status, 200);
}

void tst_SkyCloudFlights::sharedMissionIdNeedsProject_data()
{
    QTest::addColumn<QByteArray>("fields");
    QTest::addColumn<int>("httpStatus");
    QTest::addColumn<int>("logId");

    QTest::newRow("id alone") << QByteArray("flight_mission_id=77") << 400 << 0;
    QTest::newRow("first project") << QByteArray("project_id=mission-77-a&flight_mission_id=77") << 200 << 701;
    QTest::newRow("second project") << QByteArray("project_id=mission-77-b&flight_mission_id=77") << 200 << 702;
}

// Mission ids count per mission database: two projects may both have mission 77.
void tst_SkyCloudFlights::sharedMissionIdNeedsProject()
{
    QFETCH(QByteArray, fields);
    QFETCH(int, httpStatus);
    QFETCH(int, logId);

    UploadMission("mission-77-a", 77, 701);
    UploadMission("mission-77-b", 77, 702);
    for (const QByteArray path : {"/flight/getflog", "/flight/downloadPos"}) {
        int status = 0;
        const QJsonObject reply = m_cloud.Call(path, fields, m_tokenOne, &status);
        QCOMPARE(status, httpStatus);
        QVERIFY(!reply.value("message").toString().isEmpty());
    }
    int status = 0;
    const QJsonArray log = Rows("/flight/getflog", fields, m_tokenOne, &status);
    QCOMPARE(log.size(), logId ? 1 : 0);
    if (logId)
        QCOMPARE(log.first().toObject().value("id").toInt(), logId);
}

QTEST_GUILESS_MAIN(tst_SkyCloudFlights)
#include "tst_skycloudflights.moc"
