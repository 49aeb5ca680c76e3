#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QThread>

#include <memory>

class CLmDownLoadObject;
class CLmNoflyZoneMgr;
class CLmProgressWgt;

// Keeps the local no-fly-zone database current with the cloud: fetches the
// whole zone file when there is none yet, otherwise the zones changed since
// the newest local one and the lifts granted to the signed-in account, and
// publishes the result enciphered as "NoflyZone.dat" where the sibling
// applications read it. The database work runs on a thread of its own.
class CLmNoFlyZoneUpgrade : public QObject
{
    Q_OBJECT
public:
    explicit CLmNoFlyZoneUpgrade(QObject* parent = nullptr);
    ~CLmNoFlyZoneUpgrade() override;

    // Where the published file goes: the application's folder when it is
    // writable, else the per-user data folder.
    static QString PublishedFilePath();

    // Checks the cloud for zone changes; does nothing while offline or while
    // an update is under way.
    void Start();

public Q_SLOTS:
    void slotDownLoadNoFlyZone();
    void slotDownloadProgress(qlonglong iCur, qlonglong iTotal);
    void slotNetWorkError();
    void slotReplyFinished(const QByteArray& reply);
    void slotReplyLiftFinished(const QByteArray& reply);
    void slotBtnRetryClicked();

Q_SIGNALS:
    void signalDownLoadProcess(int nCurrent, int nCount);
    void signalCloseLoadWgt();
    // A run ended: published the file anew, or changed nothing.
    void UpdateEnded(bool bPublished);

private:
    // What the worker made of a check-update reply.
    struct SUpdateOutcome
    {
        bool bApplied = false;
        int iLiftCount = 0;
    };

    void CheckWorkCopy();
    void ContinueWithWorkCopy(const QString& newestUpdatedAt);
    void Download();
    void ShowProgressDialog();
    void ZoneFileSaved(bool bSaved);
    void ShowDownloadFailed();
    void CheckUpdate(const QString& newestUpdatedAt);
    void UpdateApplied(const SUpdateOutcome& outcome);
    void AcceptLifts();
    // The lift reply was stored, or had nothing to store.
    void LiftsStored(bool);
    void Publish();
    void End(bool bPublished);

    // Runs work on the database thread and hands its result to then on this
    // object's thread.
    template <class TWork, class TThen>
    void OnWorker(TWork work, TThen then);

    QString m_strUrl;
    bool m_bRunning = false;
    CLmDownLoadObject* m_pDownLoad = nullptr;
    QPointer<CLmProgressWgt> m_pProgressWgt;
    QThread m_threadDataBase;
    QObject m_workerContext;
    std::unique_ptr<CLmNoflyZoneMgr> m_pNoflyZoneMgr;
};
