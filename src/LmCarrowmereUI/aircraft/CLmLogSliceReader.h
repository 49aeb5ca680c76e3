#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

template <typename T>
class QFutureWatcher;

// Reads the slices of a log for the storage upload on a worker thread, each
// straight into its multipart body, and keeps one slice ahead: while a slice
// travels, the next one is read, so that it is ready when the storage asks
// for it. The thread that asks never touches the file.
class CLmLogSliceReader : public QObject
{
    Q_OBJECT
public:
    // session: the storage's upload session the bodies name.
    CLmLogSliceReader(const QString& path, qint64 fileSize, const QString& session, QObject* parent = nullptr);

    const QString& Session() const { return m_strSession; }
    // SliceReady follows with the slice of up to sliceSize bytes at offset,
    // at once when it was read ahead.
    void Request(qint64 offset, qint64 sliceSize);

Q_SIGNALS:
    // body is empty when the file could not be read.
    void SliceReady(qint64 offset, QByteArray body);

private:
    void Read(qint64 offset);
    void DeliverWhenRead();

    QString m_strPath;
    qint64 m_nFileSize;
    QString m_strSession;
    qint64 m_nSliceSize = 0;
    // The slice asked for and not yet delivered, -1 for none.
    qint64 m_nWantedOffset = -1;
    // The slice being read or read, and its bytes.
    qint64 m_nReadOffset = -1;
    QFutureWatcher<QByteArray>* m_pRead = nullptr;
};
