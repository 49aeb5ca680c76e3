#pragma once

#include "CLmTrimbleDataDownloadObject.h"

// The raw-data folders of the aircraft's GNSS receiver. A folder is named
// by its recording time in the computer's local time
// ("yyyy_MM_dd-hh_mm_ss") and yields one position file (entry 0,
// name + ".pvt") and one observation file (name + ".atom") into which its
// other entries are written in order.
class CLmRtkDataDownloadObject : public CLmTrimbleDataDownloadObject
{
    Q_OBJECT
public:
    static const QString PvtSuffix;
    static const QString AtomSuffix;

    explicit CLmRtkDataDownloadObject(CLmRtkDataLink* pLink, QObject* parent = nullptr);

    static QString FolderName(quint32 timeUtc);
    static QString EntryFileName(const QString& folderName, quint16 entryId);

public Q_SLOTS:
    void slotTrimbleFolderEntry(quint16 folderId, quint32 folderSize, quint16 lastFolderNum, quint16 folderCount,
                                quint32 timeUtc, QString text) override;
    void slotTrimbleEntry(quint16 folderId, quint16 entryId, quint16 lastEntryNum, quint16 entryCount, quint32 size,
                          quint32 timeUtc) override;
};
