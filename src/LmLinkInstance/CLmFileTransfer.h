#pragma once

#include "CLmFtpPayload.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVector>

#include <cstdint>

class CLmClock;
class CLmUasProvide;
struct mavlink_message_t;

// Writes one file to the aircraft over FILE_TRANSFER_PROTOCOL: CreateFile
// opens a session, WriteFile requests carry the content in 239-byte chunks
// addressed by offset, TerminateSession closes it. Up to Window() writes are
// in flight at once so a slow radio stays busy; the link keeps order, so a
// reply to a later write means every earlier unanswered write (or its
// reply) was lost, and those go out again at once. A quiet time without any
// reply sends the writes in flight again and uses up one retry; a reply that
// acknowledges new data gives the retries back. With the retries used up, or
// on a NAK, the transfer fails; after a failure Resume() reopens the file
// without truncating it (OpenFileWO) and writes only what was not
// acknowledged. Lives on the aircraft handle's thread.
class CLmFileTransfer : public QObject
{
    Q_OBJECT
public:
    static constexpr int DefaultTimeoutMs = 1000;
    static constexpr int DefaultRetries = 5;
    static constexpr int DefaultWindow = 8;
    // Error of Failed() when the aircraft stopped answering; other values are
    // the MAV_FTP_ERR code of the NAK.
    static constexpr int ErrorTimedOut = -1;

    // Takes the clock; a real timer when null.
    CLmFileTransfer(CLmUasProvide* pUas, QObject* parent = nullptr, CLmClock* pClock = nullptr);

    void SetTimeoutMs(int ms) { m_iTimeoutMs = ms; }
    void SetRetries(int retries) { m_iRetries = retries; }
    void SetWindow(int chunks) { m_iWindow = qMax(1, chunks); }

    // Creates (or truncates) remotePath on the aircraft and writes content.
    void Upload(const QString& remotePath, const QByteArray& content);
    // After Failed(): continues the same upload where the aircraft stopped acknowledging.
    bool CanResume() const;
    void Resume();
    bool IsRunning() const { return m_ePhase != EPhase::Idle; }
    // Bytes from the start of the file the aircraft acknowledged without a gap.
    qint64 AcknowledgedBytes() const;

signals:
    void Progress(qint64 acknowledgedBytes, qint64 totalBytes);
    void Finished();
    void Failed(int error, qint64 acknowledgedBytes);

private:
    enum class EPhase { Idle, Opening, Writing, Closing };

    void Open(uint8_t opcode);
    void OnMessage(const mavlink_message_t& message);
    bool IsAwaitedControlReply(const CLmFtpPayload& reply) const;
    void OnControlReply(const CLmFtpPayload& reply);
    void OnWriteReply(const CLmFtpPayload& reply);
    void OnTimeout();
    bool UseRetry();
    void StartWriting();
    void FillWindow();
    void SendChunk(int index);
    void ResendChunksBefore(int index);
    void Close();
    void SendControl(uint8_t opcode, const QByteArray& data);
    void Send(const CLmFtpPayload& request);
    void Fail(int error);
    void Stop();
    int ChunkCount() const;
    QByteArray ChunkData(int index) const;

    QPointer<CLmUasProvide> m_pUas;
    CLmClock* m_pClock;
    int m_iTimeoutMs = DefaultTimeoutMs;
    int m_iRetries = DefaultRetries;
    int m_iWindow = DefaultWindow;

    EPhase m_ePhase = EPhase::Idle;
    QString m_strPath;
    QByteArray m_baContent;
    QVector<bool> m_vecAcked;  // by chunk index
    QList<int> m_lstInFlight;  // chunk indices in the order they were last sent
    int m_iNextUnsent = 0;
    qint64 m_nAckedBytes = 0;
    int m_iRetriesLeft = 0;
    bool m_bProgress = false;
    bool m_bSessionOpened = false; // a failure after this point can resume
    uint16_t m_nSeq = 0;
    uint8_t m_nSession = 0;
    CLmFtpPayload m_controlRequest; // the open or close request awaiting its reply
};
