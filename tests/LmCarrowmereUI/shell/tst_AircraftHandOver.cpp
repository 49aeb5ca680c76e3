#include "CLmCarrowmereMainWindow.h"
#include "CLmCarrowmereMaintainPage.h"
#include "CLmDeployConfig.h"
#include "CLmLinkManager.h"
#include "CLmUdpLink.h"
#include "CSkySimProcess.h"
#include "TestSession.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QUdpSocket>

// The aircraft link as a crew meets it: given up to a sibling program and
// taken back, and waiting for a port another program holds.
class tst_AircraftHandOver : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void attachedProgramGetsTheLinkAndGivesItBack();
    void busyPortIsReportedAndTakenWhenFree();

private:
    void OpenWindow();
    CLmLinkManager* LinkManager() const;
    CLmCarrowmereMaintainPage* MaintainPage() const;
    quint16 AircraftUdpPort() const;
    QString UasStateText() const;

    QTemporaryDir m_appDir;
    QPointer<CLmCarrowmereMainWindow> m_pWindow;
};

void tst_AircraftHandOver::initTestCase()
{
    QVERIFY(m_appDir.isValid());
    QVERIFY(QFile::link(QStringLiteral(SKYSIBLING_PATH), m_appDir.filePath(QStringLiteral("VireoPlan"))));
    qputenv("SKYCONSOLE_LAUNCHER_APPLICATION_DIR", m_appDir.path().toUtf8());
    qputenv("SKYCONSOLE_AIRCRAFT_SERIAL_PORTS", "none");
    // The stand-in ends by itself a while after it started, as a user would close it.
    qputenv("SKYSIBLING_QUIT_AFTER_MS", "3000");
    TestSession::PointCloudAt("http://127.0.0.1:9");
}

void tst_AircraftHandOver::init()
{
    TestSession::SetSession(QStringLiteral("tok-handover"), QStringLiteral("1"));
}

void tst_AircraftHandOver::cleanup()
{
    delete m_pWindow;
}

void tst_AircraftHandOver::OpenWindow()
{
    CLmDeployConfig::Reload();
    m_pWindow = new CLmCarrowmereMainWindow(nullptr);
    m_pWindow->show();
    m_pWindow->ConnectSerialPort();
}

CLmLinkManager* tst_AircraftHandOver::LinkManager() const
{
    return m_pWindow->findChild<CLmLinkManager*>();
}

CLmCarrowmereMaintainPage* tst_AircraftHandOver::MaintainPage() const
{
    return m_pWindow->findChild<CLmCarrowmereMaintainPage*>();
}

quint16 tst_AircraftHandOver::AircraftUdpPort() const
{
    const auto* link = qobject_cast<CLmUdpLink*>(LinkManager()->GetLink(1));
    return link ? link->GetLocalPort() : 0;
}

QString tst_AircraftHandOver::UasStateText() const
{
    return MaintainPage()->findChild<QLabel*>(QStringLiteral("m_pLabelUasState"))->text();
}

void tst_AircraftHandOver::attachedProgramGetsTheLinkAndGivesItBack()
{
    qputenv("SKYCONSOLE_AIRCRAFT_UDP_LISTEN_PORT", "0");
    OpenWindow();
    QTRY_VERIFY(AircraftUdpPort() != 0);
    const quint16 port = AircraftUdpPort();
    CSkySimProcess sim;
    QVERIFY(sim.Start({"--type", "fixedwing", "--udp", "127.0.0.1:" + QString::number(port)}));
    QTRY_VERIFY_WITH_TIMEOUT(MaintainPage()->CurrentUas(), 10000);
    QCOMPARE(LinkManager()->ConnectedDeviceLinkIds(), QList<int>{1});

    m_pWindow->findChild<QPushButton*>(QStringLiteral("m_pBtnMainWndVireoPlan"))->click();
    QTRY_VERIFY_WITH_TIMEOUT(!m_pWindow->isVisible(), 10000);
    QTRY_VERIFY(LinkManager()->ConnectedDeviceLinkIds().isEmpty());
    QVERIFY(!MaintainPage()->CurrentUas());

    QTRY_VERIFY_WITH_TIMEOUT(m_pWindow->isVisible(), 15000);
    QTRY_COMPARE(LinkManager()->ConnectedDeviceLinkIds(), QList<int>{1});
    QCOMPARE(AircraftUdpPort(), port);
    QTRY_VERIFY_WITH_TIMEOUT(MaintainPage()->CurrentUas(), 10000);
}

void tst_AircraftHandOver::busyPortIsReportedAndTakenWhenFree()
{
    auto holder = std::make_unique<QUdpSocket>();
    QVERIFY(holder->bind(QHostAddress(QHostAddress::AnyIPv4), 0));
    const quint16 port = holder->localPort();
    qputenv("SKYCONSOLE_AIRCRAFT_UDP_LISTEN_PORT", QByteArray::number(port));
    OpenWindow();
    QTRY_VERIFY(UasStateText().contains(QStringLiteral("UDP %1").arg(port)));
    QVERIFY(UasStateText().contains(QLatin1String("is in use")));
    QCOMPARE(AircraftUdpPort(), quint16(0));

    holder.reset();
    QTRY_COMPARE_WITH_TIMEOUT(AircraftUdpPort(), port, 10000);
    QTRY_COMPARE(UasStateText(), QStringLiteral("No aircraft connected."));
}

QTEST_MAIN(tst_AircraftHandOver)
#include "tst_AircraftHandOver.moc"
