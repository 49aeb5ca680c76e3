#include "CLmLogBlockTable.h"

#include <algorithm>

bool CLmLogBlockTable::IsEmpty() const
{
    return m_received.empty();
}

void CLmLogBlockTable::MarkReceived(quint32 offset)
{
    const quint32 block = offset / BlockSize;
    if (block >= m_received.size()) {
        m_nMissingBelowTop += block - static_cast<quint32>(m_received.size());
        m_received.resize(block + 1, false);
        m_received[block] = true;
    } else if (!m_received[block]) {
        m_received[block] = true;
        --m_nMissingBelowTop;
    }
}

bool CLmLogBlockTable::IsReceived(quint32 block) const
{
    return block < m_received.size() && m_received[block];
}

bool CLmLogBlockTable::IsComplete(quint32 logSize) const
{
    const quint64 blocks = (quint64(logSize) + BlockSize - 1) / BlockSize;
    return m_nMissingBelowTop == 0 && m_received.size() >= blocks;
}

CLmLogBlockTable::SRequest CLmLogBlockTable::NextRequest() const
{
    if (m_received.empty())
        return {};
    if (m_nMissingBelowTop == 0)
        return {static_cast<quint32>(m_received.size()) * BlockSize, ToTheEnd};
    const auto first = std::find(m_received.begin(), m_received.end(), false);
    const auto end = std::find(first, m_received.end(), true);
    return {static_cast<quint32>(first - m_received.begin()) * BlockSize,
            static_cast<quint32>(end - first) * BlockSize};
}
