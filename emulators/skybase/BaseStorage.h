#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

// The station's memory: the static files in DIR/ftp/static (served over FTP
// as "/static/"), within a fixed capacity.
class BaseStorage
{
public:
    BaseStorage(const QString& folder, quint64 capacity);

    QString Folder() const { return m_strFolder; }
    quint64 Capacity() const { return m_nCapacity; }
    quint64 Used() const;
    quint64 Free() const;
    // "name,createTime,size;..." (creation time ISO 8601 UTC) and the number of files.
    QString ListText(int& count) const;
    // A plain file name of this folder (no path, no "..").
    static bool IsPlainName(const QString& name);
    bool Exists(const QString& name) const;
    bool Remove(const QString& name);
    // All file names, oldest first.
    QStringList Names() const;

private:
    QString m_strFolder;
    quint64 m_nCapacity;
};
