#pragma once

#include <QString>
#include <QStringList>

class QLabel;
class QTreeWidget;

// Shows the machine's facts in the home page's system-information tree and
// decides whether to warn that the machine is too weak for data processing.
class CLmHardwareCheck
{
public:
    struct SFacts
    {
        QString strOS;
        QString strProcessor;
        QString strMemoryMb;  // decimal text, as the system information reports it
        QStringList listDisks;
        QStringList listAdapters;
        QString strAdapterDetail;  // empty when the adapter's details are unknown
    };

    // Facts of this machine.
    static SFacts ReadSystem();
    // Fills the four-column tree and shows or hides the warning label.
    static void Show(const SFacts& facts, QTreeWidget* tree, QLabel* warning);
};
