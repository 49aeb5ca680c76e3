#include "LmBatteryCell.h"
#include "LmParameterValue.h"
#include "LmPlaneStatusLists.h"

#include <QtTest>

// What the aircraft pages make of the aircraft's numbers: cell colours,
// status lists and typed parameter values.
class tst_AircraftPageLogic : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cellBands_data();
    void cellBands();
    void fixwingStatus_data();
    void fixwingStatus();
    void multirotorStatus_data();
    void multirotorStatus();
    void typedParameterValues_data();
    void typedParameterValues();
};

namespace {

QString Style(const QString& rgb)
{
    return QStringLiteral("  QProgressBar {\t\t\tborder:2px solid #a6b3c3;\t\t\tborder - radius: 5px;\t\t\t}\t\t\t"
                          "QProgressBar::chunk{\t\t\tmargin: 0.5px;\t\t\tbackground - color: rgb(%1);\t\t\t}")
        .arg(rgb);
}

QStringList Numbered(int count)
{
    QStringList fields;
    for (int i = 0; i < count; ++i)
        fields << QString::number(i + 100);
    return fields;
}

}  // namespace

void tst_AircraftPageLogic::cellBands_data()
{
    QTest::addColumn<int>("milliVolts");
    QTest::addColumn<int>("bar");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("style");

    QTest::newRow("empty") << 0 << 0 << "0.00" << QString();
    QTest::newRow("1 mV") << 1 << 0 << "0.00" << Style("255, 54, 84");
    QTest::newRow("12.5 % edge below") << 543 << 12 << "0.54" << Style("255, 54, 84");
    QTest::newRow("12.5 % edge above") << 544 << 12 << "0.54" << Style("170, 90, 153");
    QTest::newRow("25 % edge below") << 1087 << 24 << "1.09" << Style("170, 90, 153");
    QTest::newRow("25 % edge above") << 1088 << 25 << "1.09" << Style("139, 103, 179");
    QTest::newRow("37.5 % edge above") << 1632 << 37 << "1.63" << Style("58, 136, 244");
    QTest::newRow("exactly 50 %") << 2175 << 50 << "2.17" << Style("58, 136, 244");
    QTest::newRow("just over 50 %") << 2176 << 50 << "2.18" << Style("49, 150, 220");
    QTest::newRow("62.5 % edge above") << 2719 << 62 << "2.72" << Style("17, 170, 198");
    QTest::newRow("75 % edge above") << 3263 << 75 << "3.26" << Style("21, 179, 178");
    QTest::newRow("87.5 % edge below") << 3806 << 87 << "3.81" << Style("21, 179, 178");
    QTest::newRow("87.5 % edge above") << 3807 << 87 << "3.81" << Style("26, 188, 156");
    QTest::newRow("just under full") << 4349 << 99 << "4.35" << Style("26, 188, 156");
    QTest::newRow("full cell") << 4350 << 100 << "4.35" << Style("21, 179, 178");
    QTest::newRow("over-charged") << 4500 << 103 << "4.50" << Style("21, 179, 178");
}

void tst_AircraftPageLogic::cellBands()
{
    QFETCH(int, milliVolts);
    QFETCH(int, bar);
    QFETCH(QString, label);
    QFETCH(QString, style);
    QCOMPARE(LmBatteryCell::BarValue(milliVolts), bar);
    QCOMPARE(LmBatteryCell::VoltageText(milliVolts), label);
    QCOMPARE(LmBatteryCell::BarStyle(milliVolts), style);
}

void tst_AircraftPageLogic::fixwingStatus_data()
{
    QTest::addColumn<QStringList>("status");
    QTest::addColumn<bool>("read");
    QTest::addColumn<QString>("mileage");
    QTest::addColumn<QString>("openUmbrella");
    QTest::addColumn<int>("openCount");

    QTest::newRow("eleven fields are ignored") << Numbered(11) << false << QString() << QString() << 0;
    QTest::newRow("twelve fields") << Numbered(12) << true << "105km" << "107times" << 107;
    QTest::newRow("more fields than needed") << Numbered(15) << true << "105km" << "107times" << 107;
    QStringList garbled = Numbered(12);
    garbled[7] = QStringLiteral("x7");
    QTest::newRow("open count not a number") << garbled << true << "105km" << "x7times" << 0;
    QTest::newRow("lost aircraft") << LmPlaneStatusLists::NotAvailable(12) << true << "N/A" << "N/A" << 0;
}

void tst_AircraftPageLogic::fixwingStatus()
{
    QFETCH(QStringList, status);
    QFETCH(bool, read);
    QFETCH(QString, mileage);
    QFETCH(QString, openUmbrella);
    QFETCH(int, openCount);
    const auto texts = LmPlaneStatusLists::ReadFixwing(status);
    QCOMPARE(texts.has_value(), read);
    if (!read)
        return;
    QCOMPARE(texts->serialNumber, status.at(0));
    QCOMPARE(texts->mileage, mileage);
    QCOMPARE(texts->openUmbrellaTimes, openUmbrella);
    QCOMPARE(texts->parachuteOpenCount, openCount);
    QCOMPARE(texts->highestAltitude, status.at(11));
}

void tst_AircraftPageLogic::multirotorStatus_data()
{
    QTest::addColumn<QStringList>("status");
    QTest::addColumn<bool>("read");
    QTest::addColumn<QString>("batteryVersion");

    QTest::newRow("twenty fields are ignored") << Numbered(20) << false << QString();
    QTest::newRow("twenty-one fields") << Numbered(21) << true << "77";
    QTest::newRow("more fields than needed") << Numbered(30) << true << "77";
    QStringList garbled = Numbered(21);
    garbled[19] = QStringLiteral("v2");
    QTest::newRow("battery version not a number") << garbled << true << "0";
    QTest::newRow("lost aircraft") << LmPlaneStatusLists::NotAvailable(21) << true << "0";
}

void tst_AircraftPageLogic::multirotorStatus()
{
    QFETCH(QStringList, status);
    QFETCH(bool, read);
    QFETCH(QString, batteryVersion);
    const auto texts = LmPlaneStatusLists::ReadMultirotor(status);
    QCOMPARE(texts.has_value(), read);
    if (!read)
        return;
    QCOMPARE(texts->batteryVersion, batteryVersion);
    QCOMPARE(texts->hardware.size(), 14);
    QCOMPARE(texts->hardware.first().name, QStringLiteral("GPS Hardware"));
    QCOMPARE(texts->hardware.first().version, status.at(6));
    QCOMPARE(texts->hardware.at(12).version, status.at(18));
    QCOMPARE(texts->hardware.last().name, QStringLiteral("Batter version"));
    QCOMPARE(texts->hardware.last().version, QStringLiteral("0x") + batteryVersion);
}

void tst_AircraftPageLogic::typedParameterValues_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("whole number") << "45" << "UInt" << QVariant(45u);
    QTest::newRow("negative whole number") << "-1" << "UInt" << QVariant();
    QTest::newRow("fraction as UInt") << "4.5" << "UInt" << QVariant();
    QTest::newRow("empty UInt") << "" << "UInt" << QVariant();
    QTest::newRow("fraction") << "0.25" << "Double" << QVariant(0.25);
    QTest::newRow("negative fraction") << "-3.5" << "Double" << QVariant(-3.5);
    QTest::newRow("word as Double") << "abc" << "Double" << QVariant();
    QTest::newRow("infinity") << "inf" << "Double" << QVariant();
    QTest::newRow("unknown type") << "1" << "Text" << QVariant();
}

void tst_AircraftPageLogic::typedParameterValues()
{
    QFETCH(QString, text);
    QFETCH(QString, type);
    QFETCH(QVariant, value);
    const std::optional<QVariant> read = LmParameterValue::Read(text, type);
    QCOMPARE(read.has_value(), value.isValid());
    if (read)
        QCOMPARE(*read, value);
}

QTEST_GUILESS_MAIN(tst_AircraftPageLogic)
#include "tst_AircraftPageLogic.moc"
