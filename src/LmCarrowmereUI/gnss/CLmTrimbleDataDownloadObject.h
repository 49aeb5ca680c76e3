#pragma once

#include "STrimbleFolderInfo.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>

class CLmRtkDataLink;
class CLmTrimbleDataWrite;

// Downloads a receiver's raw-data folders over the device link, folder by
// folder and file by file: first the entry lists of every chosen folder,
// then their entries, each handed whole to the writer thread and announced
// with RecivedData. How folders and entries are named is the receiver
// variant's business (the two listing slots); the queues, the requests and
// the data handling are shared.
class CLmTrimbleDataDownloadObject : public QObject
{
    Q_OBJECT
public:
    explicit CLmTrimbleDataDownloadObject(CLmRtkDataLink* pLink, QObject* parent = nullptr);
    ~CLmTrimbleDataDownloadObject() override;

    // Connects the link's folder, entry and data signals; null disconnects.
    void SetLink(CLmRtkDataLink* pLink);
    CLmRtkDataLink* Link() const;
    // The folder the files go to; a trailing "/" is added when missing.
    void SetTargetDir(const QString& dir);
    QString TargetDir() const;
    // The folders to list and download, in this order.
    void SetDownloadFolders(const QList<quint16>& folderIds);

    // Asks the receiver for its folders; they arrive in slotTrimbleFolderEntry.
    void RequestFolderList();
    // Lists the entries of the chosen folders, then downloads them.
    void StartDownload();
    // Drops the queues and the running transfer; partial files are removed.
    void Stop();
    bool IsBusy() const;

    QList<STrimbleFolderInfo> Folders() const;
    // Drops the folders learnt so far (before the list is asked for again).
    void ClearFolders();
    CLmTrimbleDataWrite* Writer() const;

public Q_SLOTS:
    virtual void slotTrimbleFolderEntry(quint16 folderId, quint32 folderSize, quint16 lastFolderNum,
                                        quint16 folderCount, quint32 timeUtc, QString text) = 0;
    virtual void slotTrimbleEntry(quint16 folderId, quint16 entryId, quint16 lastEntryNum, quint16 entryCount,
                                  quint32 size, quint32 timeUtc) = 0;
    void slotTrimbleData(quint16 folderId, quint16 entryId, quint8 count, QByteArray data, quint32 offset);

Q_SIGNALS:
    void TrimbleFolderInfo(quint16 folderId, quint32 folderSize, quint16 lastFolderNum, quint16 folderCount,
                           quint32 timeUtc);
    void RefreshDownloadText(QString text);
    void RefreshDownloadProgressBar(int percentage);
    void RecivedData(QByteArray bytes, QString path);
    void AllDownloadCompleted();

protected:
    // Entry ids 0..65535 of the folder.
    void RequestEntryList(quint16 folderId);
    // The whole entry from offset 0.
    void RequestEntry(quint16 folderId, quint16 entryId);
    STrimbleFolderInfo* FindFolder(quint16 folderId);
    void AddFolder(const STrimbleFolderInfo& folder);
    bool IsListing(quint16 folderId) const;
    // The head of the list queue is listed: list the next folder, or start
    // downloading when none is left.
    void FinishListing();

private:
    void StartFolder(quint16 folderId);
    void RequestCurrentEntry(const STrimbleFolderInfo& folder);
    void FinishEntry(STrimbleFolderInfo& folder, int entryIndex);
    int EntryIndex(const STrimbleFolderInfo& folder, quint16 entryId) const;
    void UpdateProgress(quint64 bytesReceived, quint32 size);

    QPointer<CLmRtkDataLink> m_pLink;
    CLmTrimbleDataWrite* m_pWriter;
    QString m_strTargetDir;
    QMap<quint16, STrimbleFolderInfo> m_mapFolders;
    QList<quint16> m_lstListQueue;
    QList<quint16> m_lstDownloadQueue;
    quint16 m_nCurrentEntryId = 0;
    int m_iMaxPercent = 0;
    QByteArray m_baReceived;
};
