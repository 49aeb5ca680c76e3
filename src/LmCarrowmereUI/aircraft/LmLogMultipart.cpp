#include "LmLogMultipart.h"

#include <QIODevice>

#include <algorithm>

namespace LmLogMultipart {

namespace {

QByteArray PartStart()
{
    return QByteArrayLiteral("--") + Boundary + "\r\n";
}

QByteArray Field(const char* name, const QByteArray& value)
{
    return PartStart() + "Content-Disposition: form-data; name=\"" + name + "\"\r\n\r\n" + value + "\r\n";
}

QByteArray Closing()
{
    return QByteArrayLiteral("--") + Boundary + "--\r\n";
}

// Quotes and line breaks cannot be carried inside the quoted file name.
QByteArray QuotedFileName(const QString& fileName)
{
    QByteArray name = fileName.toUtf8();
    name.replace('"', '_').replace('\r', '_').replace('\n', '_');
    return name;
}

}  // namespace

QByteArray ContentType()
{
    return QByteArrayLiteral("multipart/form-data;boundary=") + Boundary;
}

QByteArray StartBody(qint64 fileSize, const QByteArray& sha1Hex)
{
    return Field("op", "upload_slice") + Field("filesize", QByteArray::number(fileSize)) + Field("sha", sha1Hex)
           + Closing();
}

QByteArray SliceBody(qint64 offset, const QString& session, const QString& fileName, QIODevice& source,
                     qint64 sliceBytes)
{
    const QByteArray head = Field("op", "upload_slice") + Field("offset", QByteArray::number(offset))
                            + Field("session", session.toUtf8()) + PartStart()
                            + "Content-Disposition: form-data; name=\"filecontent\"; filename=\""
                            + QuotedFileName(fileName) + "\"\r\nContent-type:application/octet-stream\r\n\r\n";
    const QByteArray tail = "\r\n" + Closing();
    QByteArray body(head.size() + int(sliceBytes) + tail.size(), Qt::Uninitialized);
    char* const bytes = std::copy(head.cbegin(), head.cend(), body.data());
    if (sliceBytes <= 0 || source.read(bytes, sliceBytes) != sliceBytes)
        return {};
    std::copy(tail.cbegin(), tail.cend(), bytes + sliceBytes);
    return body;
}

}  // namespace LmLogMultipart
