#include "CLmFileTransfer.h"

#include "CLmClock.h"
#include "CLmUasProvide.h"
#include "LmLinkInstanceLog.h"
#include "LmMavlinkMessages.h"

#include <algorithm>

using namespace LmMavlink;

CLmFileTransfer::CLmFileTransfer(CLmUasProvide* pUas, QObject* parent, CLmClock* pClock)
    : QObject(parent)
    , m_pUas(pUas)
    , m_pClock(pClock ? pClock : new CLmClock)
{
    m_pClock->setParent(this);
    m_pClock->SetSingleShot(true);
    connect(m_pClock, &CLmClock::timeout, this, &CLmFileTransfer::OnTimeout);
}

void CLmFileTransfer::Upload(const QString& remotePath, const QByteArray& content)
{
    if (!m_pUas) {
        qCWarning(lcLinkInstanceFirmware) << "file upload without an aircraft ignored";
        return;
    }
    Stop();
    m_strPath = remotePath;
    m_baContent = content;
    m_vecAcked = QVector<bool>(ChunkCount(), false);
    m_nAckedBytes = 0;
    m_bSessionOpened = false;
    Open(MAV_FTP_OPCODE_CREATEFILE);
}

bool CLmFileTransfer::CanResume() const
{
    return m_ePhase == EPhase::Idle && m_bSessionOpened && m_pUas;
}

void CLmFileTransfer::Resume()
{
    if (!CanResume())
        return;
    qCInfo(lcLinkInstanceFirmware) << "resuming" << m_strPath << "after" << AcknowledgedBytes() << "bytes";
    Open(MAV_FTP_OPCODE_OPENFILEWO);
}

qint64 CLmFileTransfer::AcknowledgedBytes() const
{
    const auto firstGap = std::find(m_vecAcked.cbegin(), m_vecAcked.cend(), false);
    if (firstGap == m_vecAcked.cend())
        return m_baContent.size();
    return static_cast<qint64>(firstGap - m_vecAcked.cbegin()) * CLmFtpPayload::MAX_DATA;
}

void CLmFileTransfer::Open(uint8_t opcode)
{
    m_ePhase = EPhase::Opening;
    m_iRetriesLeft = m_iRetries;
    connect(m_pUas, &CLmUasProvide::messageReceived, this, &CLmFileTransfer::OnMessage, Qt::UniqueConnection);
    SendControl(opcode, m_strPath.toUtf8());
}

void CLmFileTransfer::OnMessage(const mavlink_message_t& message)
{
    if (message.msgid != MSG_ID_FILE_TRANSFER_PROTOCOL || m_ePhase == EPhase::Idle)
        return;
    CLmFtpPayload reply;
    if (!CLmFtpPayload::ReadFrom(SFileTransferProtocol::Unpack(message).payload, &reply)) {
        qCWarning(lcLinkInstanceFirmware) << "file transfer reply with a bad size ignored";
        return;
    }
    if (reply.opcode != MAV_FTP_OPCODE_ACK && reply.opcode != MAV_FTP_OPCODE_NAK)
        return;
    if (m_ePhase == EPhase::Writing && reply.reqOpcode == MAV_FTP_OPCODE_WRITEFILE)
        OnWriteReply(reply);
    else if (IsAwaitedControlReply(reply))
        OnControlReply(reply);
}

// Replies carry the request's sequence number plus one; a late reply to an
// earlier request of another kind is not the one awaited.
bool CLmFileTransfer::IsAwaitedControlReply(const CLmFtpPayload& reply) const
{
    return m_ePhase != EPhase::Writing && reply.reqOpcode == m_controlRequest.opcode
        && reply.seqNumber == static_cast<uint16_t>(m_controlRequest.seqNumber + 1);
}

void CLmFileTransfer::OnControlReply(const CLmFtpPayload& reply)
{
    if (reply.opcode == MAV_FTP_OPCODE_NAK) {
        Fail(reply.NakError());
        return;
    }
    if (m_ePhase == EPhase::Opening) {
        m_nSession = reply.session;
        m_bSessionOpened = true;
        StartWriting();
        return;
    }
    const QString path = m_strPath;
    Stop();
    m_baContent.clear();
    m_bSessionOpened = false;
    qCInfo(lcLinkInstanceFirmware) << "upload of" << path << "finished";
    emit Finished();
}

void CLmFileTransfer::OnWriteReply(const CLmFtpPayload& reply)
{
    if (reply.session != m_nSession || reply.offset % CLmFtpPayload::MAX_DATA != 0)
        return;
    const int index = static_cast<int>(reply.offset / CLmFtpPayload::MAX_DATA);
    if (!m_lstInFlight.contains(index))
        return; // a second reply to a write sent twice
    if (reply.opcode == MAV_FTP_OPCODE_NAK) {
        Fail(reply.NakError());
        return;
    }
    ResendChunksBefore(index);
    m_lstInFlight.removeOne(index);
    if (!m_vecAcked.at(index)) {
        m_vecAcked[index] = true;
        m_nAckedBytes += ChunkData(index).size();
        m_bProgress = true;
        m_iRetriesLeft = m_iRetries;
        emit Progress(m_nAckedBytes, m_baContent.size());
    }
    m_pClock->Start(m_iTimeoutMs);
    FillWindow();
}

void CLmFileTransfer::OnTimeout()
{
    if (m_ePhase == EPhase::Idle || !UseRetry())
        return;
    if (m_ePhase != EPhase::Writing) {
        Send(m_controlRequest); // same sequence number: the aircraft may answer it again
        return;
    }
    qCDebug(lcLinkInstanceFirmware) << "no reply, writing" << m_lstInFlight.size() << "chunks again";
    const QList<int> inFlight = m_lstInFlight;
    m_lstInFlight.clear();
    for (int index : inFlight)
        SendChunk(index);
}

// A quiet time after progress is free; otherwise it costs a retry, and the
// transfer fails once none is left.
bool CLmFileTransfer::UseRetry()
{
    if (!m_bProgress && --m_iRetriesLeft < 0) {
        qCWarning(lcLinkInstanceFirmware) << "aircraft stopped answering during the upload of" << m_strPath;
        Fail(ErrorTimedOut);
        return false;
    }
    m_bProgress = false;
    return true;
}

void CLmFileTransfer::StartWriting()
{
    m_ePhase = EPhase::Writing;
    m_iRetriesLeft = m_iRetries;
    m_lstInFlight.clear();
    m_iNextUnsent = 0;
    FillWindow();
}

void CLmFileTransfer::FillWindow()
{
    while (m_lstInFlight.size() < m_iWindow) {
        while (m_iNextUnsent < ChunkCount() && m_vecAcked.at(m_iNextUnsent))
            ++m_iNextUnsent;
        if (m_iNextUnsent >= ChunkCount())
            break;
        SendChunk(m_iNextUnsent++);
    }
    if (m_lstInFlight.isEmpty() && m_iNextUnsent >= ChunkCount())
        Close();
}

void CLmFileTransfer::SendChunk(int index)
{
    CLmFtpPayload write;
    write.seqNumber = m_nSeq++;
    write.session = m_nSession;
    write.opcode = MAV_FTP_OPCODE_WRITEFILE;
    write.offset = static_cast<uint32_t>(index) * CLmFtpPayload::MAX_DATA;
    write.data = ChunkData(index);
    m_lstInFlight.append(index);
    Send(write);
}

// The link keeps order: writes sent before the one just answered and still
// unanswered were lost on the way, or their replies were.
void CLmFileTransfer::ResendChunksBefore(int index)
{
    const int position = m_lstInFlight.indexOf(index);
    const QList<int> lost = m_lstInFlight.mid(0, position);
    m_lstInFlight.erase(m_lstInFlight.begin(), m_lstInFlight.begin() + position);
    for (int lostIndex : lost)
        SendChunk(lostIndex);
}

void CLmFileTransfer::Close()
{
    m_ePhase = EPhase::Closing;
    m_iRetriesLeft = m_iRetries;
    SendControl(MAV_FTP_OPCODE_TERMINATESESSION, {});
}

void CLmFileTransfer::SendControl(uint8_t opcode, const QByteArray& data)
{
    m_controlRequest = CLmFtpPayload();
    m_controlRequest.seqNumber = m_nSeq++;
    m_controlRequest.session = m_nSession;
    m_controlRequest.opcode = opcode;
    m_controlRequest.data = data;
    Send(m_controlRequest);
}

void CLmFileTransfer::Send(const CLmFtpPayload& request)
{
    m_pUas->SendFileTransfer(request);
    m_pClock->Start(m_iTimeoutMs);
}

void CLmFileTransfer::Fail(int error)
{
    const qint64 acknowledged = AcknowledgedBytes();
    Stop();
    qCWarning(lcLinkInstanceFirmware) << "upload of" << m_strPath << "failed with" << error << "after" << acknowledged
                                 << "bytes";
    emit Failed(error, acknowledged);
}

void CLmFileTransfer::Stop()
{
    m_ePhase = EPhase::Idle;
    m_pClock->Stop();
    m_lstInFlight.clear();
    if (m_pUas)
        disconnect(m_pUas, &CLmUasProvide::messageReceived, this, &CLmFileTransfer::OnMessage);
}

int CLmFileTransfer::ChunkCount() const
{
    return static_cast<int>((m_baContent.size() + CLmFtpPayload::MAX_DATA - 1) / CLmFtpPayload::MAX_DATA);
}

QByteArray CLmFileTransfer::ChunkData(int index) const
{
    return m_baContent.mid(index * CLmFtpPayload::MAX_DATA, CLmFtpPayload::MAX_DATA);
}
