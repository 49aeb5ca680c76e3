#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <limits>

class QNetworkReply;

// Downloads one file at a time from the base station's FTP server
// (anonymous, "ftp://host:port/path" through QNetworkAccessManager). The
// received bytes stay here until the caller takes them with ReceivedData()
// and clears them with ClearReceivedData(). Lives on the thread that created
// it; nothing blocks.
class CLmFtpClientLink : public QObject
{
    Q_OBJECT
public:
    explicit CLmFtpClientLink(QObject* parent = nullptr);
    ~CLmFtpClientLink() override;

    void SetFtpHostPort(const QString& strHost, int nPort);
    // Starts downloading the path (e.g. "/static/SKB_20261123.GNS"); a
    // download still running is cancelled first and its bytes dropped.
    void FtpGet(const QString& strPath);
    // Cancels the running download (no signal follows).
    void Abort();

    const QByteArray& ReceivedData() const { return m_received; }
    void ClearReceivedData();
    bool IsDownloading() const { return !m_pReply.isNull(); }

    // A download that receives nothing for this long has failed: the FTP
    // layer can wait forever for the end of a transfer whose server is gone.
    static constexpr int kStallTimeoutMs = 10000;
    // The held bytes are one QByteArray (an int size and a small header): a
    // larger file fails instead of exhausting it.
    static constexpr qint64 kMaxHeldBytes = std::numeric_limits<int>::max() - 64;

signals:
    void downloadProgress(qint64 nReceived, qint64 nTotal);
    // The whole file arrived: ReceivedData() holds it.
    void downLoadFinished();
    // The download failed, was cut short or is larger than kMaxHeldBytes;
    // ReceivedData() is cleared.
    void NetWorkError();

private:
    void OnReadyRead();
    void OnProgress(qint64 nReceived, qint64 nTotal);
    // Makes room for the whole file once its size is known; false (and the
    // download failed) when it is too large to hold.
    bool ExpectSize(qint64 nSize);
    // Moves what the reply has received to the held bytes; false when they
    // would grow past kMaxHeldBytes.
    bool HoldAvailableBytes(QNetworkReply* reply);
    void OnFinished();
    void GiveUpTooLarge(qint64 nSize);
    void OnStalled();
    void Fail();

    QNetworkAccessManager m_manager;
    QTimer m_stallTimer;
    QPointer<QNetworkReply> m_pReply;
    QString m_strHost;
    int m_nPort = 21;
    QByteArray m_received;
    qint64 m_nExpected = -1;  // the file's size once the server told it
};
