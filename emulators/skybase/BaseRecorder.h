#pragma once

#include "BaseStorage.h"

#include <QDateTime>
#include <QFile>
#include <QObject>
#include <QTimer>

// Records raw static data: while recording, every second appends one epoch
// block per Hz of the rate to the file "<name>.GNS" in the storage. Stops by
// itself when the storage is full.
class BaseRecorder : public QObject
{
    Q_OBJECT
public:
    enum EStart { Started, NameExists, StorageFull, CannotWrite };

    BaseRecorder(BaseStorage& storage, int epochBytes, QObject* parent = nullptr);

    static const QString Suffix;  // ".GNS"

    // An empty name records under "SKB" followed by the UTC start time.
    EStart Start(const QString& name, int rate);
    void Stop();
    bool IsRecording() const { return m_file.isOpen(); }
    QString Name() const { return m_strName; }  // without the suffix
    QDateTime Created() const { return m_created; }
    QString FileName() const { return m_strName + Suffix; }

private:
    void RecordSecond();
    QByteArray EpochBlock();

    BaseStorage& m_storage;
    int m_nEpochBytes;
    int m_nRate = 1;
    quint32 m_nEpoch = 0;
    QFile m_file;
    QString m_strName;
    QDateTime m_created;
    QTimer m_timer;
};
