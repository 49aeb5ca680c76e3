#include "CLmProjTransferTrees.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

namespace {

enum EColumn { ColumnName = 0, ColumnProgress = 1, ColumnState = 2 };

}  // namespace

CLmProjTransferTrees::CLmProjTransferTrees(const CLmProjMgrController* pController, QTreeWidget* pUploading,
                                           QTreeWidget* pDownloading, QTreeWidget* pFinished, QObject* parent)
    : QObject(parent)
    , m_pController(pController)
    , m_pTrees{pUploading, pDownloading, pFinished}
{
    connect(pController, &CLmProjMgrController::TransferChanged, this,
            &CLmProjTransferTrees::slotTransferChanged);
    connect(pController, &CLmProjMgrController::TransferRemoved, this,
            &CLmProjTransferTrees::slotTransferRemoved);
}

void CLmProjTransferTrees::Clear()
{
    for (int list = 0; list <= CLmProjMgrController::FinishedList; ++list) {
        m_pTrees[list]->clear();
        m_hashItems[list].clear();
    }
}

void CLmProjTransferTrees::slotTransferChanged(CLmProjMgrController::ETransferList list, QString strProjID)
{
    const CLmProjMgrController::STransfer transfer = m_pController->Transfer(list, strProjID);
    QTreeWidgetItem* item = ItemFor(list, strProjID);
    item->setText(ColumnName, transfer.strName);
    item->setText(ColumnProgress, transfer.strProgress);
    item->setText(ColumnState, transfer.strState);
    item->setTextAlignment(ColumnProgress, Qt::AlignCenter);
    item->setTextAlignment(ColumnState, Qt::AlignCenter);
    if (transfer.bFinished)
        AddOpenButton(item, transfer.strPath);
    else
        m_pTrees[list]->removeItemWidget(item, ColumnState);
}

void CLmProjTransferTrees::slotTransferRemoved(CLmProjMgrController::ETransferList list, QString strProjID)
{
    delete m_hashItems[list].take(strProjID);
}

QTreeWidgetItem* CLmProjTransferTrees::ItemFor(CLmProjMgrController::ETransferList list, const QString& projId)
{
    QTreeWidgetItem*& item = m_hashItems[list][projId];
    if (!item)
        item = new QTreeWidgetItem(m_pTrees[list]);
    return item;
}

void CLmProjTransferTrees::AddOpenButton(QTreeWidgetItem* item, const QString& projectFilePath)
{
    auto* cell = new QWidget;
    auto* layout = new QHBoxLayout(cell);
    layout->setContentsMargins(4, 0, 8, 0);
    auto* state = new QLabel(item->text(ColumnState), cell);
    state->setAlignment(Qt::AlignCenter);
    layout->addWidget(state, 1);
    auto* open = new QPushButton(tr("Open"), cell);
    open->setObjectName(QStringLiteral("m_pBtnOpenFinished"));
    open->setCursor(Qt::PointingHandCursor);
    layout->addWidget(open);
    connect(open, &QPushButton::clicked, this, [this, projectFilePath]() { Q_EMIT OpenFolderRequested(projectFilePath); });
    // The label shows the state; the item's own text would shine through.
    item->setText(ColumnState, QString());
    item->treeWidget()->setItemWidget(item, ColumnState, cell);
}
