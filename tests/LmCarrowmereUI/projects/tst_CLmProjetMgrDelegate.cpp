#include "CLmProjetMgrDelegate.h"
#include "CLmProjetMgrItem.h"
#include "LmProjMgrRoles.h"
#include "LmProjRowLayout.h"
#include "LmProjRowPainting.h"

#include <QToolTip>
#include <QTreeWidget>
#include <QtTest>

#include <map>
#include <memory>

using namespace LmProjRowLayout;

namespace {

constexpr int NoStateReported = -100;

// The project tree as the project manager page builds it.
class CProjectTree
{
public:
    CProjectTree()
    {
        m_tree.setColumnCount(3);
        m_tree.setHeaderLabels(
            {QStringLiteral("Project"), QStringLiteral("Flight Log"), QStringLiteral("Create time")});
        m_tree.setColumnWidth(CLmProjetMgrItem::ColumnProject, 440);
        m_tree.setColumnWidth(CLmProjetMgrItem::ColumnFlightLog, 200);
        m_tree.setColumnWidth(CLmProjetMgrItem::ColumnCreateTime, 300);
        m_tree.resize(1000, 300);
        m_pDelegate = new CLmProjetMgrDelegate(&m_tree);
        m_tree.setItemDelegate(m_pDelegate);
    }

    bool Show()
    {
        m_tree.show();
        return QTest::qWaitForWindowExposed(&m_tree);
    }

    CLmProjetMgrItem* AddRow(const QString& strId, int nSynchState = NoStateReported)
    {
        auto* pItem = new CLmProjetMgrItem(&m_tree);
        pItem->setText(CLmProjetMgrItem::ColumnProject, QStringLiteral("Survey ") + strId);
        pItem->SetFlightLogText(QStringLiteral("3/5"));
        pItem->setText(CLmProjetMgrItem::ColumnCreateTime, QStringLiteral("2026-03-01 10:00:00"));
        pItem->SetProjectId(strId);
        if (nSynchState != NoStateReported)
            m_pDelegate->slotUpdateStateBtn(nSynchState, strId);
        return pItem;
    }

    QModelIndex Index(int iRow, int iColumn) const { return m_tree.model()->index(iRow, iColumn); }
    QRect Cell(int iRow, int iColumn) const { return m_tree.visualRect(Index(iRow, iColumn)); }

    // Centre of the k-th button from the right of a row.
    QPoint ButtonCentre(int iRow, int k) const
    {
        return ButtonRect(Cell(iRow, CLmProjetMgrItem::ColumnCreateTime), k).center();
    }

    void Click(const QPoint& pos) { QTest::mouseClick(m_tree.viewport(), Qt::LeftButton, Qt::NoModifier, pos); }

    void Move(const QPoint& pos)
    {
        QMouseEvent move(QEvent::MouseMove, pos, m_tree.viewport()->mapToGlobal(pos), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(m_tree.viewport(), &move);
    }

    // An empty tool tip hides the shown one after a short delay.
    static QString ShownToolTip() { return QToolTip::isVisible() ? QToolTip::text() : QString(); }

    QFontMetrics RowMetrics() const { return QFontMetrics(LmProjRowPainting::RowFont(m_tree.font())); }

    QTreeWidget m_tree;
    CLmProjetMgrDelegate* m_pDelegate;
};

// Records which of the delegate's index signals fire and with which row id.
class CSignalLog
{
public:
    explicit CSignalLog(CLmProjetMgrDelegate* pDelegate)
    {
        Watch(pDelegate, &CLmProjetMgrDelegate::signalShareBtnClicked, "signalShareBtnClicked");
        Watch(pDelegate, &CLmProjetMgrDelegate::signalDeleteBtnClicked, "signalDeleteBtnClicked");
        Watch(pDelegate, &CLmProjetMgrDelegate::signalDetailsBtnClicked, "signalDetailsBtnClicked");
        Watch(pDelegate, &CLmProjetMgrDelegate::signalDownloadBtnClicked, "signalDownloadBtnClicked");
        Watch(pDelegate, &CLmProjetMgrDelegate::signalOpenBtnClicked, "signalOpenBtnClicked");
        Watch(pDelegate, &CLmProjetMgrDelegate::signalClickedDownload, "signalClickedDownload");
        Watch(pDelegate, &CLmProjetMgrDelegate::signalChecked, "signalChecked");
    }

    // "name(id)" for every emission, in signal-name order.
    QStringList Fired() const
    {
        QStringList fired;
        for (const auto& [strName, pSpy] : m_spies) {
            for (const QList<QVariant>& arguments : *pSpy) {
                const QModelIndex index = arguments.at(0).value<QModelIndex>();
                fired << strName + '(' + index.data(LmProjMgrRole::ProjectId).toString() + ')';
            }
        }
        return fired;
    }

private:
    void Watch(CLmProjetMgrDelegate* pDelegate, void (CLmProjetMgrDelegate::*signal)(const QModelIndex&),
               const char* pszName)
    {
        m_spies[QLatin1String(pszName)] = std::make_unique<QSignalSpy>(pDelegate, signal);
    }

    std::map<QString, std::unique_ptr<QSignalSpy>> m_spies;
};

QString Expected(const char* pszSignal, const QString& strId)
{
    return QLatin1String(pszSignal) + '(' + strId + ')';
}

}  // namespace

class tst_CLmProjetMgrDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toolTipsNameTheButtonsOfTheState_data();
    void toolTipsNameTheButtonsOfTheState();
    void buttonEdges_data();
    void buttonEdges();
    void releaseEmitsTheButtonsSignal_data();
    void releaseEmitsTheButtonsSignal();
    void resetForgetsReportedStates();
    void checkBoxArea_data();
    void checkBoxArea();
    void allCheckedSetsEveryRow();
    void clickDownloadWord_data();
    void clickDownloadWord();
    void itemsSortByColumn_data();
    void itemsSortByColumn();
};

void tst_CLmProjetMgrDelegate::toolTipsNameTheButtonsOfTheState_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QStringList>("buttons");

    const QStringList inStep{"Share", "Delete", "Details", "Open"};
    QTest::newRow("in step") << 0 << inStep;
    QTest::newRow("needs download") << 1 << QStringList{"Share", "Delete", "Download", "Details", "Open"};
    QTest::newRow("needs upload") << 2 << inStep;
    QTest::newRow("cloud only") << 3 << QStringList{"Share", "Download"};
    QTest::newRow("not reported") << NoStateReported << inStep;
    QTest::newRow("unknown state") << 7 << inStep;
}

// Hovering each button slot from the left names the state's buttons in order;
// the gap left of the rightmost button and the slot left of the leftmost
// button name none.
void tst_CLmProjetMgrDelegate::toolTipsNameTheButtonsOfTheState()
{
    QFETCH(int, state);
    QFETCH(QStringList, buttons);

    CProjectTree tree;
    tree.AddRow(QStringLiteral("p1"), state);
    QVERIFY(tree.Show());

    for (int i = 0; i < buttons.size(); ++i) {
        tree.Move(tree.ButtonCentre(0, buttons.size() - 1 - i));
        QTRY_COMPARE(CProjectTree::ShownToolTip(), buttons.at(i));
    }
    tree.Move(tree.ButtonCentre(0, 0) - QPoint(ButtonWidth / 2 + 2, 0));
    QTRY_COMPARE(CProjectTree::ShownToolTip(), QString());
    tree.Move(tree.ButtonCentre(0, buttons.size()));
    QTRY_COMPARE(CProjectTree::ShownToolTip(), QString());
}

void tst_CLmProjetMgrDelegate::buttonEdges_data()
{
    QTest::addColumn<QRect>("cell");
    QTest::addColumn<QPoint>("pos");
    QTest::addColumn<int>("button");

    // Five buttons in a cell from x 100 to 399: button k (from the right)
    // covers x from 356 - 29 k to 379 - 29 k and y from 48 to 71.
    const QRect cell(100, 40, 300, 40);
    QTest::newRow("rightmost, last pixel") << cell << QPoint(379, 60) << 4;
    QTest::newRow("right margin, first pixel") << cell << QPoint(380, 60) << -1;
    QTest::newRow("rightmost, first pixel") << cell << QPoint(356, 60) << 4;
    QTest::newRow("gap, right end") << cell << QPoint(355, 60) << -1;
    QTest::newRow("gap, left end") << cell << QPoint(351, 60) << -1;
    QTest::newRow("second from right, last pixel") << cell << QPoint(350, 60) << 3;
    QTest::newRow("second from right, first pixel") << cell << QPoint(327, 60) << 3;
    QTest::newRow("leftmost, first pixel") << cell << QPoint(240, 60) << 0;
    QTest::newRow("left of leftmost") << cell << QPoint(239, 60) << -1;
    QTest::newRow("top pixel") << cell << QPoint(370, 48) << 4;
    QTest::newRow("above") << cell << QPoint(370, 47) << -1;
    QTest::newRow("bottom pixel") << cell << QPoint(370, 71) << 4;
    QTest::newRow("below") << cell << QPoint(370, 72) << -1;
    // An odd spare height leaves the extra pixel below.
    QTest::newRow("odd height, top pixel") << QRect(100, 40, 300, 41) << QPoint(370, 48) << 4;
    QTest::newRow("odd height, below") << QRect(100, 40, 300, 41) << QPoint(370, 72) << -1;
}

void tst_CLmProjetMgrDelegate::buttonEdges()
{
    QFETCH(QRect, cell);
    QFETCH(QPoint, pos);
    QFETCH(int, button);

    QCOMPARE(ButtonAt(cell, 5, pos), button);
}

void tst_CLmProjetMgrDelegate::releaseEmitsTheButtonsSignal_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("fromRight");
    QTest::addColumn<int>("shift");
    QTest::addColumn<QString>("signal");

    QTest::newRow("in step, share") << 0 << 3 << 0 << "signalShareBtnClicked";
    QTest::newRow("in step, delete") << 0 << 2 << 0 << "signalDeleteBtnClicked";
    QTest::newRow("in step, details") << 0 << 1 << 0 << "signalDetailsBtnClicked";
    QTest::newRow("in step, open") << 0 << 0 << 0 << "signalOpenBtnClicked";
    QTest::newRow("in step, left of the buttons") << 0 << 4 << 0 << "";
    QTest::newRow("in step, gap left of open") << 0 << 0 << -14 << "";
    QTest::newRow("in step, right margin") << 0 << 0 << 14 << "";
    QTest::newRow("needs download, share") << 1 << 4 << 0 << "signalShareBtnClicked";
    QTest::newRow("needs download, download") << 1 << 2 << 0 << "signalDownloadBtnClicked";
    QTest::newRow("needs download, details") << 1 << 1 << 0 << "signalDetailsBtnClicked";
    QTest::newRow("needs upload, delete") << 2 << 2 << 0 << "signalDeleteBtnClicked";
    QTest::newRow("cloud only, download") << 3 << 0 << 0 << "signalDownloadBtnClicked";
    QTest::newRow("cloud only, share") << 3 << 1 << 0 << "signalShareBtnClicked";
    QTest::newRow("cloud only, left of the buttons") << 3 << 2 << 0 << "";
    QTest::newRow("not reported, share") << NoStateReported << 3 << 0 << "signalShareBtnClicked";
    QTest::newRow("unknown state, share") << 9 << 3 << 0 << "signalShareBtnClicked";
    QTest::newRow("unknown state, open") << 9 << 0 << 0 << "signalOpenBtnClicked";
}

// A release over a button emits that button's signal for its row only; the
// gaps, the margin and the space left of the buttons emit nothing.
void tst_CLmProjetMgrDelegate::releaseEmitsTheButtonsSignal()
{
    QFETCH(int, state);
    QFETCH(int, fromRight);
    QFETCH(int, shift);
    QFETCH(QString, signal);

    CProjectTree tree;
    tree.AddRow(QStringLiteral("p1"), 0);
    tree.AddRow(QStringLiteral("p2"), state);
    QVERIFY(tree.Show());
    CSignalLog log(tree.m_pDelegate);

    tree.Click(tree.ButtonCentre(1, fromRight) + QPoint(shift, 0));

    QCOMPARE(log.Fired(), signal.isEmpty() ? QStringList() : QStringList{Expected(qPrintable(signal), "p2")});
}

void tst_CLmProjetMgrDelegate::resetForgetsReportedStates()
{
    CProjectTree tree;
    tree.AddRow(QStringLiteral("p1"), 3);
    tree.m_pDelegate->slotUpdateStateTxt(QStringLiteral("3/5"), CLmProjetMgrDelegate::FlightLogMissing,
                                         QStringLiteral("p1"));
    QVERIFY(tree.Show());
    const QRect logCell = tree.Cell(0, CLmProjetMgrItem::ColumnFlightLog);
    const QPoint word = FlightLogRects(logCell, tree.RowMetrics(), "3/5", "Click download").rectWord.center();

    tree.m_pDelegate->slotResetBtn();
    CSignalLog log(tree.m_pDelegate);
    tree.Click(tree.ButtonCentre(0, 1));
    tree.Click(word);

    QCOMPARE(log.Fired(), QStringList{Expected("signalDetailsBtnClicked", "p1")});
}

void tst_CLmProjetMgrDelegate::checkBoxArea_data()
{
    QTest::addColumn<QPoint>("offset");
    QTest::addColumn<bool>("toggles");

    // Rows are 40 px high: the box covers x 8..23 and y 12..27 of the cell.
    QTest::newRow("centre") << QPoint(16, 20) << true;
    QTest::newRow("top-left pixel") << QPoint(8, 12) << true;
    QTest::newRow("bottom-right pixel") << QPoint(23, 27) << true;
    QTest::newRow("left of the box") << QPoint(7, 20) << false;
    QTest::newRow("right of the box") << QPoint(24, 20) << false;
    QTest::newRow("above the box") << QPoint(16, 11) << false;
    QTest::newRow("below the box") << QPoint(16, 28) << false;
    QTest::newRow("on the name") << QPoint(60, 20) << false;
}

void tst_CLmProjetMgrDelegate::checkBoxArea()
{
    QFETCH(QPoint, offset);
    QFETCH(bool, toggles);

    CProjectTree tree;
    tree.AddRow(QStringLiteral("p1"));
    CLmProjetMgrItem* pItem = tree.AddRow(QStringLiteral("p2"));
    QVERIFY(tree.Show());
    const QRect cell = tree.Cell(1, CLmProjetMgrItem::ColumnProject);
    QCOMPARE(cell.height(), 40);
    CSignalLog log(tree.m_pDelegate);

    tree.Click(cell.topLeft() + offset);
    QCOMPARE(pItem->checkState(CLmProjetMgrItem::ColumnProject), toggles ? Qt::Checked : Qt::Unchecked);
    tree.Click(cell.topLeft() + offset);
    QCOMPARE(pItem->checkState(CLmProjetMgrItem::ColumnProject), Qt::Unchecked);

    const QString checked = Expected("signalChecked", "p2");
    QCOMPARE(log.Fired(), toggles ? QStringList({checked, checked}) : QStringList());
}

void tst_CLmProjetMgrDelegate::allCheckedSetsEveryRow()
{
    CProjectTree tree;
    QList<CLmProjetMgrItem*> items{tree.AddRow("p1"), tree.AddRow("p2"), tree.AddRow("p3")};
    items.at(1)->setCheckState(CLmProjetMgrItem::ColumnProject, Qt::Checked);

    for (Qt::CheckState state : {Qt::Checked, Qt::Unchecked}) {
        tree.m_pDelegate->slotAllChecked(state);
        for (const CLmProjetMgrItem* pItem : items)
            QCOMPARE(pItem->checkState(CLmProjetMgrItem::ColumnProject), state);
    }
}

void tst_CLmProjetMgrDelegate::clickDownloadWord_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("onWord");
    QTest::addColumn<bool>("emits");

    QTest::newRow("flights missing, on the word") << "3/5" << 2 << "Click download" << true << true;
    QTest::newRow("flights missing, on the count") << "3/5" << 2 << "Click download" << false << false;
    QTest::newRow("complete, on the word") << "5/5" << 1 << "Complete" << true << false;
    QTest::newRow("no missions") << "------" << 0 << "" << false << false;
}

void tst_CLmProjetMgrDelegate::clickDownloadWord()
{
    QFETCH(QString, text);
    QFETCH(int, state);
    QFETCH(QString, word);
    QFETCH(bool, onWord);
    QFETCH(bool, emits);

    CProjectTree tree;
    tree.AddRow(QStringLiteral("p1"), 0);
    tree.m_pDelegate->slotUpdateStateTxt(text, state, QStringLiteral("p1"));
    QVERIFY(tree.Show());
    CSignalLog log(tree.m_pDelegate);

    const SFlightLogRects rects =
        FlightLogRects(tree.Cell(0, CLmProjetMgrItem::ColumnFlightLog), tree.RowMetrics(), text, word);
    tree.Click(onWord ? rects.rectWord.center() : rects.rectCount.center());

    QCOMPARE(log.Fired(), emits ? QStringList{Expected("signalClickedDownload", "p1")} : QStringList());
}

void tst_CLmProjetMgrDelegate::itemsSortByColumn_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("sorted");

    QTest::newRow("names ignore case") << int(CLmProjetMgrItem::ColumnProject)
                                       << QStringList{"beta", "Alpha", "gamma", "Delta"}
                                       << QStringList{"Alpha", "beta", "Delta", "gamma"};
    QTest::newRow("flight logs by flown, then missions")
        << int(CLmProjetMgrItem::ColumnFlightLog) << QStringList{"10/12", "9/12", "------", "3/10", "3/5"}
        << QStringList{"------", "3/5", "3/10", "9/12", "10/12"};
    QTest::newRow("create times by time, unreadable first")
        << int(CLmProjetMgrItem::ColumnCreateTime)
        << QStringList{"2026-03-01 10:00:00", "unknown", "2025-12-31 23:59:59", "2026-03-01 09:59:59"}
        << QStringList{"unknown", "2025-12-31 23:59:59", "2026-03-01 09:59:59", "2026-03-01 10:00:00"};
}

void tst_CLmProjetMgrDelegate::itemsSortByColumn()
{
    QFETCH(int, column);
    QFETCH(QStringList, texts);
    QFETCH(QStringList, sorted);

    QTreeWidget tree;
    tree.setColumnCount(3);
    for (const QString& text : texts)
        (new CLmProjetMgrItem(&tree))->setText(column, text);

    tree.sortItems(column, Qt::AscendingOrder);

    QStringList order;
    for (int i = 0; i < tree.topLevelItemCount(); ++i)
        order << tree.topLevelItem(i)->text(column);
    QCOMPARE(order, sorted);
}

QTEST_MAIN(tst_CLmProjetMgrDelegate)
#include "tst_CLmProjetMgrDelegate.moc"
