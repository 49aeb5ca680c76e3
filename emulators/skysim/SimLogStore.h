#pragma once

#include <QVector>

#include <cstdint>

// The onboard logs: ids 1..N of one size, whose bytes are a pure function of
// log id and offset, so a downloaded copy can be checked byte for byte.
class SimLogStore
{
public:
    struct SEntry {
        uint16_t id;
        uint32_t size;
        uint32_t timeUtc;
    };

    SimLogStore(int count, uint32_t size);

    const QVector<SEntry>& entries() const { return m_entries; }
    // Null when there is no log of that id.
    const SEntry* find(uint16_t id) const;
    void eraseAll() { m_entries.clear(); }

    static uint8_t contentByte(uint16_t id, uint32_t offset);
    // Copies the log's bytes [offset, offset + count) into out.
    static void fill(uint16_t id, uint32_t offset, uint32_t count, uint8_t* out);

private:
    QVector<SEntry> m_entries;
};
