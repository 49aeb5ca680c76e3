#pragma once

#include <QtGlobal>

#include <vector>

// Which blocks of one log have arrived during a download over the log
// protocol, and what to ask the aircraft for next. A LOG_DATA packet carries
// up to 90 bytes, so block n holds the bytes [n × 90, n × 90 + 90).
class CLmLogBlockTable
{
public:
    static constexpr quint32 BlockSize = 90;
    // A LOG_REQUEST_DATA count that asks for everything up to the end.
    static constexpr quint32 ToTheEnd = 0xFFFFFFFF;

    struct SRequest
    {
        quint32 offset = 0;
        quint32 count = 0;
        bool operator==(const SRequest& other) const { return offset == other.offset && count == other.count; }
    };

    bool IsEmpty() const;
    // Marks the block that holds the byte at offset.
    void MarkReceived(quint32 offset);
    bool IsReceived(quint32 block) const;
    // Every block of a log of this size has arrived.
    bool IsComplete(quint32 logSize) const;

    // What to ask for after the data stopped: the first run of missing
    // blocks below the highest one received, or, with none missing there,
    // everything after the highest one. An empty table asks for nothing
    // (count 0).
    SRequest NextRequest() const;

private:
    std::vector<bool> m_received;
    quint32 m_nMissingBelowTop = 0;
};
