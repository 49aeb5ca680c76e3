#include "CLmProjMgrWgt.h"

#include "CLmCarrowmereProjMgrObj.h"
#include "CLmCitySelectWidget.h"
#include "CLmDateSelectWidget.h"
#include "CLmMessageBox.h"
#include "CLmProgressWgt.h"
#include "CLmProjDetailsWgt.h"
#include "CLmProjTransferTrees.h"
#include "CLmProjetMgrDelegate.h"
#include "CLmProjetMgrHeaderView.h"
#include "CLmProjetMgrItem.h"
#include "CLmShareDialog.h"
#include "CLmShareManagerWidget.h"
#include "LmProjMgrRoles.h"
#include "ui_CLmProjMgrWgt.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QLocale>
#include <QUrl>

namespace {

constexpr char IconQuestion[] = ":/images/Normal/ProjMgr/warn_question_ic.png";
constexpr char IconExclamation[] = ":/images/Normal/Exclamation_mark.png";
constexpr char IconDone[] = ":/images/Normal/Home/HomeFile_share_ok_ic.png";
constexpr char ArrowDown[] = ":/images/Normal/ProjMgr/arrow_down_btn_nor.png";
constexpr char ArrowUp[] = ":/images/Normal/ProjMgr/arrow_up_btn_nor.png";

const int ColumnWidths[] = {440, 200, 300};

QStringList CityNames(const QVariant& cityNames)
{
    if (cityNames.type() == QVariant::String)
        return cityNames.toString().split(QLatin1Char(','), Qt::SkipEmptyParts);
    return cityNames.toStringList();
}

// The first column's title sits left, the others centred, as their texts do.
void SetUpColumns(QTreeWidget* tree)
{
    for (int column = 0; column < tree->columnCount(); ++column) {
        tree->setColumnWidth(column, ColumnWidths[column]);
        tree->headerItem()->setTextAlignment(column, column == 0 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
    }
}

}  // namespace

CLmProjMgrWgt::CLmProjMgrWgt(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmProjMgrWgt>())
{
    m_pUi->setupUi(this);
    SetUpTrees();
    for (QTimer* timer : {&m_flushTimer, &m_sortTimer}) {
        timer->setSingleShot(true);
        timer->setInterval(0);
    }
    connect(&m_flushTimer, &QTimer::timeout, this, &CLmProjMgrWgt::slotFlushPendingRows);
    connect(&m_sortTimer, &QTimer::timeout, this, &CLmProjMgrWgt::slotSortRows);
    ConnectRows();
    ConnectBars();
    ConnectController();
    SetUpDetailsPage();
    SetUpSharePages();
    SetUpEngine();
}

CLmProjMgrWgt::~CLmProjMgrWgt()
{
    m_threadSynch.quit();
    m_threadSynch.wait();
    DeleteAllItems();
}

// ---- building --------------------------------------------------------------------

void CLmProjMgrWgt::SetUpTrees()
{
    m_pHeader = new CLmProjetMgrHeaderView(m_pUi->m_pTreeProject);
    m_pUi->m_pTreeProject->setHeader(m_pHeader);
    m_pDelegate = new CLmProjetMgrDelegate(m_pUi->m_pTreeProject);
    m_pUi->m_pTreeProject->setItemDelegate(m_pDelegate);
    m_pUi->m_pTreeProject->sortByColumn(CLmProjetMgrItem::ColumnProject, Qt::AscendingOrder);
    for (QTreeWidget* tree : {m_pUi->m_pTreeProject, m_pUi->m_pTreeUploading, m_pUi->m_pTreeDownloading,
                              m_pUi->m_pTreeFinished, m_pUi->m_pTreeAssigned})
        SetUpColumns(tree);
    m_pTransferTrees = new CLmProjTransferTrees(&m_controller, m_pUi->m_pTreeUploading, m_pUi->m_pTreeDownloading,
                                                m_pUi->m_pTreeFinished, this);
    connect(m_pTransferTrees, &CLmProjTransferTrees::OpenFolderRequested, this, &CLmProjMgrWgt::OpenProjectFolder);
}

void CLmProjMgrWgt::SetUpEngine()
{
    m_pSynchObj = new CLmCarrowmereProjMgrObj;
    m_pSynchObj->moveToThread(&m_threadSynch);
    connect(&m_threadSynch, &QThread::finished, m_pSynchObj, &QObject::deleteLater);
    ConnectEngine();
    m_threadSynch.start(QThread::InheritPriority);
}

void CLmProjMgrWgt::ConnectEngine()
{
    using Obj = CLmCarrowmereProjMgrObj;
    connect(m_pSynchObj, &Obj::LocalProjInfor, this, &CLmProjMgrWgt::slotAddProjItem2Tree);
    connect(m_pSynchObj, &Obj::LocalProjInforOne, this, &CLmProjMgrWgt::slotAddProjItem2Tree2);
    connect(m_pSynchObj, &Obj::LocalBlockCity, this, &CLmProjMgrWgt::slotLocalBlockCity);
    connect(m_pSynchObj, &Obj::UpdateProjInfo, this, &CLmProjMgrWgt::slotUpdateProjItem);
    connect(m_pSynchObj, &Obj::NeedUploadInfo, this, &CLmProjMgrWgt::slotAddUploadItem2Tree);
    connect(m_pSynchObj, &Obj::NeedDownloadInfo, this, &CLmProjMgrWgt::slotAddDownloadItem2Tree);
    connect(m_pSynchObj, &Obj::SynchProjMsg, this, &CLmProjMgrWgt::slotSynchProMsg);
    connect(m_pSynchObj, &Obj::ProjectDownloadFinished, this, &CLmProjMgrWgt::slotDownLoadProjectFinished);
    connect(m_pSynchObj, &Obj::CurrentDownLoadProjectState, this, &CLmProjMgrWgt::slotDownLoadProjectState);
    connect(m_pSynchObj, &Obj::ProjectUploadFinished, this, &CLmProjMgrWgt::slotUploadProjectFinished);
    connect(m_pSynchObj, &Obj::CurrentUpLoadProjectState, this, &CLmProjMgrWgt::slotUploadProjectState);

    connect(this, &CLmProjMgrWgt::ReadProject, m_pSynchObj, &Obj::slotReadLocalProject);
    connect(this, &CLmProjMgrWgt::SynchAllProj, m_pSynchObj, &Obj::slotSynchAllProject);
    connect(this, &CLmProjMgrWgt::DownloadProject, m_pSynchObj, &Obj::slotDownloadPrjectWithProjID);
    connect(this, &CLmProjMgrWgt::DownloadSharedProject, m_pSynchObj, &Obj::slotDownloadSharedProject);
    connect(this, &CLmProjMgrWgt::ReadAllProject, m_pSynchObj, &Obj::slotReadAllPrject);
    connect(&m_threadSynch, &QThread::started, m_pSynchObj, &Obj::slotReadAllPrject);
}

void CLmProjMgrWgt::ConnectRows()
{
    connect(m_pDelegate, &CLmProjetMgrDelegate::signalShareBtnClicked, this, &CLmProjMgrWgt::slotShareBtnClicked);
    connect(m_pDelegate, &CLmProjetMgrDelegate::signalDeleteBtnClicked, this, &CLmProjMgrWgt::slotDeleteBtnClicked);
    connect(m_pDelegate, &CLmProjetMgrDelegate::signalDetailsBtnClicked, this,
            &CLmProjMgrWgt::slotDetailsBtnClicked);
    connect(m_pDelegate, &CLmProjetMgrDelegate::signalClickedDownload, this, &CLmProjMgrWgt::slotClickedDownload);
    connect(m_pDelegate, &CLmProjetMgrDelegate::signalDownloadBtnClicked, this, &CLmProjMgrWgt::slotClickedDownload);
    connect(m_pDelegate, &CLmProjetMgrDelegate::signalOpenBtnClicked, this,
            &CLmProjMgrWgt::slotClickedBtnOpenContentFolder);
    connect(m_pDelegate, &CLmProjetMgrDelegate::signalChecked, this, &CLmProjMgrWgt::slotProjItemChecked);
    connect(this, &CLmProjMgrWgt::signalResetBtn, m_pDelegate, &CLmProjetMgrDelegate::slotResetBtn);
    connect(this, &CLmProjMgrWgt::signalUpdateStateTxt, m_pDelegate, &CLmProjetMgrDelegate::slotUpdateStateTxt);
    connect(this, &CLmProjMgrWgt::signalUpdateStateBtn, m_pDelegate, &CLmProjetMgrDelegate::slotUpdateStateBtn);
    connect(m_pHeader, &CLmProjetMgrHeaderView::signalStateChanged, this, &CLmProjMgrWgt::slotHeaderStateChanged);
    connect(this, &CLmProjMgrWgt::signalCheckStateChanged, m_pHeader, &CLmProjetMgrHeaderView::slotStateChanged);
}

void CLmProjMgrWgt::ConnectBars()
{
    Ui::CLmProjMgrWgt& ui = *m_pUi;
    connect(ui.m_pBtnClose, &QPushButton::clicked, this, &CLmProjMgrWgt::BackToHome);
    const QList<QPair<QPushButton*, QWidget*>> sidePages = {{ui.m_pBtnPrj, ui.m_pPageProject},
                                                            {ui.m_pBtnShare, ui.m_pPageShare},
                                                            {ui.m_pBtnAssigned, ui.m_pPageAssigned},
                                                            {ui.m_pBtnTranslateList, ui.m_pPageTransList}};
    for (const auto& sidePage : sidePages) {
        QWidget* page = sidePage.second;
        connect(sidePage.first, &QPushButton::clicked, this,
                [this, page]() { m_pUi->m_pProjMgrStackedWidget->setCurrentWidget(page); });
    }
    connect(ui.m_pBtnSynLv2, &QPushButton::clicked, this, &CLmProjMgrWgt::slotBtnSynLv2Clicked);
    connect(ui.m_pBtnShareLv2, &QPushButton::clicked, this, &CLmProjMgrWgt::slotBtnShareLv2Clicked);
    connect(ui.m_pBtnDelLv2, &QPushButton::clicked, this, &CLmProjMgrWgt::slotBtnDelLv2Clicked);
    connect(ui.m_pBtnSearchLv2, &QPushButton::clicked, this, &CLmProjMgrWgt::slotBtnSearchLv2Clicked);
    connect(ui.m_pEditSearchLv2, &QLineEdit::textChanged, this, &CLmProjMgrWgt::slotBtnSearchLv2Clicked);
    connect(ui.m_pBtnMoreSel, &QPushButton::toggled, ui.m_pLv3Btns, &QWidget::setVisible);
    connect(ui.m_pBtnClearLv3, &QPushButton::clicked, this, &CLmProjMgrWgt::slotBtnClearLv3Clicked);
    connect(ui.m_pBtnSearchCountry, &QPushButton::clicked, this, &CLmProjMgrWgt::slotBtnSearchCountryClicked);
    connect(ui.m_pBtnDate, &QPushButton::clicked, this, &CLmProjMgrWgt::slotBtnDateClicked);
}

void CLmProjMgrWgt::ConnectController()
{
    using Ctl = CLmProjMgrController;
    connect(&m_controller, &Ctl::RowAdded, this, &CLmProjMgrWgt::slotRowAdded);
    connect(&m_controller, &Ctl::RowChanged, this, &CLmProjMgrWgt::slotRowChanged);
    connect(&m_controller, &Ctl::RowsRemoved, this, &CLmProjMgrWgt::slotRowsRemoved);
    connect(&m_controller, &Ctl::DeleteFinished, this, &CLmProjMgrWgt::slotDeleteFinished);
    connect(&m_controller, &Ctl::RowDownloadFailed, this, &CLmProjMgrWgt::slotRowDownloadFailed);
    connect(&m_controller, &Ctl::StorageSizeReady, this, &CLmProjMgrWgt::slotStorageSizeReady);
}

void CLmProjMgrWgt::Reset()
{
    m_flushTimer.stop();
    m_listPendingRows.clear();
    DeleteAllItems();
    m_controller.Clear();
    m_pTransferTrees->Clear();
    Q_EMIT signalResetBtn();
    Q_EMIT signalCheckStateChanged(Qt::Unchecked);
    m_pUi->m_pEditSearchLv2->clear();
    slotBtnClearLv3Clicked();
    UpdateProjectCount();
    m_setSharedDownloads.clear();
    m_pShareMgr->Reset();
    slotFillAssigned();
}

void CLmProjMgrWgt::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // The first read ran when the page was built, maybe before sign-in.
    if (m_controller.ProjectCount() == 0 && !m_bReading)
        Q_EMIT ReadAllProject();
    m_controller.RefreshStorageSize();
}

// ---- engine reports --------------------------------------------------------------

void CLmProjMgrWgt::slotAddProjItem2Tree(const SProjInfor& info)
{
    m_controller.AddProject(info);
}

void CLmProjMgrWgt::slotAddProjItem2Tree2(const SProjInfor& info)
{
    m_controller.AddProject(info);
}

void CLmProjMgrWgt::slotLocalBlockCity(QString strProjID, QVariant cityNames)
{
    m_controller.SetCities(strProjID, CityNames(cityNames));
}

void CLmProjMgrWgt::slotUpdateProjItem(const SProjInfor& info)
{
    m_controller.UpdateProject(info);
}

void CLmProjMgrWgt::slotAddUploadItem2Tree(const SProjInfor& info)
{
    m_controller.AddUpload(info);
}

void CLmProjMgrWgt::slotAddDownloadItem2Tree(const SProjInfor& info)
{
    m_controller.AddDownload(info);
}

void CLmProjMgrWgt::slotDownLoadProjectFinished(const SProjInfor& info)
{
    m_controller.FinishDownload(info);
    // The engine reports a failed download without a path for a new project.
    if (m_setSharedDownloads.remove(info.strProjID) && !info.strProjPath.isEmpty())
        Q_EMIT ReadProject(info.strProjPath);
}

void CLmProjMgrWgt::slotDownLoadProjectState(const SProjInfor& info)
{
    m_controller.UpdateDownload(info);
}

void CLmProjMgrWgt::slotUploadProjectFinished(const SProjInfor& info)
{
    m_controller.FinishUpload(info);
}

void CLmProjMgrWgt::slotUploadProjectState(const SProjInfor& info)
{
    m_controller.UpdateUpload(info);
}

void CLmProjMgrWgt::slotSynchProMsg(ESynchProMsgType type, QString strMsg)
{
    m_bReading = type != SynchProMsgListFinished && type != SynchProMsgListError;
    if (type == SynchProMsgStart || type == SynchProMsgListStart)
        m_controller.ForgetWaitingTransfers();
    if (!m_bReading) {
        slotFlushPendingRows();
        slotSortRows();
    }
    if (type == SynchProMsgListFinished) {
        if (m_pProgress)
            m_pProgress->close();
        RefreshList();
        return;
    }
    // Reads that run while the page is hidden (the one at start-up) show nothing.
    if (!isVisible())
        return;
    CLmProgressWgt* progress = ProgressDialog();
    progress->VisibleBtnCannel(false);
    progress->VisibleBtnClose(false);
    progress->VisibleBtnRetry(false);
    progress->SetCurrentText(QString());
    switch (type) {
    case SynchProMsgStart:
        progress->SetValue(0);
        progress->SetCurrentText(strMsg);
        break;
    case SynchProMsgListError:
        progress->SetCurrentText(strMsg);
        progress->VisibleBtnRetry(true);
        // Nothing more will come: the user may also leave it at that.
        progress->VisibleBtnClose(true);
        break;
    case SynchProMsgListStart:
        progress->SetCurrentText(strMsg);
        break;
    case SynchProMsgListProgress:
        progress->SetValue(strMsg.toInt());
        progress->SetCurrentText(tr("Read cloud project information"));
        break;
    case SynchProMsgLocalProgress:
        progress->SetValue(strMsg.toInt());
        progress->SetCurrentText(tr("Read local project information"));
        break;
    case SynchProMsgListFinished:
        break;
    }
    progress->show();
}

CLmProgressWgt* CLmProjMgrWgt::ProgressDialog()
{
    if (!m_pProgress) {
        m_pProgress = new CLmProgressWgt(this);
        m_pProgress->SetTitle(tr("Project Manager"));
        connect(m_pProgress, &CLmProgressWgt::signalBtnRetryClicked, this, &CLmProjMgrWgt::ReadAllProject);
    }
    return m_pProgress;
}

// ---- rows ------------------------------------------------------------------------

void CLmProjMgrWgt::slotRowAdded(QString strProjID)
{
    m_listPendingRows.append(strProjID);
    if (!m_flushTimer.isActive())
        m_flushTimer.start();
}

// Rows reported one by one across the thread are added in one go: a tree
// that lays out once per batch, and sorts once when the rows stop coming,
// fills many times faster. Rows the filter hides stay out of the tree.
void CLmProjMgrWgt::slotFlushPendingRows()
{
    QTreeWidget* tree = m_pUi->m_pTreeProject;
    tree->setUpdatesEnabled(false);
    QList<QTreeWidgetItem*> shown;
    shown.reserve(m_listPendingRows.size());
    m_hashItems.reserve(m_hashItems.size() + m_listPendingRows.size());
    for (const QString& id : qAsConst(m_listPendingRows)) {
        const CLmProjMgrController::SRow* row = m_controller.FindRow(id);
        if (!row || m_hashItems.contains(id))
            continue;
        CLmProjetMgrItem* item = NewItem(*row);
        m_hashItems.insert(id, item);
        if (m_controller.IsVisible(*row))
            shown.append(item);
    }
    m_listPendingRows.clear();
    if (!shown.isEmpty()) {
        tree->setSortingEnabled(false);
        tree->addTopLevelItems(shown);
    }
    // Rows a read keeps sending show at once; others are drawn when sorted.
    if (m_bReading)
        tree->setUpdatesEnabled(true);
    UpdateProjectCount();
    UpdateHeaderCheckState();
    m_sortTimer.start();
}

// Runs once the event loop has no more rows to hand over. While the engine
// reads, more rows follow: the read's end sorts them all.
void CLmProjMgrWgt::slotSortRows()
{
    QTreeWidget* tree = m_pUi->m_pTreeProject;
    if (!m_listPendingRows.isEmpty())
        return;
    if (!m_bReading && !tree->isSortingEnabled())
        tree->setSortingEnabled(true);
    tree->setUpdatesEnabled(true);
}

CLmProjetMgrItem* CLmProjMgrWgt::NewItem(const CLmProjMgrController::SRow& row)
{
    auto* item = new CLmProjetMgrItem;
    item->SetProjectId(row.strProjID);
    ShowRow(item, row);
    return item;
}

void CLmProjMgrWgt::ShowRow(CLmProjetMgrItem* item, const CLmProjMgrController::SRow& row)
{
    const CLmProjMgrController::SFlightLog log = CLmProjMgrController::FlightLog(row.iMissionCount, row.iFlownCount);
    item->setText(CLmProjetMgrItem::ColumnProject, row.strName);
    item->setText(CLmProjetMgrItem::ColumnCreateTime, row.strUpdateTime);
    item->SetFlightLogText(log.strText);
    item->SetProjectPath(row.strPath);
    if (!row.listCities.isEmpty() || !item->CityList().isEmpty())
        item->SetCityList(row.listCities);
    Q_EMIT signalUpdateStateTxt(log.strText, log.eState, row.strProjID);
    Q_EMIT signalUpdateStateBtn(row.iSynchState, row.strProjID);
}

void CLmProjMgrWgt::slotRowChanged(QString strProjID)
{
    CLmProjetMgrItem* item = m_hashItems.value(strProjID);
    if (!item)
        return;  // still waiting for its batch, which reads the latest
    ShowRow(item, m_controller.Row(strProjID));
    const bool shown = item->treeWidget();
    if (m_controller.IsVisible(strProjID) != shown)
        ApplyFilter();
}

void CLmProjMgrWgt::slotRowsRemoved(QStringList listProjIDs)
{
    for (const QString& id : qAsConst(listProjIDs))
        delete m_hashItems.take(id);
    UpdateProjectCount();
    UpdateHeaderCheckState();
}

QString CLmProjMgrWgt::IdOf(const QModelIndex& index) const
{
    return index.siblingAtColumn(CLmProjetMgrItem::ColumnProject).data(LmProjMgrRole::ProjectId).toString();
}

void CLmProjMgrWgt::RefreshList()
{
    ApplyFilter();
    UpdateProjectCount();
    UpdateHeaderCheckState();
    m_controller.RefreshStorageSize();
}

// Rows the filter hides are taken out of the tree rather than hidden in
// it: a tree hides a row by keeping a persistent index for it, which makes
// narrowing a long list slow.
void CLmProjMgrWgt::ApplyFilter()
{
    QList<QTreeWidgetItem*> shown;
    bool unchanged = true;
    for (auto it = m_hashItems.cbegin(); it != m_hashItems.cend(); ++it) {
        if (m_controller.IsVisible(it.key())) {
            shown.append(it.value());
            unchanged = unchanged && it.value()->treeWidget();
        }
    }
    QTreeWidget* tree = m_pUi->m_pTreeProject;
    if (unchanged && shown.size() == tree->topLevelItemCount())
        return;
    tree->setUpdatesEnabled(false);
    const bool sorting = tree->isSortingEnabled();
    tree->setSortingEnabled(false);
    tree->invisibleRootItem()->takeChildren();
    tree->addTopLevelItems(shown);
    tree->setSortingEnabled(sorting);
    tree->setUpdatesEnabled(true);
}

void CLmProjMgrWgt::DeleteAllItems()
{
    m_pUi->m_pTreeProject->invisibleRootItem()->takeChildren();
    qDeleteAll(m_hashItems);
    m_hashItems.clear();
}

void CLmProjMgrWgt::UpdateProjectCount()
{
    m_pUi->m_pLabelProjCount->setText(QString::number(m_controller.ProjectCount()));
}

void CLmProjMgrWgt::slotStorageSizeReady(qint64 bytes)
{
    m_pUi->m_pLabelStorage->setText(locale().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat));
}

// ---- checking --------------------------------------------------------------------

void CLmProjMgrWgt::slotHeaderStateChanged(Qt::CheckState state)
{
    m_pDelegate->slotAllChecked(state);
    m_controller.SetAllChecked(state == Qt::Checked);
}

void CLmProjMgrWgt::slotProjItemChecked(const QModelIndex& index)
{
    m_controller.SetChecked(IdOf(index), index.data(Qt::CheckStateRole).toInt() == Qt::Checked);
    UpdateHeaderCheckState();
}

void CLmProjMgrWgt::UpdateHeaderCheckState()
{
    Q_EMIT signalCheckStateChanged(
        CLmProjetMgrHeaderView::StateFor(m_controller.CheckedCount(), m_controller.ProjectCount()));
}

// ---- actions ---------------------------------------------------------------------

bool CLmProjMgrWgt::CanAct(const QStringList& projIds)
{
    switch (m_controller.CheckActionStart(projIds)) {
    case CLmProjMgrController::ActionOffline:
        ShowMessage(tr("The network is not connected"), tr("SkyConsole"), QLatin1String(IconExclamation));
        return false;
    case CLmProjMgrController::ActionNothingChosen:
        return false;
    case CLmProjMgrController::ActionReady:
        break;
    }
    return true;
}

void CLmProjMgrWgt::slotBtnSynLv2Clicked()
{
    Q_EMIT SynchAllProj();
}

void CLmProjMgrWgt::slotBtnDelLv2Clicked()
{
    if (!CanAct(m_controller.CheckedIds()))
        return;
    if (!Confirm(tr("Are you sure you want to delete all selected projects?"), tr("Delete Project"),
                 QLatin1String(IconQuestion)))
        return;
    m_controller.DeleteChecked();
}

void CLmProjMgrWgt::slotDeleteBtnClicked(const QModelIndex& index)
{
    const QString id = IdOf(index);
    if (!CanAct({id}))
        return;
    if (!Confirm(tr("Are you sure to delete project %1 ?").arg(m_controller.Row(id).strName), tr("SkyConsole"),
                 QLatin1String(IconQuestion)))
        return;
    m_controller.DeleteProject(id);
}

void CLmProjMgrWgt::slotDeleteFinished(CLmProjMgrController::EDeleteKind kind,
                                       CLmProjMgrController::EDeleteOutcome outcome, QString strCloudMessage)
{
    using Ctl = CLmProjMgrController;
    switch (outcome) {
    case Ctl::DeleteRemoved:
        ShowMessage(tr("The Project delete was successful."), tr("Delete Project"), QLatin1String(IconDone));
        break;
    case Ctl::DeleteLocalInUse:
        ShowMessage(kind == Ctl::DeleteOne
                        ? tr("The local file delete operation was not successful, the file is in use.")
                        : tr("One or more file used by other application."),
                    tr("Delete Project"), QLatin1String(IconExclamation));
        break;
    case Ctl::DeleteCloudRefused:
        ShowMessage(strCloudMessage, tr("SkyConsole"), QLatin1String(IconExclamation));
        break;
    case Ctl::DeleteUnreadableReply:
        ShowMessage(tr("The cloud's answer could not be read. Nothing was deleted."), tr("SkyConsole"),
                    QLatin1String(IconExclamation));
        break;
    case Ctl::DeleteNetworkFault:
        ShowMessage(tr("Network fault"), tr("SkyConsole"), QLatin1String(IconExclamation));
        break;
    }
    RefreshList();
}

void CLmProjMgrWgt::slotShareBtnClicked(const QModelIndex& index)
{
    const QString id = IdOf(index);
    if (CanAct({id}))
        OpenShareDialog({id});
}

void CLmProjMgrWgt::slotBtnShareLv2Clicked()
{
    const QStringList ids = m_controller.CheckedIds();
    if (!CanAct(ids))
        return;
    if (ids.size() > 1
        && !Confirm(tr("Are you sure you want to share all selected projects?"), tr("SkyConsole"),
                    QLatin1String(IconQuestion)))
        return;
    OpenShareDialog(ids);
}

void CLmProjMgrWgt::OpenShareDialog(const QStringList& projIds)
{
    QStringList names;
    QStringList files;
    for (const QString& id : projIds) {
        names.append(m_controller.Row(id).strName);
        files.append(m_controller.LocalFile(id));
    }
    CLmShareDialog dialog(projIds, names, files, this);
    dialog.exec();
}

void CLmProjMgrWgt::slotClickedBtnOpenContentFolder(const QModelIndex& index)
{
    const QString file = m_controller.LocalFile(IdOf(index));
    if (file.isEmpty()) {
        ShowMessage(tr("Can not find project file ,please download project first."), tr("SkyConsole"),
                    QLatin1String(IconExclamation));
        return;
    }
    OpenProjectFolder(file);
}

void CLmProjMgrWgt::OpenProjectFolder(const QString& projectFilePath)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(projectFilePath).absolutePath()));
}

void CLmProjMgrWgt::SetUpDetailsPage()
{
    m_pDetailsWgt = new CLmProjDetailsWgt(this);
    m_pUi->m_pProjMgrStackedWidget->addWidget(m_pDetailsWgt);
    connect(m_pDetailsWgt, &CLmProjDetailsWgt::BackToProject, this,
            [this] { m_pUi->m_pProjMgrStackedWidget->setCurrentWidget(m_pUi->m_pPageProject); });
    connect(m_pDetailsWgt, &CLmProjDetailsWgt::parseJsonArray, this, &CLmProjMgrWgt::parseJsonArray);
}

void CLmProjMgrWgt::SetUpSharePages()
{
    m_pShareMgr = new CLmShareManagerWidget(m_pUi->m_pPageShare);
    m_pUi->m_pPageShareLayout->addWidget(m_pShareMgr);
    connect(m_pShareMgr, &CLmShareManagerWidget::NewShareReceived, this, &CLmProjMgrWgt::NewShareReceived);
    connect(m_pShareMgr, &CLmShareManagerWidget::signalDownloadProjectFile, this,
            &CLmProjMgrWgt::slotDownloadProjectFile);
    connect(m_pShareMgr, &CLmShareManagerWidget::ListRefreshed, this, &CLmProjMgrWgt::slotFillAssigned);
    connect(m_pUi->m_pBtnAssigned, &QPushButton::clicked, m_pShareMgr, &CLmShareManagerWidget::RequestList);
    slotFillAssigned();
}

void CLmProjMgrWgt::slotShareNoticeArrived()
{
    m_pShareMgr->slotShareNoticeArrived();
}

void CLmProjMgrWgt::slotShareMessageArrived()
{
    m_pShareMgr->slotShareMessageArrived();
}

void CLmProjMgrWgt::slotDownloadProjectFile(QString strPrjID, QString strPrjName)
{
    m_setSharedDownloads.insert(strPrjID);
    Q_EMIT DownloadSharedProject(strPrjID, strPrjName);
}

void CLmProjMgrWgt::slotFillAssigned()
{
    QTreeWidget* tree = m_pUi->m_pTreeAssigned;
    tree->clear();
    for (const CLmShareManagerController::SShareRow& row : m_pShareMgr->Controller().Received()) {
        if (row.eKind != CLmShareManagerController::KindReceivedTask)
            continue;
        auto* item = new QTreeWidgetItem(tree, {row.strProject, row.strPeer, row.strTime});
        item->setToolTip(0, CLmShareManagerController::LatestMessage(row));
        item->setTextAlignment(1, Qt::AlignCenter);
        item->setTextAlignment(2, Qt::AlignCenter);
    }
    m_pUi->m_pLabelAssignedPlaceholder->setVisible(tree->topLevelItemCount() == 0);
}

void CLmProjMgrWgt::slotDetailsBtnClicked(const QModelIndex& index)
{
    const CLmProjMgrController::SRow row = m_controller.Row(IdOf(index));
    m_pDetailsWgt->ShowProject(row.strProjID, row.strName, m_controller.LocalFile(row.strProjID));
    m_pUi->m_pProjMgrStackedWidget->setCurrentWidget(m_pDetailsWgt);
}

void CLmProjMgrWgt::slotFlightDataParsed(QString strFilePath, QString strMissionID, unsigned int iOperatorType,
                                         int iRows)
{
    m_pDetailsWgt->slotFlightDataParsed(strFilePath, strMissionID, iOperatorType, iRows);
}

void CLmProjMgrWgt::slotClickedDownload(const QModelIndex& index)
{
    RequestRowDownload(IdOf(index));
}

void CLmProjMgrWgt::RequestRowDownload(const QString& projId)
{
    if (m_controller.StartRowDownload(projId) == CLmProjMgrController::ActionOffline) {
        ShowMessage(tr("Network fault"), tr("SkyConsole"), QLatin1String(IconExclamation));
        return;
    }
    Q_EMIT DownloadProject(projId);
}

void CLmProjMgrWgt::slotRowDownloadFailed(QString strProjID)
{
    CLmMessageBox box(tr("Download project file failed.Press cancel to use project on sever,press retry to "
                         "download project again."),
                      QLatin1String(IconExclamation), tr("SkyConsole"), CLmMessageBox::BtnOkCancel, this);
    box.SetOkText(tr("Retry"));
    if (box.exec() == 1)
        RequestRowDownload(strProjID);
}

// ---- filters ---------------------------------------------------------------------

void CLmProjMgrWgt::slotBtnSearchLv2Clicked()
{
    CLmProjFilter filter = m_controller.Filter();
    filter.SetName(m_pUi->m_pEditSearchLv2->text());
    m_controller.SetFilter(filter);
    RefreshList();
}

void CLmProjMgrWgt::slotBtnClearLv3Clicked()
{
    CLmProjFilter filter = m_controller.Filter();
    filter.SetCity(QString());
    filter.SetDateRange(QString());
    m_controller.SetFilter(filter);
    m_pUi->m_pBtnSearchCountry->setText(tr("The national"));
    m_pUi->m_pBtnDate->setText(tr("Date"));
    RefreshList();
}

void CLmProjMgrWgt::slotBtnSearchCountryClicked()
{
    if (!m_pCitySelect) {
        m_pCitySelect = new CLmCitySelectWidget(this);
        connect(m_pCitySelect, &CLmCitySelectWidget::CitySelected, this, &CLmProjMgrWgt::slotCitySelected);
        connect(m_pCitySelect, &CLmCitySelectWidget::WidgetClosed, this, &CLmProjMgrWgt::slotCityWidgetClosed);
    }
    m_pCitySelect->SetCities(m_controller.AllCities());
    SetArrow(m_pUi->m_pBtnSearchCountry, true);
    m_pCitySelect->ShowBelow(m_pUi->m_pBtnSearchCountry);
}

void CLmProjMgrWgt::slotBtnDateClicked()
{
    if (!m_pDateSelect) {
        m_pDateSelect = new CLmDateSelectWidget(this);
        connect(m_pDateSelect, &CLmDateSelectWidget::DateSelected, this, &CLmProjMgrWgt::slotDateSelected);
        connect(m_pDateSelect, &CLmDateSelectWidget::WidgetClosed, this, &CLmProjMgrWgt::slotDateWidgetClosed);
    }
    const CLmProjFilter& filter = m_controller.Filter();
    const QDate today = QDate::currentDate();
    m_pDateSelect->SetRange(filter.From().isValid() ? filter.From() : today,
                            filter.To().isValid() ? filter.To() : today);
    SetArrow(m_pUi->m_pBtnDate, true);
    m_pDateSelect->ShowBelow(m_pUi->m_pBtnDate);
}

void CLmProjMgrWgt::slotCitySelected(QString strCityName)
{
    CLmProjFilter filter = m_controller.Filter();
    filter.SetCity(strCityName);
    m_controller.SetFilter(filter);
    m_pUi->m_pBtnSearchCountry->setText(filter.City().isEmpty() || strCityName == CLmCitySelectWidget::AllCitiesText()
                                            ? tr("The national")
                                            : strCityName);
    slotBtnSearchLv2Clicked();
}

void CLmProjMgrWgt::slotDateSelected(QString strDateString)
{
    CLmProjFilter filter = m_controller.Filter();
    filter.SetDateRange(strDateString);
    m_controller.SetFilter(filter);
    m_pUi->m_pBtnDate->setText(strDateString.isEmpty() ? tr("Date") : strDateString);
    slotBtnSearchLv2Clicked();
}

void CLmProjMgrWgt::slotCityWidgetClosed()
{
    SetArrow(m_pUi->m_pBtnSearchCountry, false);
}

void CLmProjMgrWgt::slotDateWidgetClosed()
{
    SetArrow(m_pUi->m_pBtnDate, false);
}

void CLmProjMgrWgt::SetArrow(QPushButton* button, bool open)
{
    button->setIcon(QIcon(QLatin1String(open ? ArrowUp : ArrowDown)));
}

// ---- message boxes ---------------------------------------------------------------

bool CLmProjMgrWgt::Confirm(const QString& text, const QString& title, const QString& iconPath)
{
    CLmMessageBox box(text, iconPath, title, CLmMessageBox::BtnOkCancel, this);
    return box.exec() == 1;
}

void CLmProjMgrWgt::ShowMessage(const QString& text, const QString& title, const QString& iconPath)
{
    CLmMessageBox box(text, iconPath, title, CLmMessageBox::BtnOk, this);
    box.exec();
}
