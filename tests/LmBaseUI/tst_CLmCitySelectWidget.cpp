#include "CLmCitySelectWidget.h"
#include "CPopupTestPage.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

class tst_CLmCitySelectWidget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void citiesSortedWithoutDuplicatesAllFirst_data();
    void citiesSortedWithoutDuplicatesAllFirst();
    void keyboardFiltersAndChooses_data();
    void keyboardFiltersAndChooses();
    void mouseChoosesOrCloses_data();
    void mouseChoosesOrCloses();
    void opensNextToAnchorOnItsScreen_data();
    void opensNextToAnchorOnItsScreen();
};

namespace {

const QStringList kCities{"Hamburg", "Berlin", "Bremen", "Bonn"};

QListWidget* CityList(const CLmCitySelectWidget& popup)
{
    return popup.findChild<QListWidget*>(QStringLiteral("m_pListCities"));
}

QStringList VisibleRows(const CLmCitySelectWidget& popup)
{
    QStringList rows;
    const QListWidget* list = CityList(popup);
    for (int row = 0; row < list->count(); ++row) {
        if (!list->isRowHidden(row))
            rows << list->item(row)->text();
    }
    return rows;
}

}  // namespace

void tst_CLmCitySelectWidget::initTestCase()
{
    // Sorting follows the user's language; pin it.
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
}

void tst_CLmCitySelectWidget::citiesSortedWithoutDuplicatesAllFirst_data()
{
    QTest::addColumn<QStringList>("cities");
    QTest::addColumn<QStringList>("rows");
    const QString all = CLmCitySelectWidget::AllCitiesText();
    QTest::newRow("no projects") << QStringList() << QStringList{all};
    QTest::newRow("lower case among capitals")
        << QStringList{"Zagreb", "berlin", "Aachen"} << QStringList{all, "Aachen", "berlin", "Zagreb"};
    QTest::newRow("accented initials") << QStringList{"Zürich", "Örebro", "Paris", "Oslo"}
                                       << QStringList{all, "Örebro", "Oslo", "Paris", "Zürich"};
    QTest::newRow("one row per city, no blank rows")
        << QStringList{"Bonn", "", "Bonn", "  ", "Aachen", "Bonn"} << QStringList{all, "Aachen", "Bonn"};
}

void tst_CLmCitySelectWidget::citiesSortedWithoutDuplicatesAllFirst()
{
    QFETCH(QStringList, cities);
    QFETCH(QStringList, rows);
    CLmCitySelectWidget popup;
    popup.SetCities(cities);
    QCOMPARE(VisibleRows(popup), rows);
    QCOMPARE(CityList(popup)->count(), rows.size());
}

void tst_CLmCitySelectWidget::keyboardFiltersAndChooses_data()
{
    QTest::addColumn<QTestEventList>("keys");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QString>("city");
    QTest::addColumn<bool>("closes");
    const QString all = CLmCitySelectWidget::AllCitiesText();
    const QStringList everything{all, "Berlin", "Bonn", "Bremen", "Hamburg"};
    const Qt::Key down = Qt::Key_Down;
    const Qt::Key up = Qt::Key_Up;
    const Qt::Key enter = Qt::Key_Return;
    const auto press = &CPopupTestPage::Keys;
    QTest::newRow("Enter at once") << press({}, {enter}) << everything << all << true;
    QTest::newRow("down twice") << press({}, {down, down, enter}) << everything << "Bonn" << true;
    QTest::newRow("down and back up") << press({}, {down, down, down, up, up, enter}) << everything << "Berlin" << true;
    QTest::newRow("down past the last row")
        << press({}, {down, down, down, down, down, down, enter}) << everything << "Hamburg" << true;
    QTest::newRow("part of a name") << press("bre", {enter}) << QStringList{"Bremen"} << "Bremen" << true;
    QTest::newRow("any case, anywhere in the name, without all")
        << press("B", {down, enter}) << QStringList{"Berlin", "Bonn", "Bremen", "Hamburg"} << "Bonn" << true;
    QTest::newRow("nothing found") << press("xyz", {down, enter}) << QStringList() << QString() << false;
    QTest::newRow("Escape") << press({}, {Qt::Key_Escape}) << everything << QString() << true;
    QTest::newRow("Escape while searching")
        << press("urg", {Qt::Key_Escape}) << QStringList{"Hamburg"} << QString() << true;
}

void tst_CLmCitySelectWidget::keyboardFiltersAndChooses()
{
    QFETCH(QTestEventList, keys);
    QFETCH(QStringList, rows);
    QFETCH(QString, city);
    QFETCH(bool, closes);
    CPopupTestPage page;
    CLmCitySelectWidget popup;
    popup.SetCities(kCities);
    QVERIFY(page.Open(popup));
    QCOMPARE(QApplication::focusWidget(), popup.findChild<QLineEdit*>(QStringLiteral("m_pEditCitySearch")));
    QSignalSpy selected(&popup, &CLmCitySelectWidget::CitySelected);
    QSignalSpy closed(&popup, &CLmCitySelectWidget::WidgetClosed);

    CPopupTestPage::Press(keys);

    QCOMPARE(VisibleRows(popup), rows);
    QCOMPARE(popup.findChild<QLabel*>(QStringLiteral("m_pLabelNoCity"))->isVisibleTo(&popup), rows.isEmpty());
    QCOMPARE(CPopupTestPage::Sent(selected), city.isEmpty() ? QStringList() : QStringList{city});
    QCOMPARE(closed.count(), closes ? 1 : 0);
    QCOMPARE(popup.isVisible(), !closes);
}

void tst_CLmCitySelectWidget::mouseChoosesOrCloses_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("clickedRow");
    QTest::newRow("all") << QString() << CLmCitySelectWidget::AllCitiesText();
    QTest::newRow("city") << QString() << "Bremen";
    QTest::newRow("city found by search") << "ham" << "Hamburg";
    QTest::newRow("click away while searching") << "ham" << QString();
}

void tst_CLmCitySelectWidget::mouseChoosesOrCloses()
{
    QFETCH(QString, typed);
    QFETCH(QString, clickedRow);
    CPopupTestPage page;
    CLmCitySelectWidget popup;
    popup.SetCities(kCities);
    QVERIFY(page.Open(popup));
    QSignalSpy selected(&popup, &CLmCitySelectWidget::CitySelected);
    QSignalSpy closed(&popup, &CLmCitySelectWidget::WidgetClosed);
    CPopupTestPage::Press(CPopupTestPage::Keys(typed, {}));

    if (clickedRow.isEmpty()) {
        page.ClickAway();
    } else {
        QListWidget* list = CityList(popup);
        const QList<QListWidgetItem*> items = list->findItems(clickedRow, Qt::MatchExactly);
        QCOMPARE(items.size(), 1);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(items.first()).center());
    }

    QCOMPARE(CPopupTestPage::Sent(selected), clickedRow.isEmpty() ? QStringList() : QStringList{clickedRow});
    QCOMPARE(closed.count(), 1);
    QVERIFY(!popup.isVisible());
}

void tst_CLmCitySelectWidget::opensNextToAnchorOnItsScreen_data()
{
    // Where the anchor sits, as a fraction of the screen's width and height.
    QTest::addColumn<QPointF>("anchorAt");
    QTest::addColumn<bool>("above");
    QTest::newRow("room below") << QPointF(0.1, 0.1) << false;
    QTest::newRow("at the right edge") << QPointF(0.95, 0.1) << false;
    QTest::newRow("at the bottom edge") << QPointF(0.1, 0.95) << true;
}

void tst_CLmCitySelectWidget::opensNextToAnchorOnItsScreen()
{
    QFETCH(QPointF, anchorAt);
    QFETCH(bool, above);
    CPopupTestPage page;
    QPushButton* anchorButton = page.Anchor();
    anchorButton->move(qRound(anchorAt.x() * page.width()), qRound(anchorAt.y() * page.height()));
    CLmCitySelectWidget popup;
    popup.SetCities(kCities);
    QVERIFY(page.Open(popup));

    const QRect anchor(anchorButton->mapToGlobal(QPoint(0, 0)), anchorButton->size());
    const QRect popupRect = popup.frameGeometry();
    QVERIFY(page.screen()->availableGeometry().contains(popupRect));
    const int gap = above ? anchor.top() - popupRect.bottom() : popupRect.top() - anchor.bottom();
    QVERIFY2(gap > 0 && gap < 10, qPrintable(QString::number(gap)));
    if (anchor.left() + popupRect.width() <= page.width())
        QCOMPARE(popupRect.left(), anchor.left());
}

QTEST_MAIN(tst_CLmCitySelectWidget)
#include "tst_CLmCitySelectWidget.moc"
