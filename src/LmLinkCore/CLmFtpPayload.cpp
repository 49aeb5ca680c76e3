#include "CLmFtpPayload.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t SEQ_AT = 0;
constexpr std::size_t SESSION_AT = 2;
constexpr std::size_t OPCODE_AT = 3;
constexpr std::size_t SIZE_AT = 4;
constexpr std::size_t REQ_OPCODE_AT = 5;
constexpr std::size_t BURST_COMPLETE_AT = 6;
constexpr std::size_t OFFSET_AT = 8;

} // namespace

void CLmFtpPayload::WriteTo(uint8_t (&wire)[WIRE_LENGTH]) const
{
    std::memset(wire, 0, WIRE_LENGTH);
    const int size = std::min(data.size(), MAX_DATA);
    std::memcpy(wire + SEQ_AT, &seqNumber, sizeof seqNumber);
    wire[SESSION_AT] = session;
    wire[OPCODE_AT] = opcode;
    wire[SIZE_AT] = static_cast<uint8_t>(size);
    wire[REQ_OPCODE_AT] = reqOpcode;
    wire[BURST_COMPLETE_AT] = burstComplete;
    std::memcpy(wire + OFFSET_AT, &offset, sizeof offset);
    std::memcpy(wire + HEADER_LENGTH, data.constData(), static_cast<std::size_t>(size));
}

bool CLmFtpPayload::ReadFrom(const uint8_t (&wire)[WIRE_LENGTH], CLmFtpPayload* pPayload)
{
    const int size = wire[SIZE_AT];
    if (size > MAX_DATA)
        return false;
    std::memcpy(&pPayload->seqNumber, wire + SEQ_AT, sizeof pPayload->seqNumber);
    pPayload->session = wire[SESSION_AT];
    pPayload->opcode = wire[OPCODE_AT];
    pPayload->reqOpcode = wire[REQ_OPCODE_AT];
    pPayload->burstComplete = wire[BURST_COMPLETE_AT];
    std::memcpy(&pPayload->offset, wire + OFFSET_AT, sizeof pPayload->offset);
    pPayload->data = QByteArray(reinterpret_cast<const char*>(wire + HEADER_LENGTH), size);
    return true;
}

uint8_t CLmFtpPayload::NakError() const
{
    return data.isEmpty() ? 0 : static_cast<uint8_t>(data.at(0));
}
