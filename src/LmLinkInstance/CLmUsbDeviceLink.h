#pragma once

#include "CLmRemovableVolumeScanner.h"
#include "USB_DISK_INFO.h"

#include <QFile>
#include <QObject>
#include <QStringList>
#include <QVector>

class QSocketNotifier;

// Keeps the list of removable disks that are present and usable.
// On Windows the main window feeds it the drive-letter masks of the system's
// device-change notices (AddDisk/RemoveDisk). On Linux it watches the mount
// table itself; AddDisk/RemoveDisk only ask for a fresh look.
class CLmUsbDeviceLink : public QObject
{
    Q_OBJECT
public:
    explicit CLmUsbDeviceLink(QObject* parent = nullptr);
    // Reads the given mount table and sysfs tree instead of the system's ones.
    CLmUsbDeviceLink(const QString& mountsPath, const QString& sysRoot, QObject* parent = nullptr);

    void Init();
    void AddDisk(unsigned long driveMask);
    void RemoveDisk(unsigned long driveMask);
    QVector<USB_DISK_INFO> GetCheckedDisk() const;

    // Drive roots named by a drive-letter mask: bit 0 is "A:/", bit 25 is "Z:/".
    static QStringList DriveRootsFromMask(unsigned long driveMask);

signals:
    void DiskListChanged();

private:
    void WatchMountTable();
    void Rescan();
    void SetDisks(const QVector<USB_DISK_INFO>& disks);
    static void ProbeVolume(USB_DISK_INFO& disk);
#ifdef Q_OS_WIN
    static QVector<USB_DISK_INFO> ProbeDrives(unsigned long driveMask);
    QVector<USB_DISK_INFO> DisksOutsideMask(unsigned long driveMask) const;
#endif

    CLmRemovableVolumeScanner m_scanner;
    QFile m_mountTable;
    QSocketNotifier* m_pMountNotifier = nullptr;
    QVector<USB_DISK_INFO> m_vecDisks;
};
