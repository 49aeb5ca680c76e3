#include "CLmSystemInfo.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSysInfo>
#include <QTextStream>

#include <algorithm>
#include <cmath>

namespace {

const QString kNvidiaVendorId = QStringLiteral("0x10de");

// Value of the first "key<separator>value" line whose key matches, trimmed.
QString FirstValue(const QString& text, const QString& key, QChar separator)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const int pos = line.indexOf(separator);
        if (pos > 0 && line.leftRef(pos).trimmed() == key)
            return line.mid(pos + 1).trimmed();
    }
    return QString();
}

int CountKeys(const QString& text, const QString& key, QChar separator)
{
    int count = 0;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const int pos = line.indexOf(separator);
        if (pos > 0 && line.leftRef(pos).trimmed() == key)
            ++count;
    }
    return count;
}

QString Unquoted(QString value)
{
    if (value.size() >= 2 && (value.startsWith(QLatin1Char('"')) || value.startsWith(QLatin1Char('\'')))
        && value.endsWith(value.at(0)))
        value = value.mid(1, value.size() - 2);
    return value;
}

// "16318356 kB" -> 16318356; -1 when absent or not a number.
qint64 MemInfoKb(const QString& memInfo, const QString& key)
{
    const QString value = FirstValue(memInfo, key, QLatin1Char(':'));
    bool ok = false;
    const qint64 kb = value.section(QLatin1Char(' '), 0, 0).toLongLong(&ok);
    return ok ? kb : -1;
}

QString KbToMbText(qint64 kb)
{
    return kb < 0 ? QString() : QString::number(std::llround(kb / 1024.0));
}

bool IsVirtualBlockDevice(const QString& name)
{
    static const QStringList prefixes = {QStringLiteral("loop"), QStringLiteral("ram"), QStringLiteral("zram"),
                                         QStringLiteral("dm-"),  QStringLiteral("md"),  QStringLiteral("nbd"),
                                         QStringLiteral("sr"),   QStringLiteral("fd")};
    return std::any_of(prefixes.cbegin(), prefixes.cend(),
                       [&name](const QString& prefix) { return name.startsWith(prefix); });
}

QString KnownVendorName(const QString& vendorId)
{
    if (vendorId == kNvidiaVendorId)
        return QStringLiteral("NVIDIA");
    if (vendorId == QLatin1String("0x1002"))
        return QStringLiteral("AMD");
    if (vendorId == QLatin1String("0x8086"))
        return QStringLiteral("Intel");
    return QString();
}

struct SPciNames
{
    QString vendor;
    QString device;
};

// Names of a vendor and device from a pci.ids database. A device name with a
// marketing name in brackets ("GP107 [GeForce GTX 1050 Ti]") gives the bracketed part.
SPciNames LookUpPciIds(const QString& idsPath, const QString& vendorId, const QString& deviceId)
{
    SPciNames names;
    QFile file(idsPath);
    if (idsPath.isEmpty() || !file.open(QIODevice::ReadOnly | QIODevice::Text))
        return names;
    const QString vendorKey = vendorId.mid(2).toLower();
    const QString deviceKey = QLatin1Char('\t') + deviceId.mid(2).toLower() + QLatin1Char(' ');
    QTextStream stream(&file);
    bool inVendor = false;
    QString line;
    while (stream.readLineInto(&line)) {
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        if (!line.startsWith(QLatin1Char('\t'))) {
            if (inVendor)
                break;
            inVendor = line.startsWith(vendorKey + QLatin1Char(' '));
            if (inVendor)
                names.vendor = line.mid(vendorKey.size()).trimmed();
        } else if (inVendor && line.startsWith(deviceKey)) {
            names.device = line.mid(deviceKey.size()).trimmed();
            const int open = names.device.indexOf(QLatin1Char('['));
            const int close = names.device.lastIndexOf(QLatin1Char(']'));
            if (open >= 0 && close > open)
                names.device = names.device.mid(open + 1, close - open - 1);
            break;
        }
    }
    return names;
}

}  // namespace

CLmSystemInfo::CLmSystemInfo(const QString& rootPath)
    : m_strRoot(QDir(rootPath).absolutePath())
{
}

QString CLmSystemInfo::PathOf(const QString& relativePath) const
{
    return QDir(m_strRoot).filePath(relativePath);
}

QString CLmSystemInfo::ReadText(const QString& relativePath) const
{
    QFile file(PathOf(relativePath));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QString();
    // Files under /proc and /sys report size 0, so read until the end instead of by size.
    return QString::fromUtf8(file.readAll());
}

QString CLmSystemInfo::GetOSVersion() const
{
    QString osRelease = ReadText(QStringLiteral("etc/os-release"));
    if (osRelease.isEmpty())
        osRelease = ReadText(QStringLiteral("usr/lib/os-release"));
    QString distribution = Unquoted(FirstValue(osRelease, QStringLiteral("PRETTY_NAME"), QLatin1Char('=')));
    if (distribution.isEmpty())
        distribution = QSysInfo::prettyProductName();
    QString kernel = ReadText(QStringLiteral("proc/sys/kernel/osrelease")).trimmed();
    if (kernel.isEmpty())
        kernel = QSysInfo::kernelVersion();
    return tr("%1, kernel %2").arg(distribution, kernel);
}

void CLmSystemInfo::GetCpuInfo(QString& name, QString& vendor, int& cores, QString& arch) const
{
    const QString cpuInfo = ReadText(QStringLiteral("proc/cpuinfo"));
    // x86 names the processor in "model name"; ARM kernels use "Hardware" or "Processor".
    name.clear();
    for (const QString& key : {QStringLiteral("model name"), QStringLiteral("Hardware"), QStringLiteral("Processor")}) {
        name = FirstValue(cpuInfo, key, QLatin1Char(':'));
        if (!name.isEmpty())
            break;
    }
    vendor = FirstValue(cpuInfo, QStringLiteral("vendor_id"), QLatin1Char(':'));
    if (vendor.isEmpty())
        vendor = FirstValue(cpuInfo, QStringLiteral("CPU implementer"), QLatin1Char(':'));
    cores = CountKeys(cpuInfo, QStringLiteral("processor"), QLatin1Char(':'));
    if (cores == 0)
        cores = OnlineCpuCount();
    arch = QSysInfo::currentCpuArchitecture();
}

// Counts the CPUs in a list such as "0-3,6,8-9"; 0 when unknown.
int CLmSystemInfo::OnlineCpuCount() const
{
    int count = 0;
    const QStringList ranges = ReadText(QStringLiteral("sys/devices/system/cpu/online"))
                                   .trimmed()
                                   .split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString& range : ranges) {
        const QStringList bounds = range.split(QLatin1Char('-'));
        bool firstOk = false;
        bool lastOk = false;
        const int first = bounds.first().toInt(&firstOk);
        const int last = bounds.last().toInt(&lastOk);
        if (firstOk && lastOk && bounds.size() <= 2 && last >= first)
            count += last - first + 1;
    }
    return count;
}

void CLmSystemInfo::GetMemoryInfo(QString& totalMb, QString& availMb) const
{
    const QString memInfo = ReadText(QStringLiteral("proc/meminfo"));
    totalMb = KbToMbText(MemInfoKb(memInfo, QStringLiteral("MemTotal")));
    qint64 availableKb = MemInfoKb(memInfo, QStringLiteral("MemAvailable"));
    if (availableKb < 0) {
        // Kernels before 3.14 have no MemAvailable; free plus caches comes close.
        const qint64 freeKb = MemInfoKb(memInfo, QStringLiteral("MemFree"));
        if (freeKb >= 0) {
            availableKb = freeKb + std::max<qint64>(0, MemInfoKb(memInfo, QStringLiteral("Buffers")))
                          + std::max<qint64>(0, MemInfoKb(memInfo, QStringLiteral("Cached")));
        }
    }
    availMb = KbToMbText(availableKb);
}

void CLmSystemInfo::GetDiskInfo(unsigned long& count, QStringList& disks) const
{
    disks.clear();
    const QDir blockDir(PathOf(QStringLiteral("sys/block")));
    const QStringList devices = blockDir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& device : devices) {
        const QString base = QStringLiteral("sys/block/") + device;
        if (IsVirtualBlockDevice(device) || ReadText(base + QStringLiteral("/removable")).trimmed() == QLatin1String("1"))
            continue;
        const qint64 sectors = ReadText(base + QStringLiteral("/size")).trimmed().toLongLong();
        if (sectors <= 0)
            continue;
        // The kernel counts sizes in 512-byte sectors whatever the disk's own sector size.
        const qint64 gigabytes = std::llround(sectors * 512.0 / 1e9);
        const QString model = ReadText(base + QStringLiteral("/device/model")).simplified();
        const QString label = model.isEmpty() ? device : device + QLatin1Char(' ') + model;
        disks << tr("%1 %2 GB").arg(label).arg(gigabytes);
    }
    count = static_cast<unsigned long>(disks.size());
}

void CLmSystemInfo::GetDisplayCardInfo(unsigned long& count, QStringList& names, QString& detail) const
{
    names.clear();
    detail.clear();
    const QString pciIds = PciIdsPath();
    const QDir pciDir(PathOf(QStringLiteral("sys/bus/pci/devices")));
    QStringList nvidia;
    QStringList others;
    for (const QString& address : pciDir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString devicePath = QStringLiteral("sys/bus/pci/devices/") + address;
        if (!ReadText(devicePath + QStringLiteral("/class")).trimmed().startsWith(QLatin1String("0x03")))
            continue;
        const bool isNvidia = ReadText(devicePath + QStringLiteral("/vendor")).trimmed().toLower() == kNvidiaVendorId;
        (isNvidia ? nvidia : others) << DisplayCardName(devicePath, pciIds);
    }
    // NVIDIA adapters lead so that a hybrid laptop reports its discrete card first.
    names = nvidia + others;
    count = static_cast<unsigned long>(names.size());
    if (!nvidia.isEmpty())
        detail = NvidiaDriverDetail();
}

QString CLmSystemInfo::PciIdsPath() const
{
    for (const QString& candidate : {QStringLiteral("usr/share/misc/pci.ids"), QStringLiteral("usr/share/hwdata/pci.ids")}) {
        if (QFile::exists(PathOf(candidate)))
            return PathOf(candidate);
    }
    return QString();
}

QString CLmSystemInfo::DisplayCardName(const QString& devicePath, const QString& pciIdsPath) const
{
    const QString vendorId = ReadText(devicePath + QStringLiteral("/vendor")).trimmed().toLower();
    const QString deviceId = ReadText(devicePath + QStringLiteral("/device")).trimmed().toLower();
    const SPciNames pciNames = LookUpPciIds(pciIdsPath, vendorId, deviceId);
    QString vendor = KnownVendorName(vendorId);
    if (vendor.isEmpty())
        vendor = pciNames.vendor.isEmpty() ? vendorId : pciNames.vendor;
    return vendor + QLatin1Char(' ') + (pciNames.device.isEmpty() ? deviceId : pciNames.device);
}

// The proprietary driver announces itself in /proc/driver/nvidia/version, e.g.
// "NVRM version: NVIDIA UNIX x86_64 Kernel Module  535.104.05  Sat Aug 19 ...".
QString CLmSystemInfo::NvidiaDriverDetail() const
{
    static const QRegularExpression versionPattern(QStringLiteral("Kernel Module(?: for \\S+)?\\s+(\\d[\\w.]*)"));
    const QRegularExpressionMatch match = versionPattern.match(ReadText(QStringLiteral("proc/driver/nvidia/version")));
    return match.hasMatch() ? tr("driver %1").arg(match.captured(1)) : QString();
}
