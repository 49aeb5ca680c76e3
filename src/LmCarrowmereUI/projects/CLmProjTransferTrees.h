#pragma once

#include "CLmProjMgrController.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>

class QTreeWidget;
class QTreeWidgetItem;

// Shows the controller's three transfer lists in the page's three trees:
// one row per project with its progress and state, and an "Open" button on
// rows that finished well. Changes are shown in batches, so that a list read
// that queues thousands of projects does not hold up the GUI thread.
class CLmProjTransferTrees : public QObject
{
    Q_OBJECT
public:
    // The trees stay the page's; the lists are bound in the order of
    // CLmProjMgrController::ETransferList.
    CLmProjTransferTrees(const CLmProjMgrController* pController, QTreeWidget* pUploading,
                         QTreeWidget* pDownloading, QTreeWidget* pFinished, QObject* parent = nullptr);

    void Clear();

Q_SIGNALS:
    // "Open" on a finished row: the project file whose folder to show.
    void OpenFolderRequested(QString strProjectFilePath);

public Q_SLOTS:
    void slotTransferChanged(CLmProjMgrController::ETransferList list, QString strProjID);
    void slotTransferRemoved(CLmProjMgrController::ETransferList list, QString strProjID);

private Q_SLOTS:
    void slotShowChanges();

private:
    static constexpr int ListCount = CLmProjMgrController::FinishedList + 1;

    void ShowChanges(CLmProjMgrController::ETransferList list);
    void ShowTransfer(QTreeWidgetItem* item, const CLmProjMgrController::STransfer& transfer);
    void AddOpenButton(QTreeWidgetItem* item, const QString& projectFilePath);

    const CLmProjMgrController* m_pController;
    QTreeWidget* m_pTrees[ListCount];
    QHash<QString, QTreeWidgetItem*> m_hashItems[ListCount];
    // Projects whose rows wait to be shown, in the order they changed.
    QStringList m_listChanged[ListCount];
    QSet<QString> m_setChanged[ListCount];
    QTimer m_showTimer;
};
