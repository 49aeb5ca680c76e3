#include "LmProjectFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr QByteArray::Base64Options UploadEncoding =
    QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

bool IsUnsafeChar(QChar c)
{
    return c == QLatin1Char('/') || c == QLatin1Char('\\') || c.category() == QChar::Other_Control;
}


}  // namespace

QByteArray GetUploadArray(const QString& projectFilePath)
{
    QFile file(projectFilePath);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll().toBase64(UploadEncoding);
}

QByteArray DecodeUploadArray(const QByteArray& uploadText)
{
    return QByteArray::fromBase64(uploadText, UploadEncoding);
}

QString CreateUniqueFileName(const QString& dirPath, const QString& fileName)
{
    const QDir dir(dirPath);
    QString candidate = fileName;
    for (int i = 1; dir.exists(candidate); ++i)
        candidate = fileName + QStringLiteral("(%1)").arg(i);
    return candidate;
}

QString SafeProjectName(const QString& projectName)
{
    QString name = projectName;
    for (QChar& c : name) {
        if (IsUnsafeChar(c))
            c = QLatin1Char('_');
    }
    while (name.endsWith(QLatin1Char(' ')))
        name.chop(1);
    for (int i = 0; i < name.size() && name.at(i) == QLatin1Char('.'); ++i)
        name[i] = QLatin1Char('_');
    return name.isEmpty() ? QStringLiteral("_") : name;
}
