#include "ProjectStore.h"

#include "CLmDataBase.h"
#include "LmProjectConstants.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QTemporaryFile>

namespace {

QString NowText()
{
    return QDateTime::currentDateTimeUtc().toString(QLatin1String(DateTimeSFormat));
}

bool IsTimeText(const QString& text)
{
    return QDateTime::fromString(text, QLatin1String(DateTimeSFormat)).isValid();
}

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
    std::lock_guard<std::mutex> lock(m_mutex);
    QDir().mkpath(AccountFolder(accountId));
    QTemporaryFile temp(AccountFolder(accountId) + QStringLiteral("/.upload-XXXXXX"));
    if (!temp.open() || temp.write(fileBytes) != fileBytes.size() || !temp.flush())
        return {QStringLiteral("Cannot store the project"), 500, {}};
    temp.close();
    if (!CLmDataBase::IsSqliteFile(temp.fileName()))
        return {QStringLiteral("Invalid project file"), 400, {}};
    UploadResult result = StoreLocked(accountId, temp.fileName());
    if (result.error.isEmpty())
        temp.setAutoRemove(false);
    return result;
}

ProjectStore::UploadResult ProjectStore::StoreLocked(qint64 accountId, const QString& tempPath)
{
    const std::optional<ProjectRow> row = ReadProjectRow(tempPath);
    if (!row || row->id.isEmpty())
        return {QStringLiteral("Invalid project file"), 400, {}};
    CLmDataBase index(IndexPath());
    if (!index.Open())
        return {QStringLiteral("Cannot store the project"), 500, {}};
    QSqlQuery existing(index.Database());
    index.Exec(QStringLiteral("SELECT account_id, version FROM projects WHERE id = ?"), {row->id}, &existing);
    qint64 version = 1;
    if (existing.next()) {
        if (existing.value(0).toLongLong() != accountId)
            return {QStringLiteral("Project belongs to another account"), 403, {}};
        version = existing.value(1).toLongLong() + 1;
    }
    existing.finish();
    const QString updatedAt = IsTimeText(row->updatedAt) ? row->updatedAt : NowText();
    const QString fileName = StoredFileName(row->id);
    const QString target = AccountFolder(accountId) + QLatin1Char('/') + fileName;
    if (!StampFile(tempPath, row->id, version, updatedAt) || (QFile::exists(target) && !QFile::remove(target))
        || !QFile::rename(tempPath, target))
        return {QStringLiteral("Cannot store the project"), 500, {}};
    index.Exec(QStringLiteral("INSERT OR REPLACE INTO projects (id, account_id, project_name, updated_at, version,"
                              " flight_mission_count, file_name) VALUES (?, ?, ?, ?, ?, ?, ?)"),
               {row->id, accountId, row->name, updatedAt, version, CountTasks(target), fileName});
    return {QString(), 200, QJsonObject{{"id", row->id}, {"version", version}, {"updated_at", updatedAt}}};
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

QByteArray ProjectStore::FileBytes(const QString& projectId)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    CLmDataBase index(IndexPath());
    QSqlQuery row(index.Database());
    if (!index.Open(true)
        || !index.Exec(QStringLiteral("SELECT account_id, file_name FROM projects WHERE id = ?"), {projectId}, &row)
        || !row.next())
        return {};
    QFile file(AccountFolder(row.value(0).toLongLong()) + QLatin1Char('/') + row.value(1).toString());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
    const QByteArray bytes = FileBytes(sourceId);
    if (bytes.isEmpty())
        return {QStringLiteral("The shared project no longer exists"), 404, {}};
    std::lock_guard<std::mutex> lock(m_mutex);
    QDir().mkpath(AccountFolder(accountId));
    QTemporaryFile temp(AccountFolder(accountId) + QStringLiteral("/.copy-XXXXXX"));
    if (!temp.open() || temp.write(bytes) != bytes.size() || !temp.flush())
        return {QStringLiteral("Cannot store the project"), 500, {}};
    temp.close();
    if (!RewriteOwner(temp.fileName(), sourceId, targetId, targetName, accountId))
        return {QStringLiteral("Cannot store the project"), 500, {}};
    UploadResult result = StoreLocked(accountId, temp.fileName());
    if (result.error.isEmpty()) {
        temp.setAutoRemove(false);
        result.data.insert(QStringLiteral("name"), targetName);
    }
    return result;
}

bool ProjectStore::RewriteOwner(const QString& filePath, const QString& fromId, const QString& toId,
                                const QString& name, qint64 accountId)
{
    CLmDataBase db(filePath);
    if (!db.Open() || !db.Database().transaction())
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
    if (!db.Open(true)
        || !db.Exec(QStringLiteral("SELECT id, project_name, updated_at FROM %1 LIMIT 1")
                        .arg(QLatin1String(ProjectTableName)),
                    {}, &row)
        || !row.next())
        return std::nullopt;
    return ProjectRow{row.value(0).toString(), row.value(1).toString(), row.value(2).toString()};
}

int ProjectStore::CountTasks(const QString& filePath)
{
    CLmDataBase db(filePath);
    if (!db.Open(true))
        return 0;
    return db.SelectValue(QStringLiteral("SELECT count(*) FROM %1").arg(QLatin1String(FlightTaskTableName))).toInt();
}

bool ProjectStore::StampFile(const QString& filePath, const QString& projectId, qint64 version,
                             const QString& updatedAt)
{
    CLmDataBase db(filePath);
    return db.Open()
           && db.Exec(QStringLiteral("UPDATE %1 SET version = ?, updated_at = ? WHERE id = ?")
                          .arg(QLatin1String(ProjectTableName)),
                      {version, updatedAt, projectId});
}
