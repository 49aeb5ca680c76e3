#pragma once

#include <QList>
#include <QString>
#include <QtGlobal>

// One file of a receiver's raw-data folder, as the receiver listed it.
struct STrimbleEntryInfo {
    quint16 entryId = 0;
    quint32 size = 0;     // bytes
    quint32 timeUtc = 0;  // seconds since 1970 UTC
    QString fileName;     // the name it is saved under in the target folder
    quint32 received = 0; // bytes received so far
};

// One raw-data folder (a recording session) of a receiver.
struct STrimbleFolderInfo {
    quint16 folderId = 0;
    quint32 folderSize = 0; // bytes
    quint16 lastFolderNum = 0;
    quint16 folderCount = 0;
    quint32 timeUtc = 0;    // seconds since 1970 UTC
    QString folderName;     // the names of its files start with it
    QString text;           // the receiver's own label, shown but never used in a path
    quint16 entryCount = 0;
    quint16 lastEntryNum = 0;
    QList<STrimbleEntryInfo> entries;
};
