#include "CLmMavlinkEncoder.h"

#include "CLmMavlinkCrc.h"

#include <algorithm>
#include <cstring>

namespace {

std::size_t WriteHeader(const mavlink_message_t& message, uint8_t* frame)
{
    frame[0] = message.magic;
    frame[1] = message.len;
    if (message.IsVersion1()) {
        frame[2] = message.seq;
        frame[3] = message.sysid;
        frame[4] = message.compid;
        frame[5] = static_cast<uint8_t>(message.msgid);
        return mavlink_message_t::HEADER_LENGTH_V1;
    }
    frame[2] = message.incompat_flags;
    frame[3] = message.compat_flags;
    frame[4] = message.seq;
    frame[5] = message.sysid;
    frame[6] = message.compid;
    frame[7] = static_cast<uint8_t>(message.msgid);
    frame[8] = static_cast<uint8_t>(message.msgid >> 8);
    frame[9] = static_cast<uint8_t>(message.msgid >> 16);
    return mavlink_message_t::HEADER_LENGTH_V2;
}

std::size_t LengthWithoutTrailingZeros(const uint8_t* payload, std::size_t length)
{
    while (length > 1 && payload[length - 1] == 0)
        --length;
    return length;
}

} // namespace

CLmMavlinkEncoder::CLmMavlinkEncoder(uint8_t systemId, uint8_t componentId, EVersion version)
    : m_nSystemId(systemId)
    , m_nComponentId(componentId)
    , m_eVersion(version)
{
}

mavlink_message_t CLmMavlinkEncoder::BuildMessage(uint32_t msgid, uint8_t crcExtra, uint8_t minLength,
                                                  const uint8_t* payload, std::size_t length)
{
    mavlink_message_t message;
    const bool version1 = m_eVersion == EVersion::V1 && msgid <= 0xFF;
    message.magic = version1 ? mavlink_message_t::MAGIC_V1 : mavlink_message_t::MAGIC_V2;
    message.len = static_cast<uint8_t>(version1 ? std::min<std::size_t>(minLength, length)
                                                : LengthWithoutTrailingZeros(payload, length));
    message.seq = m_nSequence++;
    message.sysid = m_nSystemId;
    message.compid = m_nComponentId;
    message.msgid = msgid;
    std::memcpy(message.payload, payload, message.len);
    message.checksum = FrameChecksum(message, crcExtra);
    return message;
}

uint16_t CLmMavlinkEncoder::FrameChecksum(const mavlink_message_t& message, uint8_t crcExtra)
{
    uint8_t header[mavlink_message_t::HEADER_LENGTH_V2];
    const std::size_t headerLength = WriteHeader(message, header);
    uint16_t crc = CLmMavlinkCrc::Compute(header + 1, headerLength - 1);
    crc = CLmMavlinkCrc::Accumulate(crc, message.payload, message.len);
    return CLmMavlinkCrc::Accumulate(crc, crcExtra);
}

std::size_t CLmMavlinkEncoder::Serialize(const mavlink_message_t& message, uint8_t* frame)
{
    std::size_t size = WriteHeader(message, frame);
    std::memcpy(frame + size, message.payload, message.len);
    size += message.len;
    frame[size++] = static_cast<uint8_t>(message.checksum);
    frame[size++] = static_cast<uint8_t>(message.checksum >> 8);
    if (message.IsSigned()) {
        std::memcpy(frame + size, message.signature, mavlink_message_t::SIGNATURE_LENGTH);
        size += mavlink_message_t::SIGNATURE_LENGTH;
    }
    return size;
}

QByteArray CLmMavlinkEncoder::Serialize(const mavlink_message_t& message)
{
    uint8_t frame[mavlink_message_t::MAX_FRAME_LENGTH];
    const std::size_t size = Serialize(message, frame);
    return QByteArray(reinterpret_cast<const char*>(frame), static_cast<int>(size));
}
