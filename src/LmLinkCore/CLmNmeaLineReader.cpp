#include "CLmNmeaLineReader.h"

#include "CLmNmeaSentence.h"

CLmNmeaLineReader::CLmNmeaLineReader(int nMaxLineLength)
    : m_nMaxLineLength(nMaxLineLength)
{
}

void CLmNmeaLineReader::Feed(const QByteArray& bytes)
{
    m_buffer.append(bytes);
}

bool CLmNmeaLineReader::Next(QByteArray& body)
{
    for (;;) {
        const int end = m_buffer.indexOf('\n');
        if (end < 0) {
            if (m_buffer.size() > m_nMaxLineLength) {
                // The rest of an overlong line is dropped as it arrives.
                m_buffer.clear();
                m_bSkippingLongLine = true;
            }
            return false;
        }
        const QByteArray line = m_buffer.left(end + 1);
        m_buffer.remove(0, end + 1);
        if (m_bSkippingLongLine || line.size() > m_nMaxLineLength) {
            m_bSkippingLongLine = false;
            ++m_nRejected;
            continue;
        }
        if (CLmNmeaSentence::Unframe(line, body))
            return true;
        if (!line.trimmed().isEmpty())
            ++m_nRejected;
    }
}

void CLmNmeaLineReader::Reset()
{
    m_buffer.clear();
    m_bSkippingLongLine = false;
}
