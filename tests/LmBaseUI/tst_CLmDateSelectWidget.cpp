#include "CLmDateSelectWidget.h"
#include "CPopupTestPage.h"

class tst_CLmDateSelectWidget : public QObject
{
    Q_OBJECT

private slots:
    void sendsAscendingRangeOnlyOnOk_data();
    void sendsAscendingRangeOnlyOnOk();
};

namespace {

// Types both dates digit by digit, Tab between them, then presses last.
QTestEventList TypeRange(const QDate& from, const QDate& to, Qt::Key last = Qt::Key_unknown)
{
    QTestEventList events;
    events.addKeyClicks(from.toString(QStringLiteral("yyyyMMdd")));
    events.addKeyClick(Qt::Key_Tab);
    events.addKeyClicks(to.toString(QStringLiteral("yyyyMMdd")));
    if (last != Qt::Key_unknown)
        events.addKeyClick(last);
    return events;
}

}  // namespace

void tst_CLmDateSelectWidget::sendsAscendingRangeOnlyOnOk_data()
{
    QTest::addColumn<QDate>("presetFrom");
    QTest::addColumn<QDate>("presetTo");
    QTest::addColumn<QTestEventList>("keys");
    // Object name of the button clicked after the keys, "page" for a click
    // outside the popup.
    QTest::addColumn<QString>("click");
    QTest::addColumn<QString>("range");
    const QDate june(2020, 6, 15);
    const QDate july(2020, 7, 15);
    const auto press = &CPopupTestPage::Keys;
    QTest::newRow("preset, OK clicked")
        << QDate(2024, 3, 1) << QDate(2024, 3, 31) << press({}, {}) << "m_pBtnDateOk" << "2024-03-01 to 2024-03-31";
    QTest::newRow("preset reversed, Enter on OK") << QDate(2024, 8, 9) << QDate(2023, 8, 9)
                                                  << press({}, {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return})
                                                  << QString() << "2023-08-09 to 2024-08-09";
    QTest::newRow("typed reversed, Enter") << june << july
                                           << TypeRange(QDate(2024, 5, 20), QDate(2024, 5, 2), Qt::Key_Return)
                                           << QString() << "2024-05-02 to 2024-05-20";
    QTest::newRow("typed reversed across a year, OK clicked")
        << june << july << TypeRange(QDate(2025, 1, 10), QDate(2024, 12, 24)) << "m_pBtnDateOk"
        << "2024-12-24 to 2025-01-10";
    QTest::newRow("same day typed twice") << june << july
                                          << TypeRange(QDate(2024, 2, 29), QDate(2024, 2, 29), Qt::Key_Return)
                                          << QString() << "2024-02-29 to 2024-02-29";
    QTest::newRow("typed, Cancel clicked")
        << june << july << TypeRange(QDate(2024, 5, 20), QDate(2024, 5, 2)) << "m_pBtnDateCancel" << QString();
    QTest::newRow("Enter on Cancel")
        << june << july << press({}, {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}) << QString() << QString();
    QTest::newRow("Escape") << june << july << press({}, {Qt::Key_Escape}) << QString() << QString();
    QTest::newRow("typed, Escape in the second date")
        << june << july << TypeRange(QDate(2024, 5, 20), QDate(2024, 5, 2), Qt::Key_Escape) << QString() << QString();
    QTest::newRow("typed, click outside")
        << june << july << TypeRange(QDate(2024, 5, 20), QDate(2024, 5, 2)) << "page" << QString();
}

void tst_CLmDateSelectWidget::sendsAscendingRangeOnlyOnOk()
{
    QFETCH(QDate, presetFrom);
    QFETCH(QDate, presetTo);
    QFETCH(QTestEventList, keys);
    QFETCH(QString, click);
    QFETCH(QString, range);
    CPopupTestPage page;
    CLmDateSelectWidget popup;
    popup.SetRange(presetFrom, presetTo);
    QVERIFY(page.Open(popup));
    QSignalSpy selected(&popup, &CLmDateSelectWidget::DateSelected);
    QSignalSpy closed(&popup, &CLmDateSelectWidget::WidgetClosed);

    CPopupTestPage::Press(keys);
    if (click == QLatin1String("page"))
        page.ClickAway();
    else if (!click.isEmpty())
        QTest::mouseClick(popup.findChild<QPushButton*>(click), Qt::LeftButton);

    QCOMPARE(CPopupTestPage::Sent(selected), range.isEmpty() ? QStringList() : QStringList{range});
    QCOMPARE(closed.count(), 1);
    QVERIFY(!popup.isVisible());
}

QTEST_MAIN(tst_CLmDateSelectWidget)
#include "tst_CLmDateSelectWidget.moc"
