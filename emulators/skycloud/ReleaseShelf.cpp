#include "ReleaseShelf.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QVersionNumber>

namespace {

constexpr int kDemoPackageSize = 96 * 1024;

QByteArray DemoPackage(const QString& product, const QString& version)
{
    const QByteArray line = QStringLiteral("SkyConsole demo package %1 %2\n").arg(product, version).toUtf8();
    QByteArray bytes;
    bytes.reserve(kDemoPackageSize + line.size());
    while (bytes.size() < kDemoPackageSize)
        bytes += line;
    return bytes;
}

QString NextMinor(const QString& version)
{
    const QVersionNumber current = QVersionNumber::fromString(version);
    return QVersionNumber(current.majorVersion(), current.minorVersion() + 1, 0).toString();
}

bool WriteFile(const QString& path, const QByteArray& bytes, QString* error)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size())
        return true;
    *error = QStringLiteral("cannot write %1").arg(path);
    return false;
}

}  // namespace

ReleaseShelf::ReleaseShelf(const QString& dataDir, const QString& appVersion, bool offerUpdates)
    : m_dir(QDir(dataDir).filePath(QStringLiteral("updates")))
    , m_appVersion(appVersion)
    , m_bOfferUpdates(offerUpdates)
{
}

QStringList ReleaseShelf::Products()
{
    return {QStringLiteral("skyconsole"), QStringLiteral("launcher"), QStringLiteral("firmware")};
}

QString ReleaseShelf::ManifestPath(const QString& product) const
{
    return QDir(m_dir).filePath(product + QStringLiteral(".json"));
}

QString ReleaseShelf::FilesDir() const
{
    return QDir(m_dir).filePath(QStringLiteral("files"));
}

bool ReleaseShelf::Open(QString* error)
{
    if (QFileInfo::exists(m_dir))
        return true;
    if (!QDir().mkpath(FilesDir())) {
        *error = QStringLiteral("cannot create %1").arg(FilesDir());
        return false;
    }
    return SeedDemoReleases(error);
}

bool ReleaseShelf::SeedDemoReleases(QString* error) const
{
    const QString appRelease = m_bOfferUpdates ? NextMinor(m_appVersion) : m_appVersion;
    return Publish(QStringLiteral("skyconsole"), appRelease, QStringLiteral("Faster project synchronisation."), error)
           && Publish(QStringLiteral("launcher"), appRelease, QStringLiteral("Starts the suite's tools faster."), error)
           && Publish(QStringLiteral("firmware"), QStringLiteral("2.1.0"),
                      QStringLiteral("Smoother landing in crosswind."), error);
}

bool ReleaseShelf::Publish(const QString& product, const QString& version, const QString& notes,
                           QString* error) const
{
    const QString file = QStringLiteral("%1-%2.pkg").arg(product, version);
    const QByteArray package = DemoPackage(product, version);
    const QJsonObject manifest{
        {"version", version},
        {"file", file},
        {"size", package.size()},
        {"sha256", QString::fromLatin1(QCryptographicHash::hash(package, QCryptographicHash::Sha256).toHex())},
        {"notes", notes}};
    return WriteFile(QDir(FilesDir()).filePath(file), package, error)
           && WriteFile(ManifestPath(product), QJsonDocument(manifest).toJson(), error);
}

std::optional<ReleaseShelf::Release> ReleaseShelf::Latest(const QString& product) const
{
    QFile file(ManifestPath(product));
    if (!Products().contains(product) || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject manifest = QJsonDocument::fromJson(file.readAll()).object();
    if (manifest.value(QStringLiteral("version")).toString().isEmpty())
        return std::nullopt;
    Release release;
    release.version = manifest.value(QStringLiteral("version")).toString();
    release.file = manifest.value(QStringLiteral("file")).toString();
    release.size = manifest.value(QStringLiteral("size")).toVariant().toLongLong();
    release.sha256 = manifest.value(QStringLiteral("sha256")).toString();
    release.notes = manifest.value(QStringLiteral("notes")).toString();
    return release;
}

QString ReleaseShelf::PackagePath(const QString& file) const
{
    static const QRegularExpression plainName(QStringLiteral("^[A-Za-z0-9_-][A-Za-z0-9._-]*$"));
    const QString path = QDir(FilesDir()).filePath(file);
    return plainName.match(file).hasMatch() && QFileInfo(path).isFile() ? path : QString();
}
