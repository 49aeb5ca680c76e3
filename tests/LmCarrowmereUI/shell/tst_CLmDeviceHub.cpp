#include "CLmCarrowmereMaintainPage.h"
#include "CLmDeviceHub.h"
#include "CLmLinkManager.h"
#include "CLmUsbDeviceLink.h"
#include "FakeBlockTree.h"

#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

namespace {

const QString UsbBus = QStringLiteral("pci0000:00/0000:00:14.0/usb2/2-1/2-1:1.0/host6/target6:0:0/6:0:0:0");

}  // namespace

// The hub without the window: the removable disks reach the maintenance page
// at start and whenever the watcher sees them change.
class tst_CLmDeviceHub : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void usbDisksReachTheMaintainPage_data();
    void usbDisksReachTheMaintainPage();
};

void tst_CLmDeviceHub::usbDisksReachTheMaintainPage_data()
{
    QTest::addColumn<bool>("atStart");
    QTest::addColumn<bool>("later");
    QTest::newRow("stick at start, pulled later") << true << false;
    QTest::newRow("nothing at start, plugged later") << false << true;
    QTest::newRow("no stick at all") << false << false;
}

void tst_CLmDeviceHub::usbDisksReachTheMaintainPage()
{
    QFETCH(bool, atStart);
    QFETCH(bool, later);
    QTemporaryDir root;
    FakeBlockTree tree(root.path());
    tree.AddDisk(UsbBus, QStringLiteral("sdb"), false);
    tree.AddPartition(UsbBus, QStringLiteral("sdb"), QStringLiteral("sdb1"));
    const QString stickMount = root.filePath(QStringLiteral("media/FLIGHT_LOGS"));
    QVERIFY(QDir().mkpath(stickMount));
    const QStringList stickMounted = {QStringLiteral("/dev/sdb1 ") + stickMount + QStringLiteral(" vfat rw 0 0")};

    QThread uavThread;
    QThread uploadThread;
    QThread netWorkThread;
    CLmLinkManager linkManager(nullptr);
    CLmCarrowmereMaintainPage page;
    auto* watcher = new CLmUsbDeviceLink(tree.MountsPath(), tree.SysRoot());
    CLmDeviceHub hub(uavThread, uploadThread, netWorkThread, &linkManager, &page,
                     std::unique_ptr<CLmUsbDeviceLink>(watcher));
    auto* disks = page.findChild<QListWidget*>(QStringLiteral("m_pListUsbDisks"));
    auto* noDisk = page.findChild<QLabel*>(QStringLiteral("m_pLabelNoUsbDisk"));
    const auto shows = [&](bool stick) {
        return disks->count() == (stick ? 1 : 0) && noDisk->isHidden() == stick
               && (!stick || disks->item(0)->text().contains(stickMount));
    };

    tree.WriteMounts(atStart ? stickMounted : QStringList());
    hub.ReadExistUsbDevice();
    QVERIFY(shows(atStart));

    // What the system reports as a volume change makes the watcher look again.
    tree.WriteMounts(later ? stickMounted : QStringList());
    watcher->AddDisk(0);
    QVERIFY(shows(later));
}

QTEST_MAIN(tst_CLmDeviceHub)
#include "tst_CLmDeviceHub.moc"
