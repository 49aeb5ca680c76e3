#include "FakeBlockTree.h"

#include <QDir>
#include <QFile>

namespace {

void WriteFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(content);
}

} // namespace

FakeBlockTree::FakeBlockTree(const QString& root)
    : m_strRoot(root)
{
    QDir().mkpath(SysRoot() + QLatin1String("/class/block"));
    WriteMounts({});
}

QString FakeBlockTree::MountsPath() const
{
    return m_strRoot + QLatin1String("/mounts");
}

QString FakeBlockTree::SysRoot() const
{
    return m_strRoot + QLatin1String("/sys");
}

void FakeBlockTree::AddDisk(const QString& busPath, const QString& disk, bool removableFlag)
{
    const QString devicePath = SysRoot() + QLatin1String("/devices/") + busPath + QLatin1String("/block/") + disk;
    QDir().mkpath(devicePath);
    LinkClassEntry(disk, devicePath);
    QDir().mkpath(SysRoot() + QLatin1String("/block/") + disk);
    WriteFile(SysRoot() + QLatin1String("/block/") + disk + QLatin1String("/removable"),
              removableFlag ? "1\n" : "0\n");
}

void FakeBlockTree::AddPartition(const QString& busPath, const QString& disk, const QString& partition)
{
    const QString devicePath =
        SysRoot() + QLatin1String("/devices/") + busPath + QLatin1String("/block/") + disk + '/' + partition;
    QDir().mkpath(devicePath);
    WriteFile(devicePath + QLatin1String("/partition"), "1\n");
    LinkClassEntry(partition, devicePath);
}

void FakeBlockTree::WriteMounts(const QStringList& lines)
{
    WriteFile(MountsPath(), lines.join(QLatin1Char('\n')).toUtf8() + '\n');
}

void FakeBlockTree::LinkClassEntry(const QString& name, const QString& devicePath)
{
    QFile::link(devicePath, SysRoot() + QLatin1String("/class/block/") + name);
}
