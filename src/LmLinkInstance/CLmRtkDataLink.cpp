#include "CLmRtkDataLink.h"

#include "CLmClock.h"
#include "CLmUasProvide.h"
#include "LmLinkInstanceLog.h"
#include "LmMavlinkMessages.h"

#include <algorithm>
#include <cstring>

using namespace LmMavlink;

namespace {

constexpr quint16 kFirstId = 0;
constexpr quint16 kLastId = 0xFFFF;

quint32 EntryKey(quint16 folderId, quint16 entryId)
{
    return (quint32(folderId) << 16) | entryId;
}

QString FieldText(const char* field, std::size_t size)
{
    return QString::fromLatin1(field, static_cast<int>(strnlen(field, size)));
}

}  // namespace

CLmRtkDataLink::CLmRtkDataLink(CLmUasProvide* pUas, QObject* parent, CLmClock* pClock)
    : QObject(parent)
    , m_pUas(pUas)
    , m_pClock(pClock ? pClock : new CLmClock)
{
    m_pClock->setParent(this);
    m_pClock->SetSingleShot(true);
    connect(m_pClock, &CLmClock::timeout, this, &CLmRtkDataLink::OnQuiet);
}

CLmUasProvide* CLmRtkDataLink::Uas() const
{
    return m_pUas;
}

void CLmRtkDataLink::RequestFolderList()
{
    Begin(ERequest::FolderList);
}

void CLmRtkDataLink::RequestEntryList(quint16 start, quint16 end, quint16 folderId)
{
    Q_UNUSED(start)
    Q_UNUSED(end)
    // The whole list is always asked for: the last entry tells when it is complete.
    m_nFolderId = folderId;
    Begin(ERequest::EntryList);
}

void CLmRtkDataLink::RequestEntryData(quint16 folderId, quint8 entryId, quint32 count, quint32 offset)
{
    m_nFolderId = folderId;
    m_nEntryId = entryId;
    const quint32 size = m_mapEntrySizes.value(EntryKey(folderId, entryId), WholeEntry);
    m_nEnd = count == WholeEntry ? size : static_cast<quint32>(std::min<quint64>(quint64(offset) + count, size));
    m_nNext = offset;
    m_nAskedEnd = m_nEnd;
    m_mapAhead.clear();
    Begin(ERequest::EntryData);
}

void CLmRtkDataLink::Stop()
{
    if (m_eRequest == ERequest::EntryData && m_pUas)
        m_pUas->RequestRawEnd();
    Finish();
}

void CLmRtkDataLink::Begin(ERequest request)
{
    m_eRequest = request;
    m_iRetriesLeft = m_iRetries;
    m_bProgress = false;
    m_bLastEntryHeld = false;
    m_setPassedOn.clear();
    if (m_pUas)
        connect(m_pUas, &CLmUasProvide::messageReceived, this, &CLmRtkDataLink::OnMessage, Qt::UniqueConnection);
    SendRunningRequest();
}

void CLmRtkDataLink::Finish()
{
    m_eRequest = ERequest::None;
    m_pClock->Stop();
    m_mapAhead.clear();
    if (m_pUas)
        disconnect(m_pUas, &CLmUasProvide::messageReceived, this, &CLmRtkDataLink::OnMessage);
}

void CLmRtkDataLink::SendRunningRequest()
{
    if (!m_pUas) {
        Finish();
        emit RtkRequestFailed();
        return;
    }
    switch (m_eRequest) {
    case ERequest::FolderList: m_pUas->RequestRawFolderList(kFirstId, kLastId); break;
    case ERequest::EntryList: m_pUas->RequestRawEntryList(m_nFolderId, kFirstId, kLastId); break;
    case ERequest::EntryData:
        m_nAskedEnd = m_nEnd;
        m_pUas->RequestRawEntryData(m_nFolderId, m_nEntryId, m_nNext,
                                    m_nEnd == WholeEntry ? WholeEntry : m_nEnd - m_nNext);
        break;
    case ERequest::None: return;
    }
    m_pClock->Start(m_iQuietMs);
}

void CLmRtkDataLink::NoteProgress()
{
    m_bProgress = true;
    m_pClock->Start(m_iQuietMs);
}

void CLmRtkDataLink::OnQuiet()
{
    if (m_eRequest == ERequest::None)
        return;
    if (!m_bProgress && --m_iRetriesLeft < 0) {
        qCWarning(lcLinkInstanceRaw) << "the receiver stopped answering, request given up";
        Finish();
        emit RtkRequestFailed();
        return;
    }
    m_bProgress = false;
    if (m_eRequest == ERequest::EntryData)
        RequestFirstHole();
    else
        SendRunningRequest();
}

void CLmRtkDataLink::OnMessage(const mavlink_message_t& message)
{
    switch (message.msgid) {
    case MSG_ID_SKY_RAW_FOLDER_ENTRY: OnFolderEntry(message); break;
    case MSG_ID_SKY_RAW_ENTRY: OnEntry(message); break;
    case MSG_ID_SKY_RAW_ENTRY_DATA: OnEntryData(message); break;
    default: break;
    }
}

void CLmRtkDataLink::OnFolderEntry(const mavlink_message_t& message)
{
    if (m_eRequest != ERequest::FolderList)
        return;
    const SSkyRawFolderEntry folder = SSkyRawFolderEntry::Unpack(message);
    if (m_setPassedOn.contains(folder.folder_id) && folder.folder_count > 0)
        return;
    m_setPassedOn.insert(folder.folder_id);
    NoteProgress();
    const bool bComplete = m_setPassedOn.size() >= folder.folder_count;
    if (bComplete)
        Finish();
    emit RtkFolderEntry(folder.folder_id, folder.folder_size, folder.last_folder_num, folder.folder_count,
                        folder.time_utc, FieldText(folder.text, sizeof folder.text));
    if (bComplete)
        emit RtkFolderListFinished(folder.folder_count);
}

void CLmRtkDataLink::OnEntry(const mavlink_message_t& message)
{
    const SSkyRawEntry entry = SSkyRawEntry::Unpack(message);
    if (m_eRequest != ERequest::EntryList || entry.folder_id != m_nFolderId || entry.entry_count == 0
        || m_setPassedOn.contains(entry.entry_id))
        return;
    NoteProgress();
    m_mapEntrySizes.insert(EntryKey(entry.folder_id, entry.entry_id), entry.size);
    const bool bLast = entry.entry_id == entry.last_entry_num;
    if (bLast) {
        m_bLastEntryHeld = true;
        m_nHeldLastEntry = entry.entry_id;
        m_nHeldLastTime = entry.time_utc;
    } else {
        m_setPassedOn.insert(entry.entry_id);
        emit RtkEntry(entry.folder_id, entry.entry_id, entry.last_entry_num, entry.entry_count, entry.size,
                      entry.time_utc);
    }
    // The last entry closes the list for the downloader: it goes out once
    // every other entry went out.
    if (!m_bLastEntryHeld || m_setPassedOn.size() + 1 < entry.entry_count || m_eRequest != ERequest::EntryList)
        return;
    const quint16 folderId = entry.folder_id;
    const quint16 lastId = m_nHeldLastEntry;
    Finish();
    emit RtkEntry(folderId, lastId, lastId, entry.entry_count, m_mapEntrySizes.value(EntryKey(folderId, lastId)),
                  m_nHeldLastTime);
}

void CLmRtkDataLink::OnEntryData(const mavlink_message_t& message)
{
    const SSkyRawEntryData data = SSkyRawEntryData::Unpack(message);
    if (m_eRequest != ERequest::EntryData || data.folder_id != m_nFolderId || data.entry_id != m_nEntryId)
        return;
    const int count = std::min<int>(data.count, sizeof data.data);
    const quint32 chunkEnd = data.ofs + static_cast<quint32>(count);
    if (count == 0 && m_nEnd == WholeEntry) {
        // The receiver is past the end of an entry whose size was never listed.
        m_nEnd = data.ofs;
    } else if (data.ofs >= m_nNext && !m_mapAhead.contains(data.ofs) && count > 0) {
        m_mapAhead.insert(data.ofs, QByteArray(reinterpret_cast<const char*>(data.data), count));
        NoteProgress();
    }
    const QMap<quint32, QByteArray> ready = TakeContiguousChunks();
    const bool bComplete = m_nNext >= m_nEnd;
    if (bComplete)
        Finish();
    else if (chunkEnd == m_nAskedEnd)
        RequestFirstHole();
    const quint16 folderId = m_nFolderId;
    const quint16 entryId = m_nEntryId;
    for (auto chunk = ready.cbegin(); chunk != ready.cend(); ++chunk)
        emit RtkData(folderId, entryId, static_cast<quint8>(chunk.value().size()), chunk.value(), chunk.key());
}

QMap<quint32, QByteArray> CLmRtkDataLink::TakeContiguousChunks()
{
    QMap<quint32, QByteArray> ready;
    while (!m_mapAhead.isEmpty() && m_mapAhead.firstKey() <= m_nNext) {
        const quint32 offset = m_mapAhead.firstKey();
        const QByteArray bytes = m_mapAhead.take(offset);
        if (offset == m_nNext) {
            ready.insert(offset, bytes);
            m_nNext += static_cast<quint32>(bytes.size());
        }
    }
    return ready;
}

// Asks for the bytes from the first one missing up to the next chunk held
// (or the end), so the receiver resends only what was lost.
void CLmRtkDataLink::RequestFirstHole()
{
    if (!m_pUas)
        return;
    const quint32 holeEnd = m_mapAhead.isEmpty() ? m_nEnd : m_mapAhead.firstKey();
    m_nAskedEnd = holeEnd;
    qCDebug(lcLinkInstanceRaw) << "asking again for bytes" << m_nNext << "to" << holeEnd << "of entry" << m_nEntryId;
    m_pUas->RequestRawEntryData(m_nFolderId, m_nEntryId, m_nNext,
                                holeEnd == WholeEntry ? WholeEntry : holeEnd - m_nNext);
    m_pClock->Start(m_iQuietMs);
}
