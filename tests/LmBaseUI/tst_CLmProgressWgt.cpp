#include "CLmProgressWgt.h"
#include "ModalAnswer.h"

#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

namespace {

QPushButton* Button(QWidget* dialog, const char* name)
{
    return dialog->findChild<QPushButton*>(QLatin1String(name));
}

}  // namespace

class tst_CLmProgressWgt : public QObject
{
    Q_OBJECT

private slots:
    void retryReportsWithoutClosing();
    void cancelAndCloseEndTheDialog_data();
    void cancelAndCloseEndTheDialog();
    void execChoosesStartingButtons_data();
    void execChoosesStartingButtons();
    void escapeOnlyEndsWhenTheUserMayAbandon_data();
    void escapeOnlyEndsWhenTheUserMayAbandon();
    void progressShownAsShareOfTotal_data();
    void progressShownAsShareOfTotal();
};

void tst_CLmProgressWgt::retryReportsWithoutClosing()
{
    CLmProgressWgt dialog;
    QSignalSpy retrySpy(&dialog, &CLmProgressWgt::signalBtnRetryClicked);
    QSignalSpy cancelSpy(&dialog, &CLmProgressWgt::signalBtnCancelClicked);
    bool openAfterRetry = false;
    ModalAnswer::RunWhenShown("CLmProgressWgt", [&](QWidget*) {
        dialog.SetCurrentText(QStringLiteral("Download File Failed."));
        dialog.VisibleBtnRetry(true);
        Button(&dialog, "m_pBtnRetry")->click();
        QCoreApplication::processEvents();
        openAfterRetry = dialog.isVisible();
        Button(&dialog, "m_pBtnCancel")->click();
    });
    QCOMPARE(dialog.exec(true), 0);
    QVERIFY(openAfterRetry);
    QCOMPARE(retrySpy.count(), 1);
    QCOMPARE(cancelSpy.count(), 1);
}

void tst_CLmProgressWgt::cancelAndCloseEndTheDialog_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("cancelSignals");
    QTest::addColumn<int>("closeSignals");
    QTest::newRow("Cancel") << "m_pBtnCancel" << 1 << 0;
    QTest::newRow("Close") << "m_pBtnClose" << 0 << 1;
}

void tst_CLmProgressWgt::cancelAndCloseEndTheDialog()
{
    QFETCH(QString, button);
    QFETCH(int, cancelSignals);
    QFETCH(int, closeSignals);
    CLmProgressWgt dialog;
    QSignalSpy cancelSpy(&dialog, &CLmProgressWgt::signalBtnCancelClicked);
    QSignalSpy closeSpy(&dialog, &CLmProgressWgt::signalBtnCloseClicked);
    QSignalSpy retrySpy(&dialog, &CLmProgressWgt::signalBtnRetryClicked);
    // The owner must hear of the click while the dialog is still up, so that
    // it can stop its work before exec() returns.
    bool visibleWhenSignalled = false;
    auto noteVisibility = [&] { visibleWhenSignalled = dialog.isVisible(); };
    connect(&dialog, &CLmProgressWgt::signalBtnCancelClicked, this, noteVisibility);
    connect(&dialog, &CLmProgressWgt::signalBtnCloseClicked, this, noteVisibility);
    ModalAnswer::PressWhenShown(button);
    QCOMPARE(dialog.exec(true), 0);
    QCOMPARE(cancelSpy.count(), cancelSignals);
    QCOMPARE(closeSpy.count(), closeSignals);
    QCOMPARE(retrySpy.count(), 0);
    QVERIFY(visibleWhenSignalled);
    QVERIFY(!dialog.isVisible());
}

void tst_CLmProgressWgt::execChoosesStartingButtons_data()
{
    QTest::addColumn<bool>("visibleButtons");
    QTest::newRow("hidden") << false;
    QTest::newRow("visible") << true;
}

void tst_CLmProgressWgt::execChoosesStartingButtons()
{
    QFETCH(bool, visibleButtons);
    CLmProgressWgt dialog;
    // A retry left visible from an earlier failure must not survive a new run.
    dialog.VisibleBtnRetry(true);
    bool cancelShown = !visibleButtons;
    bool closeShown = !visibleButtons;
    bool retryShown = true;
    ModalAnswer::RunWhenShown("CLmProgressWgt", [&](QWidget*) {
        cancelShown = Button(&dialog, "m_pBtnCancel")->isVisible();
        closeShown = Button(&dialog, "m_pBtnClose")->isVisible();
        retryShown = Button(&dialog, "m_pBtnRetry")->isVisible();
        dialog.accept();
    });
    QCOMPARE(dialog.exec(visibleButtons), 1);
    QCOMPARE(cancelShown, visibleButtons);
    QCOMPARE(closeShown, visibleButtons);
    QVERIFY(!retryShown);
}

void tst_CLmProgressWgt::escapeOnlyEndsWhenTheUserMayAbandon_data()
{
    QTest::addColumn<bool>("showCancel");
    QTest::addColumn<bool>("showClose");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<int>("cancelSignals");
    QTest::addColumn<int>("closeSignals");
    QTest::newRow("no buttons") << false << false << false << 0 << 0;
    QTest::newRow("cancel shown") << true << true << true << 1 << 0;
    QTest::newRow("only close shown") << false << true << true << 0 << 1;
}

void tst_CLmProgressWgt::escapeOnlyEndsWhenTheUserMayAbandon()
{
    QFETCH(bool, showCancel);
    QFETCH(bool, showClose);
    QFETCH(bool, closes);
    QFETCH(int, cancelSignals);
    QFETCH(int, closeSignals);
    CLmProgressWgt dialog;
    QSignalSpy cancelSpy(&dialog, &CLmProgressWgt::signalBtnCancelClicked);
    QSignalSpy closeSpy(&dialog, &CLmProgressWgt::signalBtnCloseClicked);
    bool openAfterEscape = true;
    ModalAnswer::RunWhenShown("CLmProgressWgt", [&](QWidget* modal) {
        dialog.VisibleBtnCannel(showCancel);
        dialog.VisibleBtnClose(showClose);
        QTest::keyClick(modal, Qt::Key_Escape);
        openAfterEscape = dialog.isVisible();
        if (openAfterEscape)
            dialog.accept();
    });
    dialog.exec(false);
    QCOMPARE(openAfterEscape, !closes);
    QCOMPARE(cancelSpy.count(), cancelSignals);
    QCOMPARE(closeSpy.count(), closeSignals);
}

void tst_CLmProgressWgt::progressShownAsShareOfTotal_data()
{
    QTest::addColumn<qint64>("current");
    QTest::addColumn<qint64>("total");
    QTest::addColumn<int>("expected");
    QTest::newRow("quarter") << qint64(50) << qint64(200) << 25;
    QTest::newRow("beyond int range") << qint64(3000000000LL) << qint64(6000000000LL) << 50;
    QTest::newRow("more than total") << qint64(300) << qint64(200) << 100;
    QTest::newRow("unknown total keeps value") << qint64(10) << qint64(0) << 7;
}

void tst_CLmProgressWgt::progressShownAsShareOfTotal()
{
    QFETCH(qint64, current);
    QFETCH(qint64, total);
    QFETCH(int, expected);
    CLmProgressWgt dialog;
    dialog.SetValue(7);
    dialog.SetProgress(current, total);
    QCOMPARE(dialog.findChild<QProgressBar*>(QStringLiteral("m_pProgressBar"))->value(), expected);
}

QTEST_MAIN(tst_CLmProgressWgt)
#include "tst_CLmProgressWgt.moc"
