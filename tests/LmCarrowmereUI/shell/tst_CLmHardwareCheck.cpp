#include "CLmHardwareCheck.h"

#include <QLabel>
#include <QTest>
#include <QTreeWidget>

// The home page warns crews whose machine cannot process survey data; a
// wrong decision either hides a real problem or nags on good machines.
class tst_CLmHardwareCheck : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void decision_data();
    void decision();
    void unknownDisksAndAdapters();
};

void tst_CLmHardwareCheck::decision_data()
{
    QTest::addColumn<QString>("memoryMb");
    QTest::addColumn<QString>("adapter");
    QTest::addColumn<QString>("detail");
    QTest::addColumn<bool>("memoryRed");
    QTest::addColumn<bool>("warning");
    QTest::addColumn<QString>("videoText");
    QTest::addColumn<bool>("videoRed");

    const QString nvidia = QStringLiteral("NVIDIA GeForce RTX 3060");
    QTest::newRow("strong nvidia machine") << "32000" << nvidia << "driver 535.54" << false << false
                                           << nvidia + " driver 535.54" << false;
    QTest::newRow("exactly 8000 MB warns but is not red")
        << "8000" << nvidia << "driver 535.54" << false << true << nvidia + " driver 535.54" << false;
    QTest::newRow("just above the limit") << "8001" << nvidia << "driver 535.54" << false << false
                                          << nvidia + " driver 535.54" << false;
    QTest::newRow("just below the limit is red") << "7999" << nvidia << "driver 535.54" << true << true
                                                 << nvidia + " driver 535.54" << false;
    QTest::newRow("nvidia without details") << "32000" << nvidia << "" << false << true << nvidia + " " << true;
    QTest::newRow("other adapter never red") << "32000" << "Intel UHD Graphics 630" << "" << false << true
                                             << "Intel UHD Graphics 630" << false;
    QTest::newRow("memory text not a number") << "unknown" << nvidia << "driver 1" << true << true
                                              << nvidia + " driver 1" << false;
}

void tst_CLmHardwareCheck::decision()
{
    QFETCH(QString, memoryMb);
    QFETCH(QString, adapter);
    QFETCH(QString, detail);
    QFETCH(bool, memoryRed);
    QFETCH(bool, warning);
    QFETCH(QString, videoText);
    QFETCH(bool, videoRed);

    CLmHardwareCheck::SFacts facts;
    facts.strOS = QStringLiteral("Debian GNU/Linux 12");
    facts.strProcessor = QStringLiteral("AMD EPYC");
    facts.strMemoryMb = memoryMb;
    facts.listDisks = QStringList{QStringLiteral("nvme0n1 1000 GB")};
    facts.listAdapters = QStringList{adapter};
    facts.strAdapterDetail = detail;

    QTreeWidget tree;
    tree.setColumnCount(4);
    QLabel label;
    CLmHardwareCheck::Show(facts, &tree, &label);

    QCOMPARE(tree.topLevelItemCount(), 3);
    QTreeWidgetItem* memoryRow = tree.topLevelItem(1);
    QCOMPARE(memoryRow->text(1), memoryMb + " MB");
    QCOMPARE(memoryRow->foreground(0).color() == Qt::red, memoryRed);
    QTreeWidgetItem* videoRow = tree.topLevelItem(2);
    QCOMPARE(videoRow->text(1), videoText);
    QCOMPARE(videoRow->foreground(1).color() == Qt::red, videoRed);
    QCOMPARE(!label.isHidden(), warning);
    if (warning)
        QCOMPARE(label.text(), QStringLiteral("Hardware configuration environment is not suitable for data processing."));
}

void tst_CLmHardwareCheck::unknownDisksAndAdapters()
{
    CLmHardwareCheck::SFacts facts;
    facts.strMemoryMb = QStringLiteral("16000");
    QTreeWidget tree;
    tree.setColumnCount(4);
    QLabel label;
    CLmHardwareCheck::Show(facts, &tree, &label);
    QCOMPARE(tree.topLevelItem(1)->text(3), QStringLiteral("Unknown hard disk"));
    QCOMPARE(tree.topLevelItem(2)->text(1), QStringLiteral("Unknown graphics card"));
    QVERIFY(!label.isHidden());
}

QTEST_MAIN(tst_CLmHardwareCheck)
#include "tst_CLmHardwareCheck.moc"
