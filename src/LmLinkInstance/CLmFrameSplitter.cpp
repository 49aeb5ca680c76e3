#include "CLmFrameSplitter.h"

#include "LmLinkInstanceLog.h"

#include <algorithm>

CLmFrameSplitter::CLmFrameSplitter(const QByteArray& delimiter)
    : m_delimiter(delimiter)
{
}

void CLmFrameSplitter::SetDelimiter(const QByteArray& delimiter)
{
    m_delimiter = delimiter;
    Clear();
}

QByteArray CLmFrameSplitter::Delimiter() const
{
    return m_delimiter;
}

QByteArray CLmFrameSplitter::Take(const QByteArray& chunk)
{
    // Only the new bytes (and a delimiter begun just before them) are
    // searched, so a long frame arriving in small chunks costs linear time.
    const int searchFrom = std::max(0, m_pending.size() - m_delimiter.size() + 1);
    m_pending += chunk;
    if (m_pending.indexOf(m_delimiter, searchFrom) < 0) {
        if (m_pending.size() > MaxPendingBytes) {
            qCWarning(lcLinkInstancePush) << "dropped a frame longer than" << MaxPendingBytes << "bytes";
            // The tail may hold the start of the delimiter that ends it.
            m_pending = m_pending.right(m_delimiter.size() - 1);
            m_bDropping = true;
        }
        return {};
    }
    int start = 0;
    if (m_bDropping) {
        start = m_pending.indexOf(m_delimiter) + m_delimiter.size();
        m_bDropping = false;
    }
    const int end = m_pending.lastIndexOf(m_delimiter) + m_delimiter.size();
    const QByteArray frames = m_pending.mid(start, end - start);
    m_pending.remove(0, end);
    return frames;
}

void CLmFrameSplitter::Clear()
{
    m_pending.clear();
    m_bDropping = false;
}
