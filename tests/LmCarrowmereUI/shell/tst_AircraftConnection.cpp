#include "CLmCarrowmereMainWindow.h"
#include "CLmCarrowmereMaintainPage.h"
#include "CLmDeployConfig.h"
#include "CSkySimProcess.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QUdpSocket>

// The window end to end with the aircraft emulator on loopback UDP: the
// maintenance page holds the aircraft while heartbeats come and lets go when
// they stop.
class tst_AircraftConnection : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aircraftComesAndGoes_data();
    void aircraftComesAndGoes();
};

namespace {

quint16 FreeUdpPort()
{
    QUdpSocket probe;
    probe.bind(QHostAddress(QHostAddress::LocalHost), 0);
    return probe.localPort();
}

}  // namespace

void tst_AircraftConnection::aircraftComesAndGoes_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("fixed wing") << "fixedwing";
    QTest::newRow("multirotor") << "multirotor";
}

void tst_AircraftConnection::aircraftComesAndGoes()
{
    QFETCH(QString, type);
    const quint16 port = FreeUdpPort();
    qputenv("SKYCONSOLE_AIRCRAFT_UDP_LISTEN_PORT", QByteArray::number(port));
    qputenv("SKYCONSOLE_AIRCRAFT_SERIAL_PORTS", "none");
    qputenv("SKYCONSOLE_AIRCRAFT_HEARTBEAT_TIMEOUT_MS", "2500");
    CLmDeployConfig::Reload();

    QPointer<CLmCarrowmereMainWindow> window = new CLmCarrowmereMainWindow(nullptr);
    window->show();
    window->ConnectSerialPort();
    auto* page = window->findChild<CLmCarrowmereMaintainPage*>();
    auto* status = page->findChild<QPushButton*>(QStringLiteral("m_pBtnPlaneStatus"));

    CSkySimProcess sim;
    QVERIFY(sim.Start({QStringLiteral("--type"), type, QStringLiteral("--udp"),
                       QStringLiteral("127.0.0.1:%1").arg(port)}));
    QTRY_VERIFY_WITH_TIMEOUT(page->CurrentUas() != nullptr, 5000);
    QVERIFY(status->isEnabled());

    QVERIFY(sim.Stop());
    QTRY_VERIFY_WITH_TIMEOUT(page->CurrentUas() == nullptr, 6000);
    QVERIFY(!status->isEnabled());
    delete window;
}

QTEST_MAIN(tst_AircraftConnection)
#include "tst_AircraftConnection.moc"
