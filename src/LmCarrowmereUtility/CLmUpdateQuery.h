#pragma once

#include <QJsonObject>
#include <QObject>

// Asks the cloud whether a product ("skyconsole", "launcher", "firmware")
// has a release newer than the given version. Exactly one of the signals
// follows each Query(). A release is accepted only when it is really newer
// and names a download URL, a positive size and a SHA-256 digest.
class CLmUpdateQuery : public QObject
{
    Q_OBJECT
public:
    explicit CLmUpdateQuery(QObject* parent = nullptr);

    void Query(const QString& product, const QString& currentVersion);

signals:
    // release: version, url, size, sha256, notes.
    void NewerRelease(const QJsonObject& release);
    void UpToDate();
    void Failed(const QString& message);

private:
    void OnReply(const QByteArray& reply, const QString& currentVersion);
};
