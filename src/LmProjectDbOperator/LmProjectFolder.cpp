#include "LmProjectFolder.h"

#include "CLmDataBase.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace LmProjectFolder {

namespace {

// Only the header is read: a database another connection holds exclusively
// cannot be read further, and it must still count as a database.
bool HasSqliteHeader(const QString& filePath)
{
    QFile file(filePath);
    static const QByteArray header("SQLite format 3\0", 16);
    return file.open(QIODevice::ReadOnly) && file.read(header.size()) == header;
}

// The real path of the project's folder when it sits directly under the real
// project root, else empty.
QString ContainedFolder(const QString& projectFilePath, const QString& projectRoot)
{
    const QString root = QFileInfo(projectRoot).canonicalFilePath();
    const QFileInfo folderInfo(QFileInfo(projectFilePath).absolutePath());
    // A linked project folder is refused even when it points into the root:
    // removing its target would remove another project.
    if (folderInfo.isSymLink())
        return QString();
    const QString folder = folderInfo.canonicalFilePath();
    if (root.isEmpty() || folder.isEmpty() || folder == root)
        return QString();
    return QFileInfo(folder).absolutePath() == root ? folder : QString();
}

}  // namespace

bool IsInUse(const QString& projectFilePath)
{
    // Only a database can be held; any other file is removed like the rest.
    if (!HasSqliteHeader(projectFilePath))
        return false;
    CLmDataBase db(projectFilePath);
    if (!db.Open())
        return true;
    // Ask once, without SQLite's usual wait for a busy file: the GUI thread
    // asks, and a held database will not be let go within a few seconds.
    db.Exec(QStringLiteral("PRAGMA busy_timeout = 0"));
    if (!db.Exec(QStringLiteral("BEGIN EXCLUSIVE")))
        return true;
    db.Exec(QStringLiteral("ROLLBACK"));
    return false;
}

ERemoval Remove(const QString& projectFilePath, const QString& projectRoot)
{
    const QFileInfo folderInfo(QFileInfo(projectFilePath).absolutePath());
    if (!folderInfo.exists() && !folderInfo.isSymLink())
        return ERemoval::Missing;
    const QString folder = ContainedFolder(projectFilePath, projectRoot);
    if (folder.isEmpty())
        return ERemoval::Refused;
    if (IsInUse(projectFilePath))
        return ERemoval::InUse;
    std::error_code error;
    std::filesystem::remove_all(std::filesystem::path(QFile::encodeName(folder).toStdString()), error);
    return error ? ERemoval::InUse : ERemoval::Removed;
}

}  // namespace LmProjectFolder
