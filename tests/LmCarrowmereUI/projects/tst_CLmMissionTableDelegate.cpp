#include "CLmMissionTableDelegate.h"
#include "LmProjMgrRoles.h"
#include "LmProjRowLayout.h"

#include <QTableWidget>
#include <QtTest>

namespace {

constexpr int NameColumn = 0;
constexpr int DownloadColumn = 1;
constexpr int NotReported = -1;

}  // namespace

class tst_CLmMissionTableDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clickOnTheDownloadMark_data();
    void clickOnTheDownloadMark();
};

void tst_CLmMissionTableDelegate::clickOnTheDownloadMark_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QPoint>("offset");
    QTest::addColumn<bool>("emits");

    const int iMarkCentre = LmProjRowLayout::TextPadding + LmProjRowLayout::MarkSize / 2;
    const int iMarkRight = LmProjRowLayout::TextPadding + LmProjRowLayout::MarkSize - 1;
    QTest::newRow("not reported, on the mark") << NotReported << QPoint(iMarkCentre, 0) << true;
    QTest::newRow("not downloaded, on the mark") << 0 << QPoint(iMarkCentre, 0) << true;
    QTest::newRow("not downloaded, mark's right edge") << 0 << QPoint(iMarkRight, 0) << true;
    QTest::newRow("not downloaded, right of the mark") << 0 << QPoint(iMarkRight + 1, 0) << false;
    QTest::newRow("not downloaded, left of the mark") << 0 << QPoint(LmProjRowLayout::TextPadding - 1, 0) << false;
    QTest::newRow("downloaded, on the mark") << 1 << QPoint(iMarkCentre, 0) << false;
    QTest::newRow("downloading, on the mark") << 2 << QPoint(iMarkCentre, 0) << false;
}

// Only a mission whose flight data is still missing offers the download; the
// signal names the mission's row by its first column.
void tst_CLmMissionTableDelegate::clickOnTheDownloadMark()
{
    QFETCH(int, state);
    QFETCH(QPoint, offset);
    QFETCH(bool, emits);

    QTableWidget table(2, 2);
    table.resize(600, 200);
    auto* pDelegate = new CLmMissionTableDelegate(&table);
    table.setItemDelegateForColumn(DownloadColumn, pDelegate);
    for (int iRow = 0; iRow < table.rowCount(); ++iRow) {
        auto* pName = new QTableWidgetItem(QStringLiteral("Mission %1").arg(iRow));
        pName->setData(LmProjMgrRole::MissionId, QStringLiteral("m%1").arg(iRow));
        table.setItem(iRow, NameColumn, pName);
        pDelegate->slotUpdateFlightTxt(QStringLiteral("Download"), 0, QStringLiteral("m%1").arg(iRow));
    }
    if (state != NotReported)
        pDelegate->slotUpdateFlightTxt(QStringLiteral("Mission text"), state, QStringLiteral("m1"));
    else
        table.item(1, NameColumn)->setData(LmProjMgrRole::MissionId, QStringLiteral("m9"));
    table.show();
    QVERIFY(QTest::qWaitForWindowExposed(&table));
    QSignalSpy clicked(pDelegate, &CLmMissionTableDelegate::signalClickedDownload);

    const QRect cell = table.visualRect(table.model()->index(1, DownloadColumn));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(cell.left(), cell.center().y()) + offset);

    QCOMPARE(clicked.count(), emits ? 1 : 0);
    if (emits) {
        const QModelIndex index = clicked.at(0).at(0).value<QModelIndex>();
        QCOMPARE(index.row(), 1);
        QCOMPARE(index.column(), NameColumn);
    }
}

QTEST_MAIN(tst_CLmMissionTableDelegate)
#include "tst_CLmMissionTableDelegate.moc"
