#pragma once

#include "CLmProjMgrController.h"

#include <QHash>
#include <QObject>
#include <QString>

class QTreeWidget;
class QTreeWidgetItem;

// Shows the controller's three transfer lists in the page's three trees:
// one row per project with its progress and state, and an "Open" button on
// rows that finished well.
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

private:
    QTreeWidgetItem* ItemFor(CLmProjMgrController::ETransferList list, const QString& projId);
    void AddOpenButton(QTreeWidgetItem* item, const QString& projectFilePath);

    const CLmProjMgrController* m_pController;
    QTreeWidget* m_pTrees[CLmProjMgrController::FinishedList + 1];
    QHash<QString, QTreeWidgetItem*> m_hashItems[CLmProjMgrController::FinishedList + 1];
};
