#include "CLmHttpSender.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QThreadStorage>

QNetworkAccessManager* CLmHttpSender::ThreadAccessManager()
{
    static QThreadStorage<QNetworkAccessManager*> storage;
    if (!storage.hasLocalData())
        storage.setLocalData(new QNetworkAccessManager);
    return storage.localData();
}

QNetworkReply* CLmHttpSender::Send(const QByteArray& url, const Headers& headers, int timeoutMs,
                                   const QByteArray* formBody)
{
    QNetworkRequest request(QUrl::fromEncoded(url));
    for (const auto& header : headers)
        request.setRawHeader(header.first, header.second);
    request.setTransferTimeout(timeoutMs);
    if (!formBody)
        return ThreadAccessManager()->get(request);
    // A caller that names its own content type (a multipart body) keeps it.
    if (!request.hasRawHeader(QByteArrayLiteral("Content-Type")))
        request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/x-www-form-urlencoded"));
    return ThreadAccessManager()->post(request, *formBody);
}
