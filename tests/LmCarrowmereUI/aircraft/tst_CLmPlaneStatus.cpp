#include "CFakeUas.h"
#include "CLmBatteryFrameWgt.h"
#include "CLmPlaneStatus.h"
#include "CLmPlaneStatusController.h"
#include "ModalAnswer.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

// The plane status page with an aircraft handle that has no link: what the
// page shows when the aircraft goes away, what it asks of the aircraft, and
// how the controller collects batteries and failure codes.
class tst_CLmPlaneStatus : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void disconnectBlanksThePage_data();
    void disconnectBlanksThePage();
    void parachuteButtonsAskFirst_data();
    void parachuteButtonsAskFirst();
    void batteryDataFillsTheGroup_data();
    void batteryDataFillsTheGroup();
    void failureCodesAfterBothReports_data();
    void failureCodesAfterBothReports();
};

namespace {

QString Text(const QWidget& page, const char* name)
{
    const auto* label = page.findChild<QLabel*>(QLatin1String(name));
    return label ? label->text() : QStringLiteral("<no %1>").arg(QLatin1String(name));
}

const QWidget& FirstBattery(const QWidget& page)
{
    return *page.findChild<CLmBatteryFrameWgt*>()->widget(0);
}

QStringList Numbered(int count)
{
    QStringList fields;
    for (int i = 0; i < count; ++i)
        fields << QString::number(i + 1);
    return fields;
}

}  // namespace

void tst_CLmPlaneStatus::disconnectBlanksThePage_data()
{
    QTest::addColumn<bool>("fixwing");
    QTest::addColumn<QStringList>("blankLabels");

    QTest::newRow("fixed-wing") << true
                                << QStringList{"m_pLblSerialNumber", "m_pLblFirmwareVersion", "m_pLblMileage",
                                               "m_pLblOpenUmbrella", "m_pLblSorties", "m_pLblUmbrellaRopeUseTimes",
                                               "m_pLblBatteryElectricity", "m_pLblBatteryVoltage",
                                               "m_pLblBatteryCapacitance", "m_pLblBatteryState"};
    QTest::newRow("multirotor") << false
                                << QStringList{"m_pLblMrMileage", "m_pLblMrFlights", "m_pLblMrSerialNumber",
                                               "m_pLblMrFirmwareVersion", "m_pLblMrFlightTime", "m_pLblMrBootCount"};
}

void tst_CLmPlaneStatus::disconnectBlanksThePage()
{
    QFETCH(bool, fixwing);
    QFETCH(QStringList, blankLabels);
    CLmPlaneStatus page;
    CFakeUas uas(fixwing);
    page.SetUas(&uas);
    QCOMPARE(uas.m_requests.first(), QStringLiteral("status stream"));
    if (fixwing) {
        Q_EMIT uas.tolva_status(Numbered(12));
        Q_EMIT uas.parachuteNum(3);
        Q_EMIT uas.batteryInfoAndFailsafeFlag(80, 16000, 0, 0, 24150);
        QCOMPARE(Text(page, "m_pLblUmbrellaRopeUseTimes"), QStringLiteral("5times"));
        QCOMPARE(Text(page, "m_pLblBatteryVoltage"), QStringLiteral("24.15V"));
    } else {
        Q_EMIT uas.multirotor_tolva_status(Numbered(21));
        Q_EMIT uas.signalMultirotorBatteryInfo({"24000", "120", "2567", "87"});
        page.Controller()->slotBatteryCellVoltage(QVector<QString>(8, QStringLiteral("4100")).toList());
        QCOMPARE(Text(FirstBattery(page), "m_pLblCell1"), QStringLiteral("4.10"));
    }

    page.SetUas(nullptr);
    for (const QString& name : qAsConst(blankLabels))
        QCOMPARE(Text(page, name.toLatin1().constData()), QStringLiteral("N/A"));
    QCOMPARE(page.Controller()->Uas(), &uas);
    if (fixwing)
        return;
    auto* hardware = page.findChild<QComboBox*>(QStringLiteral("m_pCmbHardware"));
    QCOMPARE(hardware->itemData(hardware->count() - 1).toString(), QStringLiteral("0x0"));
    QCOMPARE(Text(page, "m_pLblBatteryVersion"), QStringLiteral("0"));
    QCOMPARE(Text(page, "m_pLblHardwareVersion"), QStringLiteral("Version:N/A"));
    QCOMPARE(Text(FirstBattery(page), "m_pLblCell1"), QStringLiteral("0.00"));
    QCOMPARE(Text(FirstBattery(page), "m_pLblRemainValue"), QStringLiteral("0"));
}

void tst_CLmPlaneStatus::parachuteButtonsAskFirst_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("question");
    QTest::addColumn<QStringList>("requests");

    const QString replaced = QStringLiteral("Please confirm that you have changed the parachute rope.");
    const QString check = QStringLiteral("Are you sure you want to open the parachute cover?");
    QTest::newRow("rope replaced") << "m_pBtnChangeRope" << "m_pBtnOk" << replaced
                                   << QStringList{"rope reset", "parachute count"};
    QTest::newRow("rope replacement cancelled") << "m_pBtnChangeRope" << "m_pBtnCancel" << replaced << QStringList();
    QTest::newRow("cover opened") << "m_pBtnParachuteCheck" << "m_pBtnOk" << check
                                  << QStringList{"command 208 0 1 0 0 0 0 0 0 126"};
    QTest::newRow("cover check cancelled") << "m_pBtnParachuteCheck" << "m_pBtnCancel" << check << QStringList();
}

void tst_CLmPlaneStatus::parachuteButtonsAskFirst()
{
    QFETCH(QString, button);
    QFETCH(QString, answer);
    QFETCH(QString, question);
    QFETCH(QStringList, requests);
    CLmPlaneStatus page;
    CFakeUas uas(true);
    page.SetUas(&uas);
    uas.m_requests.clear();

    QString seen;
    ModalAnswer::PressWhenShown(answer, &seen);
    page.findChild<QPushButton*>(button)->click();
    QVERIFY2(seen.contains(question), qPrintable(seen));
    QCOMPARE(uas.m_requests, requests);
}

void tst_CLmPlaneStatus::batteryDataFillsTheGroup_data()
{
    QTest::addColumn<QStringList>("data");
    QTest::addColumn<int>("filled");
    QTest::addColumn<int>("selfDischarge");

    QTest::newRow("two batteries and the settings")
        << QStringList{"20900", "95", "87", "BAT1", "20240", "92", "100", "BAT2", "10", "20", "5"} << 2 << 5;
    QTest::newRow("one battery and the settings") << QStringList{"20900", "95", "87", "BAT1", "10", "20", "7"} << 1
                                                  << 7;
    QTest::newRow("settings only") << QStringList{"10", "20", "3"} << 0 << 3;
}

void tst_CLmPlaneStatus::batteryDataFillsTheGroup()
{
    QFETCH(QStringList, data);
    QFETCH(int, filled);
    QFETCH(int, selfDischarge);
    CLmPlaneStatusController controller;
    controller.slotMultirotorBatteryInfo({"49668", "120", "2567", "87", "49584", "120", "2617", "87"});
    controller.slotBatteryData(data);

    const CLmBatteryGroup& group = controller.BatteryGroup();
    QCOMPARE(group.GetBattery(0)->GetTemperature(), 25.0);
    QCOMPARE(group.GetBattery(1)->GetTemperature(), 26.0);
    for (int k = 0; k < 2; ++k)
        QCOMPARE(group.GetBattery(k)->GetBatteryID().isEmpty(), k >= filled);
    QCOMPARE(group.GetSevereLowCapacityAlarm(), 10);
    QCOMPARE(group.GetLowCapacityAlarm(), 20);
    QCOMPARE(group.GetStartingSelfDischargeTime(), selfDischarge);
    QVERIFY(!controller.IsWaitingForCellVoltages());
}

void tst_CLmPlaneStatus::failureCodesAfterBothReports_data()
{
    QTest::addColumn<quint32>("code0");
    QTest::addColumn<quint32>("code1");
    QTest::addColumn<QStringList>("texts");

    QTest::newRow("battery self-check") << quint32(1u << 7) << quint32(0) << QStringList{"Battery self-check failure"};
    QTest::newRow("low and ultra low power")
        << quint32(0) << quint32((1u << 13) | (1u << 14)) << QStringList{"Power is too low", "Ultra low power"};
    QTest::newRow("codes without a text") << quint32(1u << 3) << quint32(1u << 2) << QStringList();
}

void tst_CLmPlaneStatus::failureCodesAfterBothReports()
{
    QFETCH(quint32, code0);
    QFETCH(quint32, code1);
    QFETCH(QStringList, texts);
    CLmPlaneStatus page;
    CFakeUas uas(false);
    page.SetUas(&uas);
    auto* warning = FirstBattery(page).findChild<QLabel*>(QStringLiteral("m_pLblWarning"));

    Q_EMIT uas.calibrationInfoAndFailureCode(0, 0, 0, code0, code1);
    QVERIFY(warning->isHidden());
    Q_EMIT uas.calibrationInfoAndFailureCode(0, 0, 1, 0, 0);
    QCOMPARE(!warning->isHidden(), !texts.isEmpty());
    if (!texts.isEmpty())
        QCOMPARE(warning->text(), texts.join(QLatin1Char('\n')));

    // Once both reports are in, later reports are not listened to.
    Q_EMIT uas.calibrationInfoAndFailureCode(0, 0, 0, 1u << 7, 0);
    QCOMPARE(warning->text(), texts.isEmpty() ? QStringLiteral("abnormality") : texts.join(QLatin1Char('\n')));
}

QTEST_MAIN(tst_CLmPlaneStatus)
#include "tst_CLmPlaneStatus.moc"
