#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QObject>
#include <QNetworkReply>
#include <QPair>
#include <QPointer>
#include <QVariant>

// One call to the cloud service. Created on the heap without parent, set up,
// then sent with PostNetWorkReplyMessage(); exactly one of the three result
// signals follows, after which the object deletes itself. A request without
// parent that is still waiting when its thread ends is deleted then.
//
// A request with a body is a form post, one without a GET. Any HTTP 2xx
// reply is a success whatever its envelope says (pages read "status"
// themselves); an HTTP error reply gives FailedMsg with the service's
// "message" when it sent one; no connection or a time-out gives NetWorkError;
// any other transport failure (a body cut short among them) gives FailedMsg
// with the transport's text.
class CLmNetWorkRequest : public QObject
{
    Q_OBJECT
public:
    static constexpr int DefaultTimeoutMs = 30000;

    explicit CLmNetWorkRequest(QObject* parent = nullptr);
    ~CLmNetWorkRequest() override;

    void SetUrl(const QByteArray& url);
    void SetRawHeader(const QByteArray& name, const QByteArray& value);
    void SetBody(const QByteArray& body);
    QByteArray GetBody() const;
    void SetUserData(int key, const QVariant& value);
    QVariant GetUserData(int key) const;
    void SetNetWorkReplyTimeout(int ms);

    void PostNetWorkReplyMessage();

Q_SIGNALS:
    void ActionSucced(const QByteArray& reply);
    void FailedMsg(const QString& message);
    void NetWorkError();

private:
    void slotReplyFinished();

    QByteArray m_url;
    QList<QPair<QByteArray, QByteArray>> m_headers;
    QByteArray m_body;
    bool m_bHasBody = false;
    QMap<int, QVariant> m_userData;
    int m_iTimeoutMs = DefaultTimeoutMs;
    // The access manager deletes its replies first when it goes.
    QPointer<QNetworkReply> m_pReply;
};
