#pragma once

#include <QByteArray>
#include <QString>

// The multipart bodies of the cloud storage's slice upload: a start that
// announces the file (size and SHA-1) and the slices that carry its bytes.
namespace LmLogMultipart {

inline constexpr char Boundary[] = "------------------------700ba91b80717d49";

// "multipart/form-data;boundary=" and the boundary.
QByteArray ContentType();
QByteArray StartBody(qint64 fileSize, const QByteArray& sha1Hex);
QByteArray SliceBody(qint64 offset, const QString& session, const QString& fileName, const QByteArray& content);

}  // namespace LmLogMultipart
