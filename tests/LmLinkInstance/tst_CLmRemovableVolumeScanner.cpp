#include "CLmRemovableVolumeScanner.h"
#include "FakeBlockTree.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString InternalBus = QStringLiteral("pci0000:00/0000:00:17.0/ata1/host0/target0:0:0/0:0:0:0");
const QString UsbBus = QStringLiteral("pci0000:00/0000:00:14.0/usb2/2-1/2-1:1.0/host6/target6:0:0/6:0:0:0");
const QString CardReaderBus = QStringLiteral("platform/sdhci.0/mmc_host/mmc1/mmc1:0001");
const QString EmmcBus = QStringLiteral("platform/sdhci.1/mmc_host/mmc0/mmc0:0001");

} // namespace

class TestCLmRemovableVolumeScanner : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void scanOneMountLine_data();
    void scanOneMountLine();
    void scanKeepsTableOrder();
    void missingMountTableGivesNoVolumes();
    void unescapeMountField_data();
    void unescapeMountField();

private:
    QScopedPointer<QTemporaryDir> m_tempDir;
    QScopedPointer<FakeBlockTree> m_tree;
};

// sda: internal SATA disk; sdb: USB stick; sdc: card reader flagged removable,
// not on USB; mmcblk0: internal eMMC.
void TestCLmRemovableVolumeScanner::init()
{
    m_tempDir.reset(new QTemporaryDir);
    QVERIFY(m_tempDir->isValid());
    m_tree.reset(new FakeBlockTree(m_tempDir->path()));
    m_tree->AddDisk(InternalBus, "sda", false);
    m_tree->AddPartition(InternalBus, "sda", "sda1");
    m_tree->AddPartition(InternalBus, "sda", "sda2");
    m_tree->AddDisk(UsbBus, "sdb", false);
    m_tree->AddPartition(UsbBus, "sdb", "sdb1");
    m_tree->AddDisk(CardReaderBus, "sdc", true);
    m_tree->AddPartition(CardReaderBus, "sdc", "sdc1");
    m_tree->AddDisk(EmmcBus, "mmcblk0", false);
    m_tree->AddPartition(EmmcBus, "mmcblk0", "mmcblk0p1");
}

void TestCLmRemovableVolumeScanner::scanOneMountLine_data()
{
    QTest::addColumn<QString>("mountLine");
    QTest::addColumn<bool>("listed");
    QTest::addColumn<QString>("device");
    QTest::addColumn<QString>("rootPath");
    QTest::addColumn<QString>("fileSystem");

    QTest::newRow("usb stick vfat partition")
        << "/dev/sdb1 /media/pilot/STICK vfat rw,nosuid,nodev,relatime,uid=1000 0 0" << true << "/dev/sdb1"
        << "/media/pilot/STICK" << "vfat";
    QTest::newRow("usb stick without partition table")
        << "/dev/sdb /media/pilot/RAW exfat rw 0 0" << true << "/dev/sdb" << "/media/pilot/RAW" << "exfat";
    QTest::newRow("removable flag on the disk of a partition")
        << "/dev/sdc1 /media/pilot/CARD exfat rw 0 0" << true << "/dev/sdc1" << "/media/pilot/CARD" << "exfat";
    QTest::newRow("removable flag on a whole disk")
        << "/dev/sdc /media/pilot/CARD vfat rw 0 0" << true << "/dev/sdc" << "/media/pilot/CARD" << "vfat";
    QTest::newRow("internal disk root") << "/dev/sda2 / ext4 rw,relatime 0 0" << false << "" << "" << "";
    QTest::newRow("internal disk vfat boot partition")
        << "/dev/sda1 /boot/efi vfat rw 0 0" << false << "" << "" << "";
    QTest::newRow("internal emmc") << "/dev/mmcblk0p1 /data ext4 rw 0 0" << false << "" << "" << "";
    QTest::newRow("tmpfs") << "tmpfs /run/user/1000 tmpfs rw,nosuid 0 0" << false << "" << "" << "";
    QTest::newRow("proc") << "proc /proc proc rw 0 0" << false << "" << "" << "";
    QTest::newRow("device unknown to sysfs") << "/dev/mapper/vault /mnt ext4 rw 0 0" << false << "" << "" << "";
    QTest::newRow("escaped spaces in mount point")
        << "/dev/sdb1 /media/pilot/MY\\040USB\\040DISK vfat rw 0 0" << true << "/dev/sdb1"
        << "/media/pilot/MY USB DISK" << "vfat";
    QTest::newRow("escaped tab and backslash in mount point")
        << "/dev/sdb1 /media/a\\011b\\134c vfat rw 0 0" << true << "/dev/sdb1" << "/media/a\tb\\c" << "vfat";
    QTest::newRow("utf-8 mount point")
        << QString::fromUtf8("/dev/sdb1 /media/pilot/D\xc3\xa4ten vfat rw 0 0") << true << "/dev/sdb1"
        << QString::fromUtf8("/media/pilot/D\xc3\xa4ten") << "vfat";
    QTest::newRow("truncated line") << "/dev/sdb1 /media/pilot/STICK" << false << "" << "" << "";
}

void TestCLmRemovableVolumeScanner::scanOneMountLine()
{
    QFETCH(QString, mountLine);
    QFETCH(bool, listed);
    QFETCH(QString, device);
    QFETCH(QString, rootPath);
    QFETCH(QString, fileSystem);

    m_tree->WriteMounts({mountLine});
    const QVector<USB_DISK_INFO> volumes = CLmRemovableVolumeScanner(m_tree->MountsPath(), m_tree->SysRoot()).Scan();

    QCOMPARE(volumes.size(), listed ? 1 : 0);
    if (!listed)
        return;
    QCOMPARE(volumes.first().m_strDevice, device);
    QCOMPARE(volumes.first().m_strRootPath, rootPath);
    QCOMPARE(volumes.first().m_strFileSystem, fileSystem);
    QVERIFY(!volumes.first().m_bChecked);
}

void TestCLmRemovableVolumeScanner::scanKeepsTableOrder()
{
    m_tree->WriteMounts({"sysfs /sys sysfs rw 0 0", "/dev/sda2 / ext4 rw 0 0", "/dev/sdc1 /media/card vfat rw 0 0",
                         "tmpfs /tmp tmpfs rw 0 0", "/dev/sdb1 /media/stick vfat rw 0 0"});

    const QVector<USB_DISK_INFO> volumes = CLmRemovableVolumeScanner(m_tree->MountsPath(), m_tree->SysRoot()).Scan();

    QCOMPARE(volumes.size(), 2);
    QCOMPARE(volumes.at(0).m_strRootPath, QStringLiteral("/media/card"));
    QCOMPARE(volumes.at(1).m_strRootPath, QStringLiteral("/media/stick"));
}

void TestCLmRemovableVolumeScanner::missingMountTableGivesNoVolumes()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot read mount table"));
    const CLmRemovableVolumeScanner scanner(m_tempDir->filePath("absent"), m_tree->SysRoot());
    QVERIFY(scanner.Scan().isEmpty());
}

void TestCLmRemovableVolumeScanner::unescapeMountField_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("plain") << QByteArray("/media/stick") << QByteArray("/media/stick");
    QTest::newRow("space") << QByteArray("/a\\040b") << QByteArray("/a b");
    QTest::newRow("escape at the end") << QByteArray("/a\\040") << QByteArray("/a ");
    QTest::newRow("newline") << QByteArray("/a\\012b") << QByteArray("/a\nb");
    QTest::newRow("short escape kept") << QByteArray("/a\\04") << QByteArray("/a\\04");
    QTest::newRow("non-octal digits kept") << QByteArray("/a\\089") << QByteArray("/a\\089");
    QTest::newRow("lone backslash at the end") << QByteArray("/a\\") << QByteArray("/a\\");
}

void TestCLmRemovableVolumeScanner::unescapeMountField()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, expected);
    QCOMPARE(CLmRemovableVolumeScanner::UnescapeMountField(field), expected);
}

QTEST_GUILESS_MAIN(TestCLmRemovableVolumeScanner)
#include "tst_CLmRemovableVolumeScanner.moc"
