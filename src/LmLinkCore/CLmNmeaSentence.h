#pragma once

#include <QByteArray>
#include <QList>

// NMEA 0183 framing: "$" + body + "*" + two upper-case hex digits of the XOR
// of the body's bytes + CR LF. The body is the comma-separated fields,
// address field first ("GPGGA", "PSKBQ").
class CLmNmeaSentence
{
public:
    static quint8 Checksum(const QByteArray& body);
    static QByteArray Frame(const QByteArray& body);
    // The body of one line ("$...*hh", with or without CR LF); false when the
    // line is not framed like that or its checksum is wrong.
    static bool Unframe(const QByteArray& line, QByteArray& body);
    // The comma-separated fields of a body; the address field is field 0.
    static QList<QByteArray> Fields(const QByteArray& body);
};
