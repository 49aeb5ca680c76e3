#include "CLmShareManagerWidget.h"

#include "CLmControl.h"
#include "CLmMessageBox.h"
#include "CLmNetWorkRequest.h"
#include "CLmProjectExistsDialog.h"
#include "CLmProjetMgrHeaderView.h"
#include "CLmReplyEnvelope.h"
#include "CLmReceiveShareManagerDelegate.h"
#include "CLmSessionStore.h"
#include "CLmShareItem.h"
#include "CLmShareMessageDialog.h"
#include "CLmShareNameDialog.h"
#include "LmCarrowmereUILog.h"
#include "LmShareRoles.h"
#include "ui_CLmShareManagerWidget.h"


using Controller = CLmShareManagerController;
using Delegate = CLmReceiveShareManagerDelegate;

namespace {

constexpr char IconQuestion[] = ":/images/Normal/ProjMgr/warn_question_ic.png";
constexpr char IconExclamation[] = ":/images/Normal/Exclamation_mark.png";
constexpr char IconOffline[] = ":/images/Normal/userinfo/off_network_ico.png";
constexpr char IconDone[] = ":/images/Normal/Home/HomeFile_share_ok_ic.png";

// The share id a request was made for, read back in its reply slot.
constexpr int ShareIdKey = 1;

const int ColumnWidths[] = {260, 150, 170, 110, 130, 200};

}  // namespace

CLmShareManagerWidget::CLmShareManagerWidget(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmShareManagerWidget>())
{
    m_pUi->setupUi(this);
    SetUpTree();
    connect(m_pUi->m_pBtnReceived, &QPushButton::toggled, this, &CLmShareManagerWidget::slotSwitchToReceived);
    connect(m_pUi->m_pBtnRefreshShare, &QPushButton::clicked, this, &CLmShareManagerWidget::RequestList);
    connect(m_pUi->m_pBtnDeleteShare, &QPushButton::clicked, this,
            qOverload<>(&CLmShareManagerWidget::slotDeleteBtnClicked));
}

CLmShareManagerWidget::~CLmShareManagerWidget() = default;

void CLmShareManagerWidget::SetUpTree()
{
    QTreeWidget* tree = m_pUi->m_pTreeShare;
    m_pHeader = new CLmProjetMgrHeaderView(tree);
    tree->setHeader(m_pHeader);
    m_pDelegate = new Delegate(tree);
    tree->setItemDelegate(m_pDelegate);
    for (int column = 0; column < tree->columnCount(); ++column) {
        tree->setColumnWidth(column, ColumnWidths[column]);
        const bool bLeft = column == Delegate::ColumnProject || column == Delegate::ColumnMessage;
        tree->headerItem()->setTextAlignment(column, bLeft ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
    }
    connect(m_pDelegate, &Delegate::signalAcceptBtnClicked, this, &CLmShareManagerWidget::slotAcceptBtnClicked);
    connect(m_pDelegate, &Delegate::signalClickedDownload, this, &CLmShareManagerWidget::slotAcceptBtnClicked);
    connect(m_pDelegate, &Delegate::signalShareBtnClicked, this, &CLmShareManagerWidget::slotShareBtnClicked);
    connect(m_pDelegate, &Delegate::signalDeleteBtnClicked, this,
            qOverload<const QModelIndex&>(&CLmShareManagerWidget::slotDeleteBtnClicked));
    connect(m_pDelegate, &Delegate::signalMessageBtnClicked, this, &CLmShareManagerWidget::slotMessageBtnClicked);
    connect(m_pDelegate, &Delegate::signalChecked, this, &CLmShareManagerWidget::slotTreeItemChanged);
    connect(this, &CLmShareManagerWidget::signalUpdateStateTxt, m_pDelegate, &Delegate::slotUpdateStateTxt);
    connect(m_pHeader, &CLmProjetMgrHeaderView::signalStateChanged, this,
            &CLmShareManagerWidget::slotHeaderStateChanged);
    connect(this, &CLmShareManagerWidget::signalCheckStateChanged, m_pHeader,
            &CLmProjetMgrHeaderView::slotStateChanged);
}

const CLmShareManagerController& CLmShareManagerWidget::Controller() const
{
    return m_controller;
}

void CLmShareManagerWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    RequestList();
}

void CLmShareManagerWidget::Reset()
{
    m_controller.Clear();
    FillTree();
    SetStatus(QString());
}

// ---- the list --------------------------------------------------------------------

void CLmShareManagerWidget::RequestList()
{
    if (!CLmControl::GetInstance()->IsNetWorkConnected()) {
        SetStatus(tr("Network fault"));
        return;
    }
    CLmNetWorkRequest* request = Controller::NewListRequest();
    connect(request, &CLmNetWorkRequest::ActionSucced, this,
            &CLmShareManagerWidget::slotRequestReceiveShareProjectList);
    connect(request, &CLmNetWorkRequest::FailedMsg, this, &CLmShareManagerWidget::slotReflushMsgFailed);
    connect(request, &CLmNetWorkRequest::NetWorkError, this, [this] { SetStatus(tr("NetWork Error")); });
    SetStatus(tr("Reading the shares..."));
    request->PostNetWorkReplyMessage();
}

void CLmShareManagerWidget::slotShareNoticeArrived()
{
    if (isVisible())
        RequestList();
    else
        Q_EMIT NewShareReceived();
}

void CLmShareManagerWidget::slotShareMessageArrived()
{
    if (isVisible())
        RequestList();
}

void CLmShareManagerWidget::slotRequestReceiveShareProjectList(QByteArray reply)
{
    if (!m_controller.ReadList(reply)) {
        qCWarning(lcShare) << "share list reply not read:" << reply.left(200);
        SetStatus(tr("The share list could not be read; the rows shown are kept."));
        return;
    }
    FillTree();
    SetStatus(tr("%1 received, %2 sent").arg(m_controller.Received().size()).arg(m_controller.Sent().size()));
    if (m_controller.NewWaitingCount() > 0)
        Q_EMIT NewsReceived(tr("%n new share(s) received", nullptr, m_controller.NewWaitingCount()));
    Q_EMIT ListRefreshed();
}

void CLmShareManagerWidget::slotReflushMsgFailed()
{
    SetStatus(tr("The share list could not be read; the rows shown are kept."));
}

void CLmShareManagerWidget::slotSwitchToReceived(bool bChecked)
{
    m_bShowReceived = bChecked;
    m_pUi->m_pTreeShare->headerItem()->setText(Delegate::ColumnPeer, bChecked ? tr("Sender") : tr("Receiver"));
    FillTree();
}

// Rows are made in one batch and handed to the tree at once: a tree that
// takes them one by one lays itself out each time.
void CLmShareManagerWidget::FillTree()
{
    QTreeWidget* tree = m_pUi->m_pTreeShare;
    const QVector<Controller::SShareRow>& rows = m_bShowReceived ? m_controller.Received() : m_controller.Sent();
    QList<QTreeWidgetItem*> items;
    items.reserve(rows.size());
    for (const Controller::SShareRow& row : rows)
        items.append(new CLmShareItem(row));
    tree->setUpdatesEnabled(false);
    tree->clear();
    tree->addTopLevelItems(items);
    tree->setUpdatesEnabled(true);
    m_pDelegate->slotResetBtn();
    UpdateHeaderCheckState();
}

const Controller::SShareRow* CLmShareManagerWidget::RowAt(const QModelIndex& index) const
{
    const QModelIndex rowIndex = index.siblingAtColumn(Delegate::ColumnProject);
    return m_controller.Find(rowIndex.data(LmShareRole::ShareId).toLongLong());
}

// ---- checking --------------------------------------------------------------------

QList<qint64> CLmShareManagerWidget::CheckedIds() const
{
    QList<qint64> ids;
    const QTreeWidget* tree = m_pUi->m_pTreeShare;
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = tree->topLevelItem(i);
        if (item->checkState(Delegate::ColumnProject) == Qt::Checked)
            ids.append(item->data(Delegate::ColumnProject, LmShareRole::ShareId).toLongLong());
    }
    return ids;
}

void CLmShareManagerWidget::slotTreeItemChanged()
{
    UpdateHeaderCheckState();
}

void CLmShareManagerWidget::slotHeaderStateChanged(Qt::CheckState state)
{
    QTreeWidget* tree = m_pUi->m_pTreeShare;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        tree->topLevelItem(i)->setCheckState(Delegate::ColumnProject, state);
}

void CLmShareManagerWidget::UpdateHeaderCheckState()
{
    Q_EMIT signalCheckStateChanged(
        CLmProjetMgrHeaderView::StateFor(CheckedIds().size(), m_pUi->m_pTreeShare->topLevelItemCount()));
}

// ---- accept ----------------------------------------------------------------------

void CLmShareManagerWidget::slotAcceptBtnClicked(const QModelIndex& index)
{
    const Controller::SShareRow* row = RowAt(index);
    if (!row || !CanAct())
        return;
    const Controller::SShareRow chosen = *row;
    const std::optional<QByteArray> body = AskAcceptBody(chosen);
    if (!body)
        return;
    CLmNetWorkRequest* request = Controller::NewAcceptRequest(chosen, *body);
    request->SetUserData(ShareIdKey, chosen.nId);
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmShareManagerWidget::slotRequestAccept);
    PostAction(request);
}

std::optional<QByteArray> CLmShareManagerWidget::AskAcceptBody(const Controller::SShareRow& row)
{
    if (row.nSaveAs != 1)
        return Controller::AcceptBody(row.nId, Controller::AcceptKeepName);
    CLmProjectExistsDialog question(this);
    switch (question.exec()) {
    case CLmProjectExistsDialog::Replace:
        return Controller::AcceptBody(row.nId, Controller::AcceptReplace);
    case CLmProjectExistsDialog::SaveAs:
        break;
    default:
        return std::nullopt;
    }
    CLmShareNameDialog nameDialog(row.strProject, this);
    if (nameDialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const QString name = nameDialog.Name();
    switch (Controller::CheckName(name)) {
    case Controller::NameEmpty:
        ShowMessage(tr("Project name cannot be empty"), QLatin1String(IconExclamation));
        return std::nullopt;
    case Controller::NameForbidden: {
        QStringList characters;
        for (const QChar c : Controller::ForbiddenCharacters())
            characters.append(c);
        ShowMessage(tr("File name cannot contain any of the following characters:") + characters.join(QLatin1Char(',')),
                    QLatin1String(IconExclamation));
        return std::nullopt;
    }
    case Controller::NameOk:
        break;
    }
    return Controller::AcceptBody(row.nId, Controller::AcceptSaveAs, name);
}

void CLmShareManagerWidget::slotRequestAccept(QByteArray reply)
{
    qCInfo(lcShare) << "CLmShareManagerWidget::slotRequestAccept" << reply;
    const auto* request = qobject_cast<const CLmNetWorkRequest*>(sender());
    const qint64 nId = request ? request->GetUserData(ShareIdKey).toLongLong() : 0;
    const Controller::SShareRow* row = m_controller.Find(nId);
    Controller::SAcceptAnswer answer = Controller::ReadAcceptAnswer(reply, row ? row->strProject : QString());
    if (!answer.bParsed) {
        ShowMessage(tr("The cloud's answer could not be read."), QLatin1String(IconExclamation));
        return;
    }
    if (!answer.bAccepted) {
        ShowMessage(answer.strMessage, QLatin1String(IconExclamation));
        return;
    }
    if (answer.strProjectId.isEmpty() && row)
        answer.strProjectId = row->strProjectId;
    m_controller.SetState(nId, Controller::StateAccepted);
    Q_EMIT signalUpdateStateTxt(static_cast<int>(nId), Controller::StateAccepted);
    Q_EMIT signalDownloadProjectFile(answer.strProjectId, answer.strProjectName);
    RequestList();
}

void CLmShareManagerWidget::slotRequestRefuse(QByteArray reply)
{
    const auto* request = qobject_cast<const CLmNetWorkRequest*>(sender());
    if (request && CLmReplyEnvelope::Parse(reply).IsSuccess())
        Q_EMIT signalUpdateStateTxt(request->GetUserData(ShareIdKey).toInt(), Controller::StateRejected);
    slotRequestDeleteShareItemAccept(reply);
}

void CLmShareManagerWidget::slotRequestAcceptRefuseFailedMsg(QString strMsg)
{
    ShowMessage(strMsg, QLatin1String(IconExclamation));
}

void CLmShareManagerWidget::slotRequestAcceptRefuseNetWorkError()
{
    ShowMessage(tr("NetWork Error"), QLatin1String(IconOffline));
}

// ---- delete ----------------------------------------------------------------------

void CLmShareManagerWidget::slotDeleteBtnClicked()
{
    const QList<qint64> ids = CheckedIds();
    if (ids.isEmpty()) {
        ShowMessage(tr("Please select an item at least to delete."), QLatin1String(IconExclamation));
        return;
    }
    if (CanAct() && Confirm(tr("Are you sure to delete these selected item(s)?")))
        PostDelete(ids, false);
}

void CLmShareManagerWidget::slotDeleteBtnClicked(const QModelIndex& index)
{
    const Controller::SShareRow* row = RowAt(index);
    if (!row || !CanAct())
        return;
    const qint64 nId = row->nId;
    const bool bRefusal = row->eKind != Controller::KindSent && row->nState == Controller::StateWaiting;
    if (Confirm(DeleteQuestion(*row)))
        PostDelete({nId}, bRefusal);
}

QString CLmShareManagerWidget::DeleteQuestion(const Controller::SShareRow& row) const
{
    switch (row.eKind) {
    case Controller::KindReceived:
        return tr("Are you sure to delete project %1 shared by %2?\n(%3)")
            .arg(row.strProject, row.strPeer, tr("delete this sharing record and reject the project"));
    case Controller::KindReceivedTask:
        return tr("Are you sure to delete the project %1 sharing record?").arg(row.strProject);
    case Controller::KindSent:
        break;
    }
    return tr("Are you sure to cancel of sharing project %1?").arg(row.strProject) + QLatin1Char('\n')
           + tr("The recipient will not receive the project after deletion");
}

void CLmShareManagerWidget::PostDelete(const QList<qint64>& ids, bool bRefusal)
{
    CLmNetWorkRequest* request = Controller::NewDeleteRequest(ids);
    request->SetUserData(ShareIdKey, ids.first());
    connect(request, &CLmNetWorkRequest::ActionSucced, this,
            bRefusal ? &CLmShareManagerWidget::slotRequestRefuse
                     : &CLmShareManagerWidget::slotRequestDeleteShareItemAccept);
    PostAction(request);
}

void CLmShareManagerWidget::slotRequestDeleteShareItemAccept(QByteArray reply)
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    if (!envelope.IsSuccess()) {
        ShowMessage(envelope.IsParsed() ? envelope.Message() : tr("The cloud's answer could not be read."),
                    QLatin1String(IconExclamation));
        return;
    }
    RequestList();
}

// ---- share again and answer ------------------------------------------------------

void CLmShareManagerWidget::slotShareBtnClicked(const QModelIndex& index)
{
    const Controller::SShareRow* row = RowAt(index);
    if (!row || !CanAct() || !Confirm(tr("Share project %1 with %2 again?").arg(row->strProject, row->strPeer)))
        return;
    CLmNetWorkRequest* request = Controller::NewShareAgainRequest(*row);
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmShareManagerWidget::slotRequestShareAgainAccept);
    PostAction(request);
}

void CLmShareManagerWidget::slotRequestShareAgainAccept(QByteArray reply)
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    if (!envelope.IsParsed()) {
        ShowMessage(tr("The cloud's answer could not be read."), QLatin1String(IconExclamation));
        return;
    }
    ShowMessage(envelope.Message(), QLatin1String(envelope.IsSuccess() ? IconDone : IconExclamation));
    RequestList();
}

void CLmShareManagerWidget::slotMessageBtnClicked(const QModelIndex& index)
{
    const Controller::SShareRow* row = RowAt(index);
    if (!row)
        return;
    const qint64 nId = row->nId;
    CLmShareMessageDialog dialog(row->strProject, row->vecMessages, GetCurUserInfo().strUserID.toLongLong(), this);
    if (dialog.exec() == QDialog::Accepted)
        slotReplyMessage(static_cast<int>(nId), dialog.Text());
}

void CLmShareManagerWidget::slotReplyMessage(int nShareID, QString strText)
{
    const Controller::SShareRow* row = m_controller.Find(nShareID);
    if (!row || strText.trimmed().isEmpty() || !CanAct())
        return;
    CLmNetWorkRequest* request = Controller::NewReplyRequest(*row, strText.trimmed());
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmShareManagerWidget::slotReplyMessageSuccess);
    PostAction(request);
}

void CLmShareManagerWidget::slotReplyMessageSuccess()
{
    RequestList();
}

// ---- helpers ---------------------------------------------------------------------

void CLmShareManagerWidget::PostAction(CLmNetWorkRequest* request)
{
    connect(request, &CLmNetWorkRequest::FailedMsg, this, &CLmShareManagerWidget::slotRequestAcceptRefuseFailedMsg);
    connect(request, &CLmNetWorkRequest::NetWorkError, this,
            &CLmShareManagerWidget::slotRequestAcceptRefuseNetWorkError);
    request->PostNetWorkReplyMessage();
}

bool CLmShareManagerWidget::CanAct()
{
    if (CLmControl::GetInstance()->IsNetWorkConnected())
        return true;
    ShowMessage(tr("Network fault"), QLatin1String(IconOffline));
    return false;
}

bool CLmShareManagerWidget::Confirm(const QString& text)
{
    CLmMessageBox box(text, QLatin1String(IconQuestion), tr("SkyConsole"), CLmMessageBox::BtnOkCancel, this);
    return box.exec() == 1;
}

void CLmShareManagerWidget::ShowMessage(const QString& text, const QString& iconPath)
{
    CLmMessageBox box(text, iconPath, tr("SkyConsole"), CLmMessageBox::BtnOk, this);
    box.exec();
}

void CLmShareManagerWidget::SetStatus(const QString& text)
{
    m_pUi->m_pLabelShareStatus->setText(text);
}
