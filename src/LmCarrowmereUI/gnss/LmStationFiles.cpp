#include "LmStationFiles.h"

#include <QDir>
#include <QSaveFile>

namespace LmStationFiles {

QString TargetPath(const QString& dir, const QString& name)
{
    const bool plain = !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..")
        && !name.contains(QLatin1Char('/')) && !name.contains(QLatin1Char('\\')) && !name.contains(QChar(0))
        && !name.contains(QLatin1Char(':'));
    if (!plain || dir.isEmpty())
        return {};
    return QDir(dir).filePath(name);
}

bool WriteWhole(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

}  // namespace LmStationFiles
