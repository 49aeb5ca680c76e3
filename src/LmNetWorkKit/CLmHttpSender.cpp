#include "CLmHttpSender.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QThread>
#include <QThreadStorage>

// One manager per thread, ended with what it serves: the main thread's with
// the application object (Qt keeps the main thread's storage past it, so a
// request still waiting at exit would never be released), a worker's when
// its thread finishes.
QNetworkAccessManager* CLmHttpSender::ThreadAccessManager()
{
    static QThreadStorage<QPointer<QNetworkAccessManager>> storage;
    if (storage.hasLocalData() && storage.localData())
        return storage.localData();
    auto* manager = new QNetworkAccessManager;
    QThread* thread = QThread::currentThread();
    QCoreApplication* application = QCoreApplication::instance();
    if (application && thread == application->thread())
        manager->setParent(application);
    else
        QObject::connect(thread, &QThread::finished, manager, &QObject::deleteLater, Qt::DirectConnection);
    storage.setLocalData(manager);
    return manager;
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
