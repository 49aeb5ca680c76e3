#include "LmLogMultipart.h"

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

QByteArray SliceHead(qint64 offset, const QString& session, const QString& fileName)
{
    return Field("op", "upload_slice") + Field("offset", QByteArray::number(offset))
           + Field("session", session.toUtf8()) + PartStart()
           + "Content-Disposition: form-data; name=\"filecontent\"; filename=\"" + QuotedFileName(fileName)
           + "\"\r\nContent-type:application/octet-stream\r\n\r\n";
}

QByteArray SliceTail()
{
    return "\r\n" + Closing();
}

}  // namespace LmLogMultipart
