#pragma once

#include "CLmProjFilter.h"
#include "LmProjSynchTypes.h"

#include <QDate>
#include <QFutureWatcher>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

class CLmNetWorkRequest;

// The state of the project manager page without its widgets: the project
// rows keyed by project id as the synchronisation reports them, which of
// them the filter lets through, the transfer lists, the footer figures and
// the delete flows with the cloud. The page shows what it reports and asks
// the user; it builds no request itself.
class CLmProjMgrController : public QObject
{
    Q_OBJECT
public:
    // User data of the delete requests: the project id (a list of ids for
    // several) and, for one project, its project file.
    static constexpr int ProjIdRole = 1256;
    static constexpr int ProjPathRole = 1259;

    struct SRow
    {
        QString strProjID;
        QString strName;
        QString strUpdateTime;
        QDate updateDay;
        QString strPath;
        int iMissionCount = 0;
        int iFlownCount = 0;
        int iSynchState = SynchStateInStep;
        QStringList listCities;
        bool bChecked = false;
    };

    // 2: some missions not flown yet, 1: all flown, 0: none expected (or
    // more flown than the cloud counts).
    enum EFlightLogState { FlightLogNone = 0, FlightLogAllFlown = 1, FlightLogSomeFlown = 2 };
    Q_ENUM(EFlightLogState)
    struct SFlightLog
    {
        QString strText;
        EFlightLogState eState = FlightLogNone;
    };

    enum ETransferList { UploadingList, DownloadingList, FinishedList };
    Q_ENUM(ETransferList)
    struct STransfer
    {
        QString strProjID;
        QString strName;
        QString strPath;
        QString strProgress;
        QString strState;
        bool bFinished = false;
    };

    // Whether an action on projects may go ahead.
    enum EActionStart { ActionReady, ActionOffline, ActionNothingChosen };
    Q_ENUM(EActionStart)
    enum EDeleteKind { DeleteOne, DeleteSelected };
    Q_ENUM(EDeleteKind)
    enum EDeleteOutcome {
        // The cloud removed them, and so did this computer.
        DeleteRemoved,
        // Removed in the cloud, but a local folder is held by another
        // program (or is not one this store may remove): its row stays.
        DeleteLocalInUse,
        // The cloud said no; nothing local was touched.
        DeleteCloudRefused,
        // The cloud's answer could not be read; nothing was touched.
        DeleteUnreadableReply,
        DeleteNetworkFault,
    };
    Q_ENUM(EDeleteOutcome)

    explicit CLmProjMgrController(QObject* parent = nullptr);

    static SFlightLog FlightLog(int missionCount, int flownCount);

    // ---- rows
    // Adds the project or replaces what is known of it.
    void AddProject(const SProjInfor& info);
    // Updates name, flight log, time, state and file of a known project.
    void UpdateProject(const SProjInfor& info);
    void SetCities(const QString& projId, const QStringList& cities);
    void SetChecked(const QString& projId, bool checked);
    void SetAllChecked(bool checked);
    void Clear();

    bool HasRow(const QString& projId) const;
    SRow Row(const QString& projId) const;
    // The row itself, null for an unknown id; valid until rows change.
    const SRow* FindRow(const QString& projId) const;
    QStringList CheckedIds() const;
    int CheckedCount() const;
    int ProjectCount() const;
    // The project's file, empty when it is not on this computer (a project
    // only in the cloud).
    QString LocalFile(const QString& projId) const;
    // Every city of the listed projects, each once.
    QStringList AllCities() const;

    // ---- filter
    void SetFilter(const CLmProjFilter& filter);
    const CLmProjFilter& Filter() const;
    bool IsVisible(const QString& projId) const;
    bool IsVisible(const SRow& row) const;

    // ---- actions
    EActionStart CheckActionStart(const QStringList& projIds) const;
    // "/project/remove" for one project; nothing is sent unless ActionReady.
    EActionStart DeleteProject(const QString& projId);
    // "/project/removemulti" for the checked projects.
    EActionStart DeleteChecked();
    // A download asked for from a row; its failure is reported by
    // RowDownloadFailed. The page then asks the engine for it.
    EActionStart StartRowDownload(const QString& projId);

    // ---- transfers
    void AddUpload(const SProjInfor& info);
    void AddDownload(const SProjInfor& info);
    void UpdateUpload(const SProjInfor& info);
    void UpdateDownload(const SProjInfor& info);
    void FinishUpload(const SProjInfor& info);
    void FinishDownload(const SProjInfor& info);
    // A new list read refills the queues: what waits is forgotten.
    void ForgetWaitingTransfers();
    QList<STransfer> Transfers(ETransferList list) const;
    STransfer Transfer(ETransferList list, const QString& projId) const;

    // ---- footer
    // Sizes the project store off the GUI thread; StorageSizeReady follows.
    void RefreshStorageSize();

public Q_SLOTS:
    void slotActionSucceed(const QByteArray& reply);
    void slotDeleteFailedMsg(const QString& message);
    void slotDeleteNetWorkError();

Q_SIGNALS:
    void RowAdded(QString projId);
    void RowChanged(QString projId);
    void RowsRemoved(QStringList projIds);
    void TransferChanged(CLmProjMgrController::ETransferList list, QString projId);
    void TransferRemoved(CLmProjMgrController::ETransferList list, QString projId);
    void DeleteFinished(CLmProjMgrController::EDeleteKind kind, CLmProjMgrController::EDeleteOutcome outcome,
                        QString cloudMessage);
    void RowDownloadFailed(QString projId);
    void StorageSizeReady(qint64 bytes);

private:
    struct SRemoval
    {
        QString strProjID;
        QString strPath;
        bool bRemoved = false;
    };

    void StoreRow(SRow& row, const SProjInfor& info);
    void SetSynchState(const QString& projId, int state);
    CLmNetWorkRequest* NewDeleteRequest(const QByteArray& path, EDeleteKind kind);
    static EDeleteKind KindOf(const QObject* request);
    void RemoveLocally(EDeleteKind kind, const QStringList& projIds);
    void ApplyRemovals(EDeleteKind kind, const QVector<SRemoval>& removals);
    static QVector<SRemoval> RemoveFolders(QVector<SRemoval> removals, const QString& projectRoot);

    void PutTransfer(ETransferList list, const STransfer& transfer);
    void TakeTransfer(ETransferList list, const QString& projId);
    void MoveToFinished(ETransferList from, const SProjInfor& info, bool failed, const QString& state);
    STransfer WaitingTransfer(const SProjInfor& info) const;

    void slotStorageSized();

    QHash<QString, SRow> m_hashRows;
    CLmProjFilter m_filter;
    QHash<QString, STransfer> m_hashTransfers[FinishedList + 1];
    QSet<QString> m_setRowDownloads;
    QFutureWatcher<qint64> m_storageWatcher;
};

