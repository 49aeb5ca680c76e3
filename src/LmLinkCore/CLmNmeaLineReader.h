#pragma once

#include <QByteArray>

// Cuts a byte stream into NMEA sentences. Bytes arrive in chunks of any size;
// Next() hands out the bodies of whole lines whose framing and checksum are
// right. Bad lines and lines longer than the limit are dropped and counted.
class CLmNmeaLineReader
{
public:
    explicit CLmNmeaLineReader(int nMaxLineLength = 1 << 20);

    void Feed(const QByteArray& bytes);
    bool Next(QByteArray& body);
    int RejectedLines() const { return m_nRejected; }
    void Reset();

private:
    QByteArray m_buffer;
    int m_nMaxLineLength;
    int m_nRejected = 0;
    bool m_bSkippingLongLine = false;
};
