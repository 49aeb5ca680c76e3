#pragma once

#include "mavlink_message_t.h"

#include <QByteArray>

#include <cstddef>
#include <cstdint>

// Builds frames for one sender (system and component id) and numbers them
// with the sender's own sequence counter.
class CLmMavlinkEncoder
{
public:
    enum class EVersion { V1, V2 };

    CLmMavlinkEncoder(uint8_t systemId, uint8_t componentId, EVersion version = EVersion::V2);

    // Message ids above 255 cannot be carried by version 1 and always go out
    // as version 2. Version 1 frames leave out extension fields; version 2
    // frames drop trailing zero bytes of the payload (keeping at least one).
    template <typename TMessage>
    mavlink_message_t Pack(const TMessage& message)
    {
        uint8_t payload[TMessage::MAX_LENGTH > 0 ? TMessage::MAX_LENGTH : 1];
        message.Pack(payload);
        return BuildMessage(TMessage::MSG_ID, TMessage::CRC_EXTRA, TMessage::MIN_LENGTH, payload,
                            TMessage::MAX_LENGTH);
    }

    template <typename TMessage>
    QByteArray Encode(const TMessage& message)
    {
        return Serialize(Pack(message));
    }

    // Frame bytes of a message, its signature included when it is signed.
    static QByteArray Serialize(const mavlink_message_t& message);
    // Writes at most mavlink_message_t::MAX_FRAME_LENGTH bytes; returns the count.
    static std::size_t Serialize(const mavlink_message_t& message, uint8_t* frame);

private:
    mavlink_message_t BuildMessage(uint32_t msgid, uint8_t crcExtra, uint8_t minLength, const uint8_t* payload,
                                   std::size_t length);
    // Checksum of the frame's header and payload with the message's CRC_EXTRA.
    static uint16_t FrameChecksum(const mavlink_message_t& message, uint8_t crcExtra);

    uint8_t m_nSystemId;
    uint8_t m_nComponentId;
    EVersion m_eVersion;
    uint8_t m_nSequence = 0;
};
