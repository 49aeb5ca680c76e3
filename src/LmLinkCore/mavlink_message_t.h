#pragma once

#include <QMetaType>

#include <cstddef>
#include <cstdint>

#if !defined(__BYTE_ORDER__) || __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
#error "The MAVLink message layer copies little-endian wire fields directly and needs a little-endian host."
#endif

// One MAVLink frame, version 1 or 2, as received or about to be sent.
// The payload keeps the length it had on the wire; bytes past len up to the
// message's full length are zero, so a truncated version 2 payload reads the
// same as the untruncated one.
struct mavlink_message_t {
    static constexpr uint8_t MAGIC_V1 = 0xFE;
    static constexpr uint8_t MAGIC_V2 = 0xFD;
    static constexpr uint8_t INCOMPAT_FLAG_SIGNED = 0x01;
    static constexpr std::size_t HEADER_LENGTH_V1 = 6;
    static constexpr std::size_t HEADER_LENGTH_V2 = 10;
    static constexpr std::size_t CHECKSUM_LENGTH = 2;
    static constexpr std::size_t SIGNATURE_LENGTH = 13;
    static constexpr std::size_t MAX_PAYLOAD_LENGTH = 255;
    static constexpr std::size_t MAX_FRAME_LENGTH =
        HEADER_LENGTH_V2 + MAX_PAYLOAD_LENGTH + CHECKSUM_LENGTH + SIGNATURE_LENGTH;

    uint8_t magic = MAGIC_V2;
    uint8_t len = 0;
    uint8_t incompat_flags = 0;
    uint8_t compat_flags = 0;
    uint8_t seq = 0;
    uint8_t sysid = 0;
    uint8_t compid = 0;
    uint32_t msgid = 0;
    uint16_t checksum = 0;
    uint8_t payload[MAX_PAYLOAD_LENGTH] = {};
    // Link id (1 byte), timestamp (6 bytes, little-endian, 10 us units since
    // 2015-01-01) and the first 6 bytes of the SHA-256 signature.
    uint8_t signature[SIGNATURE_LENGTH] = {};

    bool IsVersion1() const { return magic == MAGIC_V1; }
    bool IsSigned() const { return magic == MAGIC_V2 && (incompat_flags & INCOMPAT_FLAG_SIGNED) != 0; }
    std::size_t HeaderLength() const { return IsVersion1() ? HEADER_LENGTH_V1 : HEADER_LENGTH_V2; }
    std::size_t FrameLength() const
    {
        return HeaderLength() + len + CHECKSUM_LENGTH + (IsSigned() ? SIGNATURE_LENGTH : 0);
    }
};

Q_DECLARE_METATYPE(mavlink_message_t)
