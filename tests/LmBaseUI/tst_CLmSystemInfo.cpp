#include "CLmSystemInfo.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// A fake file system root holding only the files a case writes.
class CFakeRoot
{
public:
    QString Path() const { return m_dir.path(); }

    void Write(const QString& relativePath, const QString& content) const
    {
        const QString path = m_dir.filePath(relativePath);
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content.toUtf8());
    }

private:
    QTemporaryDir m_dir;
};

const char* const kPciIds =
    "# pci.ids excerpt\n"
    "10de  NVIDIA Corporation\n"
    "\t1c81  GP107 [GeForce GTX 1050]\n"
    "\t\t1043 8613  GeForce GTX 1050 subsystem\n"
    "\t1c82  GP107 [GeForce GTX 1050 Ti]\n"
    "1af4  Red Hat, Inc.\n"
    "\t1050  Virtio 1.0 GPU\n"
    "8086  Intel Corporation\n"
    "\t3e92  CoffeeLake-S GT2 [UHD Graphics 630]\n";

const char* const kNvidiaVersion =
    "NVRM version: NVIDIA UNIX x86_64 Kernel Module  535.104.05  Sat Aug 19 01:15:15 UTC 2023\n"
    "GCC version:  gcc version 12.2.0 (Debian 12.2.0-14)\n";

}  // namespace

class tst_CLmSystemInfo : public QObject
{
    Q_OBJECT

private slots:
    void memoryInMegabytes_data();
    void memoryInMegabytes();
    void cpuFromCpuInfo_data();
    void cpuFromCpuInfo();
    void osVersionNamesDistributionAndKernel_data();
    void osVersionNamesDistributionAndKernel();
    void disksListOnlyFixedDisks();
    void displayCards_data();
    void displayCards();
    void emptyRootGivesNothing();
};

void tst_CLmSystemInfo::memoryInMegabytes_data()
{
    QTest::addColumn<QString>("meminfo");
    QTest::addColumn<QString>("total");
    QTest::addColumn<QString>("available");
    QTest::newRow("16 GB machine") << "MemTotal:       16318356 kB\nMemFree:  100 kB\nMemAvailable:    8192000 kB\n"
                                   << "15936" << "8000";
    QTest::newRow("rounds down below half") << "MemTotal: 8192000 kB\nMemAvailable: 1535 kB\n" << "8000" << "1";
    QTest::newRow("rounds half up") << "MemTotal: 8192512 kB\nMemAvailable: 1536 kB\n" << "8001" << "2";
    QTest::newRow("old kernel without MemAvailable")
        << "MemTotal: 2048 kB\nMemFree: 1024 kB\nBuffers: 1024 kB\nCached: 2048 kB\n" << "2" << "4";
    QTest::newRow("unreadable values") << "MemTotal: lots\n" << "" << "";
}

void tst_CLmSystemInfo::memoryInMegabytes()
{
    QFETCH(QString, meminfo);
    QFETCH(QString, total);
    QFETCH(QString, available);
    CFakeRoot root;
    root.Write(QStringLiteral("proc/meminfo"), meminfo);
    QString totalMb = QStringLiteral("stale");
    QString availMb = QStringLiteral("stale");
    CLmSystemInfo(root.Path()).GetMemoryInfo(totalMb, availMb);
    QCOMPARE(totalMb, total);
    QCOMPARE(availMb, available);
}

void tst_CLmSystemInfo::cpuFromCpuInfo_data()
{
    QTest::addColumn<QString>("cpuinfo");
    QTest::addColumn<QString>("online");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("vendor");
    QTest::addColumn<int>("cores");
    const QString x86Core = QStringLiteral(
        "processor\t: %1\nvendor_id\t: GenuineIntel\nmodel name\t: Intel(R) Core(TM) i7-9700 CPU @ 3.00GHz\n"
        "flags\t\t: fpu vme\n\n");
    QTest::newRow("x86 with two cores") << x86Core.arg(0) + x86Core.arg(1) << "" << "Intel(R) Core(TM) i7-9700 CPU @ 3.00GHz"
                                        << "GenuineIntel" << 2;
    QTest::newRow("arm names the hardware")
        << "processor : 0\nCPU implementer : 0x41\n\nprocessor : 1\nCPU implementer : 0x41\n\nHardware : BCM2835\n"
        << "" << "BCM2835" << "0x41" << 2;
    QTest::newRow("no cpuinfo, online list") << "" << "0-3,6\n" << "" << "" << 5;
    QTest::newRow("nothing readable") << "" << "" << "" << "" << 0;
}

void tst_CLmSystemInfo::cpuFromCpuInfo()
{
    QFETCH(QString, cpuinfo);
    QFETCH(QString, online);
    QFETCH(QString, name);
    QFETCH(QString, vendor);
    QFETCH(int, cores);
    CFakeRoot root;
    if (!cpuinfo.isEmpty())
        root.Write(QStringLiteral("proc/cpuinfo"), cpuinfo);
    if (!online.isEmpty())
        root.Write(QStringLiteral("sys/devices/system/cpu/online"), online);
    QString gotName;
    QString gotVendor;
    int gotCores = -1;
    QString arch;
    CLmSystemInfo(root.Path()).GetCpuInfo(gotName, gotVendor, gotCores, arch);
    QCOMPARE(gotName, name);
    QCOMPARE(gotVendor, vendor);
    QCOMPARE(gotCores, cores);
    QVERIFY(!arch.isEmpty());
}

void tst_CLmSystemInfo::osVersionNamesDistributionAndKernel_data()
{
    QTest::addColumn<QString>("osReleasePath");
    QTest::addColumn<QString>("osRelease");
    QTest::addColumn<QString>("expected");
    const QString debian = QStringLiteral("NAME=\"Debian GNU/Linux\"\nPRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\nID=debian\n");
    QTest::newRow("etc") << "etc/os-release" << debian << "Debian GNU/Linux 12 (bookworm), kernel 6.1.0-18-amd64";
    QTest::newRow("usr/lib only") << "usr/lib/os-release" << debian
                                  << "Debian GNU/Linux 12 (bookworm), kernel 6.1.0-18-amd64";
    QTest::newRow("unquoted") << "etc/os-release" << "PRETTY_NAME=Alpine\n" << "Alpine, kernel 6.1.0-18-amd64";
}

void tst_CLmSystemInfo::osVersionNamesDistributionAndKernel()
{
    QFETCH(QString, osReleasePath);
    QFETCH(QString, osRelease);
    QFETCH(QString, expected);
    CFakeRoot root;
    root.Write(osReleasePath, osRelease);
    root.Write(QStringLiteral("proc/sys/kernel/osrelease"), QStringLiteral("6.1.0-18-amd64\n"));
    QCOMPARE(CLmSystemInfo(root.Path()).GetOSVersion(), expected);
}

void tst_CLmSystemInfo::disksListOnlyFixedDisks()
{
    CFakeRoot root;
    const auto addDisk = [&root](const QString& name, const QString& sectors, const QString& removable,
                                 const QString& model) {
        root.Write(QStringLiteral("sys/block/%1/size").arg(name), sectors + QLatin1Char('\n'));
        root.Write(QStringLiteral("sys/block/%1/removable").arg(name), removable + QLatin1Char('\n'));
        if (!model.isEmpty())
            root.Write(QStringLiteral("sys/block/%1/device/model").arg(name), model);
    };
    addDisk(QStringLiteral("sda"), QStringLiteral("976773168"), QStringLiteral("0"), QStringLiteral("Samsung SSD 860 \n"));
    addDisk(QStringLiteral("vda"), QStringLiteral("536870912"), QStringLiteral("0"), QString());
    addDisk(QStringLiteral("nvme0n1"), QStringLiteral("2000409264"), QStringLiteral("0"), QStringLiteral("WD Blue SN570"));
    addDisk(QStringLiteral("loop0"), QStringLiteral("1024"), QStringLiteral("0"), QString());
    addDisk(QStringLiteral("zram0"), QStringLiteral("8388608"), QStringLiteral("0"), QString());
    addDisk(QStringLiteral("ram0"), QStringLiteral("8192"), QStringLiteral("0"), QString());
    addDisk(QStringLiteral("dm-0"), QStringLiteral("8192"), QStringLiteral("0"), QString());
    addDisk(QStringLiteral("sdb"), QStringLiteral("60437492"), QStringLiteral("1"), QStringLiteral("USB Stick"));
    addDisk(QStringLiteral("sdc"), QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("Card Reader"));

    unsigned long count = 99;
    QStringList disks{QStringLiteral("stale")};
    CLmSystemInfo(root.Path()).GetDiskInfo(count, disks);
    const QStringList expected{QStringLiteral("nvme0n1 WD Blue SN570 1024 GB"), QStringLiteral("sda Samsung SSD 860 500 GB"),
                               QStringLiteral("vda 275 GB")};
    QCOMPARE(disks, expected);
    QCOMPARE(count, 3UL);
}

void tst_CLmSystemInfo::displayCards_data()
{
    // Each device: "address class vendor device".
    QTest::addColumn<QStringList>("devices");
    QTest::addColumn<bool>("withPciIds");
    QTest::addColumn<bool>("nvidiaDriver");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("detail");
    const QString intel = QStringLiteral("0000:00:02.0 0x030000 0x8086 0x3e92");
    const QString nvidia = QStringLiteral("0000:01:00.0 0x030000 0x10de 0x1c82");
    const QString network = QStringLiteral("0000:00:03.0 0x020000 0x1af4 0x1041");
    QTest::newRow("intel only") << QStringList{intel, network} << true << false
                                << QStringList{"Intel UHD Graphics 630"} << "";
    QTest::newRow("nvidia with driver") << QStringList{nvidia} << true << true
                                        << QStringList{"NVIDIA GeForce GTX 1050 Ti"} << "driver 535.104.05";
    QTest::newRow("nvidia without driver") << QStringList{nvidia} << true << false
                                           << QStringList{"NVIDIA GeForce GTX 1050 Ti"} << "";
    QTest::newRow("hybrid laptop lists nvidia first") << QStringList{intel, nvidia} << true << true
                                                      << QStringList{"NVIDIA GeForce GTX 1050 Ti", "Intel UHD Graphics 630"}
                                                      << "driver 535.104.05";
    QTest::newRow("driver but no nvidia adapter") << QStringList{intel} << true << true
                                                  << QStringList{"Intel UHD Graphics 630"} << "";
    QTest::newRow("no pci.ids") << QStringList{nvidia, QStringLiteral("0000:00:05.0 0x030000 0x1af4 0x1050")} << false
                                << true << QStringList{"NVIDIA 0x1c82", "0x1af4 0x1050"} << "driver 535.104.05";
    QTest::newRow("other vendor from pci.ids") << QStringList{QStringLiteral("0000:00:05.0 0x030000 0x1af4 0x1050")}
                                               << true << false << QStringList{"Red Hat, Inc. Virtio 1.0 GPU"} << "";
}

void tst_CLmSystemInfo::displayCards()
{
    QFETCH(QStringList, devices);
    QFETCH(bool, withPciIds);
    QFETCH(bool, nvidiaDriver);
    QFETCH(QStringList, names);
    QFETCH(QString, detail);
    CFakeRoot root;
    for (const QString& device : devices) {
        const QStringList fields = device.split(QLatin1Char(' '));
        const QString base = QStringLiteral("sys/bus/pci/devices/") + fields.at(0);
        root.Write(base + QStringLiteral("/class"), fields.at(1) + QLatin1Char('\n'));
        root.Write(base + QStringLiteral("/vendor"), fields.at(2) + QLatin1Char('\n'));
        root.Write(base + QStringLiteral("/device"), fields.at(3) + QLatin1Char('\n'));
    }
    if (withPciIds)
        root.Write(QStringLiteral("usr/share/hwdata/pci.ids"), QString::fromLatin1(kPciIds));
    if (nvidiaDriver)
        root.Write(QStringLiteral("proc/driver/nvidia/version"), QString::fromLatin1(kNvidiaVersion));

    unsigned long count = 99;
    QStringList gotNames;
    QString gotDetail = QStringLiteral("stale");
    CLmSystemInfo(root.Path()).GetDisplayCardInfo(count, gotNames, gotDetail);
    QCOMPARE(gotNames, names);
    QCOMPARE(count, static_cast<unsigned long>(names.size()));
    QCOMPARE(gotDetail, detail);
}

void tst_CLmSystemInfo::emptyRootGivesNothing()
{
    CFakeRoot root;
    const CLmSystemInfo info(root.Path());
    unsigned long count = 99;
    QStringList list{QStringLiteral("stale")};
    QString detail = QStringLiteral("stale");
    info.GetDiskInfo(count, list);
    QCOMPARE(count, 0UL);
    QVERIFY(list.isEmpty());
    count = 99;
    list = QStringList{QStringLiteral("stale")};
    info.GetDisplayCardInfo(count, list, detail);
    QCOMPARE(count, 0UL);
    QVERIFY(list.isEmpty());
    QVERIFY(detail.isEmpty());
    QString totalMb = QStringLiteral("stale");
    QString availMb = QStringLiteral("stale");
    info.GetMemoryInfo(totalMb, availMb);
    QVERIFY(totalMb.isEmpty());
    QVERIFY(availMb.isEmpty());
    QVERIFY(!info.GetOSVersion().isEmpty());
}

QTEST_GUILESS_MAIN(tst_CLmSystemInfo)
#include "tst_CLmSystemInfo.moc"
