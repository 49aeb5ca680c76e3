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

    uint8_t systemId() const { return m_nSystemId; }
    uint8_t componentId() const { return m_nComponentId; }
    EVersion version() const { return m_eVersion; }
    void setVersion(EVersion version) { m_eVersion = version; }
    // Sequence number the next frame gets.
    uint8_t nextSequence() const { return m_nSequence; }

    // Message ids above 255 cannot be carried by version 1 and always go out
    // as version 2. Version 1 frames leave out extension fields; version 2
    // frames drop trailing zero bytes of the payload (keeping at least one).
    template <typename TMessage>
    mavlink_message_t pack(const TMessage& message)
    {
        uint8_t payload[TMessage::MAX_LENGTH > 0 ? TMessage::MAX_LENGTH : 1];
        message.pack(payload);
        return buildMessage(TMessage::MSG_ID, TMessage::CRC_EXTRA, TMessage::MIN_LENGTH, payload,
                            TMessage::MAX_LENGTH);
    }

    template <typename TMessage>
    QByteArray encode(const TMessage& message)
    {
        return serialize(pack(message));
    }

    // For messages known only by id; false when the dialect does not define
    // msgid or the payload is longer than the message.
    bool packPayload(uint32_t msgid, const uint8_t* payload, std::size_t length, mavlink_message_t& message);

    // Frame bytes of a message, its signature included when it is signed.
    static QByteArray serialize(const mavlink_message_t& message);
    // Writes at most mavlink_message_t::MAX_FRAME_LENGTH bytes; returns the count.
    static std::size_t serialize(const mavlink_message_t& message, uint8_t* frame);
    // Checksum of the frame's header and payload with the message's CRC_EXTRA.
    static uint16_t frameChecksum(const mavlink_message_t& message, uint8_t crcExtra);

private:
    mavlink_message_t buildMessage(uint32_t msgid, uint8_t crcExtra, uint8_t minLength, const uint8_t* payload,
                                   std::size_t length);

    uint8_t m_nSystemId;
    uint8_t m_nComponentId;
    EVersion m_eVersion;
    uint8_t m_nSequence = 0;
};
