#include "CLmMavlinkParser.h"

#include "CLmMavlinkCrc.h"
#include "LmMavlinkMessageInfo.h"

#include <cstring>

namespace {

bool IsFrameStart(uint8_t byte)
{
    return byte == mavlink_message_t::MAGIC_V2 || byte == mavlink_message_t::MAGIC_V1;
}

} // namespace

void CLmMavlinkParser::Feed(const uint8_t* data, std::size_t size)
{
    m_buffer.erase(m_buffer.begin(), m_buffer.begin() + static_cast<std::ptrdiff_t>(m_nReadPos));
    m_nReadPos = 0;
    m_buffer.insert(m_buffer.end(), data, data + size);
    m_bInputFinished = false;
}

void CLmMavlinkParser::Feed(const QByteArray& bytes)
{
    Feed(reinterpret_cast<const uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size()));
}

QVector<mavlink_message_t> CLmMavlinkParser::Parse(const QByteArray& bytes)
{
    Feed(bytes);
    QVector<mavlink_message_t> messages;
    mavlink_message_t message;
    while (Next(message))
        messages.append(message);
    return messages;
}

void CLmMavlinkParser::Reset()
{
    m_buffer.clear();
    m_nReadPos = 0;
    m_bInputFinished = false;
    m_stats = SStats();
}

bool CLmMavlinkParser::Next(mavlink_message_t& message)
{
    for (;;) {
        SkipToFrameStart();
        const std::size_t available = BufferedBytes();
        if (available == 0)
            return false;
        const uint8_t* frame = m_buffer.data() + m_nReadPos;
        SHeader header;
        switch (Examine(frame, available, header, message)) {
        case ECandidate::Frame:
            m_nReadPos += header.frameLength;
            ++m_stats.messages;
            return true;
        case ECandidate::Incomplete:
            if (!m_bInputFinished)
                return false;
            DropByte();
            break;
        case ECandidate::BadChecksum:
            ++m_stats.crcErrors;
            DropByte();
            break;
        case ECandidate::Unsupported:
            ++m_stats.unsupportedFrames;
            DropByte();
            break;
        case ECandidate::UnknownId:
            if (available <= header.frameLength && !m_bInputFinished)
                return false; // the byte after the frame decides
            if (available == header.frameLength || IsFrameStart(frame[header.frameLength])) {
                ++m_stats.unknownMessages;
                m_nReadPos += header.frameLength;
            } else {
                DropByte();
            }
            break;
        }
    }
}

void CLmMavlinkParser::SkipToFrameStart()
{
    const std::size_t size = m_buffer.size();
    std::size_t position = m_nReadPos;
    while (position < size && !IsFrameStart(m_buffer[position]))
        ++position;
    m_stats.droppedBytes += position - m_nReadPos;
    m_nReadPos = position;
}

void CLmMavlinkParser::DropByte()
{
    ++m_nReadPos;
    ++m_stats.droppedBytes;
}

CLmMavlinkParser::ECandidate CLmMavlinkParser::ReadHeader(const uint8_t* frame, std::size_t available,
                                                          SHeader& header)
{
    const bool version1 = frame[0] == mavlink_message_t::MAGIC_V1;
    if (!version1 && available > 2 && (frame[2] & ~mavlink_message_t::INCOMPAT_FLAG_SIGNED) != 0)
        return ECandidate::Unsupported;
    header.headerLength = version1 ? mavlink_message_t::HEADER_LENGTH_V1 : mavlink_message_t::HEADER_LENGTH_V2;
    if (available < header.headerLength)
        return ECandidate::Incomplete;
    std::size_t trailer = mavlink_message_t::CHECKSUM_LENGTH;
    if (version1) {
        header.msgid = frame[5];
    } else {
        if (frame[2] & mavlink_message_t::INCOMPAT_FLAG_SIGNED)
            trailer += mavlink_message_t::SIGNATURE_LENGTH;
        header.msgid = frame[7] | (frame[8] << 8) | (static_cast<uint32_t>(frame[9]) << 16);
    }
    header.frameLength = header.headerLength + frame[1] + trailer;
    return available < header.frameLength ? ECandidate::Incomplete : ECandidate::Frame;
}

CLmMavlinkParser::ECandidate CLmMavlinkParser::Examine(const uint8_t* frame, std::size_t available,
                                                       SHeader& header, mavlink_message_t& message)
{
    const ECandidate framing = ReadHeader(frame, available, header);
    if (framing != ECandidate::Frame)
        return framing;
    const LmMavlink::SMessageInfo* info = LmMavlink::FindMessageInfo(header.msgid);
    if (!info)
        return ECandidate::UnknownId;
    const std::size_t checkedLength = header.headerLength + frame[1];
    uint16_t crc = CLmMavlinkCrc::Compute(frame + 1, checkedLength - 1);
    crc = CLmMavlinkCrc::Accumulate(crc, info->crcExtra);
    const uint16_t received = static_cast<uint16_t>(frame[checkedLength] | (frame[checkedLength + 1] << 8));
    if (crc != received)
        return ECandidate::BadChecksum;
    FillMessage(frame, header, *info, message);
    return ECandidate::Frame;
}

void CLmMavlinkParser::FillMessage(const uint8_t* frame, const SHeader& header,
                                   const LmMavlink::SMessageInfo& info, mavlink_message_t& message)
{
    message.magic = frame[0];
    message.len = frame[1];
    if (message.IsVersion1()) {
        message.incompat_flags = 0;
        message.compat_flags = 0;
        message.seq = frame[2];
        message.sysid = frame[3];
        message.compid = frame[4];
    } else {
        message.incompat_flags = frame[2];
        message.compat_flags = frame[3];
        message.seq = frame[4];
        message.sysid = frame[5];
        message.compid = frame[6];
    }
    message.msgid = header.msgid;
    const uint8_t* payload = frame + header.headerLength;
    std::memcpy(message.payload, payload, message.len);
    if (message.len < info.maxLength)
        std::memset(message.payload + message.len, 0, info.maxLength - message.len);
    message.checksum = static_cast<uint16_t>(payload[message.len] | (payload[message.len + 1] << 8));
    if (message.IsSigned())
        std::memcpy(message.signature, payload + message.len + mavlink_message_t::CHECKSUM_LENGTH,
                    mavlink_message_t::SIGNATURE_LENGTH);
    else
        std::memset(message.signature, 0, mavlink_message_t::SIGNATURE_LENGTH);
}
