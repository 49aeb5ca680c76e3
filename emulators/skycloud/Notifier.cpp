#include "Notifier.h"

#include "CloudStore.h"
#include "PushChannel.h"

Notifier::Notifier(CloudStore& store, PushChannel& channel)
    : m_store(store)
    , m_channel(channel)
{
}

Notifier::Receipt Notifier::Notify(qint64 accountId, const Notice& notice)
{
    Receipt receipt;
    receipt.messageId = m_store.AddMessage(accountId, notice.action, notice.message, notice.data);
    receipt.delivered = m_channel.Send(accountId, QJsonObject{{"status", notice.status},
                                                              {"action", notice.action},
                                                              {"message", notice.message},
                                                              {"data", notice.data}});
    return receipt;
}
