#include "CLmTipPushButton.h"

#include <QtTest>

class tst_CLmTipPushButton : public QObject
{
    Q_OBJECT

private slots:
    void badgePaintedInTopRightCorner_data();
    void badgePaintedInTopRightCorner();
};

namespace {

bool IsBadgeRed(const QColor& color)
{
    return color.red() > 200 && color.green() < 90 && color.blue() < 90;
}

}  // namespace

void tst_CLmTipPushButton::badgePaintedInTopRightCorner_data()
{
    QTest::addColumn<bool>("visible");
    QTest::addColumn<QPoint>("margin");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("centre");
    QTest::newRow("hidden") << false << QPoint(5, 5) << QSize(8, 8) << QPoint(51, 9);
    QTest::newRow("main window badge") << true << QPoint(5, 5) << QSize(8, 8) << QPoint(51, 9);
    QTest::newRow("wider margins") << true << QPoint(20, 12) << QSize(10, 10) << QPoint(35, 17);
}

void tst_CLmTipPushButton::badgePaintedInTopRightCorner()
{
    QFETCH(bool, visible);
    QFETCH(QPoint, margin);
    QFETCH(QSize, size);
    QFETCH(QPoint, centre);
    CLmTipPushButton button;
    button.setStyleSheet(QStringLiteral("background: white; border: none;"));
    button.resize(60, 40);
    button.SetTipMargin(margin.x(), margin.y());
    button.SetTipSize(size);
    button.SetTipVisible(visible);

    const QImage image = button.grab().toImage();
    QCOMPARE(IsBadgeRed(image.pixelColor(centre)), visible);
    // Nothing red outside the badge, e.g. in the opposite corner.
    QVERIFY(!IsBadgeRed(image.pixelColor(5, 35)));
}

QTEST_MAIN(tst_CLmTipPushButton)
#include "tst_CLmTipPushButton.moc"
