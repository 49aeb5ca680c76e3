#include "CLmRtkDataDownloadObject.h"

#include <QDateTime>
#include <QFile>

#include <algorithm>

const QString CLmRtkDataDownloadObject::PvtSuffix = QStringLiteral(".pvt");
const QString CLmRtkDataDownloadObject::AtomSuffix = QStringLiteral(".atom");

CLmRtkDataDownloadObject::CLmRtkDataDownloadObject(CLmRtkDataLink* pLink, QObject* parent)
    : CLmTrimbleDataDownloadObject(pLink, parent)
{
}

QString CLmRtkDataDownloadObject::FolderName(quint32 timeUtc)
{
    return QDateTime::fromSecsSinceEpoch(timeUtc, Qt::UTC).toLocalTime().toString(QStringLiteral("yyyy_MM_dd-hh_mm_ss"));
}

QString CLmRtkDataDownloadObject::EntryFileName(const QString& folderName, quint16 entryId)
{
    return folderName + (entryId == 0 ? PvtSuffix : AtomSuffix);
}

// The receiver's own label is kept for display only: file names come from
// the folder's time, so nothing the receiver sends can lead outside the
// target folder.
void CLmRtkDataDownloadObject::slotTrimbleFolderEntry(quint16 folderId, quint32 folderSize, quint16 lastFolderNum,
                                                      quint16 folderCount, quint32 timeUtc, QString text)
{
    if (!Link() || folderCount == 0)
        return;
    STrimbleFolderInfo folder;
    folder.folderId = folderId;
    folder.folderSize = folderSize;
    folder.lastFolderNum = lastFolderNum;
    folder.folderCount = folderCount;
    folder.timeUtc = timeUtc;
    folder.folderName = FolderName(timeUtc);
    folder.text = text;
    AddFolder(folder);
    emit TrimbleFolderInfo(folderId, folderSize, lastFolderNum, folderCount, timeUtc);
}

void CLmRtkDataDownloadObject::slotTrimbleEntry(quint16 folderId, quint16 entryId, quint16 lastEntryNum,
                                                quint16 entryCount, quint32 size, quint32 timeUtc)
{
    if (!IsListing(folderId))
        return;
    STrimbleFolderInfo* pFolder = FindFolder(folderId);
    if (!pFolder)
        return;
    const QString base = TargetDir() + pFolder->folderName;
    QFile::remove(base + PvtSuffix);
    QFile::remove(base + AtomSuffix);
    pFolder->entryCount = entryCount;
    pFolder->lastEntryNum = lastEntryNum;
    QList<STrimbleEntryInfo>& entries = pFolder->entries;
    const auto sameId = [entryId](const STrimbleEntryInfo& entry) { return entry.entryId == entryId; };
    if (std::none_of(entries.cbegin(), entries.cend(), sameId)) {
        STrimbleEntryInfo entry;
        entry.entryId = entryId;
        entry.size = size;
        entry.timeUtc = timeUtc;
        entry.fileName = EntryFileName(pFolder->folderName, entryId);
        const auto after = std::find_if(entries.begin(), entries.end(),
                                        [entryId](const STrimbleEntryInfo& other) { return other.entryId > entryId; });
        entries.insert(after, entry);
    }
    if (entryId == lastEntryNum)
        FinishListing();
}
