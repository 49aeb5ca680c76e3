#pragma once

#include <QString>
#include <QStringList>

// A throw-away mount table and sysfs tree under one folder, shaped like the
// kernel's: class/block/<dev> links into devices/..., block/<disk>/removable.
class FakeBlockTree
{
public:
    explicit FakeBlockTree(const QString& root);

    QString MountsPath() const;
    QString SysRoot() const;

    // busPath is the device-tree path above "block", e.g. "pci0000:00/usb2/2-1".
    void AddDisk(const QString& busPath, const QString& disk, bool removableFlag);
    void AddPartition(const QString& busPath, const QString& disk, const QString& partition);
    void WriteMounts(const QStringList& lines);

private:
    void LinkClassEntry(const QString& name, const QString& devicePath);

    QString m_strRoot;
};
