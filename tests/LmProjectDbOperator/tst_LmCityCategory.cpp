#include "LmCityCategory.h"

#include <QtTest>

#include <limits>

class tst_LmCityCategory : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void nearestCity_data();
    void nearestCity();
};

void tst_LmCityCategory::nearestCity_data()
{
    QTest::addColumn<double>("lat");
    QTest::addColumn<double>("lng");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Zurich centre") << 47.3769 << 8.5417 << "Zurich";
    QTest::newRow("Chengdu") << 30.66 << 104.06 << "Chengdu";
    QTest::newRow("across the date line") << -16.5 << 179.9 << "Labasa";
    QTest::newRow("open Pacific") << -40.0 << -130.0 << "";
    QTest::newRow("latitude out of range") << 91.0 << 0.0 << "";
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0.0 << "";
}

void tst_LmCityCategory::nearestCity()
{
    QFETCH(double, lat);
    QFETCH(double, lng);
    QFETCH(QString, expected);
    QVERIFY(LmCityCategory::instance().CityCount() > 1000);
    QCOMPARE(LmCityCategory::instance().GetCityName(PointLatLng(lat, lng)), expected);
}

QTEST_GUILESS_MAIN(tst_LmCityCategory)
#include "tst_LmCityCategory.moc"
