#include "CLmMissionTableDelegate.h"
#include "LmProjMgrRoles.h"
#include "LmProjRowLayout.h"
#include "LmProjRowPainting.h"

#include <QTableWidget>
#include <QtTest>

namespace {

constexpr int NameColumn = 0;
constexpr int DownloadColumn = 1;
constexpr int NotReported = -1;

// Two mission rows, the second in state (or not reported), shown.
struct SMissionTable
{
    explicit SMissionTable(int state)
        : table(2, 2)
        , pDelegate(new CLmMissionTableDelegate(&table))
    {
        table.resize(600, 200);
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
    }
    QRect SecondRowCell() const { return table.visualRect(table.model()->index(1, DownloadColumn)); }
    void Click(const QPoint& pos) { QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, pos); }

    QTableWidget table;
    CLmMissionTableDelegate* pDelegate;
};

}  // namespace

class tst_CLmMissionTableDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clickOnTheDownloadMark_data();
    void clickOnTheDownloadMark();
    void clickOnReDownload_data();
    void clickOnReDownload();
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
    QTest::newRow("failed, on the mark") << 3 << QPoint(iMarkCentre, 0) << true;
}

// Only a mission whose flight data is still missing offers the download; the
// signal names the mission's row by its first column.
void tst_CLmMissionTableDelegate::clickOnTheDownloadMark()
{
    QFETCH(int, state);
    QFETCH(QPoint, offset);
    QFETCH(bool, emits);

    SMissionTable missions(state);
    QVERIFY(QTest::qWaitForWindowExposed(&missions.table));
    QSignalSpy clicked(missions.pDelegate, &CLmMissionTableDelegate::signalClickedDownload);

    const QRect cell = missions.SecondRowCell();
    missions.Click(QPoint(cell.left(), cell.center().y()) + offset);

    QCOMPARE(clicked.count(), emits ? 1 : 0);
    if (emits) {
        const QModelIndex index = clicked.at(0).at(0).value<QModelIndex>();
        QCOMPARE(index.row(), 1);
        QCOMPARE(index.column(), NameColumn);
    }
}

void tst_CLmMissionTableDelegate::clickOnReDownload_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("emits");

    QTest::newRow("failed") << 3 << true;
    QTest::newRow("not downloaded") << 0 << false;
    QTest::newRow("downloaded") << 1 << false;
}

// Only a failed download draws "Re-download" at the cell's right end, and
// only there does a click start the download again.
void tst_CLmMissionTableDelegate::clickOnReDownload()
{
    QFETCH(int, state);
    QFETCH(bool, emits);
    SMissionTable missions(state);
    QVERIFY(QTest::qWaitForWindowExposed(&missions.table));
    QSignalSpy clicked(missions.pDelegate, &CLmMissionTableDelegate::signalClickedDownload);

    const QFontMetrics metrics(LmProjRowPainting::RowFont(missions.table.font()));
    missions.Click(LmProjRowLayout::TrailingWordRect(missions.SecondRowCell(), metrics, QStringLiteral("Re-download"))
                       .center());

    QCOMPARE(clicked.count(), emits ? 1 : 0);
}

QTEST_MAIN(tst_CLmMissionTableDelegate)
#include "tst_CLmMissionTableDelegate.moc"
