#include "CLmTransferObject.h"

#include "CLmHttpSender.h"
#include "LmProjectDbOperatorLog.h"

#include <QJsonDocument>
#include <QNetworkReply>
#include <QNetworkRequest>

CLmTransferObject::CLmTransferObject(EProgressOf progressOf, QObject* parent)
    : QObject(parent)
    , m_eProgressOf(progressOf)
{
}

CLmTransferObject::~CLmTransferObject()
{
    AbandonReply();
}

bool CLmTransferObject::IsServiceRefusal(int httpStatus, const QByteArray& body)
{
    return httpStatus >= 400 && httpStatus < 500 && QJsonDocument::fromJson(body).isObject();
}

void CLmTransferObject::SetUrl(const QByteArray& url)
{
    m_url = url;
}

void CLmTransferObject::SetRawHeader(const QByteArray& name, const QByteArray& value)
{
    for (auto& header : m_headers) {
        if (header.first == name) {
            header.second = value;
            return;
        }
    }
    m_headers.append({name, value});
}

void CLmTransferObject::SetFilePathArray(const QByteArray& body)
{
    m_body = body;
    m_eMethod = MethodPost;
}

void CLmTransferObject::SetMethod(EMethod method)
{
    m_eMethod = method;
}

void CLmTransferObject::SetUserData(int key, const QVariant& value)
{
    m_userData.insert(key, value);
}

QVariant CLmTransferObject::GetUserData(int key) const
{
    return m_userData.value(key);
}

void CLmTransferObject::Send()
{
    AbandonReply();
    m_pReply = CLmHttpSender::Send(m_url, m_headers, TransferTimeoutMs, m_eMethod == MethodPost ? &m_body : nullptr);
    if (m_eProgressOf == ProgressOfSending)
        connect(m_pReply, &QNetworkReply::uploadProgress, this, &CLmTransferObject::OnProgress);
    else
        connect(m_pReply, &QNetworkReply::downloadProgress, this, &CLmTransferObject::OnProgress);
    connect(m_pReply, &QNetworkReply::finished, this, &CLmTransferObject::slotReplyFinished);
}

void CLmTransferObject::slotReplyFinished()
{
    QNetworkReply* reply = m_pReply;
    m_pReply = nullptr;
    reply->deleteLater();

    const QByteArray body = reply->readAll();
    const int httpStatus = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const bool success = reply->error() == QNetworkReply::NoError && httpStatus >= 200 && httpStatus < 300;
    if (success || IsServiceRefusal(httpStatus, body)) {
        OnAnswered(body);
    } else {
        qCInfo(lcTransfer) << "transfer failed" << reply->url().path() << httpStatus << reply->error();
        OnFailed();
    }
}

void CLmTransferObject::AbandonReply()
{
    if (!m_pReply)
        return;
    m_pReply->disconnect(this);
    m_pReply->abort();
    m_pReply->deleteLater();
    m_pReply = nullptr;
}
