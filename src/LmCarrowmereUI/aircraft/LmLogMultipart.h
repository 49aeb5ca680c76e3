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
// A slice body is its head, the slice's bytes and its tail, so that a
// sender can stream the bytes from the file without a copy.
QByteArray SliceHead(qint64 offset, const QString& session, const QString& fileName);
QByteArray SliceTail();

}  // namespace LmLogMultipart
