#pragma once

#include <cstddef>
#include <cstdint>

// The X.25 checksum of MAVLink frames (CRC-16/MCRF4XX: reflected polynomial
// 0x8408, start value 0xFFFF, no final XOR).
class CLmMavlinkCrc
{
public:
    static constexpr uint16_t INITIAL = 0xFFFF;

    static uint16_t Accumulate(uint16_t crc, uint8_t byte);
    static uint16_t Accumulate(uint16_t crc, const uint8_t* data, std::size_t size);
    static uint16_t Compute(const uint8_t* data, std::size_t size) { return Accumulate(INITIAL, data, size); }
};
