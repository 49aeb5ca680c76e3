#include "CLmProjetMgrHeaderView.h"
#include "LmProjRowLayout.h"

#include <QTreeWidget>
#include <QtTest>

namespace {

// A sorted three-column tree with the check-all header, as on the project page.
class CCheckAllTree
{
public:
    CCheckAllTree()
        : m_pHeader(new CLmProjetMgrHeaderView(&m_tree))
    {
        m_tree.setHeader(m_pHeader);
        m_tree.setColumnCount(3);
        m_tree.setHeaderLabels(
            {QStringLiteral("Project"), QStringLiteral("Flight Log"), QStringLiteral("Create time")});
        m_tree.setColumnWidth(0, 440);
        m_tree.setColumnWidth(1, 200);
        m_tree.resize(1000, 300);
        m_tree.setSortingEnabled(true);
        m_tree.sortByColumn(2, Qt::DescendingOrder);
    }

    QRect Section(int iSection) const
    {
        return QRect(m_pHeader->sectionViewportPosition(iSection), 0, m_pHeader->sectionSize(iSection),
                     m_pHeader->height());
    }

    void Click(const QPoint& pos) { QTest::mouseClick(m_pHeader->viewport(), Qt::LeftButton, Qt::NoModifier, pos); }

    QTreeWidget m_tree;
    CLmProjetMgrHeaderView* m_pHeader;
};

}  // namespace

class tst_CLmProjetMgrHeaderView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void clickOnTheBoxTogglesWithoutSorting_data();
    void clickOnTheBoxTogglesWithoutSorting();
    void clickOffTheBoxSorts_data();
    void clickOffTheBoxSorts();
    void boxShowsTheState();
};

void tst_CLmProjetMgrHeaderView::initTestCase()
{
    qRegisterMetaType<Qt::CheckState>();
}

void tst_CLmProjetMgrHeaderView::clickOnTheBoxTogglesWithoutSorting_data()
{
    QTest::addColumn<int>("shown");
    QTest::addColumn<int>("toggled");

    QTest::newRow("unchecked") << int(Qt::Unchecked) << int(Qt::Checked);
    QTest::newRow("checked") << int(Qt::Checked) << int(Qt::Unchecked);
    QTest::newRow("some rows checked") << int(Qt::PartiallyChecked) << int(Qt::Checked);
}

// The rows' combined state arrives through slotStateChanged without an echo;
// a click on the box toggles from what is shown and reports the new state.
void tst_CLmProjetMgrHeaderView::clickOnTheBoxTogglesWithoutSorting()
{
    QFETCH(int, shown);
    QFETCH(int, toggled);

    CCheckAllTree tree;
    tree.m_tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree.m_tree));
    QSignalSpy changed(tree.m_pHeader, &CLmProjetMgrHeaderView::signalStateChanged);

    tree.m_pHeader->slotStateChanged(shown);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(int(tree.m_pHeader->CheckState()), shown);

    tree.Click(LmProjRowLayout::CheckBoxRect(tree.Section(0)).center());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(int(changed.at(0).at(0).value<Qt::CheckState>()), toggled);
    QCOMPARE(int(tree.m_pHeader->CheckState()), toggled);
    QCOMPARE(tree.m_pHeader->sortIndicatorSection(), 2);
    QCOMPARE(tree.m_pHeader->sortIndicatorOrder(), Qt::DescendingOrder);
}

void tst_CLmProjetMgrHeaderView::clickOffTheBoxSorts_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<QPoint>("offset");

    QTest::newRow("right of the box") << 0 << QPoint(LmProjRowLayout::CheckBoxLeft + LmProjRowLayout::CheckBoxSize, 0);
    QTest::newRow("on the title") << 0 << QPoint(60, 0);
    QTest::newRow("flight log section") << 1 << QPoint(8, 0);
}

void tst_CLmProjetMgrHeaderView::clickOffTheBoxSorts()
{
    QFETCH(int, section);
    QFETCH(QPoint, offset);

    CCheckAllTree tree;
    tree.m_tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree.m_tree));
    QSignalSpy changed(tree.m_pHeader, &CLmProjetMgrHeaderView::signalStateChanged);

    const QRect rect = tree.Section(section);
    tree.Click(QPoint(rect.left(), rect.center().y()) + offset);

    QCOMPARE(changed.count(), 0);
    QCOMPARE(tree.m_pHeader->CheckState(), Qt::Unchecked);
    QCOMPARE(tree.m_pHeader->sortIndicatorSection(), section);
}

// The box is drawn over the style's section, not clipped away by it.
void tst_CLmProjetMgrHeaderView::boxShowsTheState()
{
    CCheckAllTree tree;
    tree.m_tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree.m_tree));
    // A pixel of the checked box's filled top edge, left of its tick.
    const QPoint filled = LmProjRowLayout::CheckBoxRect(tree.Section(0)).topLeft() + QPoint(8, 2);
    const QColor checkedFill(0x1e, 0x88, 0xe5);

    tree.m_pHeader->slotStateChanged(Qt::Checked);
    QCOMPARE(tree.m_pHeader->viewport()->grab().toImage().pixelColor(filled), checkedFill);
    tree.m_pHeader->slotStateChanged(Qt::Unchecked);
    QVERIFY(tree.m_pHeader->viewport()->grab().toImage().pixelColor(filled) != checkedFill);
}

QTEST_MAIN(tst_CLmProjetMgrHeaderView)
#include "tst_CLmProjetMgrHeaderView.moc"
