#include "CLmBatteryFrameWgt.h"
#include "CLmDeployConfig.h"
#include "CLmFirmwareController.h"
#include "CLmFirmwareSection.h"
#include "CLmPlaneStatus.h"
#include "CLmUAVConnectObj.h"
#include "CLmUasProvide.h"
#include "CLmUavSettings.h"
#include "CLmUavSettingsController.h"
#include "CLmUpdateFolders.h"
#include "CSkySimProcess.h"
#include "ModalAnswer.h"

#include <QCryptographicHash>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>
#include <QThread>
#include <QtTest>

// The aircraft pages against the aircraft emulator over loopback UDP, with
// the UAV worker on its own thread as the main window runs it.
class tst_AircraftPagesWithSkySim : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void batteryTabsShowWhatTheAircraftSent();
    void protectionTime_data();
    void protectionTime();
    void firmwareUpgrade_data();
    void firmwareUpgrade();
    void firmwareUploadResumesAfterTheAircraftCameBack();

private:
    void HoldFirmwarePackage(const QByteArray& package);
    CLmUasProvide* ConnectSkySim(const QStringList& arguments);

    QThread* m_pThread = nullptr;
    QPointer<CLmUAVConnectObj> m_pWorker;
    CSkySimProcess* m_pSim = nullptr;
};

namespace {

// skysim's batteries: cell k of battery b, its smart-battery figures.
int SimCellMilliVolts(int battery, int cell)
{
    return 4150 - 7 * battery - 2 * cell;
}

constexpr int kSimCells = 8;
constexpr int kSimDesignCapacity = 22000;

QString Text(const QWidget* widget, const QString& name)
{
    const auto* label = widget->findChild<QLabel*>(name);
    return label ? label->text() : QStringLiteral("<no %1>").arg(name);
}

}  // namespace

void tst_AircraftPagesWithSkySim::init()
{
    qputenv("SKYCONSOLE_AIRCRAFT_UDP_LISTEN_PORT", "0");
    qputenv("SKYCONSOLE_AIRCRAFT_SERIAL_PORTS", "none");
    CLmDeployConfig::Reload();
    m_pThread = new QThread;
    m_pWorker = new CLmUAVConnectObj(nullptr, nullptr);
    m_pWorker->moveToThread(m_pThread);
    connect(m_pThread, &QThread::started, m_pWorker, &CLmUAVConnectObj::slotConnectUAVStart);
    connect(m_pThread, &QThread::finished, m_pWorker, &QObject::deleteLater);
    m_pThread->start();
    m_pSim = new CSkySimProcess;
}

void tst_AircraftPagesWithSkySim::cleanup()
{
    delete m_pSim;
    m_pThread->quit();
    m_pThread->wait();
    delete m_pThread;
}

CLmUasProvide* tst_AircraftPagesWithSkySim::ConnectSkySim(const QStringList& arguments)
{
    CLmUasProvide* pUas = nullptr;
    connect(m_pWorker, &CLmUAVConnectObj::UAV_connected, this, [&pUas](CLmUasProvide* pConnected) { pUas = pConnected; });
    if (!QTest::qWaitFor([this] { return m_pWorker->GetUdpListenPort() != 0; }, 5000))
        return nullptr;
    const QString address = QStringLiteral("127.0.0.1:%1").arg(m_pWorker->GetUdpListenPort());
    if (!m_pSim->Start(QStringList{QStringLiteral("--udp"), address} + arguments))
        return nullptr;
    const bool bConnected = QTest::qWaitFor([&pUas] { return pUas != nullptr; }, 10000);
    disconnect(m_pWorker, &CLmUAVConnectObj::UAV_connected, this, nullptr);
    return bConnected ? pUas : nullptr;
}

void tst_AircraftPagesWithSkySim::batteryTabsShowWhatTheAircraftSent()
{
    CLmUasProvide* pUas = ConnectSkySim({"--type", "multirotor", "--batteries", "2", "--cells", "8"});
    QVERIFY(pUas);
    CLmPlaneStatus page;
    page.SetUas(pUas);
    auto* frame = page.findChild<CLmBatteryFrameWgt*>();

    for (int battery = 0; battery < 2; ++battery) {
        const QWidget* tab = frame->widget(battery);
        QTRY_COMPARE_WITH_TIMEOUT(Text(tab, "m_pLblSerialValue"), QStringLiteral("BAT240001%1").arg(battery + 1),
                                  15000);
        QTRY_COMPARE(Text(tab, "m_pLblCell8"),
                     QString::number(SimCellMilliVolts(battery, 7) / 1000.0, 'f', 2));
        int totalMilliVolts = 0;
        for (int cell = 0; cell < kSimCells; ++cell) {
            const int milliVolts = SimCellMilliVolts(battery, cell);
            totalMilliVolts += milliVolts;
            QCOMPARE(Text(tab, QStringLiteral("m_pLblCell%1").arg(cell + 1)),
                     QString::number(milliVolts / 1000.0, 'f', 2));
        }
        QCOMPARE(Text(tab, "m_pLblTotalValue"), QString::number(totalMilliVolts / 1000.0, 'f', 2));
        QCOMPARE(Text(tab, "m_pLblTempValue"), QString::number((2567 + 50 * battery) / 100));
        QCOMPARE(Text(tab, "m_pLblRemainValue"), QStringLiteral("87"));
        QCOMPARE(Text(tab, "m_pLblCurrentValue"), QStringLiteral("120"));
        QCOMPARE(Text(tab, "m_pLblCyclesValue"), QString::number(87 + 13 * battery));
        QCOMPARE(Text(tab, "m_pLblCapacityValue"), QString::number(kSimDesignCapacity * (95 - 3 * battery) / 100));
        QCOMPARE(Text(tab, "m_pLblLifeValue"), QString::number(95 - 3 * battery));
    }
    QCOMPARE(Text(frame->widget(2), "m_pLblSerialValue"), QString());
}

void tst_AircraftPagesWithSkySim::protectionTime_data()
{
    QTest::addColumn<int>("typed");
    // The spin box changes to this value before the aircraft's answer is
    // read (0 keeps it): the answer confirms another value than it shows.
    QTest::addColumn<int>("changedTo");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("held");

    QTest::newRow("29 is refused") << 29 << 0 << "Lost contact protection time can not be less than 30 seconds"
                                   << 60;
    QTest::newRow("30 is set and confirmed") << 30 << 0 << "Parameter set successfully" << 30;
    QTest::newRow("confirmation of another value") << 45 << 50 << QString() << 45;
}

void tst_AircraftPagesWithSkySim::protectionTime()
{
    QFETCH(int, typed);
    QFETCH(int, changedTo);
    QFETCH(QString, message);
    QFETCH(int, held);
    CLmUavSettings page;
    CLmUavSettingsController* controller = page.Controller();
    QSignalSpy read(controller, &CLmUavSettingsController::ProtectionTimeRead);
    CLmUasProvide* pUas = ConnectSkySim({"--type", "fixedwing"});
    QVERIFY(pUas);
    page.SetUas(pUas);
    QTRY_COMPARE_WITH_TIMEOUT(read.count(), 1, 10000);
    QCOMPARE(read.first().first().toInt(), 60);

    auto* spin = page.findChild<QSpinBox*>(QStringLiteral("m_pSpinProtectionTime"));
    QSignalSpy confirmed(controller, &CLmUavSettingsController::ProtectionTimeConfirmed);
    QObject scope;
    QString seen;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &seen, 10000, nullptr, &scope);
    spin->setValue(typed);
    page.findChild<QPushButton*>(QStringLiteral("m_pBtnOK"))->click();
    if (changedTo)
        spin->setValue(changedTo);

    if (typed >= CLmUavSettingsController::MinProtectionTimeS)
        QTRY_COMPARE_WITH_TIMEOUT(confirmed.count(), 1, 10000);
    if (message.isEmpty())
        QVERIFY2(seen.isEmpty(), qPrintable(seen));
    else
        QTRY_VERIFY2(seen.contains(message), qPrintable(seen));
    QVERIFY(!controller->IsWaitingForConfirmation());

    // What the aircraft holds now.
    read.clear();
    pUas->RequestParameter(QStringLiteral("GCS_TIMEOUT"));
    QTRY_COMPARE_WITH_TIMEOUT(read.count(), 1, 10000);
    QCOMPARE(read.first().first().toInt(), held);
}

// The package the update check downloaded and recorded, as version 2.1.0.
void tst_AircraftPagesWithSkySim::HoldFirmwarePackage(const QByteArray& package)
{
    QDir().mkpath(CLmUpdateFolders::Firmware());
    QFile file(QDir(CLmUpdateFolders::Firmware()).filePath(QStringLiteral("firmware-2.1.0.pkg")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(package) == package.size());
    file.close();
    const QJsonObject record{
        {"version", "2.1.0"},
        {"file", "firmware-2.1.0.pkg"},
        {"sha256", QString::fromLatin1(QCryptographicHash::hash(package, QCryptographicHash::Sha256).toHex())}};
    QFile recordFile(QDir(CLmUpdateFolders::Firmware()).filePath(QStringLiteral("firmware.json")));
    QVERIFY(recordFile.open(QIODevice::WriteOnly));
    recordFile.write(QJsonDocument(record).toJson());
}

void tst_AircraftPagesWithSkySim::firmwareUpgrade_data()
{
    QTest::addColumn<QStringList>("simArguments");
    QTest::addColumn<QString>("refusal");   // the message instead of the confirmation, if any
    QTest::addColumn<QString>("finalStatus");
    QTest::addColumn<QString>("finalVersion");

    QTest::newRow("on the ground") << QStringList{} << QString() << "Upgrade finished" << "2.1.0";
    QTest::newRow("armed in the air") << QStringList{"--armed"} << "on the ground and disarmed" << QString()
                                      << "2.0.0";
}

void tst_AircraftPagesWithSkySim::firmwareUpgrade()
{
    QFETCH(QStringList, simArguments);
    QFETCH(QString, refusal);
    QFETCH(QString, finalStatus);
    QFETCH(QString, finalVersion);
    HoldFirmwarePackage(QByteArray(40000, '\x3c'));
    CLmUasProvide* pUas = ConnectSkySim(QStringList{"--firmware", "2.0.0"} + simArguments);
    QVERIFY(pUas);
    CLmFirmwareSection section;
    section.SetCurrentUas(pUas);
    CLmFirmwareController* controller = section.Controller();
    QTRY_COMPARE_WITH_TIMEOUT(Text(&section, "m_pLblAircraftVersion"), QStringLiteral("2.0.0"), 10000);
    QCOMPARE(Text(&section, "m_pLblPackageVersion"), QStringLiteral("2.1.0"));
    QTRY_VERIFY_WITH_TIMEOUT(!controller->UpgradeRefusal().startsWith("Waiting"), 10000);

    QObject scope;
    QString seen;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &seen, 10000, nullptr, &scope);
    section.findChild<QPushButton*>(QStringLiteral("m_pBtnUpgrade"))->click();
    QTRY_VERIFY(!seen.isEmpty());
    QVERIFY2(seen.contains(refusal.isEmpty() ? QStringLiteral("Install firmware 2.1.0") : refusal), qPrintable(seen));
    QTRY_VERIFY_WITH_TIMEOUT(!controller->IsUpgrading(), 30000);
    QCOMPARE(Text(&section, "m_pLblUpgradeStatus").contains(finalStatus), true);
    QCOMPARE(Text(&section, "m_pLblAircraftVersion"), finalVersion);
}

// The aircraft goes silent in the middle of the package upload: the hub
// loses it, the upload fails, the same aircraft comes back, and "Resume"
// finishes the upgrade from where the upload stopped.
void tst_AircraftPagesWithSkySim::firmwareUploadResumesAfterTheAircraftCameBack()
{
    HoldFirmwarePackage(QByteArray(60000, '\x5a'));
    CLmUasProvide* pUas = ConnectSkySim({"--firmware", "2.0.0", "--link-rate", "5760"});
    QVERIFY(pUas);
    CLmFirmwareSection section;
    // As the maintenance page does: the aircraft leaves and comes back.
    connect(m_pWorker, &CLmUAVConnectObj::UAV_disconnected, &section, [&section] { section.SetCurrentUas(nullptr); });
    connect(m_pWorker, &CLmUAVConnectObj::UAV_connected, &section,
            [&section](CLmUasProvide* pBack) { section.SetCurrentUas(pBack); });
    section.SetCurrentUas(pUas);
    CLmFirmwareController* controller = section.Controller();
    QTRY_VERIFY_WITH_TIMEOUT(controller->UpgradeRefusal().isEmpty(), 10000);
    int frozenAt = -1;
    connect(controller, &CLmFirmwareController::ProgressChanged, this, [&](int percent) {
        if (frozenAt < 0 && percent >= 20) {
            frozenAt = percent;
            m_pSim->Freeze();
        }
    });
    int lowestAfterResume = 100;
    controller->StartUpgrade();
    QTRY_VERIFY_WITH_TIMEOUT(frozenAt >= 0, 30000);
    QTRY_VERIFY_WITH_TIMEOUT(!controller->IsUpgrading(), 30000);
    QVERIFY2(Text(&section, "m_pLblUpgradeStatus").contains("lost"), qPrintable(Text(&section, "m_pLblUpgradeStatus")));
    m_pSim->Thaw();
    auto* resume = section.findChild<QPushButton*>(QStringLiteral("m_pBtnResume"));
    QTRY_VERIFY_WITH_TIMEOUT(!resume->isHidden(), 15000);
    connect(controller, &CLmFirmwareController::ProgressChanged, this,
            [&](int percent) { lowestAfterResume = qMin(lowestAfterResume, percent); });
    resume->click();
    QTRY_VERIFY_WITH_TIMEOUT(!controller->IsUpgrading(), 60000);
    QVERIFY2(Text(&section, "m_pLblUpgradeStatus").contains("Upgrade finished"),
             qPrintable(Text(&section, "m_pLblUpgradeStatus")));
    QCOMPARE(Text(&section, "m_pLblAircraftVersion"), QStringLiteral("2.1.0"));
    QVERIFY2(lowestAfterResume >= frozenAt - 5, qPrintable(QString::number(lowestAfterResume)));
}

QTEST_MAIN(tst_AircraftPagesWithSkySim)
#include "tst_AircraftPagesWithSkySim.moc"
