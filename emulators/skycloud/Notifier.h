#pragma once

#include <QJsonObject>
#include <QString>

class CloudStore;
class PushChannel;

// Tells an account about something: the notification is stored for its
// message list ("/push/messageList") and pushed at once over the push
// channel as {"status", "action", "message", "data"}.
class Notifier
{
public:
    struct Notice
    {
        QString action;
        QString message;
        QJsonObject data;
        int status = 0;
    };

    struct Receipt
    {
        qint64 messageId = 0;
        int delivered = 0;  // connections the push reached at once
    };

    Notifier(CloudStore& store, PushChannel& channel);

    Receipt Notify(qint64 accountId, const Notice& notice);

private:
    CloudStore& m_store;
    PushChannel& m_channel;
};
