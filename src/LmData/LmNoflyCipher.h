#pragma once

#include <QByteArray>
#include <QString>

// The no-fly-zone file's cipher: authenticated encryption (libsodium's
// XChaCha20-Poly1305 secret stream) in 64 KiB chunks after an 8-byte magic
// and the stream header; the last chunk carries the final tag, so a file cut
// short, extended or changed anywhere is refused as a whole. The output is
// written beside the target and renamed over it, so the target may be the
// source itself and a failure leaves it as it was.
namespace LmNoflyCipher {

// Length of the key both functions take.
constexpr int KeyBytes = 32;

bool Encipher(const QString& sourcePath, const QString& targetPath, const QByteArray& key);
// False, and the target untouched, for a file that was not enciphered with
// this key or was changed since.
bool Decipher(const QString& sourcePath, const QString& targetPath, const QByteArray& key);
// The file starts with the cipher's magic (says nothing of its integrity).
bool IsEnciphered(const QString& filePath);

}  // namespace LmNoflyCipher
