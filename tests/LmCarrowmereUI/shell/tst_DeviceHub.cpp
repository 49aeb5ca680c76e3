#include "CLmCarrowmereMainWindow.h"
#include "CLmCarrowmereMaintainPage.h"
#include "CLmTipPushButton.h"
#include "CLmUasProvide.h"
#include "ModalAnswer.h"

#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

// What the window does with the aircraft events the UAV worker reports.
class tst_DeviceHub : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void parachuteNotice_data();
    void parachuteNotice();
    void noticesReachALaterOpenedSection();
    void sameAircraftRefreshesOnce();
    void firmwareNoticeAtMostOncePerConnection();

private:
    void Invoke(const char* slot, QGenericArgument argument);
    CLmCarrowmereMaintainPage* Page() const;

    QPointer<CLmCarrowmereMainWindow> m_pWindow;
};

void tst_DeviceHub::init()
{
    m_pWindow = new CLmCarrowmereMainWindow(nullptr);
    m_pWindow->show();
}

void tst_DeviceHub::cleanup()
{
    delete m_pWindow;
}

void tst_DeviceHub::Invoke(const char* slot, QGenericArgument argument)
{
    QVERIFY(QMetaObject::invokeMethod(m_pWindow, slot, Qt::DirectConnection, argument));
}

CLmCarrowmereMaintainPage* tst_DeviceHub::Page() const
{
    return m_pWindow->findChild<CLmCarrowmereMaintainPage*>();
}

void tst_DeviceHub::parachuteNotice_data()
{
    QTest::addColumn<QList<int>>("counts");
    QTest::addColumn<bool>("badge");
    QTest::newRow("80 is no notice") << QList<int>{80} << false;
    QTest::newRow("81 shows the badge") << QList<int>{81} << true;
    QTest::newRow("back to 80 hides it") << QList<int>{95, 80} << false;
    QTest::newRow("zero after nothing") << QList<int>{0} << false;
}

void tst_DeviceHub::parachuteNotice()
{
    QFETCH(QList<int>, counts);
    QFETCH(bool, badge);
    for (int count : counts)
        Invoke("slotNeedNotifyParachute", Q_ARG(int, count));
    QCOMPARE(Page()->findChild<CLmTipPushButton*>(QStringLiteral("m_pBtnPlaneStatus"))->IsTipVisible(), badge);
}

// The plane status section is built when first opened; what the hub told
// the page before that must show on it.
void tst_DeviceHub::noticesReachALaterOpenedSection()
{
    CLmUasProvide aircraft(nullptr, 1, 1);
    Invoke("slotNeedNotifyParachute", Q_ARG(int, 90));
    Invoke("slotUasConnected", Q_ARG(CLmUasProvide*, &aircraft));
    QVERIFY(!Page()->findChild<QLabel*>(QStringLiteral("m_pLblParachuteReplacedTip")));

    Page()->findChild<QPushButton*>(QStringLiteral("m_pBtnPlaneStatus"))->click();
    auto* tip = Page()->findChild<QLabel*>(QStringLiteral("m_pLblParachuteReplacedTip"));
    QVERIFY(tip && tip->isVisibleTo(Page()));
    QVERIFY(tip->text().contains(QLatin1String("more than 80 times")));
    Invoke("slotUasDisConnected", Q_ARG(CLmUasProvide*, &aircraft));
}

void tst_DeviceHub::sameAircraftRefreshesOnce()
{
    CLmUasProvide aircraft(nullptr, 1, 1);
    QSignalSpy refreshed(Page(), &CLmCarrowmereMaintainPage::CurrentUasChanged);
    auto* status = Page()->findChild<QPushButton*>(QStringLiteral("m_pBtnPlaneStatus"));
    auto* settings = Page()->findChild<QPushButton*>(QStringLiteral("m_pBtnUavSettings"));
    QVERIFY(!status->isEnabled() && !settings->isEnabled());

    Invoke("slotUasConnected", Q_ARG(CLmUasProvide*, &aircraft));
    Invoke("slotUasConnected", Q_ARG(CLmUasProvide*, &aircraft));
    QCOMPARE(refreshed.count(), 1);
    QVERIFY(status->isEnabled() && settings->isEnabled());

    Invoke("slotUasDisConnected", Q_ARG(CLmUasProvide*, &aircraft));
    QCOMPARE(Page()->CurrentUas(), nullptr);
    QVERIFY(!status->isEnabled() && !settings->isEnabled());
}

void tst_DeviceHub::firmwareNoticeAtMostOncePerConnection()
{
    int boxesShown = 0;
    auto markUpgrade = [&] {
        QString shown;
        QObject scope;
        ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnCancel"), &shown, 1000, nullptr, &scope);
        Invoke("slotMarkUpgrade", Q_ARG(bool, true));
        if (shown.contains(QLatin1String(" There is a new firmware version needs to be updated.")))
            ++boxesShown;
    };
    markUpgrade();
    markUpgrade();
    QCOMPARE(boxesShown, 1);

    CLmUasProvide aircraft(nullptr, 1, 1);
    Invoke("slotUasDisConnected", Q_ARG(CLmUasProvide*, &aircraft));
    markUpgrade();
    QCOMPARE(boxesShown, 2);
}

QTEST_MAIN(tst_DeviceHub)
#include "tst_DeviceHub.moc"
