#include "LmNoflyCipher.h"

#include "LmDataLog.h"
#include "LmFileReplace.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <sodium.h>

namespace {

const QByteArray kMagic("SKYNFZ\x01\x00", 8);
constexpr qint64 kChunkBytes = 64 * 1024;
constexpr int kTagBytes = crypto_secretstream_xchacha20poly1305_ABYTES;
constexpr int kHeaderBytes = crypto_secretstream_xchacha20poly1305_HEADERBYTES;
constexpr qint64 kSealedChunkBytes = kChunkBytes + kTagBytes;

using StreamState = crypto_secretstream_xchacha20poly1305_state;

bool SodiumReady(const QByteArray& key)
{
    static const bool initialised = sodium_init() >= 0;
    if (!initialised)
        qCWarning(lcNoflyZone) << "the cipher library did not start";
    if (key.size() != crypto_secretstream_xchacha20poly1305_KEYBYTES) {
        qCWarning(lcNoflyZone) << "the no-fly-zone key is not a 32-byte key";
        return false;
    }
    return initialised;
}

const unsigned char* Bytes(const QByteArray& data)
{
    return reinterpret_cast<const unsigned char*>(data.constData());
}

unsigned char* Bytes(QByteArray& data)
{
    return reinterpret_cast<unsigned char*>(data.data());
}

bool WriteAll(QFile& file, const QByteArray& data)
{
    return file.write(data) == data.size();
}

bool SealChunks(QFile& source, QFile& target, StreamState& state)
{
    QByteArray sealed(kSealedChunkBytes, Qt::Uninitialized);
    do {
        const QByteArray plain = source.read(kChunkBytes);
        if (source.error() != QFileDevice::NoError)
            return false;
        const unsigned char tag = source.atEnd() ? crypto_secretstream_xchacha20poly1305_TAG_FINAL : 0;
        unsigned long long sealedLength = 0;
        crypto_secretstream_xchacha20poly1305_push(&state, Bytes(sealed), &sealedLength, Bytes(plain),
                                                   static_cast<unsigned long long>(plain.size()), Bytes(kMagic),
                                                   static_cast<unsigned long long>(kMagic.size()), tag);
        if (!WriteAll(target, sealed.left(static_cast<int>(sealedLength))))
            return false;
    } while (!source.atEnd());
    return true;
}

// Every chunk must open, and the one with the final tag must be the last.
bool OpenChunks(QFile& source, QFile& target, StreamState& state)
{
    QByteArray plain(kChunkBytes, Qt::Uninitialized);
    unsigned char tag = 0;
    while (tag != crypto_secretstream_xchacha20poly1305_TAG_FINAL) {
        const QByteArray sealed = source.read(kSealedChunkBytes);
        if (sealed.size() < kTagBytes)
            return false;
        unsigned long long plainLength = 0;
        if (crypto_secretstream_xchacha20poly1305_pull(&state, Bytes(plain), &plainLength, &tag, Bytes(sealed),
                                                       static_cast<unsigned long long>(sealed.size()), Bytes(kMagic),
                                                       static_cast<unsigned long long>(kMagic.size()))
            != 0)
            return false;
        if (!WriteAll(target, plain.left(static_cast<int>(plainLength))))
            return false;
    }
    return source.atEnd();
}

using ChunkPass = bool (*)(QFile&, QFile&, StreamState&);

// Runs the pass from source into a temporary file beside the target and
// renames it over the target when the pass succeeded.
bool Transform(const QString& sourcePath, const QString& targetPath, QFile& source, StreamState& state,
               const QByteArray& prefix, ChunkPass pass)
{
    QTemporaryFile temp(QFileInfo(targetPath).absolutePath() + QStringLiteral("/.XXXXXX.part"));
    if (!temp.open()) {
        qCWarning(lcNoflyZone) << "cannot write beside" << targetPath << temp.errorString();
        return false;
    }
    if (!WriteAll(temp, prefix) || !pass(source, temp, state) || !temp.flush())
        return false;
    source.close();
    temp.close();
    if (!LmFileReplace::Replace(temp.fileName(), targetPath))
        return false;
    temp.setAutoRemove(false);
    qCDebug(lcNoflyZone) << sourcePath << "->" << targetPath;
    return true;
}

}  // namespace

namespace LmNoflyCipher {

bool Encipher(const QString& sourcePath, const QString& targetPath, const QByteArray& key)
{
    QFile source(sourcePath);
    if (!SodiumReady(key) || !source.open(QIODevice::ReadOnly))
        return false;
    StreamState state;
    QByteArray header(kHeaderBytes, Qt::Uninitialized);
    crypto_secretstream_xchacha20poly1305_init_push(&state, Bytes(header), Bytes(key));
    const bool ok = Transform(sourcePath, targetPath, source, state, kMagic + header, SealChunks);
    sodium_memzero(&state, sizeof state);
    return ok;
}

bool Decipher(const QString& sourcePath, const QString& targetPath, const QByteArray& key)
{
    QFile source(sourcePath);
    if (!SodiumReady(key) || !source.open(QIODevice::ReadOnly))
        return false;
    const QByteArray header = source.read(kMagic.size() + kHeaderBytes);
    StreamState state;
    const bool ok = header.size() == kMagic.size() + kHeaderBytes
                    && header.startsWith(kMagic)
                    && crypto_secretstream_xchacha20poly1305_init_pull(&state, Bytes(header) + kMagic.size(),
                                                                       Bytes(key))
                           == 0
                    && Transform(sourcePath, targetPath, source, state, {}, OpenChunks);
    sodium_memzero(&state, sizeof state);
    if (!ok)
        qCWarning(lcNoflyZone) << "refused" << sourcePath << ": not enciphered with this key, or changed since";
    return ok;
}

bool IsEnciphered(const QString& filePath)
{
    QFile file(filePath);
    return file.open(QIODevice::ReadOnly) && file.read(kMagic.size()) == kMagic;
}

}  // namespace LmNoflyCipher
