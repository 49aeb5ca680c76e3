#include "CLmMavlinkCrc.h"

#include <array>

namespace {

using Table = std::array<std::array<uint16_t, 256>, 4>;

// Table 0 advances the CRC by one byte; tables 1..3 by one byte followed by
// one, two and three zero bytes, so four input bytes cost four independent
// look-ups instead of a chain of four.
constexpr Table MakeTables()
{
    Table tables{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        uint16_t crc = static_cast<uint16_t>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = static_cast<uint16_t>((crc & 1) ? (crc >> 1) ^ 0x8408 : crc >> 1);
        tables[0][byte] = crc;
    }
    for (std::size_t level = 1; level < tables.size(); ++level)
        for (unsigned byte = 0; byte < 256; ++byte) {
            const uint16_t previous = tables[level - 1][byte];
            tables[level][byte] = static_cast<uint16_t>((previous >> 8) ^ tables[0][previous & 0xFF]);
        }
    return tables;
}

constexpr Table TABLES = MakeTables();

} // namespace

uint16_t CLmMavlinkCrc::Accumulate(uint16_t crc, uint8_t byte)
{
    return static_cast<uint16_t>((crc >> 8) ^ TABLES[0][(crc ^ byte) & 0xFF]);
}

uint16_t CLmMavlinkCrc::Accumulate(uint16_t crc, const uint8_t* data, std::size_t size)
{
    std::size_t index = 0;
    for (; index + 4 <= size; index += 4) {
        const uint16_t low = static_cast<uint16_t>(crc ^ (data[index] | (data[index + 1] << 8)));
        crc = static_cast<uint16_t>(TABLES[3][low & 0xFF] ^ TABLES[2][low >> 8]
                                    ^ TABLES[1][data[index + 2]] ^ TABLES[0][data[index + 3]]);
    }
    for (; index < size; ++index)
        crc = Accumulate(crc, data[index]);
    return crc;
}
