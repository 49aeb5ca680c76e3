#include "CLmNetWorkRequest.h"

#include "CLmHttpSender.h"
#include "LmNetWorkKitLog.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace {

bool IsUnreachable(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::TimeoutError:
    // Qt 5.15 reports a transfer time-out as a cancelled operation.
    case QNetworkReply::OperationCanceledError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::UnknownNetworkError:
        return true;
    default:
        return false;
    }
}

QString ServiceMessage(const QByteArray& body)
{
    const QJsonObject envelope = QJsonDocument::fromJson(body).object();
    return envelope.value(QStringLiteral("message")).toString();
}

}  // namespace

CLmNetWorkRequest::CLmNetWorkRequest(QObject* parent)
    : QObject(parent)
{
}

CLmNetWorkRequest::~CLmNetWorkRequest()
{
    if (m_pReply) {
        m_pReply->disconnect(this);
        m_pReply->abort();
        m_pReply->deleteLater();
    }
}

void CLmNetWorkRequest::SetUrl(const QByteArray& url)
{
    m_url = url;
}

void CLmNetWorkRequest::SetRawHeader(const QByteArray& name, const QByteArray& value)
{
    m_headers.append({name, value});
}

void CLmNetWorkRequest::SetBody(const QByteArray& body)
{
    m_body = body;
    m_bHasBody = true;
}

QByteArray CLmNetWorkRequest::GetBody() const
{
    return m_body;
}

void CLmNetWorkRequest::SetUserData(int key, const QVariant& value)
{
    m_userData.insert(key, value);
}

QVariant CLmNetWorkRequest::GetUserData(int key) const
{
    return m_userData.value(key);
}

void CLmNetWorkRequest::SetNetWorkReplyTimeout(int ms)
{
    m_iTimeoutMs = ms;
}

void CLmNetWorkRequest::PostNetWorkReplyMessage()
{
    // A request nobody owns goes with its thread's access manager, so one
    // still waiting when the thread ends is deleted with it.
    if (!parent())
        setParent(CLmHttpSender::ThreadAccessManager());
    m_pReply = CLmHttpSender::Send(m_url, m_headers, m_iTimeoutMs, m_bHasBody ? &m_body : nullptr);
    connect(m_pReply, &QNetworkReply::finished, this, &CLmNetWorkRequest::slotReplyFinished);
}

void CLmNetWorkRequest::slotReplyFinished()
{
    QNetworkReply* reply = m_pReply;
    m_pReply = nullptr;
    reply->deleteLater();

    const QByteArray body = reply->readAll();
    const int httpStatus = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QNetworkReply::NetworkError error = reply->error();

    if (error == QNetworkReply::NoError && httpStatus >= 200 && httpStatus < 300) {
        Q_EMIT ActionSucced(body);
    } else if (httpStatus >= 400) {
        const QString message = ServiceMessage(body);
        qCInfo(lcRequest) << "service error" << httpStatus << reply->url().path();
        Q_EMIT FailedMsg(message.isEmpty() ? reply->errorString() : message);
    } else if (IsUnreachable(error)) {
        qCInfo(lcRequest) << "unreachable:" << reply->url().path() << error;
        Q_EMIT NetWorkError();
    } else {
        qCInfo(lcRequest) << "transport error" << reply->url().path() << error;
        Q_EMIT FailedMsg(reply->errorString());
    }
    deleteLater();
}
