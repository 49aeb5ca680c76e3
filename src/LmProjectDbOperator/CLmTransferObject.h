#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPair>
#include <QVariant>

class QNetworkReply;

// What the download and upload objects share: one HTTP request at a time,
// set up with setters, with progress and caller data. An object may be
// reused; sending again abandons a request that is still running.
//
// The service answered when the reply is HTTP 2xx, or HTTP 4xx with a JSON
// object body (the service's refusal in its envelope, for instance a 401 for
// a bad token); callers read the body and its "status" themselves. Anything
// else (no connection, time-out, a body cut short, other HTTP errors) is a
// failure.
class CLmTransferObject : public QObject
{
    Q_OBJECT
public:
    enum EMethod { MethodGet, MethodPost };

    // Which direction of the transfer the progress reports.
    enum EProgressOf { ProgressOfReceiving, ProgressOfSending };

    // A transfer that moves no byte for this long has failed.
    static constexpr int TransferTimeoutMs = 30000;

    CLmTransferObject(EProgressOf progressOf, QObject* parent);
    ~CLmTransferObject() override;

    // An HTTP 4xx whose body is a JSON object: the service's refusal.
    static bool IsServiceRefusal(int httpStatus, const QByteArray& body);

    void SetUrl(const QByteArray& url);
    void SetRawHeader(const QByteArray& name, const QByteArray& value);
    // The form body; setting one makes the request a POST.
    void SetFilePathArray(const QByteArray& body);
    void SetMethod(EMethod method);
    void SetUserData(int key, const QVariant& value);
    QVariant GetUserData(int key) const;

protected:
    void Send();
    virtual void OnProgress(qint64 current, qint64 total) = 0;
    virtual void OnAnswered(const QByteArray& body) = 0;
    virtual void OnFailed() = 0;

private:
    void slotReplyFinished();
    void AbandonReply();

    QByteArray m_url;
    QList<QPair<QByteArray, QByteArray>> m_headers;
    QByteArray m_body;
    EProgressOf m_eProgressOf;
    EMethod m_eMethod = MethodGet;
    QMap<int, QVariant> m_userData;
    QNetworkReply* m_pReply = nullptr;
};
