#include "LmPushText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

namespace LmPushText {

QVector<QJsonObject> Notifications(const QByteArray& text)
{
    QVector<QJsonObject> notifications;
    // With its size: a NUL byte would end the text there, taking every later
    // notification of the read with it.
    const QStringList pieces =
        QString::fromUtf8(text.constData(), text.size()).split(QStringLiteral("SWOOLE_SOCKET_FINISH"));
    for (const QString& piece : pieces) {
        // Each piece's Latin-1 bytes are parsed, as the channel's protocol has it:
        // senders escape what is not ASCII (\uXXXX), which this keeps intact.
        const QJsonDocument document = QJsonDocument::fromJson(piece.toLatin1());
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
