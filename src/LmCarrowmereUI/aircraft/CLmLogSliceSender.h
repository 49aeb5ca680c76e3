#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QPair>
#include <QString>
#include <QTimer>

#include <memory>

struct SLmSliceLink;

// Posts the slices of a log to the cloud storage with libcurl on a worker
// thread: the slice's bytes go from the file straight into the connection,
// which stays open from one slice to the next. Qt's HTTP client hands a
// request body to its network thread 16 KB at a time through the thread
// that sent it, with Nagle's algorithm on; for a log of many megabytes that
// costs several times the CPU of the transfer itself and puts the GUI thread
// in the path of every step.
class CLmLogSliceSender : public QObject
{
    Q_OBJECT
public:
    using Headers = QList<QPair<QByteArray, QByteArray>>;

    CLmLogSliceSender(const QByteArray& url, const Headers& headers, const QString& path, QObject* parent = nullptr);
    // A slice still on its way is abandoned; nothing waits for it.
    ~CLmLogSliceSender() override;

    // Posts the sliceBytes at offset of the file; Answered or Failed follows.
    void Send(qint64 offset, qint64 sliceBytes, const QString& session);

Q_SIGNALS:
    // Bytes of the slice's body sent so far.
    void Progress(qint64 sent, qint64 total);
    // The storage's reply: an HTTP success, or its refusal (a 4xx with a
    // JSON object).
    void Answered(QByteArray reply);
    void Failed();

private:
    struct SPosted
    {
        int nHttpStatus = 0;
        QByteArray reply;
        QString strError;
    };

    static SPosted Post(const std::shared_ptr<SLmSliceLink>& link, const QByteArray& url, const Headers& headers,
                        const QString& path, qint64 offset, qint64 sliceBytes, const QByteArray& head);
    void OnPosted(const SPosted& posted);

    QByteArray m_url;
    Headers m_headers;
    QString m_strPath;
    std::shared_ptr<SLmSliceLink> m_pLink;
    qint64 m_nBodySize = 0;
    QTimer m_progressTimer;
};
