#include "SimLogStore.h"

namespace {

// Logs are dated one flight a day back from 2024-05-01 10:22:07 UTC.
constexpr uint32_t NEWEST_LOG_TIME_UTC = 1714558927;
constexpr uint32_t SECONDS_PER_DAY = 86400;

} // namespace

SimLogStore::SimLogStore(int count, uint32_t size)
{
    for (int id = 1; id <= count; ++id) {
        const auto daysBack = static_cast<uint32_t>(count - id);
        m_entries.append({static_cast<uint16_t>(id), size, NEWEST_LOG_TIME_UTC - daysBack * SECONDS_PER_DAY});
    }
}

const SimLogStore::SEntry* SimLogStore::find(uint16_t id) const
{
    for (const SEntry& entry : m_entries) {
        if (entry.id == id)
            return &entry;
    }
    return nullptr;
}

// A hash of (id, offset): no two nearby blocks look alike, so a block written
// at the wrong offset or a lost one is caught by a byte comparison.
uint8_t SimLogStore::contentByte(uint16_t id, uint32_t offset)
{
    uint32_t x = offset * 2654435761u ^ (uint32_t(id) * 0x9E3779B9u);
    x ^= x >> 16;
    x *= 0x85EBCA6Bu;
    x ^= x >> 13;
    return static_cast<uint8_t>(x);
}

void SimLogStore::fill(uint16_t id, uint32_t offset, uint32_t count, uint8_t* out)
{
    for (uint32_t i = 0; i < count; ++i)
        out[i] = contentByte(id, offset + i);
}
