#include "CLmTrimbleDataDownloadObject.h"

#include "CLmRtkDataLink.h"
#include "CLmTrimbleDataWrite.h"

#include <algorithm>

namespace {

constexpr quint16 kFirstEntry = 0;
constexpr quint16 kLastEntry = 65535;
constexpr quint32 kWholeEntry = 0xFFFFFFFF;

}  // namespace

CLmTrimbleDataDownloadObject::CLmTrimbleDataDownloadObject(CLmRtkDataLink* pLink, QObject* parent)
    : QObject(parent)
    , m_pWriter(new CLmTrimbleDataWrite(this))
{
    m_pWriter->start(QThread::InheritPriority);
    SetLink(pLink);
}

CLmTrimbleDataDownloadObject::~CLmTrimbleDataDownloadObject() = default;

void CLmTrimbleDataDownloadObject::SetLink(CLmRtkDataLink* pLink)
{
    if (m_pLink)
        disconnect(m_pLink, nullptr, this, nullptr);
    m_pLink = pLink;
    if (!m_pLink)
        return;
    connect(m_pLink, &CLmRtkDataLink::RtkFolderEntry, this, &CLmTrimbleDataDownloadObject::slotTrimbleFolderEntry);
    connect(m_pLink, &CLmRtkDataLink::RtkEntry, this, &CLmTrimbleDataDownloadObject::slotTrimbleEntry);
    connect(m_pLink, &CLmRtkDataLink::RtkData, this, &CLmTrimbleDataDownloadObject::slotTrimbleData);
}

CLmRtkDataLink* CLmTrimbleDataDownloadObject::Link() const
{
    return m_pLink;
}

void CLmTrimbleDataDownloadObject::SetTargetDir(const QString& dir)
{
    m_strTargetDir = dir.endsWith(QLatin1Char('/')) ? dir : dir + QLatin1Char('/');
}

QString CLmTrimbleDataDownloadObject::TargetDir() const
{
    return m_strTargetDir;
}

void CLmTrimbleDataDownloadObject::SetDownloadFolders(const QList<quint16>& folderIds)
{
    m_lstListQueue = folderIds;
    m_lstDownloadQueue = folderIds;
}

void CLmTrimbleDataDownloadObject::RequestFolderList()
{
    if (m_pLink)
        m_pLink->RequestFolderList();
}

void CLmTrimbleDataDownloadObject::StartDownload()
{
    if (!m_lstListQueue.isEmpty())
        RequestEntryList(m_lstListQueue.first());
}

void CLmTrimbleDataDownloadObject::Stop()
{
    const bool bBusy = IsBusy();
    m_lstListQueue.clear();
    m_lstDownloadQueue.clear();
    m_baReceived.clear();
    if (!bBusy)
        return;
    if (m_pLink)
        m_pLink->Stop();
    m_pWriter->DiscardUnfinished();
}

bool CLmTrimbleDataDownloadObject::IsBusy() const
{
    return !m_lstListQueue.isEmpty() || !m_lstDownloadQueue.isEmpty();
}

QList<STrimbleFolderInfo> CLmTrimbleDataDownloadObject::Folders() const
{
    return m_mapFolders.values();
}

void CLmTrimbleDataDownloadObject::ClearFolders()
{
    m_mapFolders.clear();
}

CLmTrimbleDataWrite* CLmTrimbleDataDownloadObject::Writer() const
{
    return m_pWriter;
}

void CLmTrimbleDataDownloadObject::RequestEntryList(quint16 folderId)
{
    if (m_pLink)
        m_pLink->RequestEntryList(kFirstEntry, kLastEntry, folderId);
}

void CLmTrimbleDataDownloadObject::RequestEntry(quint16 folderId, quint16 entryId)
{
    if (m_pLink)
        m_pLink->RequestEntryData(folderId, static_cast<quint8>(entryId), kWholeEntry, 0);
}

STrimbleFolderInfo* CLmTrimbleDataDownloadObject::FindFolder(quint16 folderId)
{
    const auto found = m_mapFolders.find(folderId);
    return found == m_mapFolders.end() ? nullptr : &found.value();
}

void CLmTrimbleDataDownloadObject::AddFolder(const STrimbleFolderInfo& folder)
{
    m_mapFolders.insert(folder.folderId, folder);
}

bool CLmTrimbleDataDownloadObject::IsListing(quint16 folderId) const
{
    return !m_lstListQueue.isEmpty() && m_lstListQueue.first() == folderId;
}

void CLmTrimbleDataDownloadObject::FinishListing()
{
    m_lstListQueue.removeFirst();
    if (!m_lstListQueue.isEmpty())
        RequestEntryList(m_lstListQueue.first());
    else if (!m_lstDownloadQueue.isEmpty())
        StartFolder(m_lstDownloadQueue.first());
}

void CLmTrimbleDataDownloadObject::StartFolder(quint16 folderId)
{
    emit RefreshDownloadText(tr("Download ") + QStringLiteral("GPS_") + QString::number(folderId));
    emit RefreshDownloadProgressBar(0);
    m_iMaxPercent = 0;
    const STrimbleFolderInfo* pFolder = FindFolder(folderId);
    if (!pFolder || pFolder->entries.isEmpty())
        return;
    m_nCurrentEntryId = pFolder->entries.first().entryId;
    RequestCurrentEntry(*pFolder);
}

// An empty entry has no bytes to ask for: it is complete at once.
void CLmTrimbleDataDownloadObject::RequestCurrentEntry(const STrimbleFolderInfo& folder)
{
    const int index = EntryIndex(folder, m_nCurrentEntryId);
    if (index >= 0 && folder.entries.at(index).size == 0)
        FinishEntry(*FindFolder(folder.folderId), index);
    else
        RequestEntry(folder.folderId, m_nCurrentEntryId);
}

void CLmTrimbleDataDownloadObject::slotTrimbleData(quint16 folderId, quint16 entryId, quint8 count, QByteArray data,
                                                   quint32 offset)
{
    if (m_lstDownloadQueue.isEmpty() || m_lstDownloadQueue.first() != folderId || entryId != m_nCurrentEntryId)
        return;
    STrimbleFolderInfo* pFolder = FindFolder(folderId);
    const int index = pFolder ? EntryIndex(*pFolder, entryId) : -1;
    if (index < 0)
        return;
    STrimbleEntryInfo& entry = pFolder->entries[index];
    const quint64 received = quint64(offset) + count;
    UpdateProgress(received, entry.size);
    entry.received = static_cast<quint32>(received);
    m_baReceived.append(data.left(count));
    if (entry.received == entry.size)
        FinishEntry(*pFolder, index);
}

void CLmTrimbleDataDownloadObject::UpdateProgress(quint64 bytesReceived, quint32 size)
{
    if (size == 0)
        return;
    const int percentage = static_cast<int>(bytesReceived * 100 / size);
    if (percentage <= m_iMaxPercent)
        return;
    m_iMaxPercent = percentage;
    emit RefreshDownloadProgressBar(percentage);
}

// Entries that share a file name (a folder's observation files) are written
// one after another into that file; it is complete with the last of them.
void CLmTrimbleDataDownloadObject::FinishEntry(STrimbleFolderInfo& folder, int entryIndex)
{
    const QList<STrimbleEntryInfo>& entries = folder.entries;
    const QString& fileName = entries.at(entryIndex).fileName;
    const bool bFirst = entryIndex == 0 || entries.at(entryIndex - 1).fileName != fileName;
    const bool bLastEntry = entryIndex + 1 == entries.size();
    const bool bLast = bLastEntry || entries.at(entryIndex + 1).fileName != fileName;
    const QString path = m_strTargetDir + fileName;
    const QByteArray bytes = m_baReceived;
    m_baReceived.clear();
    m_pWriter->SetData(path, bytes, bFirst, bLast);
    emit RecivedData(bytes, path);
    if (!bLastEntry) {
        // The progress is the current file's: it starts again with each entry.
        m_iMaxPercent = 0;
        m_nCurrentEntryId = entries.at(entryIndex + 1).entryId;
        RequestCurrentEntry(folder);
        return;
    }
    m_lstDownloadQueue.removeFirst();
    if (m_lstDownloadQueue.isEmpty())
        emit AllDownloadCompleted();
    else
        StartFolder(m_lstDownloadQueue.first());
}

int CLmTrimbleDataDownloadObject::EntryIndex(const STrimbleFolderInfo& folder, quint16 entryId) const
{
    const auto found = std::find_if(folder.entries.cbegin(), folder.entries.cend(),
                                    [entryId](const STrimbleEntryInfo& entry) { return entry.entryId == entryId; });
    return found == folder.entries.cend() ? -1 : static_cast<int>(found - folder.entries.cbegin());
}
