#pragma once

#include "USB_DISK_INFO.h"

#include <QByteArray>
#include <QString>
#include <QVector>

// Lists the removable volumes of a Linux mount table. A volume counts as removable
// when its block device hangs off a USB bus or its disk carries the kernel's
// "removable" flag; sources that are not block devices (tmpfs, proc, ...) are skipped.
// Only the mount table fields are filled in: root path, device and file system.
class CLmRemovableVolumeScanner
{
public:
    CLmRemovableVolumeScanner(const QString& mountsPath, const QString& sysRoot);

    QVector<USB_DISK_INFO> Scan() const;

    // Decodes the octal escapes ("\040" for a space) the kernel writes into mount table fields.
    static QByteArray UnescapeMountField(const QByteArray& field);

private:
    bool IsRemovableBlockDevice(const QString& devicePath) const;
    bool IsDiskFlaggedRemovable(const QString& diskName) const;

    QString m_strMountsPath;
    QString m_strSysRoot;
};
