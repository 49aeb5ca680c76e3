#include "LmFileReplace.h"

#include "LmDataLog.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace LmFileReplace {

bool Replace(const QString& fromPath, const QString& targetPath)
{
    // QFile::rename refuses an existing target; rename(2) replaces it atomically.
    if (std::rename(QFile::encodeName(fromPath).constData(), QFile::encodeName(targetPath).constData()) == 0)
        return true;
    qCWarning(lcNoflyZone) << "cannot replace" << targetPath << std::strerror(errno);
    return false;
}

bool CopyOver(const QString& sourcePath, const QString& targetPath)
{
    QFile source(sourcePath);
    QTemporaryFile temp(QFileInfo(targetPath).absolutePath() + QStringLiteral("/.XXXXXX.part"));
    if (!source.open(QIODevice::ReadOnly) || !temp.open()) {
        qCWarning(lcNoflyZone) << "cannot copy" << sourcePath << "to" << targetPath << temp.errorString();
        return false;
    }
    while (!source.atEnd()) {
        const QByteArray block = source.read(1 << 16);
        if (block.isEmpty() || temp.write(block) != block.size()) {
            qCWarning(lcNoflyZone) << "copy to" << targetPath << "failed:" << temp.errorString();
            return false;
        }
    }
    // A copy is published for other programs to read; the temporary file
    // was made for its owner alone.
    if (!temp.flush()
        || !temp.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup
                                | QFileDevice::ReadOther))
        return false;
    temp.close();
    if (!Replace(temp.fileName(), targetPath))
        return false;
    temp.setAutoRemove(false);
    return true;
}

}  // namespace LmFileReplace
