#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>

// The request or reply carried in the payload of FILE_TRANSFER_PROTOCOL:
// a 12-byte header (seq_number, session, opcode, size, req_opcode,
// burst_complete, a padding byte, offset) followed by up to 239 data bytes.
// Opcodes and NAK error codes are MAV_FTP_OPCODE and MAV_FTP_ERR.
class CLmFtpPayload
{
public:
    static constexpr std::size_t WIRE_LENGTH = 251;
    static constexpr std::size_t HEADER_LENGTH = 12;
    static constexpr int MAX_DATA = static_cast<int>(WIRE_LENGTH - HEADER_LENGTH);

    uint16_t seqNumber = 0;
    uint8_t session = 0;
    uint8_t opcode = 0;
    uint8_t reqOpcode = 0;
    uint8_t burstComplete = 0;
    uint32_t offset = 0;
    QByteArray data; // at most MAX_DATA bytes; size goes on the wire from it

    // Fills the message's payload field; data beyond MAX_DATA is cut off.
    void WriteTo(uint8_t (&wire)[WIRE_LENGTH]) const;
    // False when the size byte claims more data than the payload can hold.
    static bool ReadFrom(const uint8_t (&wire)[WIRE_LENGTH], CLmFtpPayload* pPayload);

    // The NAK error code (first data byte) of a NAK reply.
    uint8_t NakError() const;
};
