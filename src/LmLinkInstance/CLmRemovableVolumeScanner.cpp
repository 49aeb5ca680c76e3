#include "CLmRemovableVolumeScanner.h"

#include "LmLinkInstanceLog.h"

#include <QFile>
#include <QFileInfo>

namespace {

bool IsOctalDigit(char c)
{
    return c >= '0' && c <= '7';
}

bool HasOctalEscapeAt(const QByteArray& field, int index)
{
    return field.at(index) == '\\' && index + 3 < field.size() && IsOctalDigit(field.at(index + 1))
           && IsOctalDigit(field.at(index + 2)) && IsOctalDigit(field.at(index + 3));
}

} // namespace

CLmRemovableVolumeScanner::CLmRemovableVolumeScanner(const QString& mountsPath, const QString& sysRoot)
    : m_strMountsPath(mountsPath)
    , m_strSysRoot(sysRoot)
{
}

QVector<USB_DISK_INFO> CLmRemovableVolumeScanner::Scan() const
{
    QFile mounts(m_strMountsPath);
    if (!mounts.open(QIODevice::ReadOnly)) {
        qCWarning(lcLinkInstanceUsb) << "cannot read mount table" << m_strMountsPath << mounts.errorString();
        return {};
    }

    QVector<USB_DISK_INFO> volumes;
    const QList<QByteArray> lines = mounts.readAll().split('\n');
    for (const QByteArray& line : lines) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() < 3)
            continue;
        const QString device = QFile::decodeName(UnescapeMountField(fields.at(0)));
        if (!IsRemovableBlockDevice(device))
            continue;
        USB_DISK_INFO volume;
        volume.m_strDevice = device;
        volume.m_strRootPath = QFile::decodeName(UnescapeMountField(fields.at(1)));
        volume.m_strFileSystem = QString::fromLatin1(UnescapeMountField(fields.at(2)));
        volumes.append(volume);
    }
    return volumes;
}

QByteArray CLmRemovableVolumeScanner::UnescapeMountField(const QByteArray& field)
{
    QByteArray result;
    result.reserve(field.size());
    for (int i = 0; i < field.size(); ++i) {
        if (HasOctalEscapeAt(field, i)) {
            result.append(static_cast<char>(field.mid(i + 1, 3).toInt(nullptr, 8)));
            i += 3;
        } else {
            result.append(field.at(i));
        }
    }
    return result;
}

bool CLmRemovableVolumeScanner::IsRemovableBlockDevice(const QString& devicePath) const
{
    if (!devicePath.startsWith(QLatin1String("/dev/")))
        return false;
    // /sys/class/block/<name> links into the device tree, e.g.
    // .../usb2/2-1/.../block/sdb/sdb1 for the first partition of a USB stick.
    const QString name = QFileInfo(devicePath).fileName();
    const QString sysPath = QFileInfo(m_strSysRoot + QLatin1String("/class/block/") + name).canonicalFilePath();
    if (sysPath.isEmpty())
        return false;
    if (sysPath.contains(QLatin1String("/usb")))
        return true;
    const bool isPartition = QFileInfo::exists(sysPath + QLatin1String("/partition"));
    const QString diskName = isPartition ? sysPath.section(QLatin1Char('/'), -2, -2) : name;
    return IsDiskFlaggedRemovable(diskName);
}

bool CLmRemovableVolumeScanner::IsDiskFlaggedRemovable(const QString& diskName) const
{
    QFile flag(m_strSysRoot + QLatin1String("/block/") + diskName + QLatin1String("/removable"));
    return flag.open(QIODevice::ReadOnly) && flag.readAll().trimmed() == "1";
}
