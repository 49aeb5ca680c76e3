#include "LmPushText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

namespace LmPushText {

QVector<QJsonObject> Notifications(const QByteArray& text)
{
    QVector<QJsonObject> notifications;
    const QStringList pieces = QString::fromUtf8(text).split(QStringLiteral("SWOOLE_SOCKET_FINISH"));
    for (const QString& piece : pieces) {
        const QJsonDocument document = QJsonDocument::fromJson(piece.toUtf8());
        const QJsonObject object = document.object();
        if (!object.isEmpty()) {
            notifications << object;
            continue;
        }
        for (const QJsonValue& element : document.array())
            notifications << element.toObject();
    }
    return notifications;
}

}  // namespace LmPushText
