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
    m_showTimer.setSingleShot(true);
    m_showTimer.setInterval(0);
    connect(&m_showTimer, &QTimer::timeout, this, &CLmProjTransferTrees::slotShowChanges);
    connect(pController, &CLmProjMgrController::TransferChanged, this,
            &CLmProjTransferTrees::slotTransferChanged);
    connect(pController, &CLmProjMgrController::TransferRemoved, this,
            &CLmProjTransferTrees::slotTransferRemoved);
}

void CLmProjTransferTrees::Clear()
{
    for (int list = 0; list < ListCount; ++list) {
        m_pTrees[list]->clear();
        m_hashItems[list].clear();
        m_listChanged[list].clear();
        m_setChanged[list].clear();
    }
}

void CLmProjTransferTrees::slotTransferChanged(CLmProjMgrController::ETransferList list, QString strProjID)
{
    if (m_setChanged[list].contains(strProjID))
        return;
    m_setChanged[list].insert(strProjID);
    m_listChanged[list].append(strProjID);
    m_showTimer.start();
}

void CLmProjTransferTrees::slotTransferRemoved(CLmProjMgrController::ETransferList list, QString strProjID)
{
    if (m_setChanged[list].remove(strProjID))
        m_listChanged[list].removeOne(strProjID);
    delete m_hashItems[list].take(strProjID);
}

void CLmProjTransferTrees::slotShowChanges()
{
    for (int list = 0; list < ListCount; ++list)
        ShowChanges(static_cast<CLmProjMgrController::ETransferList>(list));
}

void CLmProjTransferTrees::ShowChanges(CLmProjMgrController::ETransferList list)
{
    QTreeWidget* tree = m_pTrees[list];
    QList<QTreeWidgetItem*> added;
    QVector<QPair<QTreeWidgetItem*, QString>> finished;  // item, project file
    for (const QString& id : qAsConst(m_listChanged[list])) {
        const CLmProjMgrController::STransfer transfer = m_pController->Transfer(list, id);
        QTreeWidgetItem*& item = m_hashItems[list][id];
        if (!item) {
            item = new QTreeWidgetItem;
            added.append(item);
        } else if (!transfer.bFinished) {
            tree->removeItemWidget(item, ColumnState);
        }
        ShowTransfer(item, transfer);
        if (transfer.bFinished)
            finished.append({item, transfer.strPath});
    }
    m_listChanged[list].clear();
    m_setChanged[list].clear();
    tree->addTopLevelItems(added);
    for (const auto& row : qAsConst(finished))
        AddOpenButton(row.first, row.second);
}

void CLmProjTransferTrees::ShowTransfer(QTreeWidgetItem* item, const CLmProjMgrController::STransfer& transfer)
{
    item->setText(ColumnName, transfer.strName);
    item->setText(ColumnProgress, transfer.strProgress);
    item->setText(ColumnState, transfer.bFinished ? QString() : transfer.strState);
    item->setData(ColumnState, Qt::ToolTipRole, transfer.strState);
    item->setTextAlignment(ColumnProgress, Qt::AlignCenter);
    item->setTextAlignment(ColumnState, Qt::AlignCenter);
}

// The state and the button share the cell; the item's own state text stays
// empty so that it does not shine through.
void CLmProjTransferTrees::AddOpenButton(QTreeWidgetItem* item, const QString& projectFilePath)
{
    auto* cell = new QWidget;
    auto* layout = new QHBoxLayout(cell);
    layout->setContentsMargins(4, 0, 8, 0);
    auto* state = new QLabel(item->data(ColumnState, Qt::ToolTipRole).toString(), cell);
    state->setAlignment(Qt::AlignCenter);
    layout->addWidget(state, 1);
    auto* open = new QPushButton(tr("Open"), cell);
    open->setObjectName(QStringLiteral("m_pBtnOpenFinished"));
    open->setCursor(Qt::PointingHandCursor);
    layout->addWidget(open);
    connect(open, &QPushButton::clicked, this, [this, projectFilePath]() { Q_EMIT OpenFolderRequested(projectFilePath); });
    item->treeWidget()->setItemWidget(item, ColumnState, cell);
}
