#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QVector>

// The push channel's text: notifications separated by "SWOOLE_SOCKET_FINISH",
// each piece a JSON object or an array of them.
namespace LmPushText {

// The notifications in the order they were sent; pieces that are not JSON
// give none.
QVector<QJsonObject> Notifications(const QByteArray& text);

}  // namespace LmPushText
