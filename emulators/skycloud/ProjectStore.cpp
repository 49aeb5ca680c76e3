#include "ProjectStore.h"

#include "CLmDataBase.h"
#include "LmProjectConstants.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QTemporaryFile>

#include <cstdio>

namespace {

QString NowText()
{
    return QDateTime::currentDateTimeUtc().toString(QLatin1String(DateTimeSFormat));
}

bool IsTimeText(const QString& text)
{
    return QDateTime::fromString(text, QLatin1String(DateTimeSFormat)).isValid();
}

// Upload temporaries sit beside the stored files, so the final rename
// stays within one file system.
constexpr char kUploadPrefix[] = ".upload-";

}  // namespace

ProjectStore::ProjectStore(const QString& dataDir)
    : m_dataDir(dataDir)
{
}

bool ProjectStore::Open(QString* error)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    QDir().mkpath(m_dataDir + QStringLiteral("/projects"));
    m_isNew = !QFile::exists(IndexPath());
    RemoveUploadLeftovers();
    CLmDataBase index(IndexPath());
    if (!index.Open()
        || !index.Exec(QStringLiteral("CREATE TABLE IF NOT EXISTS projects ("
                                      " id TEXT PRIMARY KEY, account_id INTEGER NOT NULL, project_name TEXT NOT NULL,"
                                      " updated_at TEXT NOT NULL, version INTEGER NOT NULL,"
                                      " flight_mission_count INTEGER NOT NULL, file_name TEXT NOT NULL)"))) {
        *error = QStringLiteral("cannot open the project index: ") + index.LastError();
        return false;
    }
    return true;
}

bool ProjectStore::IsNew() const
{
    return m_isNew;
}

QJsonArray ProjectStore::List(qint64 accountId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase index(IndexPath());
    QSqlQuery rows(index.Database());
    QJsonArray list;
    if (!index.Open(true)
        || !index.Exec(QStringLiteral("SELECT id, project_name, updated_at, version, flight_mission_count"
                                      " FROM projects WHERE account_id = ? ORDER BY updated_at DESC"),
                       {accountId}, &rows))
        return list;
    while (rows.next()) {
        list.append(QJsonObject{{"id", rows.value(0).toString()},
                                {"project_name", rows.value(1).toString()},
                                {"updated_at", rows.value(2).toString()},
                                {"version", rows.value(3).toLongLong()},
                                {"flight_mission_count", rows.value(4).toInt()}});
    }
    return list;
}

ProjectStore::UploadResult ProjectStore::Upload(qint64 accountId, const QByteArray& fileBytes)
{
    QDir().mkpath(AccountFolder(accountId));
    QTemporaryFile temp(AccountFolder(accountId) + QLatin1Char('/') + QLatin1String(kUploadPrefix)
                        + QStringLiteral("XXXXXX"));
    if (!temp.open() || temp.write(fileBytes) != fileBytes.size() || !temp.flush())
        return {QStringLiteral("Cannot store the project"), 500, {}};
    temp.close();
    const std::optional<ProjectRow> row =
        CLmDataBase::IsSqliteFile(temp.fileName()) ? ReadProjectRow(temp.fileName()) : std::nullopt;
    if (!row || row->id.isEmpty())
        return {QStringLiteral("Invalid project file"), 400, {}};
    const NextVersion next = VersionAfter(accountId, row->id);
    if (!next.refusal.error.isEmpty())
        return next.refusal;
    if (!StampFile(temp.fileName(), row->id, next.version, row->updatedAt))
        return {QStringLiteral("Cannot store the project"), 500, {}};
    UploadResult result = Commit(accountId, *row, next.version, temp.fileName());
    if (result.error.isEmpty())
        temp.setAutoRemove(false);
    return result;
}

ProjectStore::NextVersion ProjectStore::VersionAfter(qint64 accountId, const QString& projectId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase index(IndexPath());
    QSqlQuery existing(index.Database());
    if (!index.Open(true)
        || !index.Exec(QStringLiteral("SELECT account_id, version FROM projects WHERE id = ?"), {projectId}, &existing))
        return {{QStringLiteral("Cannot store the project"), 500, {}}, 0};
    if (!existing.next())
        return {};
    if (existing.value(0).toLongLong() != accountId)
        return {{QStringLiteral("Project belongs to another account"), 403, {}}, 0};
    return {{}, existing.value(1).toLongLong() + 1};
}

ProjectStore::UploadResult ProjectStore::Commit(qint64 accountId, const ProjectRow& row, qint64 version,
                                                const QString& tempPath)
{
    const UploadResult failed{QStringLiteral("Cannot store the project"), 500, {}};
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase index(IndexPath());
    if (!index.Open())
        return failed;
    const QVariant stored = index.SelectValue(QStringLiteral("SELECT version FROM projects WHERE id = ?"), {row.id});
    if ((stored.isValid() ? stored.toLongLong() : 0) != version - 1)
        return {QStringLiteral("Project was uploaded meanwhile, try again"), 409, {}};
    const QString fileName = StoredFileName(row.id);
    const QString target = AccountFolder(accountId) + QLatin1Char('/') + fileName;
    if (!index.Database().transaction())
        return failed;
    // rename() replaces the old file in one step: a download always finds
    // either the old or the new version.
    if (!index.Exec(QStringLiteral("INSERT OR REPLACE INTO projects (id, account_id, project_name, updated_at,"
                                   " version, flight_mission_count, file_name) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                    {row.id, accountId, row.name, row.updatedAt, version, row.taskCount, fileName})
        || std::rename(QFile::encodeName(tempPath).constData(), QFile::encodeName(target).constData()) != 0) {
        index.Database().rollback();
        return failed;
    }
    if (!index.Database().commit())
        return failed;
    return {QString(), 200, QJsonObject{{"id", row.id}, {"version", version}, {"updated_at", row.updatedAt}}};
}

ProjectStore::Selection ProjectStore::SelectOwned(qint64 accountId, const QStringList& projectIds)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase index(IndexPath());
    if (!index.Open(true))
        return {QStringLiteral("Unknown project"), 404, {}};
    return SelectOwnedLocked(index, accountId, projectIds);
}

ProjectStore::Selection ProjectStore::SelectOwnedLocked(CLmDataBase& index, qint64 accountId,
                                                        const QStringList& projectIds)
{
    Selection selection;
    for (const QString& projectId : projectIds) {
        QSqlQuery row(index.Database());
        if (!index.Exec(QStringLiteral("SELECT account_id, project_name FROM projects WHERE id = ?"), {projectId}, &row)
            || !row.next())
            return {QStringLiteral("Unknown project"), 404, {}};
        if (row.value(0).toLongLong() != accountId)
            return {QStringLiteral("Project belongs to another account"), 403, {}};
        selection.projects.append({projectId, row.value(1).toString()});
    }
    return selection;
}

ProjectStore::Selection ProjectStore::Remove(qint64 accountId, const QStringList& projectIds)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase index(IndexPath());
    if (!index.Open())
        return {QStringLiteral("Cannot remove the project"), 500, {}};
    const Selection selection = SelectOwnedLocked(index, accountId, projectIds);
    if (!selection.error.isEmpty())
        return selection;
    bool ok = index.Database().transaction();
    for (const Project& project : selection.projects)
        ok = ok && index.Exec(QStringLiteral("DELETE FROM projects WHERE id = ?"), {project.id});
    if (!ok || !index.Database().commit()) {
        index.Database().rollback();
        return {QStringLiteral("Cannot remove the project"), 500, {}};
    }
    // The index no longer names the files: one left behind is only dead weight.
    for (const Project& project : selection.projects)
        QFile::remove(AccountFolder(accountId) + QLatin1Char('/') + StoredFileName(project.id));
    return selection;
}

std::optional<QByteArray> ProjectStore::FileBytes(const QString& projectId)
{
    // Read outside the lock: a replacing upload renames over the path, and
    // the file opened here stays whole.
    QFile file(StoredPath(projectId));
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

QString ProjectStore::StoredPath(const QString& projectId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase index(IndexPath());
    QSqlQuery row(index.Database());
    if (!index.Open(true)
        || !index.Exec(QStringLiteral("SELECT account_id, file_name FROM projects WHERE id = ?"), {projectId}, &row)
        || !row.next())
        return QString();
    return AccountFolder(row.value(0).toLongLong()) + QLatin1Char('/') + row.value(1).toString();
}

void ProjectStore::RemoveUploadLeftovers() const
{
    // Left by a stop in the middle of an upload: no index entry names them.
    const QDir projects(m_dataDir + QStringLiteral("/projects"));
    for (const QString& account : projects.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QDir folder(projects.filePath(account));
        for (const QString& leftover :
             folder.entryList({QLatin1String(kUploadPrefix) + QLatin1Char('*')}, QDir::Files | QDir::Hidden))
            folder.remove(leftover);
    }
}

std::optional<ProjectStore::Project> ProjectStore::FindByName(qint64 accountId, const QString& name)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase index(IndexPath());
    QSqlQuery row(index.Database());
    if (!index.Open(true)
        || !index.Exec(QStringLiteral("SELECT id FROM projects WHERE account_id = ? AND project_name = ? LIMIT 1"),
                       {accountId, name}, &row)
        || !row.next())
        return std::nullopt;
    return Project{row.value(0).toString(), name};
}

ProjectStore::UploadResult ProjectStore::CopyInto(qint64 accountId, const QString& sourceId, const QString& targetId,
                                                  const QString& targetName)
{
    const std::optional<QByteArray> source = FileBytes(sourceId);
    if (!source || source->isEmpty())
        return {QStringLiteral("The shared project no longer exists"), 404, {}};
    QDir().mkpath(AccountFolder(accountId));
    QTemporaryFile copy(AccountFolder(accountId) + QLatin1Char('/') + QLatin1String(kUploadPrefix)
                        + QStringLiteral("XXXXXX"));
    if (!copy.open() || copy.write(*source) != source->size() || !copy.flush())
        return {QStringLiteral("Cannot store the project"), 500, {}};
    copy.close();
    if (!RewriteOwner(copy.fileName(), sourceId, targetId, targetName, accountId))
        return {QStringLiteral("Cannot store the project"), 500, {}};
    // The rewritten copy comes in as the receiver's own upload would, with
    // the same checks, version and index entry.
    QFile rewritten(copy.fileName());
    if (!rewritten.open(QIODevice::ReadOnly))
        return {QStringLiteral("Cannot store the project"), 500, {}};
    UploadResult result = Upload(accountId, rewritten.readAll());
    if (result.error.isEmpty())
        result.data.insert(QStringLiteral("name"), targetName);
    return result;
}

bool ProjectStore::RewriteOwner(const QString& filePath, const QString& fromId, const QString& toId,
                                const QString& name, qint64 accountId)
{
    CLmDataBase db(filePath);
    if (!db.OpenForeign({QLatin1String(ProjectTableName)}, CLmDataBase::EForeignAccess::PrivateCopy)
        || !db.Database().transaction())
        return false;
    QStringList tables;
    QSqlQuery names(db.Database());
    db.Exec(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%'"), {},
            &names);
    while (names.next())
        tables.append(names.value(0).toString());
    names.finish();
    bool ok = true;
    for (const QString& table : qAsConst(tables)) {
        QSqlQuery columns(db.Database());
        db.Exec(QStringLiteral("SELECT name FROM pragma_table_info(?)"), {table}, &columns);
        QStringList columnNames;
        while (columns.next())
            columnNames.append(columns.value(0).toString());
        columns.finish();
        const QString quoted = QLatin1Char('"') + QString(table).replace(QLatin1Char('"'), QLatin1String("\"\""))
                               + QLatin1Char('"');
        if (columnNames.contains(QLatin1String("project_id")))
            ok = ok && db.Exec(QStringLiteral("UPDATE %1 SET project_id = ? WHERE project_id = ?").arg(quoted),
                               {toId, fromId});
        if (columnNames.contains(QLatin1String("user_id")))
            ok = ok && db.Exec(QStringLiteral("UPDATE %1 SET user_id = ?").arg(quoted), {accountId});
    }
    ok = ok
         && db.Exec(QStringLiteral("UPDATE %1 SET id = ?, project_name = ? WHERE id = ?")
                        .arg(QLatin1String(ProjectTableName)),
                    {toId, name, fromId});
    if (!ok || !db.Database().commit()) {
        db.Database().rollback();
        return false;
    }
    return true;
}

QString ProjectStore::IndexPath() const
{
    return m_dataDir + QStringLiteral("/projects.db");
}

QString ProjectStore::AccountFolder(qint64 accountId) const
{
    return m_dataDir + QStringLiteral("/projects/") + QString::number(accountId);
}

QString ProjectStore::StoredFileName(const QString& projectId) const
{
    // Ids come from clients: never let one name a path.
    return QString::fromLatin1(QCryptographicHash::hash(projectId.toUtf8(), QCryptographicHash::Sha1).toHex())
           + QLatin1String(ProjectSuffix);
}

std::optional<ProjectStore::ProjectRow> ProjectStore::ReadProjectRow(const QString& filePath)
{
    CLmDataBase db(filePath);
    QSqlQuery row(db.Database());
    if (!db.OpenForeign({QLatin1String(ProjectTableName), QLatin1String(FlightTaskTableName)})
        || !db.Exec(QStringLiteral("SELECT id, project_name, updated_at FROM %1 LIMIT 1")
                        .arg(QLatin1String(ProjectTableName)),
                    {}, &row)
        || !row.next())
        return std::nullopt;
    ProjectRow project{row.value(0).toString(), row.value(1).toString(), row.value(2).toString(), 0};
    row.finish();
    const QVariant tasks = db.SelectValue(QStringLiteral("SELECT count(*) FROM %1").arg(QLatin1String(FlightTaskTableName)));
    if (!tasks.isValid())
        return std::nullopt;
    project.taskCount = tasks.toInt();
    if (!IsTimeText(project.updatedAt))
        project.updatedAt = NowText();
    return project;
}

bool ProjectStore::StampFile(const QString& filePath, const QString& projectId, qint64 version,
                             const QString& updatedAt)
{
    CLmDataBase db(filePath);
    return db.OpenForeign({QLatin1String(ProjectTableName)}, CLmDataBase::EForeignAccess::PrivateCopy)
           && db.Exec(QStringLiteral("UPDATE %1 SET version = ?, updated_at = ? WHERE id = ?")
                          .arg(QLatin1String(ProjectTableName)),
                      {version, updatedAt, projectId});
}
