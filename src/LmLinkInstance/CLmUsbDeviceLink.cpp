#include "CLmUsbDeviceLink.h"

#include <algorithm>

#include "LmLinkInstanceLog.h"

#include <QSocketNotifier>
#include <QStorageInfo>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

namespace {

const int DriveLetterCount = 26;

#ifdef Q_OS_WIN
unsigned long RemovableDriveMask()
{
    unsigned long removable = 0;
    const DWORD present = GetLogicalDrives();
    for (int bit = 0; bit < DriveLetterCount; ++bit) {
        const wchar_t root[] = {wchar_t(L'A' + bit), L':', L'\\', 0};
        if ((present & (1UL << bit)) && GetDriveTypeW(root) == DRIVE_REMOVABLE)
            removable |= 1UL << bit;
    }
    return removable;
}
#endif

} // namespace

CLmUsbDeviceLink::CLmUsbDeviceLink(QObject* parent)
    : CLmUsbDeviceLink(QStringLiteral("/proc/self/mounts"), QStringLiteral("/sys"), parent)
{
}

CLmUsbDeviceLink::CLmUsbDeviceLink(const QString& mountsPath, const QString& sysRoot, QObject* parent)
    : QObject(parent)
    , m_scanner(mountsPath, sysRoot)
    , m_mountTable(mountsPath)
{
    qRegisterMetaType<USB_DISK_INFO>("USB_DISK_INFO");
    qRegisterMetaType<QVector<USB_DISK_INFO>>("QVector<USB_DISK_INFO>");
}

void CLmUsbDeviceLink::Init()
{
#ifdef Q_OS_WIN
    SetDisks(ProbeDrives(RemovableDriveMask()));
#else
    WatchMountTable();
    Rescan();
#endif
}

void CLmUsbDeviceLink::AddDisk(unsigned long driveMask)
{
#ifdef Q_OS_WIN
    SetDisks(DisksOutsideMask(driveMask) + ProbeDrives(driveMask));
#else
    Q_UNUSED(driveMask)
    Rescan();
#endif
}

void CLmUsbDeviceLink::RemoveDisk(unsigned long driveMask)
{
#ifdef Q_OS_WIN
    SetDisks(DisksOutsideMask(driveMask));
#else
    Q_UNUSED(driveMask)
    Rescan();
#endif
}

QVector<USB_DISK_INFO> CLmUsbDeviceLink::GetCheckedDisk() const
{
    QVector<USB_DISK_INFO> checked;
    for (const USB_DISK_INFO& disk : m_vecDisks) {
        if (disk.m_bChecked)
            checked.append(disk);
    }
    return checked;
}

QStringList CLmUsbDeviceLink::DriveRootsFromMask(unsigned long driveMask)
{
    QStringList roots;
    for (int bit = 0; bit < DriveLetterCount; ++bit) {
        if (driveMask & (1UL << bit))
            roots.append(QChar(QLatin1Char('A').unicode() + bit) + QLatin1String(":/"));
    }
    return roots;
}

// The kernel flags a change of the mount table as an exceptional condition
// (POLLPRI) on any open descriptor of it, so no polling timer is needed.
void CLmUsbDeviceLink::WatchMountTable()
{
    if (m_pMountNotifier)
        return;
    if (!m_mountTable.open(QIODevice::ReadOnly)) {
        qCWarning(lcLinkInstanceUsb) << "cannot watch mount table" << m_mountTable.fileName()
                                  << m_mountTable.errorString();
        return;
    }
    m_pMountNotifier = new QSocketNotifier(m_mountTable.handle(), QSocketNotifier::Exception, this);
    connect(m_pMountNotifier, &QSocketNotifier::activated, this, [this]() {
        qCDebug(lcLinkInstanceUsb) << "mount table changed";
        Rescan();
    });
}

void CLmUsbDeviceLink::Rescan()
{
    QVector<USB_DISK_INFO> disks = m_scanner.Scan();
    for (USB_DISK_INFO& disk : disks)
        ProbeVolume(disk);
    SetDisks(disks);
}

void CLmUsbDeviceLink::SetDisks(const QVector<USB_DISK_INFO>& disks)
{
    // Free space moves all the time; only a volume that came, went or
    // changed its identity is news.
    const bool changed = !std::equal(disks.cbegin(), disks.cend(), m_vecDisks.cbegin(), m_vecDisks.cend(),
                                     [](const USB_DISK_INFO& a, const USB_DISK_INFO& b) { return a.IsSameVolume(b); });
    m_vecDisks = disks;
    if (!changed)
        return;
    qCDebug(lcLinkInstanceUsb) << "removable disks:" << m_vecDisks.size();
    emit DiskListChanged();
}

void CLmUsbDeviceLink::ProbeVolume(USB_DISK_INFO& disk)
{
    const QStorageInfo storage(disk.m_strRootPath);
    disk.m_bChecked = storage.isValid() && storage.isReady() && storage.bytesTotal() > 0;
    if (!disk.m_bChecked)
        return;
    disk.m_strLabel = storage.name();
    disk.m_nTotalBytes = storage.bytesTotal();
    disk.m_nFreeBytes = storage.bytesAvailable();
    if (disk.m_strDevice.isEmpty())
        disk.m_strDevice = QString::fromLocal8Bit(storage.device());
    if (disk.m_strFileSystem.isEmpty())
        disk.m_strFileSystem = QString::fromLatin1(storage.fileSystemType());
}

#ifdef Q_OS_WIN
QVector<USB_DISK_INFO> CLmUsbDeviceLink::ProbeDrives(unsigned long driveMask)
{
    QVector<USB_DISK_INFO> disks;
    for (const QString& root : DriveRootsFromMask(driveMask)) {
        USB_DISK_INFO disk;
        disk.m_strRootPath = root;
        ProbeVolume(disk);
        disks.append(disk);
    }
    return disks;
}

QVector<USB_DISK_INFO> CLmUsbDeviceLink::DisksOutsideMask(unsigned long driveMask) const
{
    const QStringList roots = DriveRootsFromMask(driveMask);
    QVector<USB_DISK_INFO> kept;
    for (const USB_DISK_INFO& disk : m_vecDisks) {
        if (!roots.contains(disk.m_strRootPath, Qt::CaseInsensitive))
            kept.append(disk);
    }
    return kept;
}
#endif
