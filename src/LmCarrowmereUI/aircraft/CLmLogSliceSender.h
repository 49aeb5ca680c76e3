#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QPair>
#include <QString>
#include <QTimer>

#include <memory>

struct SLmSliceLink;
template <typename T>
class QFutureInterface;

// Posts the slices of a log to the cloud storage with libcurl on a worker
// thread: the slice's bytes go from the file straight into the connection,
// which stays open from one slice to the next. Qt's HTTP client hands a
// request body to its network thread 16 KB at a time through the thread
// that sent it, with Nagle's algorithm on; for a log of many megabytes that
// costs several times the CPU of the transfer itself and puts the GUI thread
// in the path of every step.
//
// While the storage takes a slice and asks for the one right after it, the
// worker sends that one at once; the caller sees those replies as progress
// and gets the first reply that asks for anything else.
class CLmLogSliceSender : public QObject
{
    Q_OBJECT
public:
    using Headers = QList<QPair<QByteArray, QByteArray>>;

    CLmLogSliceSender(const QByteArray& url, const Headers& headers, const QString& path, qint64 fileSize,
                      QObject* parent = nullptr);
    // Slices still on their way are abandoned; nothing waits for them.
    ~CLmLogSliceSender() override;

    // Posts the sliceBytes at offset of the file, and the slices after it
    // while the storage asks for them in turn; Answered or Failed follows.
    void Send(qint64 offset, qint64 sliceBytes, const QString& session);

Q_SIGNALS:
    // Bytes of the file sent since the offset given to Send, of what was left.
    void Progress(qint64 sent, qint64 total);
    // The storage's reply that does not ask for the next slice (the stored
    // file's address, another offset, a refusal): an HTTP success, or the
    // storage's refusal (a 4xx with a JSON object).
    void Answered(QByteArray reply);
    void Failed();

private:
    struct SPosted
    {
        int nHttpStatus = 0;
        QByteArray reply;
        QString strError;
        // Where the file stands after this slice, and whether the worker
        // went on with the next one.
        qint64 nEnd = 0;
        bool bWentOn = false;
    };
    struct SRun
    {
        std::shared_ptr<SLmSliceLink> link;
        QByteArray url;
        Headers headers;
        QString strPath;
        qint64 nFileSize = 0;
        QString strSession;
        qint64 nOffset = 0;
        qint64 nSliceBytes = 0;
    };

    static void Run(QFutureInterface<SPosted> promise, const SRun& run);
    static SPosted Post(const SRun& run, qint64 offset, qint64 sliceBytes);
    // The size of the next slice when the reply takes the slice that ended
    // at end and asks for the one that starts there; 0 otherwise.
    static qint64 NextSliceAskedFor(const SPosted& posted, const SRun& run);
    void OnPosted(const SPosted& posted);

    QByteArray m_url;
    Headers m_headers;
    QString m_strPath;
    qint64 m_nFileSize;
    std::shared_ptr<SLmSliceLink> m_pLink;
    qint64 m_nRunOffset = 0;
    QTimer m_progressTimer;
};
