#include "BaseStorage.h"

#include <QDir>
#include <QFileInfo>

BaseStorage::BaseStorage(const QString& folder, quint64 capacity)
    : m_strFolder(folder), m_nCapacity(capacity)
{
    QDir().mkpath(folder);
}

quint64 BaseStorage::Used() const
{
    quint64 used = 0;
    for (const QFileInfo& file : QDir(m_strFolder).entryInfoList(QDir::Files))
        used += static_cast<quint64>(file.size());
    return used;
}

quint64 BaseStorage::Free() const
{
    const quint64 used = Used();
    return used >= m_nCapacity ? 0 : m_nCapacity - used;
}

QString BaseStorage::ListText(int& count) const
{
    QStringList records;
    const QFileInfoList files = QDir(m_strFolder).entryInfoList(QDir::Files, QDir::Time | QDir::Reversed);
    for (const QFileInfo& file : files) {
        const QDateTime created = file.birthTime().isValid() ? file.birthTime() : file.lastModified();
        records.append(file.fileName() + QLatin1Char(',') + created.toUTC().toString(Qt::ISODate) + QLatin1Char(',')
                       + QString::number(file.size()));
    }
    count = records.size();
    return records.join(QLatin1Char(';'));
}

bool BaseStorage::IsPlainName(const QString& name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..")
           && !name.contains(QLatin1Char('/')) && !name.contains(QLatin1Char('\\')) && !name.contains(QChar(0))
           && !name.contains(QLatin1Char(',')) && !name.contains(QLatin1Char(';'));
}

bool BaseStorage::Exists(const QString& name) const
{
    return IsPlainName(name) && QFileInfo(QDir(m_strFolder).filePath(name)).isFile();
}

bool BaseStorage::Remove(const QString& name)
{
    return Exists(name) && QFile::remove(QDir(m_strFolder).filePath(name));
}

QStringList BaseStorage::Names() const
{
    return QDir(m_strFolder).entryList(QDir::Files, QDir::Time | QDir::Reversed);
}
