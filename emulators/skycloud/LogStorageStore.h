#pragma once

#include <QByteArray>
#include <QCryptographicHash>
#include <QDateTime>
#include <QHash>
#include <QString>

#include <map>
#include <memory>
#include <mutex>
#include <optional>

// The cloud storage of uploaded flight logs, in <data>/storage:
//   airlog/<name>        a stored log, kept under the name it was uploaded as;
//   sha/<sha1>           the name of the stored log with that SHA-1;
//   parts/<sha1>_<size>  the bytes received so far of an unfinished upload.
// An upload is a session named after the file's SHA-1 and size, so a second
// start of the same file (after the uploader or the service went away)
// resumes at the bytes the part already holds. A file whose bytes do not
// hash to the announced SHA-1 is discarded, never stored; the hash grows
// with each slice, so completing a file does not read it again.
//
// Writes need an authorisation, issued to a signed-in account for a short
// while; authorisations live in memory only.
class LogStorageStore
{
public:
    static constexpr qint64 DefaultSliceSize = 4 * 1024 * 1024;
    static constexpr qint64 MaxFileSize = qint64(2) * 1024 * 1024 * 1024;
    static constexpr int AuthorizationSeconds = 600;

    // Where an upload stands: the stored log's name once it is complete,
    // otherwise its session and the offset of the next slice.
    struct SState
    {
        QString strError;  // empty on success
        QString strStoredName;
        QString strSession;
        qint64 nOffset = 0;
    };

    LogStorageStore(const QString& dataDir, qint64 sliceSize);

    qint64 SliceSize() const { return m_nSliceSize; }

    bool Open(QString* error);
    QByteArray IssueAuthorization(qint64 accountId);
    bool IsAuthorized(const QByteArray& authorization);

    // A start: the stored log when one with this SHA-1 exists, else the
    // session of the file and how much of it is in.
    SState Start(qint64 fileSize, const QByteArray& sha1Hex);
    // A slice at offset. A slice at another offset than the session's is
    // not written; the answer tells the offset the session expects.
    SState Append(const QString& session, qint64 offset, const QByteArray& content, const QString& name);
    QString StoredPath(const QString& name) const;

    static bool IsValidName(const QString& name);

private:
    struct SSession
    {
        QByteArray sha1Hex;
        qint64 nFileSize = 0;
    };

    // The SHA-1 of a part's bytes so far, carried from slice to slice so
    // that the last slice needs no second pass over the whole file.
    struct SPartHash
    {
        std::unique_ptr<QCryptographicHash> sha1;
        qint64 nBytes = 0;
    };

    static std::optional<SSession> ParseSession(const QString& session);
    // The hash of the part's first partSize bytes; null when the part
    // cannot be read.
    SPartHash* PartHashOf(const QString& session, qint64 partSize);
    QString PartPath(const QString& session) const;
    QString ShaIndexPath(const QByteArray& sha1Hex) const;
    std::optional<QString> StoredNameOf(const QByteArray& sha1Hex) const;
    SState Complete(const QString& session, const SSession& file, const QByteArray& sha1Hex, const QString& name);

    QString m_strRoot;
    qint64 m_nSliceSize;
    std::mutex m_mutex;
    QHash<QByteArray, QDateTime> m_authorizations;
    std::map<QString, SPartHash> m_partHashes;
};
