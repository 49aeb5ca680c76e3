#pragma once

#include <QByteArray>
#include <QList>
#include <QPair>

class QNetworkAccessManager;
class QNetworkReply;

// Starts the HTTP exchanges of the network objects: a form post when there
// is a body, a GET otherwise, on the calling thread's own access manager.
class CLmHttpSender
{
public:
    using Headers = QList<QPair<QByteArray, QByteArray>>;

    // formBody null: GET. The reply belongs to the caller.
    static QNetworkReply* Send(const QByteArray& url, const Headers& headers, int timeoutMs,
                               const QByteArray* formBody);

    // An access manager must live in the thread that uses it.
    static QNetworkAccessManager* ThreadAccessManager();
};
