#pragma once

#include <QCryptographicHash>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QSaveFile>

#include <memory>

class QNetworkReply;

// Downloads one release package ({"url", "size", "sha256"}) into a folder.
// The bytes go to a temporary file beside the target; only when the size and
// the SHA-256 digest match the release is it renamed to the target name (the
// last part of the URL). A failed or aborted download leaves the folder as it
// was, an earlier file of the same name included.
class CLmPackageDownload : public QObject
{
    Q_OBJECT
public:
    explicit CLmPackageDownload(QObject* parent = nullptr);
    ~CLmPackageDownload() override;

    // Starts (or restarts) the download of release into folder.
    void Start(const QJsonObject& release, const QString& folder);
    void Abort();

signals:
    void Progress(qint64 received, qint64 total);
    void Finished(const QString& filePath);
    void Failed(const QString& reason);

private:
    void OnReadyRead();
    void OnFinished();
    void Fail(const QString& reason);
    QString Verify() const;

    QNetworkAccessManager m_manager;
    QPointer<QNetworkReply> m_pReply;
    std::unique_ptr<QSaveFile> m_pFile;
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
    qint64 m_nExpectedSize = 0;
    qint64 m_nReceived = 0;
    QByteArray m_expectedSha256;
};
