#pragma once

#include "USB_DISK_INFO.h"

#include <QStringList>

// The removable disks as the maintenance page lists them, one line each:
// label (or device), where it is mounted, and free of total space.
namespace LmUsbDiskText {

QStringList Lines(const QVector<USB_DISK_INFO>& disks);

}
