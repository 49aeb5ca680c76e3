#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <mutex>
#include <optional>

class CLmDataBase;

// The cloud's project store: the uploaded project files of every account in
// <data>/projects/<account id>/, and an index of them in <data>/projects.db.
// Index work is serialised by one mutex; each call opens its own connections,
// because requests arrive on the threads of a pool. An uploaded file is
// checked and stamped outside the mutex, as a file from outside, so a
// hostile one delays only its own request.
class ProjectStore
{
public:
    struct Project
    {
        QString id;
        QString name;
    };

    // Projects picked by id for an account: all of them, or none with the
    // refusal of the first id that is not the account's.
    struct Selection
    {
        QString error;  // empty when every id names one of the account's projects
        int httpStatus = 200;
        QList<Project> projects;
    };

    struct UploadResult
    {
        QString error;  // empty on success
        int httpStatus = 200;
        QJsonObject data;
    };

    explicit ProjectStore(const QString& dataDir);

    bool Open(QString* error);
    // Open() created the index: the store has never held a project. Only such
    // a store gets the demo projects, so one emptied by its user stays empty.
    bool IsNew() const;

    QJsonArray List(qint64 accountId);
    // Stores an uploaded project file: the project row inside names the id;
    // the version goes up by one and is written into the stored copy.
    // Two uploads of one project at the same moment: the later is refused
    // with 409 rather than stored under the same version.
    UploadResult Upload(qint64 accountId, const QByteArray& fileBytes);
    Selection SelectOwned(qint64 accountId, const QStringList& projectIds);
    // Removes the files and index entries of the projects, or nothing when
    // any id is not the account's.
    Selection Remove(qint64 accountId, const QStringList& projectIds);
    // The stored file, or nothing when the index or the file lacks it.
    std::optional<QByteArray> FileBytes(const QString& projectId);

    // The account's project of that name, if it has one.
    std::optional<Project> FindByName(qint64 accountId, const QString& name);
    // Copies the project file of sourceId (any account's) into the account's
    // store as project targetId named targetName, owned by the account: the
    // ids, the name and the owner are rewritten inside the copy. A targetId
    // the account already has is replaced; one of another account is refused.
    UploadResult CopyInto(qint64 accountId, const QString& sourceId, const QString& targetId,
                          const QString& targetName);

private:
    struct ProjectRow
    {
        QString id;
        QString name;
        QString updatedAt;
        int taskCount = 0;
    };

    struct NextVersion
    {
        UploadResult refusal;  // error empty when the upload may go on
        qint64 version = 1;
    };

    QString IndexPath() const;
    QString AccountFolder(qint64 accountId) const;
    QString StoredFileName(const QString& projectId) const;
    QString StoredPath(const QString& projectId);
    void RemoveUploadLeftovers() const;
    static std::optional<ProjectRow> ReadProjectRow(const QString& filePath);
    static bool RewriteOwner(const QString& filePath, const QString& fromId, const QString& toId,
                             const QString& name, qint64 accountId);
    static bool StampFile(const QString& filePath, const QString& projectId, qint64 version, const QString& updatedAt);
    static Selection SelectOwnedLocked(CLmDataBase& index, qint64 accountId, const QStringList& projectIds);
    NextVersion VersionAfter(qint64 accountId, const QString& projectId);
    UploadResult Commit(qint64 accountId, const ProjectRow& row, qint64 version, const QString& tempPath);

    QString m_dataDir;
    bool m_isNew = false;
    std::mutex m_mutex;
};
