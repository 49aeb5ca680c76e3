#pragma once

#include <QByteArray>
#include <QMutex>
#include <QQueue>
#include <QSet>
#include <QString>
#include <QThread>
#include <QWaitCondition>

// Writes downloaded raw-data files on its own thread, so the GUI thread
// never waits for the disk. Several entries may make up one file: each
// piece is appended to the file's partial copy (path + PartialSuffix), and
// the last piece renames the copy to its final name. A file under its final
// name is therefore always complete; an interrupted download leaves at most
// a partial copy, which DiscardUnfinished() removes.
class CLmTrimbleDataWrite : public QThread
{
    Q_OBJECT
public:
    static const QString PartialSuffix;

    explicit CLmTrimbleDataWrite(QObject* parent = nullptr);
    // Finishes the queued writes, then ends the thread.
    ~CLmTrimbleDataWrite() override;

    // Queues one piece of the file at path. bFirst starts the file afresh;
    // bLast completes it.
    void SetData(const QString& path, const QByteArray& bytes, bool bFirst, bool bLast);
    // Queues the removal of the partial copies of files not completed.
    void DiscardUnfinished();

Q_SIGNALS:
    // The file is complete under its final name.
    void FileWritten(QString path);
    void WriteFailed(QString path, QString error);

protected:
    void run() override;

private:
    struct SPiece {
        QString path;
        QByteArray bytes;
        bool bFirst = false;
        bool bLast = false;
        bool bDiscard = false;
    };

    void Enqueue(const SPiece& piece);
    void Write(const SPiece& piece);
    void Discard();

    QMutex m_mutex;
    QWaitCondition m_wake;
    QQueue<SPiece> m_queue;
    bool m_bStopping = false;
    QSet<QString> m_setUnfinished; // only touched on the writer's thread
};
