#include "CLmHardwareCheck.h"

#include "CLmSystemInfo.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTreeWidget>

namespace {

// Below this much memory (MB) the memory cell is painted red; at or below it
// the warning shows, so exactly 8000 MB warns without a red cell.
constexpr int kMemoryThresholdMb = 8000;

QString Tr(const char* text)
{
    return QCoreApplication::translate("CLmHardwareCheck", text);
}

}  // namespace

CLmHardwareCheck::SFacts CLmHardwareCheck::ReadSystem()
{
    CLmSystemInfo systemInfo;
    SFacts facts;
    facts.strOS = systemInfo.GetOSVersion();
    QString vendor, arch;
    int cores = 0;
    systemInfo.GetCpuInfo(facts.strProcessor, vendor, cores, arch);
    QString available;
    systemInfo.GetMemoryInfo(facts.strMemoryMb, available);
    unsigned long diskCount = 0;
    systemInfo.GetDiskInfo(diskCount, facts.listDisks);
    unsigned long adapterCount = 0;
    systemInfo.GetDisplayCardInfo(adapterCount, facts.listAdapters, facts.strAdapterDetail);
    return facts;
}

void CLmHardwareCheck::Show(const SFacts& facts, QTreeWidget* tree, QLabel* warning)
{
    const int memory = facts.strMemoryMb.toInt(nullptr, 10);

    tree->clear();
    new QTreeWidgetItem(tree, {Tr("Operating System:"), facts.strOS, Tr("Processor:"), facts.strProcessor});
    auto* rowMemory = new QTreeWidgetItem(
        tree, {Tr("Memory:"), facts.strMemoryMb + QStringLiteral(" MB"), Tr("Main hard disk:"),
               facts.listDisks.isEmpty() ? Tr("Unknown hard disk") : facts.listDisks.first()});
    if (memory < kMemoryThresholdMb)
        rowMemory->setForeground(0, Qt::red);

    const QString firstAdapter = facts.listAdapters.isEmpty() ? QString() : facts.listAdapters.first();
    auto* rowVideo = new QTreeWidgetItem(tree, {Tr("Video adapter:")});
    if (firstAdapter.toLower().contains(QLatin1String("nvidia"))) {
        rowVideo->setText(1, firstAdapter + QLatin1Char(' ') + facts.strAdapterDetail);
        if (facts.strAdapterDetail.isEmpty())
            rowVideo->setForeground(1, Qt::red);
    } else {
        rowVideo->setText(1, firstAdapter.isEmpty() ? Tr("Unknown graphics card") : firstAdapter);
    }

    const bool unsuitable = memory <= kMemoryThresholdMb || facts.strAdapterDetail.isEmpty();
    if (unsuitable)
        warning->setText(Tr("Hardware configuration environment is not suitable for data processing."));
    warning->setVisible(unsuitable);
}
