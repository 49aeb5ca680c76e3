#pragma once

#include "CLmProjMgrController.h"
#include "LmProjSynchTypes.h"

#include <QHash>
#include <QJsonArray>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QThread>
#include <QTimer>
#include <QVariant>
#include <QWidget>

#include <memory>

class CLmCarrowmereProjMgrObj;
class CLmCitySelectWidget;
class CLmDateSelectWidget;
class CLmProgressWgt;
class CLmProjetMgrDelegate;
class CLmProjetMgrHeaderView;
class CLmProjetMgrItem;
class CLmProjTransferTrees;
class CLmProjDetailsWgt;
class CLmShareManagerWidget;
class QModelIndex;
class QPushButton;

namespace Ui {
class CLmProjMgrWgt;
}

// The cloud project page: the user's projects, local and in the cloud, with
// their filters, delete and share actions and the transfer lists. It runs
// the synchronisation engine on a thread of its own and shows what the
// engine and the page controller report.
class CLmProjMgrWgt : public QWidget
{
    Q_OBJECT
public:
    explicit CLmProjMgrWgt(QWidget* parent = nullptr);
    ~CLmProjMgrWgt() override;

    // Forgets everything shown for the previous user.
    void Reset();

Q_SIGNALS:
    void BackToHome();
    // Flight data of a mission read from the cloud, for the flight-data uploader.
    void parseJsonArray(QJsonArray jArray, QString strFilePath, QString strMissionID, uint iOperatorType,
                        QString strProjectName);

    void signalCheckStateChanged(int state);
    void signalResetBtn();
    void signalUpdateStateTxt(QString strTxt, int nState, QString strKey);
    void signalUpdateStateBtn(int nState, QString strKey);

    // Drive the synchronisation engine across its thread.
    void SynchAllProj();
    void ReadAllProject();
    void ReadProject(QString strProjectPath);
    void DownloadProject(QString strProjID);
    void DownloadSharedProject(QString strProjID, QString strProjName);

    // A share arrived while its page is not shown: the window lights its badge.
    void NewShareReceived();

public Q_SLOTS:
    // From the synchronisation engine.
    void slotAddProjItem2Tree(const SProjInfor& info);
    void slotAddProjItem2Tree2(const SProjInfor& info);
    void slotLocalBlockCity(QString strProjID, QVariant cityNames);
    void slotUpdateProjItem(const SProjInfor& info);
    void slotAddUploadItem2Tree(const SProjInfor& info);
    void slotAddDownloadItem2Tree(const SProjInfor& info);
    void slotSynchProMsg(ESynchProMsgType type, QString strMsg);
    void slotDownLoadProjectFinished(const SProjInfor& info);
    void slotDownLoadProjectState(const SProjInfor& info);
    void slotUploadProjectFinished(const SProjInfor& info);
    void slotUploadProjectState(const SProjInfor& info);

    // From the rows and the header.
    void slotShareBtnClicked(const QModelIndex& index);
    void slotDeleteBtnClicked(const QModelIndex& index);
    void slotDetailsBtnClicked(const QModelIndex& index);
    void slotClickedDownload(const QModelIndex& index);
    void slotClickedBtnOpenContentFolder(const QModelIndex& index);
    void slotHeaderStateChanged(Qt::CheckState state);
    void slotProjItemChecked(const QModelIndex& index);

    // From the action and filter bars.
    void slotBtnSynLv2Clicked();
    void slotBtnShareLv2Clicked();
    void slotBtnDelLv2Clicked();
    void slotBtnSearchLv2Clicked();
    void slotBtnClearLv3Clicked();
    void slotBtnSearchCountryClicked();
    void slotBtnDateClicked();
    void slotCitySelected(QString strCityName);
    void slotDateSelected(QString strDateString);
    void slotCityWidgetClosed();
    void slotDateWidgetClosed();

protected:
    void showEvent(QShowEvent* event) override;

private Q_SLOTS:
    // From the page controller.
    void slotRowAdded(QString strProjID);
    void slotRowChanged(QString strProjID);
    void slotRowsRemoved(QStringList listProjIDs);
    void slotDeleteFinished(CLmProjMgrController::EDeleteKind kind, CLmProjMgrController::EDeleteOutcome outcome,
                            QString strCloudMessage);
    void slotRowDownloadFailed(QString strProjID);
    void slotStorageSizeReady(qint64 bytes);
    void slotFlushPendingRows();
    void slotSortRows();
    // A share was accepted: its project comes into the store like any other.
    void slotDownloadProjectFile(QString strPrjID, QString strPrjName);
    void slotFillAssigned();

public Q_SLOTS:
    // Push notices of shares and assignments, and of their answers.
    void slotShareNoticeArrived();
    void slotShareMessageArrived();

    // The flight-data writer's answer to a parseJsonArray of the details page.
    void slotFlightDataParsed(QString strFilePath, QString strMissionID, unsigned int iOperatorType, int iRows);

private:
    void SetUpTrees();
    void SetUpEngine();
    void ConnectEngine();
    void ConnectRows();
    void ConnectBars();
    void ConnectController();
    void SetUpDetailsPage();
    void SetUpSharePages();

    CLmProjetMgrItem* NewItem(const CLmProjMgrController::SRow& row);
    void ShowRow(CLmProjetMgrItem* item, const CLmProjMgrController::SRow& row);
    QString IdOf(const QModelIndex& index) const;
    void RefreshList();
    void ApplyFilter();
    // Items out of the tree (hidden by the filter) are the page's to delete.
    void DeleteAllItems();
    void UpdateHeaderCheckState();
    void UpdateProjectCount();

    CLmProgressWgt* ProgressDialog();
    // Says why an action on the projects cannot go ahead; true when it can.
    bool CanAct(const QStringList& projIds);
    void OpenShareDialog(const QStringList& projIds);
    void OpenProjectFolder(const QString& projectFilePath);
    void RequestRowDownload(const QString& projId);
    bool Confirm(const QString& text, const QString& title, const QString& iconPath);
    void ShowMessage(const QString& text, const QString& title, const QString& iconPath = QString());
    void SetArrow(QPushButton* button, bool open);

    std::unique_ptr<Ui::CLmProjMgrWgt> m_pUi;
    CLmProjMgrController m_controller;
    CLmProjetMgrDelegate* m_pDelegate = nullptr;
    CLmProjetMgrHeaderView* m_pHeader = nullptr;
    CLmProjTransferTrees* m_pTransferTrees = nullptr;
    CLmProjDetailsWgt* m_pDetailsWgt = nullptr;
    CLmShareManagerWidget* m_pShareMgr = nullptr;
    // Accepted shares being downloaded: read into the list once they land.
    QSet<QString> m_setSharedDownloads;
    QPointer<CLmProgressWgt> m_pProgress;
    CLmCitySelectWidget* m_pCitySelect = nullptr;
    CLmDateSelectWidget* m_pDateSelect = nullptr;

    // Every row's item, in the tree or kept out of it by the filter.
    QHash<QString, CLmProjetMgrItem*> m_hashItems;
    QStringList m_listPendingRows;
    QTimer m_flushTimer;
    QTimer m_sortTimer;
    // A list read is under way: showing the page does not ask for another,
    // and rows wait for its end to be sorted.
    bool m_bReading = true;

    QThread m_threadSynch;
    CLmCarrowmereProjMgrObj* m_pSynchObj = nullptr;
};
