#include "CLmNmeaSentence.h"

quint8 CLmNmeaSentence::Checksum(const QByteArray& body)
{
    quint8 sum = 0;
    for (const char c : body)
        sum ^= static_cast<quint8>(c);
    return sum;
}

QByteArray CLmNmeaSentence::Frame(const QByteArray& body)
{
    QByteArray line;
    line.reserve(body.size() + 6);
    line.append('$').append(body).append('*');
    line.append(QByteArray::number(Checksum(body), 16).toUpper().rightJustified(2, '0'));
    line.append("\r\n");
    return line;
}

bool CLmNmeaSentence::Unframe(const QByteArray& line, QByteArray& body)
{
    QByteArray text = line;
    while (text.endsWith('\n') || text.endsWith('\r'))
        text.chop(1);
    const int star = text.size() - 3;
    if (star < 1 || !text.startsWith('$') || text.at(star) != '*')
        return false;
    bool ok = false;
    const uint sum = text.mid(star + 1, 2).toUInt(&ok, 16);
    if (!ok)
        return false;
    QByteArray candidate = text.mid(1, star - 1);
    if (candidate.contains('$') || candidate.contains('*') || Checksum(candidate) != sum)
        return false;
    body = candidate;
    return true;
}

QList<QByteArray> CLmNmeaSentence::Fields(const QByteArray& body)
{
    return body.split(',');
}
