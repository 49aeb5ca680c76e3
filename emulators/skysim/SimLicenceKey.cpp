#include "SimLicenceKey.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>
#include <QUrl>

#include <sodium.h>

namespace SimLicenceKey {

std::optional<QByteArray> fromHex(const QString& hex, QString* error)
{
    const QByteArray key = QByteArray::fromHex(hex.toLatin1());
    if (key.size() != static_cast<int>(crypto_sign_PUBLICKEYBYTES) || key.toHex() != hex.toLower().toLatin1()) {
        *error = QStringLiteral("the licence key must be %1 hexadecimal digits").arg(crypto_sign_PUBLICKEYBYTES * 2);
        return std::nullopt;
    }
    return key;
}

std::optional<QByteArray> fetch(const QString& cloudUrl, int timeoutMs, QString* error)
{
    QNetworkAccessManager manager;
    QNetworkRequest request(QUrl(cloudUrl + QStringLiteral("/licence/publickey")));
    request.setTransferTimeout(timeoutMs);
    QNetworkReply* reply = manager.get(request);
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    loop.exec();
    reply->deleteLater();
    if (reply->error() != QNetworkReply::NoError) {
        *error = QStringLiteral("cannot fetch the licence key from %1: %2").arg(cloudUrl, reply->errorString());
        return std::nullopt;
    }
    const QJsonObject data = QJsonDocument::fromJson(reply->readAll()).object().value(QStringLiteral("data")).toObject();
    return fromHex(data.value(QStringLiteral("public_key")).toString(), error);
}

} // namespace SimLicenceKey
