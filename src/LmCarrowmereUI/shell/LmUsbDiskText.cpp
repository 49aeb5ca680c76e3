#include "LmUsbDiskText.h"

#include <QCoreApplication>
#include <QLocale>

namespace LmUsbDiskText {

QStringList Lines(const QVector<USB_DISK_INFO>& disks)
{
    const QLocale locale;
    QStringList lines;
    for (const USB_DISK_INFO& disk : disks) {
        const QString name = disk.m_strLabel.isEmpty() ? disk.m_strDevice : disk.m_strLabel;
        lines << QCoreApplication::translate("LmUsbDiskText", "%1 (%2)  %3 free of %4")
                     .arg(name, disk.m_strRootPath, locale.formattedDataSize(disk.m_nFreeBytes),
                          locale.formattedDataSize(disk.m_nTotalBytes));
    }
    return lines;
}

}  // namespace LmUsbDiskText
