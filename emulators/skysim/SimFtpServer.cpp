#include "SimFtpServer.h"

#include "CLmMavlinkEncoder.h"
#include "LmMavlinkMessages.h"
#include "SimLog.h"
#include "SimOptions.h"

#include <cstring>

using namespace LmMavlink;

namespace {

constexpr uint32_t INBOUND_SEED_OFFSET = 7919; // the inbound losses differ from the outbound ones
constexpr qint64 MAX_FILE_SIZE = 64 * 1024 * 1024;

} // namespace

SimFtpServer::SimFtpServer(const SimOptions& options, CLmMavlinkEncoder& encoder, SimTransport& transport,
                           QObject* parent)
    : QObject(parent)
    , m_encoder(encoder)
    , m_transport(transport)
    , m_inbound(options.linkRate, options.lossPercent, options.seed + INBOUND_SEED_OFFSET)
    , m_bLoseLastReply(options.ftpLoseLastReply)
{
    connect(&m_inbound, &SimInboundLink::frameArrived, this, [this](const QByteArray& frame) {
        m_parser.Feed(frame);
        mavlink_message_t message;
        while (m_parser.Next(message))
            handle(message);
    });
}

void SimFtpServer::receive(const mavlink_message_t& message)
{
    m_inbound.send(CLmMavlinkEncoder::Serialize(message));
}

void SimFtpServer::announceSize(const QString& path, uint32_t size)
{
    m_strAnnouncedPath = path;
    m_nAnnouncedSize = size;
}

void SimFtpServer::handle(const mavlink_message_t& message)
{
    CLmFtpPayload request;
    if (!CLmFtpPayload::ReadFrom(SFileTransferProtocol::Unpack(message).payload, &request)) {
        qCWarning(lcSkySim) << "file transfer request with a bad size ignored";
        return;
    }
    const CLmFtpPayload response = answer(request);
    if (m_bLoseLastReply && completesAnnouncedFile(request)) {
        m_bLoseLastReply = false;
        qCInfo(lcSkySim) << "losing the reply to the last write of" << m_strAnnouncedPath;
        return;
    }
    reply(message, response);
}

CLmFtpPayload SimFtpServer::answer(const CLmFtpPayload& request)
{
    switch (request.opcode) {
    case MAV_FTP_OPCODE_CREATEFILE: return open(request, true);
    case MAV_FTP_OPCODE_OPENFILEWO: return open(request, false);
    case MAV_FTP_OPCODE_WRITEFILE: return write(request);
    case MAV_FTP_OPCODE_TERMINATESESSION: return terminate(request);
    case MAV_FTP_OPCODE_RESETSESSION: m_strSessionPath.clear(); return ack(request);
    case MAV_FTP_OPCODE_NONE: return ack(request);
    default: return nak(request, MAV_FTP_ERR_UNKNOWNCOMMAND);
    }
}

CLmFtpPayload SimFtpServer::open(const CLmFtpPayload& request, bool bTruncate)
{
    const QString path = QString::fromUtf8(request.data);
    if (!isAllowedPath(path))
        return nak(request, MAV_FTP_ERR_FILEPROTECTED);
    if (!bTruncate && !m_mapFiles.contains(path))
        return nak(request, MAV_FTP_ERR_FILENOTFOUND);
    if (bTruncate)
        m_mapFiles[path].clear();
    m_strSessionPath = path;
    m_nSession = static_cast<uint8_t>(m_nSession + 1);
    qCInfo(lcSkySim) << (bTruncate ? "created" : "opened") << path << "in session" << m_nSession;
    CLmFtpPayload response = ack(request);
    response.session = m_nSession;
    return response;
}

CLmFtpPayload SimFtpServer::write(const CLmFtpPayload& request)
{
    if (m_strSessionPath.isEmpty() || request.session != m_nSession)
        return nak(request, MAV_FTP_ERR_INVALIDSESSION);
    const qint64 end = static_cast<qint64>(request.offset) + request.data.size();
    if (end > MAX_FILE_SIZE)
        return nak(request, MAV_FTP_ERR_FAIL);
    QByteArray& content = m_mapFiles[m_strSessionPath];
    if (content.size() < end)
        content.resize(static_cast<int>(end));
    std::memcpy(content.data() + request.offset, request.data.constData(), static_cast<std::size_t>(request.data.size()));
    CLmFtpPayload response = ack(request);
    response.offset = request.offset;
    return response;
}

CLmFtpPayload SimFtpServer::terminate(const CLmFtpPayload& request)
{
    const bool bOpen = !m_strSessionPath.isEmpty() && request.session == m_nSession;
    if (!bOpen && !(m_nClosedSession != 0 && request.session == m_nClosedSession))
        return nak(request, MAV_FTP_ERR_INVALIDSESSION);
    if (bOpen) {
        qCInfo(lcSkySim) << "closed" << m_strSessionPath << "with" << m_mapFiles.value(m_strSessionPath).size()
                         << "bytes";
        m_strSessionPath.clear();
        m_nClosedSession = m_nSession;
    }
    return ack(request);
}

bool SimFtpServer::completesAnnouncedFile(const CLmFtpPayload& request) const
{
    return request.opcode == MAV_FTP_OPCODE_WRITEFILE && m_strSessionPath == m_strAnnouncedPath
        && request.offset + static_cast<uint32_t>(request.data.size()) >= m_nAnnouncedSize;
}

// Files live flat in the firmware folder; a name never climbs out of it.
bool SimFtpServer::isAllowedPath(const QString& path)
{
    const QString name = path.mid(static_cast<int>(std::strlen(Folder)));
    return path.startsWith(QLatin1String(Folder)) && !name.isEmpty() && !name.contains(QLatin1Char('/'))
        && name != QLatin1String("..") && name != QLatin1String(".");
}

CLmFtpPayload SimFtpServer::ack(const CLmFtpPayload& request)
{
    CLmFtpPayload response;
    response.seqNumber = static_cast<uint16_t>(request.seqNumber + 1);
    response.session = request.session;
    response.opcode = MAV_FTP_OPCODE_ACK;
    response.reqOpcode = request.opcode;
    return response;
}

CLmFtpPayload SimFtpServer::nak(const CLmFtpPayload& request, uint8_t error)
{
    CLmFtpPayload response = ack(request);
    response.opcode = MAV_FTP_OPCODE_NAK;
    response.offset = request.offset;
    response.data = QByteArray(1, static_cast<char>(error));
    return response;
}

void SimFtpServer::reply(const mavlink_message_t& request, const CLmFtpPayload& payload)
{
    SFileTransferProtocol message;
    message.target_system = request.sysid;
    message.target_component = request.compid;
    payload.WriteTo(message.payload);
    m_transport.send(m_encoder.Encode(message));
}
