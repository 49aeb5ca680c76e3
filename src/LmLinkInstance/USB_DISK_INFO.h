#pragma once

#include <QMetaType>
#include <QString>
#include <QVector>

// One removable volume as the USB disk watcher reports it.
struct USB_DISK_INFO
{
    QString m_strRootPath;    // mount point on Linux, "E:/" style drive root on Windows
    QString m_strDevice;      // block device node, or the volume name on Windows
    QString m_strLabel;       // volume label, empty when the volume has none
    QString m_strFileSystem;  // e.g. "vfat", "exfat", "NTFS"
    qint64 m_nTotalBytes = 0;
    qint64 m_nFreeBytes = 0;  // bytes available to this user
    bool m_bChecked = false;  // the volume is mounted, answers and reports its size

    bool operator==(const USB_DISK_INFO& other) const
    {
        return m_strRootPath == other.m_strRootPath && m_strDevice == other.m_strDevice
               && m_strLabel == other.m_strLabel && m_strFileSystem == other.m_strFileSystem
               && m_nTotalBytes == other.m_nTotalBytes && m_nFreeBytes == other.m_nFreeBytes
               && m_bChecked == other.m_bChecked;
    }
    bool operator!=(const USB_DISK_INFO& other) const { return !(*this == other); }

    // The same volume in the same state, whatever its free space.
    bool IsSameVolume(const USB_DISK_INFO& other) const
    {
        return m_strRootPath == other.m_strRootPath && m_strDevice == other.m_strDevice
               && m_strLabel == other.m_strLabel && m_strFileSystem == other.m_strFileSystem
               && m_nTotalBytes == other.m_nTotalBytes && m_bChecked == other.m_bChecked;
    }
};

Q_DECLARE_METATYPE(USB_DISK_INFO)
