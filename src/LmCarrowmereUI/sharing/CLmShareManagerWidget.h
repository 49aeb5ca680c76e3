#pragma once

#include "CLmShareManagerController.h"

#include <QModelIndex>
#include <QWidget>

#include <memory>
#include <optional>

class CLmNetWorkRequest;
class CLmProjetMgrHeaderView;
class CLmReceiveShareManagerDelegate;

namespace Ui {
class CLmShareManagerWidget;
}

// The shares the user has received (projects and assigned flight tasks) and
// those the user has sent: accept, refuse, delete, share again and answer
// them. The list is read from the cloud whenever the page is shown.
class CLmShareManagerWidget : public QWidget
{
    Q_OBJECT
public:
    explicit CLmShareManagerWidget(QWidget* parent = nullptr);
    ~CLmShareManagerWidget() override;

    const CLmShareManagerController& Controller() const;
    // Reads the list from the cloud; the rows shown stay until it answers.
    void RequestList();
    // Forgets everything shown for the previous user.
    void Reset();

Q_SIGNALS:
    void NewShareReceived();
    void NewsReceived(QString strNews);
    void signalUpdateStateTxt(int nItenID, int nState);
    void signalCheckStateChanged(int state);
    // An accepted share's project waits in the cloud under strPrjID.
    void signalDownloadProjectFile(QString strPrjID, QString strPrjName);
    // A list reply was read into the rows.
    void ListRefreshed();

public Q_SLOTS:
    // A share or an assignment arrived: the page reads the list again when
    // it is shown and tells NewShareReceived otherwise.
    void slotShareNoticeArrived();
    // An answer arrived: a shown page reads the list again.
    void slotShareMessageArrived();

    void slotRequestReceiveShareProjectList(QByteArray reply);
    void slotReflushMsgFailed();
    void slotSwitchToReceived(bool bChecked);
    void slotTreeItemChanged();
    void slotHeaderStateChanged(Qt::CheckState state);

    void slotAcceptBtnClicked(const QModelIndex& index);
    void slotRequestAccept(QByteArray reply);
    void slotRequestRefuse(QByteArray reply);
    void slotRequestAcceptRefuseFailedMsg(QString strMsg);
    void slotRequestAcceptRefuseNetWorkError();

    void slotDeleteBtnClicked();
    void slotDeleteBtnClicked(const QModelIndex& index);
    void slotRequestDeleteShareItemAccept(QByteArray reply);

    void slotShareBtnClicked(const QModelIndex& index);
    void slotRequestShareAgainAccept(QByteArray reply);

    void slotMessageBtnClicked(const QModelIndex& index);
    void slotReplyMessage(int nShareID, QString strText);
    void slotReplyMessageSuccess();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void SetUpTree();
    void FillTree();
    const CLmShareManagerController::SShareRow* RowAt(const QModelIndex& index) const;
    QList<qint64> CheckedIds() const;
    void UpdateHeaderCheckState();

    // The accept body the user chose, or nothing when the user stopped.
    std::optional<QByteArray> AskAcceptBody(const CLmShareManagerController::SShareRow& row);
    QString DeleteQuestion(const CLmShareManagerController::SShareRow& row) const;
    void PostDelete(const QList<qint64>& ids, bool bRefusal);
    // Connects the failure signals every action shares and posts.
    void PostAction(CLmNetWorkRequest* request);

    // Says so when the network is down; true when an action may go ahead.
    bool CanAct();
    bool Confirm(const QString& text);
    void ShowMessage(const QString& text, const QString& iconPath = QString());
    void SetStatus(const QString& text);

    std::unique_ptr<Ui::CLmShareManagerWidget> m_pUi;
    CLmShareManagerController m_controller;
    CLmReceiveShareManagerDelegate* m_pDelegate = nullptr;
    CLmProjetMgrHeaderView* m_pHeader = nullptr;
    bool m_bShowReceived = true;
};
