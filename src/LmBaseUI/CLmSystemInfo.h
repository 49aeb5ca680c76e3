#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

// Hardware facts of the running Linux system, read from /etc, /proc and /sys
// under a root folder ("/" for the live system). Every query reads its files
// anew; a file that is missing or unreadable gives empty texts and zero counts.
class CLmSystemInfo
{
    Q_DECLARE_TR_FUNCTIONS(CLmSystemInfo)

public:
    explicit CLmSystemInfo(const QString& rootPath = QStringLiteral("/"));

    // Distribution name and kernel release, e.g. "Debian GNU/Linux 12 (bookworm), kernel 6.1.0-18-amd64".
    QString GetOSVersion() const;
    void GetCpuInfo(QString& name, QString& vendor, int& cores, QString& arch) const;
    // Total and available memory in MiB as decimal text, rounded to the nearest MiB.
    void GetMemoryInfo(QString& totalMb, QString& availMb) const;
    // Fixed disks as "<device> [<model>] <size> GB" (decimal GB), sorted by device name.
    void GetDiskInfo(unsigned long& count, QStringList& disks) const;
    // Graphics adapters, NVIDIA ones first. detail is the NVIDIA driver text
    // ("driver <version>") when an NVIDIA adapter has its driver loaded, else empty.
    void GetDisplayCardInfo(unsigned long& count, QStringList& names, QString& detail) const;

private:
    QString PathOf(const QString& relativePath) const;
    QString ReadText(const QString& relativePath) const;
    QString PciIdsPath() const;
    QString DisplayCardName(const QString& devicePath, const QString& pciIdsPath) const;
    QString NvidiaDriverDetail() const;
    int OnlineCpuCount() const;

    QString m_strRoot;
};
