#include "CLmDataBase.h"
#include "CLmFlightDataDbOperator.h"
#include "CLmProjectGenerator.h"
#include "CLmClock.h"
#include "LmProjectConstants.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

namespace {

class CFakeUploadClock : public CLmClock
{
public:
    void Start(int ms) override
    {
        m_iPeriodMs = ms;
        m_bActive = true;
    }
    void Stop() override { m_bActive = false; }
    bool IsActive() const override { return m_bActive; }
    int PeriodMs() const { return m_iPeriodMs; }
    void Tick() { Q_EMIT timeout(); }

private:
    int m_iPeriodMs = 0;
    bool m_bActive = false;
};

QByteArray ReadFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString LastValue(const QString& filePath, const QString& table, const QString& column)
{
    CLmDataBase db(filePath);
    if (!db.Open(true))
        return QStringLiteral("<cannot open>");
    return db.SelectValue(QStringLiteral("SELECT \"%1\" FROM %2 ORDER BY id DESC LIMIT 1").arg(column, table)).toString();
}

int RowCount(const QString& filePath, const QString& table)
{
    CLmDataBase db(filePath);
    if (!db.Open(true))
        return -1;
    return db.SelectValue(QStringLiteral("SELECT count(*) FROM %1").arg(table)).toInt();
}

const QString HostileText = QStringLiteral("x'); DROP TABLE flight_mission; -- \"quoted\" \\ %s");

QJsonObject LogRow(const QString& logTime)
{
    return {{"log_time", logTime}, {"lat", 47.1}, {"lng", 8.5}, {"alt", 120.5}, {"speed", 12}, {"battery", 88}};
}

}  // namespace

class tst_FlightDataParse : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void rowsAreWritten_data();
    void rowsAreWritten();
    void rowsJoinAnExistingMissionDatabase();
    void sameDownloadTwiceChangesNothing();
    void refusedTargetsStayUntouched_data();
    void refusedTargetsStayUntouched();
    void timerStartsAndStops();

private:
    int Parse(const QJsonArray& rows, const QString& filePath, unsigned int type, const QString& missionId = {});

    QTemporaryDir m_dir;
    QString m_strTarget;
};

void tst_FlightDataParse::init()
{
    static int counter = 0;
    m_strTarget = m_dir.filePath(QStringLiteral("mission-%1.db").arg(++counter));
}

int tst_FlightDataParse::Parse(const QJsonArray& rows, const QString& filePath, unsigned int type,
                               const QString& missionId)
{
    CLmFlightDataDbOperator uploader(nullptr, UploadEnvNone);
    QSignalSpy parsed(&uploader, &CLmFlightDataDbOperator::FlightDataParsed);
    uploader.slotParseJson(rows, filePath, missionId, type, QStringLiteral("Test project"));
    return parsed.count() == 1 ? parsed.at(0).at(3).toInt() : -2;
}

void tst_FlightDataParse::rowsAreWritten_data()
{
    QTest::addColumn<uint>("type");
    QTest::addColumn<QJsonArray>("rows");
    QTest::addColumn<int>("written");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("expected");

    const QJsonObject mission{{"id", 7},           {"flight_task_id", "task-7"}, {"project_id", "p-1"},
                              {"mission_name", "North"}, {"created_at", "2024-05-01 10:00:00"}};
    QTest::newRow("flight mission") << uint(FlightDataMission) << QJsonArray{mission} << 1 << "flight_mission"
                                    << "mission_name" << "North";
    QTest::newRow("log rows take the mission id")
        << uint(FlightDataDetailLog) << QJsonArray{LogRow("2024-05-01 10:00:01"), LogRow("2024-05-01 10:00:02")} << 2
        << "flight_monitor_detail_log" << "flight_mission_id" << "7";
    QTest::newRow("uas status") << uint(FlightDataUasStatus)
                                << QJsonArray{QJsonObject{{"log_time", "2024-05-01 10:00:01"}, {"satellites", 17}}}
                                << 1 << "uas_status" << "satellites" << "17";
    QTest::newRow("position data") << uint(FlightDataPosData)
                                   << QJsonArray{QJsonObject{{"photo_index", 3},
                                                             {"shot_time", "2024-05-01 10:00:03"},
                                                             {"lat", 47.25},
                                                             {"lng", 8.5},
                                                             {"alt", 130}}}
                                   << 1 << "pos_data" << "lat" << "47.25";
    QTest::newRow("hostile text stays data") << uint(FlightDataDetailLog) << QJsonArray{LogRow(HostileText)} << 1
                                             << "flight_monitor_detail_log" << "log_time" << HostileText;
    QJsonObject withStrangers = mission;
    withStrangers.insert(QStringLiteral("weather"), QStringLiteral("sunny"));
    withStrangers.insert(QStringLiteral("mission_name\"); DROP TABLE flight_mission; --"), 1);
    QTest::newRow("unknown keys are ignored") << uint(FlightDataMission) << QJsonArray{withStrangers} << 1
                                              << "flight_mission" << "mission_name" << "North";
    QTest::newRow("invalid rows are skipped")
        << uint(FlightDataDetailLog)
        << QJsonArray{1, "text", QJsonObject{}, QJsonObject{{"unknown", 1}}, QJsonObject{{"lat", 1.0}},
                      LogRow("2024-05-01 10:00:09")}
        << 1 << "flight_monitor_detail_log" << "log_time" << "2024-05-01 10:00:09";
    QTest::newRow("nested values become JSON text")
        << uint(FlightDataMission) << QJsonArray{QJsonObject{{"id", 8}, {"flight_task_id", QJsonArray{1, 2}},
                                                             {"project_id", QJsonObject{{"a", true}}},
                                                             {"mission_name", "Nested"},
                                                             {"created_at", "2024-05-01"}}}
        << 1 << "flight_mission" << "flight_task_id" << "[1,2]";
}

void tst_FlightDataParse::rowsAreWritten()
{
    QFETCH(uint, type);
    QFETCH(QJsonArray, rows);
    QFETCH(int, written);
    QFETCH(QString, table);
    QFETCH(QString, column);
    QFETCH(QString, expected);

    for (int skipped = 0; skipped < rows.size() - written; ++skipped)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^skipping")));
    QCOMPARE(Parse(rows, m_strTarget, type, QStringLiteral("7")), written);
    QCOMPARE(RowCount(m_strTarget, table), written);
    QCOMPARE(LastValue(m_strTarget, table, column), expected);
    // Every table of a mission database exists afterwards.
    for (const char* other : {FlightMissionTableName, FlightLogTableName, UasStatusTableName, PosDataTableName})
        QVERIFY2(RowCount(m_strTarget, QLatin1String(other)) >= 0, other);
}

void tst_FlightDataParse::rowsJoinAnExistingMissionDatabase()
{
    CLmProjectGenerator::SOptions options;
    options.strProjID = QStringLiteral("p-existing");
    options.strProjName = QStringLiteral("Existing");
    options.updatedAt = QDateTime::currentDateTimeUtc();
    options.iMissions = 3;
    options.iFlownMissions = 2;
    options.iLogRowsPerFlight = 4;
    QVERIFY(CLmProjectGenerator::WriteMissionDatabase(m_strTarget, options));

    QCOMPARE(Parse({LogRow("2030-01-01 00:00:00")}, m_strTarget, FlightDataDetailLog, QStringLiteral("3")), 1);
    QCOMPARE(RowCount(m_strTarget, QLatin1String(FlightLogTableName)), 9);
    QCOMPARE(RowCount(m_strTarget, QLatin1String(FlightMissionTableName)), 3);
}

void tst_FlightDataParse::sameDownloadTwiceChangesNothing()
{
    QJsonObject row = LogRow("2024-05-01 10:00:01");
    row.insert(QStringLiteral("id"), 41);
    const QJsonArray rows{row};
    QCOMPARE(Parse(rows, m_strTarget, FlightDataDetailLog, QStringLiteral("2")), 1);
    QCOMPARE(Parse(rows, m_strTarget, FlightDataDetailLog, QStringLiteral("2")), 1);
    QCOMPARE(RowCount(m_strTarget, QLatin1String(FlightLogTableName)), 1);
}

void tst_FlightDataParse::refusedTargetsStayUntouched_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<uint>("type");
    QTest::newRow("not a database") << "garbage" << uint(FlightDataDetailLog);
    QTest::newRow("truncated database") << "truncated" << uint(FlightDataDetailLog);
    QTest::newRow("unknown table number") << "intact" << 9u;
}

void tst_FlightDataParse::refusedTargetsStayUntouched()
{
    QFETCH(QString, kind);
    QFETCH(uint, type);

    CLmProjectGenerator::SOptions options;
    options.strProjID = QStringLiteral("p-refused");
    options.updatedAt = QDateTime::currentDateTimeUtc();
    options.iLogRowsPerFlight = 200;
    QVERIFY(CLmProjectGenerator::WriteMissionDatabase(m_strTarget, options));
    QByteArray bytes = ReadFile(m_strTarget);
    if (kind == QLatin1String("garbage"))
        bytes = QByteArray("flight notes, not a database\n").repeated(40);
    else if (kind == QLatin1String("truncated"))
        bytes.truncate(bytes.size() / 2);
    QFile file(m_strTarget);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
    file.close();

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("not an intact|unknown flight data type")));
    QCOMPARE(Parse({LogRow("2024-05-01 10:00:01")}, m_strTarget, type, QStringLiteral("1")), -1);
    QCOMPARE(ReadFile(m_strTarget), bytes);
}

void tst_FlightDataParse::timerStartsAndStops()
{
    auto* clock = new CFakeUploadClock;
    CLmFlightDataDbOperator uploader(nullptr, UploadEnvNone, clock);
    QSignalSpy checked(&uploader, &CLmFlightDataDbOperator::NewDataChecked);

    uploader.slotStartUploadTimer(true);
    QVERIFY(clock->IsActive());
    QCOMPARE(clock->PeriodMs(), CLmFlightDataDbOperator::UploadIntervalMs);
    clock->Tick();
    clock->Tick();
    QCOMPARE(checked.count(), 2);

    uploader.slotStartUploadTimer(false);
    QVERIFY(!clock->IsActive());
}

QTEST_GUILESS_MAIN(tst_FlightDataParse)
#include "tst_FlightDataParse.moc"
