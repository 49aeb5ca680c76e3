#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QString>

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

signals:
    void downloadProgress(qint64 nReceived, qint64 nTotal);
    // The whole file arrived: ReceivedData() holds it.
    void downLoadFinished();
    // The download failed or was cut short; ReceivedData() is cleared.
    void NetWorkError();

private:
    void OnReadyRead();
    void OnProgress(qint64 nReceived, qint64 nTotal);
    void OnFinished();

    QNetworkAccessManager m_manager;
    QPointer<QNetworkReply> m_pReply;
    QString m_strHost;
    int m_nPort = 21;
    QByteArray m_received;
    qint64 m_nExpected = -1;  // the file's size once the server told it
};
