#include "CLmPointCapture.h"
#include "CLmReferencePointStore.h"
#include "SBaseStationRecords.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

// The reference points on disk and the capture that produces them.
class tst_CLmReferencePointStore : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void createsTableWithItsStatement();
    void keepsPointsAcrossReopen_data();
    void keepsPointsAcrossReopen();
    void removesOnlyTheNamedPoint();
    void refusesNamesItCannotHold();
    void capturesPoint_data();
    void capturesPoint();

private:
    QTemporaryDir m_dir;
};

namespace {

SLmReferencePoint Point(const QString& name, double lat)
{
    SLmReferencePoint point;
    point.name = name;
    point.lat = lat;
    point.lng = 113.25;
    point.altitude = 12.5;
    point.stationVertical = 1.8;
    return point;
}

SGGAParam Report(double lat, double lng, double altitude, int quality)
{
    SGGAParam report;
    report.dLatitude = lat;
    report.dLongitude = lng;
    report.dAltitude = altitude;
    report.nQuality = quality;
    return report;
}

}  // namespace

void tst_CLmReferencePointStore::createsTableWithItsStatement()
{
    const QString path = m_dir.filePath(QStringLiteral("created/Referencepoint.db"));
    {
        CLmReferencePointStore store(path);
        QVERIFY(store.IsOpen());
        QVERIFY(store.Points().isEmpty());
    }
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("inspect"));
    db.setDatabaseName(path);
    QVERIFY(db.open());
    QSqlQuery query(db);
    QVERIFY(query.exec(QStringLiteral("SELECT sql FROM sqlite_master WHERE name='Referencepoint'")));
    QVERIFY(query.next());
    QCOMPARE(query.value(0).toString(),
             QStringLiteral("CREATE TABLE Referencepoint(\t\tid integer primary key not null,\t\tknown_point "
                            "varchar(32) DEFAULT NULL,\t\tlng double DEFAULT 0,\t\tlat double DEFAULT 0,\t\taltitude "
                            "double DEFAULT 0,\t\tstation_vertical double DEFAULT 0,\t\tdifferential_data "
                            "varchar(32) DEFAULT NULL\t)"));
    query.finish();
    db.close();
    db = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("inspect"));
}

void tst_CLmReferencePointStore::keepsPointsAcrossReopen_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "Tower";
    QTest::newRow("quote") << "O'Neil's mast";
    QTest::newRow("statement") << "x');DROP TABLE Referencepoint;--";
    QTest::newRow("unicode") << QStringLiteral("Gipfel \u00fc 1");
}

void tst_CLmReferencePointStore::keepsPointsAcrossReopen()
{
    QFETCH(QString, name);
    const QString path = m_dir.filePath(QStringLiteral("%1.db").arg(QTest::currentDataTag()));
    {
        CLmReferencePointStore store(path);
        QVERIFY(store.Insert(Point(QStringLiteral("First"), -22.5)));
        QVERIFY(store.Insert(Point(name, 31.0)));
    }
    CLmReferencePointStore reopened(path);
    const QList<SLmReferencePoint> points = reopened.Points();
    QCOMPARE(points.size(), 2);
    QCOMPARE(points.at(0).name, QStringLiteral("First"));
    QCOMPARE(points.at(0).lat, -22.5);
    QCOMPARE(points.at(1).name, name);
    QCOMPARE(points.at(1).lat, 31.0);
    QCOMPARE(points.at(1).lng, 113.25);
    QCOMPARE(points.at(1).altitude, 12.5);
    QCOMPARE(points.at(1).stationVertical, 1.8);
}

void tst_CLmReferencePointStore::removesOnlyTheNamedPoint()
{
    CLmReferencePointStore store(m_dir.filePath(QStringLiteral("remove.db")));
    QVERIFY(store.Insert(Point(QStringLiteral("A' OR '1'='1"), 1)));
    QVERIFY(store.Insert(Point(QStringLiteral("B"), 2)));
    QVERIFY(store.Remove(QStringLiteral("A' OR '1'='1")));
    QCOMPARE(store.Names(), QStringList{QStringLiteral("B")});
}

void tst_CLmReferencePointStore::refusesNamesItCannotHold()
{
    CLmReferencePointStore store(m_dir.filePath(QStringLiteral("names.db")));
    QVERIFY(store.Insert(Point(QStringLiteral("Tower"), 1)));
    QVERIFY(!store.Insert(Point(QStringLiteral("Tower"), 2)));
    QVERIFY(!store.Insert(Point(QString(33, QLatin1Char('n')), 3)));
    QVERIFY(store.Insert(Point(QStringLiteral("tower"), 4)));
    QCOMPARE(store.Names(), (QStringList{QStringLiteral("Tower"), QStringLiteral("tower")}));
}

void tst_CLmReferencePointStore::capturesPoint_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("quantity");
    QTest::addColumn<bool>("fixedOnly");
    QTest::addColumn<double>("limitM");
    QTest::addColumn<int>("reportsNeeded");
    QTest::addColumn<double>("altitude");
    // Reports: fix 0, then RTK fixed at 10 m, float at 20 m, an outlier
    // 1 km north at 1000 m, fixed at 30 m, float at 40 m.
    QTest::newRow("single point takes the first fix") << 0 << 5 << false << 0.0 << 2 << 10.0;
    QTest::newRow("average of three") << 1 << 3 << false << 0.0 << 4 << (10.0 + 20.0 + 1000.0) / 3;
    QTest::newRow("limit leaves out the outlier") << 1 << 3 << false << 5.0 << 5 << 20.0;
    QTest::newRow("fixed only") << 1 << 2 << true << 5.0 << 5 << 20.0;
}

void tst_CLmReferencePointStore::capturesPoint()
{
    QFETCH(int, mode);
    QFETCH(int, quantity);
    QFETCH(bool, fixedOnly);
    QFETCH(double, limitM);
    QFETCH(int, reportsNeeded);
    QFETCH(double, altitude);
    const QList<SGGAParam> reports{Report(-2230.0, 11315.0, 5, 0),     Report(-2230.0, 11315.0, 10, 4),
                                   Report(-2230.0, 11315.0, 20, 5),    Report(-2229.46, 11315.0, 1000, 5),
                                   Report(-2230.0, 11315.0, 30, 4),    Report(-2230.0, 11315.0, 40, 5)};
    CLmPointCapture capture;
    capture.Start(CLmPointCapture::EMode(mode), quantity, fixedOnly, limitM);
    int fed = 0;
    bool done = false;
    while (!done && fed < reports.size())
        done = capture.Feed(reports.at(fed++));
    QVERIFY(done);
    QCOMPARE(fed, reportsNeeded);
    QVERIFY(capture.HasResult());
    QVERIFY(qAbs(capture.Result().altitude - altitude) < 1e-9);
    QVERIFY(qAbs(capture.Result().lng - 113.25) < 1e-9);
}

QTEST_GUILESS_MAIN(tst_CLmReferencePointStore)
#include "tst_CLmReferencePointStore.moc"
