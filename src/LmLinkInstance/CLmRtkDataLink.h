#pragma once

#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>

#include "mavlink_message_t.h"

class CLmClock;
class CLmUasProvide;

// The raw-data store of the GNSS receiver on the aircraft, reached through
// the aircraft's link (SKY_RAW_* messages of our dialect). One request runs
// at a time; a new one replaces it.
//
// What the receiver sends is passed on clean: every folder and entry once,
// the folder's last entry only after all its others, and an entry's bytes
// strictly in offset order. Packets the radio lost are asked for again: when
// the stream reaches the end of what was asked for with a hole behind it,
// the first hole is requested at once; when nothing arrives for the quiet
// time the request (or the first hole) is sent again. A quiet time that
// brought nothing new uses up one retry; with all retries used up
// RtkRequestFailed ends the request. The aircraft's frames are listened to
// only while a request runs.
class CLmRtkDataLink : public QObject
{
    Q_OBJECT
public:
    static constexpr int DefaultQuietMs = 700;
    static constexpr int DefaultRetries = 5;
    static constexpr quint32 WholeEntry = 0xFFFFFFFF;

    // Takes the clock; a real timer when null.
    explicit CLmRtkDataLink(CLmUasProvide* pUas, QObject* parent = nullptr, CLmClock* pClock = nullptr);

    CLmUasProvide* Uas() const;
    void SetQuietMs(int ms) { m_iQuietMs = ms; }
    void SetRetries(int retries) { m_iRetries = retries; }

    // Every folder (RtkFolderEntry), then RtkFolderListFinished.
    void RequestFolderList();
    // The entries of folder folderId with ids start..end (RtkEntry).
    void RequestEntryList(quint16 start, quint16 end, quint16 folderId);
    // count bytes of the entry from offset on (WholeEntry: to its end), as RtkData.
    void RequestEntryData(quint16 folderId, quint8 entryId, quint32 count, quint32 offset);
    // Drops the running request and tells the receiver to stop sending.
    void Stop();

Q_SIGNALS:
    void RtkFolderEntry(quint16 folderId, quint32 folderSize, quint16 lastFolderNum, quint16 folderCount,
                        quint32 timeUtc, QString text);
    void RtkEntry(quint16 folderId, quint16 entryId, quint16 lastEntryNum, quint16 entryCount, quint32 size,
                  quint32 timeUtc);
    void RtkData(quint16 folderId, quint16 entryId, quint8 count, QByteArray data, quint32 offset);
    // The folder list is complete: folderCount folders were reported.
    void RtkFolderListFinished(int folderCount);
    // The receiver stopped answering the running request.
    void RtkRequestFailed();

private:
    enum class ERequest { None, FolderList, EntryList, EntryData };

    void OnMessage(const mavlink_message_t& message);
    void OnFolderEntry(const mavlink_message_t& message);
    void OnEntry(const mavlink_message_t& message);
    void OnEntryData(const mavlink_message_t& message);
    void Begin(ERequest request);
    void Finish();
    void NoteProgress();
    void OnQuiet();
    void SendRunningRequest();
    void RequestFirstHole();
    // Chunks that now follow on from the bytes passed on, in order.
    QMap<quint32, QByteArray> TakeContiguousChunks();

    QPointer<CLmUasProvide> m_pUas;
    CLmClock* m_pClock;
    int m_iQuietMs = DefaultQuietMs;
    int m_iRetries = DefaultRetries;

    ERequest m_eRequest = ERequest::None;
    int m_iRetriesLeft = 0;
    bool m_bProgress = false;
    quint16 m_nFolderId = 0;
    QSet<quint16> m_setPassedOn;       // folder or entry ids already reported
    QMap<quint32, quint32> m_mapEntrySizes; // by EntryKey(folder, entry), as listed
    bool m_bLastEntryHeld = false;     // the folder's last entry waits for the others
    quint16 m_nHeldLastEntry = 0;
    quint32 m_nHeldLastTime = 0;

    // The running entry download.
    quint16 m_nEntryId = 0;
    quint32 m_nEnd = 0;          // one past the last byte wanted
    quint32 m_nNext = 0;         // the bytes before this one were passed on
    quint32 m_nAskedEnd = 0;     // end of the range last asked for
    QMap<quint32, QByteArray> m_mapAhead; // chunks past a hole, by offset
};
