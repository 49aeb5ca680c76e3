#pragma once

#include "CLmLocalProjectReader.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

class QCborMap;

// Remembers what each local project file held, so that a scan reads again
// only the files that changed since they were last read, in this run or, when
// the cache has a file to keep its readings in, in an earlier one. A file
// counts as unchanged while its project and mission databases keep their
// inode, size, modification and status-change times and have no journal or
// WAL pending. Used from one thread only.
class CLmLocalProjectCache
{
public:
    // storePath: where readings are kept between runs; empty keeps them in
    // memory only. Nothing is read before the first scan.
    explicit CLmLocalProjectCache(const QString& storePath = QString());

    // The project files of one folder in name order, each read from disk
    // unless its cached reading still holds.
    QList<SLocalProjectFile> ReadFolder(const QString& folderPath, const QString& userId);
    // Ends a scan of the whole store: forgets the files it did not visit and
    // keeps the rest for the next run.
    void FinishScan();

    // The file the engine keeps its readings in.
    static QString DefaultStorePath();

private:
    struct SFileStamp
    {
        bool bExists = false;
        quint64 iInode = 0;
        qint64 iSize = 0;
        qint64 iModifiedNs = 0;  // since the epoch
        qint64 iChangedNs = 0;   // since the epoch

        bool operator==(const SFileStamp& other) const;
    };
    struct SEntry
    {
        QString strUserId;
        SFileStamp projectStamp;
        SFileStamp missionStamp;
        SLocalProjectFile content;
    };

    SLocalProjectFile ReadProject(const QString& folderPath, const QString& fileName, const QStringList& folderFiles,
                                  const QString& userId);
    static SFileStamp Stamp(const QString& filePath);
    static bool HasPendingWrites(const QString& filePath, const QStringList& folderFiles);
    static bool MayStillChangeUnseen(const SFileStamp& stamp, qint64 readAtNs);

    void Load();
    void Save() const;
    static QCborMap ToCbor(const QString& path, const SEntry& entry);
    static bool FromCbor(const QCborMap& map, QString* path, SEntry* entry);

    QString m_strStorePath;
    bool m_bLoaded = false;
    bool m_bChanged = false;
    QHash<QString, SEntry> m_hashEntries;  // by project file path
    QSet<QString> m_setVisited;            // project files seen by the scan under way
};
