#include "CLmReceiveShareManagerDelegate.h"
#include "CLmShareItem.h"
#include "LmProjRowLayout.h"

#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>

using Delegate = CLmReceiveShareManagerDelegate;
using Controller = CLmShareManagerController;

// What a click on a painted part of a share row does, by row kind and state.
class tst_CLmReceiveShareManagerDelegate : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void clickEmitsByRow_data();
    void clickEmitsByRow();
};

void tst_CLmReceiveShareManagerDelegate::clickEmitsByRow_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("reportedState");  // -1: nothing reported since the fill
    QTest::addColumn<QString>("target");     // "receive", "refuse", or "button:k" counted from the right
    QTest::addColumn<QString>("signal");     // empty: nothing

    const int received = Controller::KindReceived;
    const int task = Controller::KindReceivedTask;
    const int sent = Controller::KindSent;
    QTest::newRow("waiting: receive image") << received << 0 << -1 << "receive" << "download";
    QTest::newRow("waiting: refuse image") << received << 0 << -1 << "refuse" << "delete";
    QTest::newRow("waiting: accept button") << received << 0 << -1 << "button:2" << "accept";
    QTest::newRow("waiting: delete button") << received << 0 << -1 << "button:1" << "delete";
    QTest::newRow("waiting: message button") << received << 0 << -1 << "button:0" << "message";
    QTest::newRow("waiting task: accept button") << task << 0 << -1 << "button:2" << "accept";
    QTest::newRow("accepted: no receive image") << received << 2 << -1 << "receive" << "";
    QTest::newRow("accepted: no accept button") << received << 2 << -1 << "button:2" << "";
    QTest::newRow("accepted: delete button") << received << 2 << -1 << "button:1" << "delete";
    QTest::newRow("accepted since the fill: no receive image") << received << 0 << 2 << "receive" << "";
    QTest::newRow("sent: share again") << sent << 0 << -1 << "button:2" << "share";
    QTest::newRow("sent: no receive image") << sent << 0 << -1 << "receive" << "";
}

void tst_CLmReceiveShareManagerDelegate::clickEmitsByRow()
{
    QFETCH(int, kind);
    QFETCH(int, state);
    QFETCH(int, reportedState);
    QFETCH(QString, target);
    QFETCH(QString, signal);

    QTreeWidget tree;
    tree.setColumnCount(6);
    for (int column = 0; column < 6; ++column)
        tree.setColumnWidth(column, 150);
    tree.resize(1000, 300);
    auto* delegate = new Delegate(&tree);
    tree.setItemDelegate(delegate);
    Controller::SShareRow row;
    row.nId = 7;
    row.eKind = static_cast<Controller::EKind>(kind);
    row.nState = state;
    row.strProject = QStringLiteral("Quarry North");
    tree.addTopLevelItem(new CLmShareItem(row));
    if (reportedState >= 0)
        delegate->slotUpdateStateTxt(7, reportedState);
    tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree));

    const QRect stateCell = tree.visualRect(tree.model()->index(0, Delegate::ColumnState));
    const QRect operationCell = tree.visualRect(tree.model()->index(0, Delegate::ColumnOperation));
    QPoint pos;
    if (target == QLatin1String("receive"))
        pos = Delegate::ReceiveRect(stateCell).center();
    else if (target == QLatin1String("refuse"))
        pos = Delegate::RefuseRect(stateCell).center();
    else
        pos = LmProjRowLayout::ButtonRect(operationCell, target.section(':', 1).toInt()).center();

    QSignalSpy accept(delegate, &Delegate::signalAcceptBtnClicked);
    QSignalSpy share(delegate, &Delegate::signalShareBtnClicked);
    QSignalSpy remove(delegate, &Delegate::signalDeleteBtnClicked);
    QSignalSpy message(delegate, &Delegate::signalMessageBtnClicked);
    QSignalSpy download(delegate, &Delegate::signalClickedDownload);
    const QList<QPair<QString, QSignalSpy*>> spies = {
        {"accept", &accept}, {"share", &share}, {"delete", &remove}, {"message", &message}, {"download", &download}};
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, pos);
    for (const auto& spy : spies) {
        QCOMPARE(spy.second->count(), spy.first == signal ? 1 : 0);
        if (spy.first == signal)
            QCOMPARE(spy.second->at(0).at(0).toModelIndex().column(), 0);
    }
}

QTEST_MAIN(tst_CLmReceiveShareManagerDelegate)
#include "tst_CLmReceiveShareManagerDelegate.moc"
