#include "CLmDataBase.h"
#include "CLmFlightDataWriter.h"
#include "CLmProjectSchema.h"
#include "LmFlightTemplate.h"
#include "LmProjectConstants.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QJsonArray JsonRows(const char* json)
{
    return QJsonDocument::fromJson(json).array();
}

QStringList ColumnsOf(const QString& table)
{
    QTemporaryDir dir;
    CLmDataBase db(dir.filePath(QStringLiteral("mission.db")));
    QStringList columns;
    QSqlQuery info(db.Database());
    if (db.Open() && CLmProjectSchema::CreateMissionTables(db)
        && db.Exec(QStringLiteral("PRAGMA table_info(%1)").arg(table), {}, &info)) {
        while (info.next())
            columns.append(info.value(QStringLiteral("name")).toString());
    }
    return columns;
}

}  // namespace

class tst_LmFlightTemplate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parse_data();
    void parse();
    void apply_data();
    void apply();
    void templateFillsEveryColumnOfItsTable_data();
    void templateFillsEveryColumnOfItsTable();
};

void tst_LmFlightTemplate::parse_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<LmFlightTemplate::Mapping>("expected");
    QTest::addColumn<int>("skippedLines");

    QTest::newRow("key equals column") << "id=id\nlat=lat\n" << LmFlightTemplate::Mapping{{"id", "id"}, {"lat", "lat"}}
                                       << 0;
    QTest::newRow("renamed key") << "missionId=flight_mission_id"
                                 << LmFlightTemplate::Mapping{{"missionId", "flight_mission_id"}} << 0;
    QTest::newRow("comments, blank lines and blanks around the parts")
        << "# reply keys\n\n  # indented comment\n  log_time =  log_time \r\nalt=alt\n"
        << LmFlightTemplate::Mapping{{"log_time", "log_time"}, {"alt", "alt"}} << 0;
    QTest::newRow("lines without key, column or '=' skipped")
        << "=lat\nlng=\nspeed\nbattery=battery" << LmFlightTemplate::Mapping{{"battery", "battery"}} << 3;
    QTest::newRow("empty template") << "" << LmFlightTemplate::Mapping() << 0;
}

void tst_LmFlightTemplate::parse()
{
    QFETCH(QString, text);
    QFETCH(LmFlightTemplate::Mapping, expected);
    QFETCH(int, skippedLines);

    for (int i = 0; i < skippedLines; ++i)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^flight-data template line skipped")));
    QCOMPARE(LmFlightTemplate::Parse(text), expected);
}

void tst_LmFlightTemplate::apply_data()
{
    QTest::addColumn<LmFlightTemplate::Mapping>("mapping");
    QTest::addColumn<QJsonArray>("rows");
    QTest::addColumn<QJsonArray>("expected");

    const LmFlightTemplate::Mapping logTemplate{{"id", "id"}, {"lat", "lat"}, {"missionId", "flight_mission_id"}};
    QTest::newRow("keys the template names")
        << logTemplate << JsonRows(R"([{"id": 1, "lat": 30.5}, {"id": 2, "lat": 30.6}])")
        << JsonRows(R"([{"id": 1, "lat": 30.5}, {"id": 2, "lat": 30.6}])");
    QTest::newRow("renamed key lands in its column")
        << logTemplate << JsonRows(R"([{"id": 1, "missionId": 7}])")
        << JsonRows(R"([{"id": 1, "flight_mission_id": 7}])");
    QTest::newRow("unknown keys dropped")
        << logTemplate << JsonRows(R"([{"id": 1, "lat": 30.5, "log_count": 40, "uploaded_at": "2026-01-01"}])")
        << JsonRows(R"([{"id": 1, "lat": 30.5}])");
    QTest::newRow("a column named as a key is not a key")
        << logTemplate << JsonRows(R"([{"id": 1, "flight_mission_id": 99}])") << JsonRows(R"([{"id": 1}])");
    QTest::newRow("rows keeping no key and values that are no object give no row")
        << logTemplate << JsonRows(R"([{"uploaded_log_id": 5}, 17, "text", null, {"id": 3}])")
        << JsonRows(R"([{"id": 3}])");
    QTest::newRow("empty template keeps nothing")
        << LmFlightTemplate::Mapping() << JsonRows(R"([{"id": 1}])") << QJsonArray();
}

void tst_LmFlightTemplate::apply()
{
    QFETCH(LmFlightTemplate::Mapping, mapping);
    QFETCH(QJsonArray, rows);
    QFETCH(QJsonArray, expected);

    QCOMPARE(LmFlightTemplate::Apply(mapping, rows), expected);
}

void tst_LmFlightTemplate::templateFillsEveryColumnOfItsTable_data()
{
    QTest::addColumn<unsigned int>("operatorType");

    for (const unsigned int type : {FlightDataMission, FlightDataUasStatus, FlightDataPosData, FlightDataDetailLog})
        QTest::newRow(qPrintable(CLmFlightDataWriter::TableName(type))) << type;
}

// A template that misses a column loses that column of every download; one
// that names a column twice lets two keys fight over it.
void tst_LmFlightTemplate::templateFillsEveryColumnOfItsTable()
{
    QFETCH(unsigned int, operatorType);

    const LmFlightTemplate::Mapping mapping = LmFlightTemplate::ForOperatorType(operatorType);
    QStringList columns = mapping.values();
    columns.sort();
    QStringList tableColumns = ColumnsOf(CLmFlightDataWriter::TableName(operatorType));
    tableColumns.sort();
    QVERIFY(!tableColumns.isEmpty());
    QCOMPARE(columns, tableColumns);
}

QTEST_GUILESS_MAIN(tst_LmFlightTemplate)
#include "tst_LmFlightTemplate.moc"
