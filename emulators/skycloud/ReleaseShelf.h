#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>

// The published releases of each product, kept in the data folder:
// updates/<product>.json names the newest release ({"version", "file",
// "size", "sha256", "notes"}) and updates/files/<file> is its package. The
// manifests are read at every request, so a release is published by copying
// a package and editing its manifest. The size and digest are the published
// ones; they are not recomputed from the file.
class ReleaseShelf
{
public:
    struct Release
    {
        QString version;
        QString file;
        qint64 size = 0;
        QString sha256;
        QString notes;
    };

    // appVersion: the version of the tree's application; the demo releases
    // of the application and the launcher are one minor version above it.
    // offerUpdates: a new shelf holds application and launcher releases one
    // minor version above appVersion instead of appVersion itself.
    ReleaseShelf(const QString& dataDir, const QString& appVersion, bool offerUpdates);

    // Creates the folder with demo releases when it does not exist yet.
    bool Open(QString* error);

    static QStringList Products();
    std::optional<Release> Latest(const QString& product) const;
    // The package file's path, or empty when there is no such package.
    QString PackagePath(const QString& file) const;

private:
    QString ManifestPath(const QString& product) const;
    QString FilesDir() const;
    bool SeedDemoReleases(QString* error) const;
    bool Publish(const QString& product, const QString& version, const QString& notes, QString* error) const;

    QString m_dir;
    QString m_appVersion;
    bool m_bOfferUpdates;
};
