#pragma once

#include <QByteArray>

// Cuts a byte stream into whole frames, each ending in the delimiter. Bytes
// after the last delimiter wait for the next chunk. A partial frame growing
// past MaxPendingBytes is dropped, and the stream carries on after the next
// delimiter, so a peer that never ends a frame cannot make the buffer grow.
class CLmFrameSplitter
{
public:
    static constexpr int MaxPendingBytes = 1 << 20;

    explicit CLmFrameSplitter(const QByteArray& delimiter = {});

    void SetDelimiter(const QByteArray& delimiter);
    QByteArray Delimiter() const;
    // The frames the chunk completes, back to back with their delimiters;
    // empty when it completes none.
    QByteArray Take(const QByteArray& chunk);
    // Forgets a partial frame (a new connection starts a new stream).
    void Clear();

private:
    QByteArray m_delimiter;
    QByteArray m_pending;
    bool m_bDropping = false;
};
