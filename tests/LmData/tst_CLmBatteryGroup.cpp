#include "CLmBatteryGroup.h"

#include <QTest>

// The status page keeps one group for the whole connection and hands copies
// to the battery frame: a shallow copy or a lost battery would show another
// battery's cells, or crash when the page's group replaces a battery.
class tst_CLmBatteryGroup : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cellsOutsideTheBatteryAreAbsent_data();
    void cellsOutsideTheBatteryAreAbsent();
    void batteriesAreKeptByIndex_data();
    void batteriesAreKeptByIndex();
    void copyIsIndependentOfTheOriginal();
};

void tst_CLmBatteryGroup::cellsOutsideTheBatteryAreAbsent_data()
{
    QTest::addColumn<int>("cell");
    QTest::addColumn<bool>("kept");

    QTest::newRow("first cell") << 0 << true;
    QTest::newRow("last cell") << CLmBattery::MaxCells - 1 << true;
    QTest::newRow("negative") << -1 << false;
    QTest::newRow("one past the last") << CLmBattery::MaxCells << false;
}

void tst_CLmBatteryGroup::cellsOutsideTheBatteryAreAbsent()
{
    QFETCH(int, cell);
    QFETCH(bool, kept);
    CLmBattery battery;
    QVERIFY(!battery.HasCell(cell));

    battery.SetCellVoltage(cell, 4012);
    QCOMPARE(battery.HasCell(cell), kept);
    QCOMPARE(battery.GetCellVoltage(cell), kept ? 4012 : 0);
    for (int other = 0; other < CLmBattery::MaxCells; ++other) {
        if (other != cell)
            QVERIFY(!battery.HasCell(other));
    }
}

void tst_CLmBatteryGroup::batteriesAreKeptByIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("kept");

    QTest::newRow("first") << 0 << true;
    QTest::newRow("third") << CLmBatteryGroup::MaxBatteries - 1 << true;
    QTest::newRow("fourth") << CLmBatteryGroup::MaxBatteries << false;
    QTest::newRow("negative") << -1 << false;
}

void tst_CLmBatteryGroup::batteriesAreKeptByIndex()
{
    QFETCH(int, index);
    QFETCH(bool, kept);
    CLmBatteryGroup group;
    auto* pBattery = new CLmBattery;
    pBattery->SetTotalVoltage(48120);

    group.AddBattery(index, pBattery);
    QCOMPARE(group.GetBattery(index) == pBattery, kept);
    for (int other = 0; other < CLmBatteryGroup::MaxBatteries; ++other) {
        if (other != index)
            QVERIFY(!group.GetBattery(other));
    }

    auto* pReplacement = new CLmBattery;
    group.AddBattery(index, pReplacement);
    QCOMPARE(group.GetBattery(index) == pReplacement, kept);
}

void tst_CLmBatteryGroup::copyIsIndependentOfTheOriginal()
{
    auto group = std::make_unique<CLmBatteryGroup>();
    auto* pBattery = new CLmBattery;
    pBattery->SetCellVoltage(2, 3950);
    pBattery->SetBatteryID(QStringLiteral("BAT2400011"));
    group->AddBattery(1, pBattery);
    group->SetLowCapacityAlarm(30);
    group->SetSevereLowCapacityAlarm(15);
    group->SetStartingSelfDischargeTime(10);

    CLmBatteryGroup copy(*group);
    CLmBatteryGroup assigned;
    assigned.AddBattery(0, new CLmBattery);
    assigned = copy;
    group->GetBattery(1)->SetCellVoltage(2, 3000);
    group.reset();

    for (const CLmBatteryGroup* pCopy : {&copy, &assigned}) {
        QVERIFY(!pCopy->GetBattery(0));
        QVERIFY(pCopy->GetBattery(1) && pCopy->GetBattery(1) != pBattery);
        QCOMPARE(pCopy->GetBattery(1)->GetCellVoltage(2), 3950);
        QCOMPARE(pCopy->GetBattery(1)->GetBatteryID(), QStringLiteral("BAT2400011"));
        QCOMPARE(pCopy->GetLowCapacityAlarm(), 30);
        QCOMPARE(pCopy->GetSevereLowCapacityAlarm(), 15);
        QCOMPARE(pCopy->GetStartingSelfDischargeTime(), 10);
    }
}

QTEST_GUILESS_MAIN(tst_CLmBatteryGroup)
#include "tst_CLmBatteryGroup.moc"
