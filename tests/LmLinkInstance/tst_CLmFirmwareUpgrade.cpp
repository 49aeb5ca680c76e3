// Firmware upgrade of the skysim aircraft over loopback UDP: the package
// written with the file transfer protocol, checked by the aircraft against
// its manifest, installed, and the new version reported.
#include "CLmFirmwareUpgrade.h"
#include "CLmMavlinkParser.h"
#include "CLmUasProvide.h"
#include "CLmUdpLink.h"
#include "CSkySimProcess.h"

#include <QCryptographicHash>
#include <QSignalSpy>
#include <QtTest>

namespace {

constexpr int kUpgradeMs = 60000;
const QString kOldVersion = QStringLiteral("2.4.1");
const QString kNewVersion = QStringLiteral("3.0.0");

// The UDP link with a switch that cuts it in both directions, as a radio
// out of range does.
class CCuttableUdpLink : public CLmUdpLink
{
public:
    using CLmUdpLink::CLmUdpLink;
    void WriteBytes(const QByteArray& bytes) override
    {
        if (!m_bCut)
            CLmUdpLink::WriteBytes(bytes);
    }
    bool m_bCut = false;
};

QByteArray Package(int size)
{
    QByteArray package(size, '\0');
    for (int i = 0; i < size; ++i)
        package[i] = static_cast<char>((i * 131 + i / 251) & 0xff);
    return package;
}

} // namespace

class TestCLmFirmwareUpgrade : public QObject
{
    Q_OBJECT
private slots:
    void upgradeOverTheLink_data();
    void upgradeOverTheLink();
};

void TestCLmFirmwareUpgrade::upgradeOverTheLink_data()
{
    QTest::addColumn<QStringList>("simArguments");
    QTest::addColumn<bool>("digestMatches");
    QTest::addColumn<qint64>("cutAfterBytes"); // -1: the link stays up
    QTest::addColumn<int>("failure");          // -1: the upgrade succeeds
    QTest::addColumn<QString>("finalVersion");

    const int none = -1;
    QTest::newRow("no loss") << QStringList{} << true << qint64(-1) << none << kNewVersion;
    QTest::newRow("5 % loss") << QStringList{"--loss", "5", "--seed", "3"} << true << qint64(-1) << none
                              << kNewVersion;
    QTest::newRow("reply lost at the last burst") << QStringList{"--ftp-lose-last-reply"} << true << qint64(-1)
                                                  << none << kNewVersion;
    QTest::newRow("link cut and resumed") << QStringList{} << true << qint64(30000) << none << kNewVersion;
    QTest::newRow("wrong checksum refused") << QStringList{} << false << qint64(-1)
                                            << int(CLmFirmwareUpgrade::EFailure::ChecksumRefused) << kOldVersion;
    QTest::newRow("refused while armed") << QStringList{"--armed"} << true << qint64(-1)
                                         << int(CLmFirmwareUpgrade::EFailure::Armed) << kOldVersion;
}

void TestCLmFirmwareUpgrade::upgradeOverTheLink()
{
    QFETCH(QStringList, simArguments);
    QFETCH(bool, digestMatches);
    QFETCH(qint64, cutAfterBytes);
    QFETCH(int, failure);
    QFETCH(QString, finalVersion);

    CCuttableUdpLink link(1, 0);
    link.Connect();
    QVERIFY(link.GetLocalPort() != 0);
    CSkySimProcess sim;
    QVERIFY(sim.Start(QStringList{"--udp", QStringLiteral("127.0.0.1:%1").arg(link.GetLocalPort()), "--firmware",
                                  kOldVersion}
                      + simArguments));
    CLmUasProvide uas(&link, 1, 1);
    CLmMavlinkParser parser;
    connect(&link, &CLmLinkProvide::bytesReceived, &uas, [&](const QByteArray& bytes) {
        for (const mavlink_message_t& message : parser.Parse(bytes)) {
            if (!link.m_bCut)
                uas.HandleMessage(message);
        }
    });
    QSignalSpy heard(&uas, &CLmUasProvide::messageReceived);
    QVERIFY(heard.wait(5000));

    const QByteArray package = Package(100000);
    const QByteArray digest = QCryptographicHash::hash(digestMatches ? package : package + "x",
                                                       QCryptographicHash::Sha256);
    CLmFirmwareUpgrade upgrade(&uas);
    upgrade.SetTimeoutMs(300);
    upgrade.SetRetries(3);
    connect(&upgrade, &CLmFirmwareUpgrade::Progress, this, [&](qint64 sent) {
        if (cutAfterBytes >= 0 && sent >= cutAfterBytes && !upgrade.CanResume())
            link.m_bCut = true;
    });
    QSignalSpy finished(&upgrade, &CLmFirmwareUpgrade::Finished);
    QSignalSpy failed(&upgrade, &CLmFirmwareUpgrade::Failed);
    upgrade.Start(package, kNewVersion, QStringLiteral("skyfw-%1.bin").arg(kNewVersion), digest);

    if (cutAfterBytes >= 0) {
        QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, kUpgradeMs);
        QCOMPARE(failed.first().first().value<CLmFirmwareUpgrade::EFailure>(),
                 CLmFirmwareUpgrade::EFailure::LinkLost);
        QVERIFY(upgrade.CanResume());
        failed.clear();
        cutAfterBytes = -1;
        link.m_bCut = false;
        upgrade.Resume();
    }
    QTRY_VERIFY_WITH_TIMEOUT(finished.count() + failed.count() > 0, kUpgradeMs);
    if (failure < 0) {
        QCOMPARE(failed.count(), 0);
        QCOMPARE(finished.first().first().toString(), finalVersion);
    } else {
        QCOMPARE(finished.count(), 0);
        QCOMPARE(int(failed.first().first().value<CLmFirmwareUpgrade::EFailure>()), failure);
    }

    // Asked afterwards, the aircraft tells the firmware it really runs.
    QSignalSpy version(&upgrade, &CLmFirmwareUpgrade::AircraftVersion);
    upgrade.RequestVersion();
    QTRY_VERIFY_WITH_TIMEOUT(!version.isEmpty(), 5000);
    QCOMPARE(version.first().first().toString(), finalVersion);
    QVERIFY(sim.Stop());
}

QTEST_GUILESS_MAIN(TestCLmFirmwareUpgrade)
#include "tst_CLmFirmwareUpgrade.moc"
