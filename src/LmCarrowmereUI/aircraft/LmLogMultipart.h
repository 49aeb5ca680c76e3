#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;

// The multipart bodies of the cloud storage's slice upload: a start that
// announces the file (size and SHA-1) and the slices that carry its bytes.
namespace LmLogMultipart {

inline constexpr char Boundary[] = "------------------------700ba91b80717d49";

// "multipart/form-data;boundary=" and the boundary.
QByteArray ContentType();
QByteArray StartBody(qint64 fileSize, const QByteArray& sha1Hex);
// The slice's bytes are read from source, at its position, straight into
// the body; empty when source has fewer than sliceBytes left.
QByteArray SliceBody(qint64 offset, const QString& session, const QString& fileName, QIODevice& source,
                     qint64 sliceBytes);

}  // namespace LmLogMultipart
