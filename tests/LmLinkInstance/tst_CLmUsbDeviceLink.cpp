#include "CLmUsbDeviceLink.h"
#include "FakeBlockTree.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString UsbBus = QStringLiteral("pci0000:00/0000:00:14.0/usb2/2-1/2-1:1.0/host6/target6:0:0/6:0:0:0");

QString EscapeForMounts(QString path)
{
    return path.replace(QLatin1Char(' '), QLatin1String("\\040"));
}

} // namespace

class TestCLmUsbDeviceLink : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void initListsOnlyUsableVolumes();
    void notifyCallsRescanAndSignalOnlyOnChange_data();
    void notifyCallsRescanAndSignalOnlyOnChange();
    void missingMountTableLeavesListEmpty();
    void driveRootsFromMask_data();
    void driveRootsFromMask();

private:
    QString StickLine() const;

    QScopedPointer<QTemporaryDir> m_tempDir;
    QScopedPointer<FakeBlockTree> m_tree;
    QString m_strStickMount;
};

void TestCLmUsbDeviceLink::init()
{
    m_tempDir.reset(new QTemporaryDir);
    QVERIFY(m_tempDir->isValid());
    m_tree.reset(new FakeBlockTree(m_tempDir->path()));
    m_tree->AddDisk(UsbBus, "sdb", false);
    m_tree->AddPartition(UsbBus, "sdb", "sdb1");
    m_tree->AddPartition(UsbBus, "sdb", "sdb2");
    m_strStickMount = m_tempDir->filePath("media/FLIGHT LOGS");
    QVERIFY(QDir().mkpath(m_strStickMount));
}

QString TestCLmUsbDeviceLink::StickLine() const
{
    return "/dev/sdb1 " + EscapeForMounts(m_strStickMount) + " vfat rw 0 0";
}

void TestCLmUsbDeviceLink::initListsOnlyUsableVolumes()
{
    const QString goneMount = m_tempDir->filePath("media/GONE");
    m_tree->WriteMounts({StickLine(), "/dev/sdb2 " + goneMount + " vfat rw 0 0"});
    CLmUsbDeviceLink watcher(m_tree->MountsPath(), m_tree->SysRoot());

    watcher.Init();

    const QVector<USB_DISK_INFO> disks = watcher.GetCheckedDisk();
    QCOMPARE(disks.size(), 1);
    const USB_DISK_INFO& disk = disks.first();
    QCOMPARE(disk.m_strRootPath, m_strStickMount);
    QCOMPARE(disk.m_strDevice, QStringLiteral("/dev/sdb1"));
    QCOMPARE(disk.m_strFileSystem, QStringLiteral("vfat"));
    QVERIFY(disk.m_bChecked);
    QVERIFY(disk.m_nTotalBytes > 0);
    QVERIFY(disk.m_nFreeBytes >= 0 && disk.m_nFreeBytes <= disk.m_nTotalBytes);
    QVERIFY(QVariant::fromValue(disks).value<QVector<USB_DISK_INFO>>() == disks);
}

// On Linux the drive masks of AddDisk/RemoveDisk carry no meaning; both only
// make the watcher read the mount table again.
void TestCLmUsbDeviceLink::notifyCallsRescanAndSignalOnlyOnChange_data()
{
    QTest::addColumn<bool>("useAddDisk");
    QTest::newRow("AddDisk") << true;
    QTest::newRow("RemoveDisk") << false;
}

void TestCLmUsbDeviceLink::notifyCallsRescanAndSignalOnlyOnChange()
{
    QFETCH(bool, useAddDisk);
    const auto notify = [&](CLmUsbDeviceLink& watcher) {
        useAddDisk ? watcher.AddDisk(0x10) : watcher.RemoveDisk(0x10);
    };
    CLmUsbDeviceLink watcher(m_tree->MountsPath(), m_tree->SysRoot());
    watcher.Init();
    QSignalSpy changed(&watcher, &CLmUsbDeviceLink::DiskListChanged);

    m_tree->WriteMounts({StickLine()});
    notify(watcher);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(watcher.GetCheckedDisk().size(), 1);

    notify(watcher);
    QCOMPARE(changed.count(), 1);

    m_tree->WriteMounts({});
    notify(watcher);
    QCOMPARE(changed.count(), 2);
    QVERIFY(watcher.GetCheckedDisk().isEmpty());
}

void TestCLmUsbDeviceLink::missingMountTableLeavesListEmpty()
{
    CLmUsbDeviceLink watcher(m_tempDir->filePath("absent"), m_tree->SysRoot());
    QSignalSpy changed(&watcher, &CLmUsbDeviceLink::DiskListChanged);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot watch mount table"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot read mount table"));

    watcher.Init();

    QVERIFY(watcher.GetCheckedDisk().isEmpty());
    QCOMPARE(changed.count(), 0);
}

void TestCLmUsbDeviceLink::driveRootsFromMask_data()
{
    QTest::addColumn<qulonglong>("mask");
    QTest::addColumn<QStringList>("roots");

    QTest::newRow("none") << 0ULL << QStringList();
    QTest::newRow("A") << 0x1ULL << QStringList{"A:/"};
    QTest::newRow("E") << 0x10ULL << QStringList{"E:/"};
    QTest::newRow("E and F") << 0x30ULL << QStringList{"E:/", "F:/"};
    QTest::newRow("A and Z") << 0x2000001ULL << QStringList{"A:/", "Z:/"};
    QTest::newRow("bits above Z ignored") << 0xFC000000ULL << QStringList();
}

void TestCLmUsbDeviceLink::driveRootsFromMask()
{
    QFETCH(qulonglong, mask);
    QFETCH(QStringList, roots);
    QCOMPARE(CLmUsbDeviceLink::DriveRootsFromMask(static_cast<unsigned long>(mask)), roots);
}

QTEST_GUILESS_MAIN(TestCLmUsbDeviceLink)
#include "tst_CLmUsbDeviceLink.moc"
