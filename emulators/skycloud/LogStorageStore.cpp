#include "LogStorageStore.h"

#include "CloudLog.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>

namespace {

bool IsSha1Hex(const QByteArray& text)
{
    static const QRegularExpression pattern(QStringLiteral("^[0-9a-f]{40}$"));
    return pattern.match(QString::fromLatin1(text)).hasMatch();
}

}  // namespace

LogStorageStore::LogStorageStore(const QString& dataDir, qint64 sliceSize)
    : m_strRoot(QDir(dataDir).filePath(QStringLiteral("storage")))
    , m_nSliceSize(sliceSize)
{
}

bool LogStorageStore::Open(QString* error)
{
    QDir root(m_strRoot);
    for (const char* folder : {"airlog", "sha", "parts"}) {
        if (!root.mkpath(QLatin1String(folder))) {
            *error = QStringLiteral("cannot create %1").arg(root.filePath(QLatin1String(folder)));
            return false;
        }
    }
    return true;
}

QByteArray LogStorageStore::IssueAuthorization(qint64 accountId)
{
    QByteArray random(24, Qt::Uninitialized);
    QRandomGenerator::system()->generate(random.begin(), random.end());
    const QByteArray authorization = QByteArray::number(accountId) + ':' + random.toHex();
    std::lock_guard<std::mutex> lock(m_mutex);
    m_authorizations.insert(authorization, QDateTime::currentDateTimeUtc().addSecs(AuthorizationSeconds));
    return authorization;
}

bool LogStorageStore::IsAuthorized(const QByteArray& authorization)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_authorizations.constFind(authorization);
    return it != m_authorizations.constEnd() && it.value() > QDateTime::currentDateTimeUtc();
}

bool LogStorageStore::IsValidName(const QString& name)
{
    return !name.isEmpty() && name.size() <= 200 && !name.contains(QLatin1Char('/'))
           && !name.contains(QLatin1Char('\\')) && !name.startsWith(QLatin1Char('.'));
}

LogStorageStore::SState LogStorageStore::Start(qint64 fileSize, const QByteArray& sha1Hex)
{
    if (!IsSha1Hex(sha1Hex) || fileSize <= 0 || fileSize > MaxFileSize)
        return {QStringLiteral("filesize or sha invalid"), {}, {}, 0};
    std::lock_guard<std::mutex> lock(m_mutex);
    if (const std::optional<QString> stored = StoredNameOf(sha1Hex))
        return {{}, *stored, {}, fileSize};
    const QString session = QString::fromLatin1(sha1Hex) + QLatin1Char('_') + QString::number(fileSize);
    QFile part(PartPath(session));
    if (!part.exists() && !part.open(QIODevice::WriteOnly))
        return {QStringLiteral("cannot start the upload"), {}, {}, 0};
    return {{}, {}, session, QFileInfo(part.fileName()).size()};
}

LogStorageStore::SState LogStorageStore::Append(const QString& session, qint64 offset, const QByteArray& content,
                                                const QString& name)
{
    const std::optional<SSession> file = ParseSession(session);
    std::lock_guard<std::mutex> lock(m_mutex);
    QFile part(file ? PartPath(session) : QString());
    if (!file || !part.exists())
        return {QStringLiteral("session not found"), {}, {}, 0};
    const qint64 have = part.size();
    if (offset != have)
        return {{}, {}, session, have};
    if (content.isEmpty() || have + content.size() > file->nFileSize)
        return {QStringLiteral("slice does not fit the file"), {}, session, have};
    SPartHash* hash = PartHashOf(session, have);
    if (!hash || !part.open(QIODevice::Append) || part.write(content) != content.size())
        return {QStringLiteral("cannot store the slice"), {}, session, have};
    part.close();
    hash->sha1->addData(content);
    hash->nBytes += content.size();
    if (hash->nBytes < file->nFileSize)
        return {{}, {}, session, hash->nBytes};
    const QByteArray sha1Hex = hash->sha1->result().toHex();
    m_partHashes.erase(session);
    return Complete(session, *file, sha1Hex, name);
}

// A part written by an earlier run of the service, or whose last write
// failed half-way, is hashed again from its file, once.
LogStorageStore::SPartHash* LogStorageStore::PartHashOf(const QString& session, qint64 partSize)
{
    auto kept = m_partHashes.find(session);
    if (kept != m_partHashes.end() && kept->second.nBytes == partSize)
        return &kept->second;
    SPartHash hash{std::make_unique<QCryptographicHash>(QCryptographicHash::Sha1), partSize};
    QFile part(PartPath(session));
    if (!part.open(QIODevice::ReadOnly) || !hash.sha1->addData(&part) || part.pos() != partSize)
        return nullptr;
    return &m_partHashes.insert_or_assign(session, std::move(hash)).first->second;
}

LogStorageStore::SState LogStorageStore::Complete(const QString& session, const SSession& file,
                                                  const QByteArray& sha1Hex, const QString& name)
{
    const QString partPath = PartPath(session);
    if (sha1Hex != file.sha1Hex) {
        QFile::remove(partPath);
        qCInfo(lcSkyCloud) << "stored log discarded: SHA-1 mismatch for" << name;
        return {QStringLiteral("sha mismatch: the upload was discarded"), {}, {}, 0};
    }
    const QString target = StoredPath(name);
    QFile::remove(target);
    QFile index(ShaIndexPath(file.sha1Hex));
    if (!QFile::rename(partPath, target) || !index.open(QIODevice::WriteOnly) || index.write(name.toUtf8()) < 0)
        return {QStringLiteral("cannot store the file"), {}, {}, 0};
    return {{}, name, {}, file.nFileSize};
}

QString LogStorageStore::StoredPath(const QString& name) const
{
    return QDir(m_strRoot).filePath(QStringLiteral("airlog/") + name);
}

std::optional<LogStorageStore::SSession> LogStorageStore::ParseSession(const QString& session)
{
    const QStringList parts = session.split(QLatin1Char('_'));
    bool isNumber = false;
    const qint64 size = parts.value(1).toLongLong(&isNumber);
    if (parts.size() != 2 || !IsSha1Hex(parts[0].toLatin1()) || !isNumber || size <= 0 || size > MaxFileSize)
        return std::nullopt;
    return SSession{parts[0].toLatin1(), size};
}

QString LogStorageStore::PartPath(const QString& session) const
{
    return QDir(m_strRoot).filePath(QStringLiteral("parts/") + session);
}

QString LogStorageStore::ShaIndexPath(const QByteArray& sha1Hex) const
{
    return QDir(m_strRoot).filePath(QStringLiteral("sha/") + QString::fromLatin1(sha1Hex));
}

std::optional<QString> LogStorageStore::StoredNameOf(const QByteArray& sha1Hex) const
{
    QFile index(ShaIndexPath(sha1Hex));
    if (!index.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QString name = QString::fromUtf8(index.readAll());
    if (!IsValidName(name) || !QFileInfo::exists(StoredPath(name)))
        return std::nullopt;
    return name;
}
