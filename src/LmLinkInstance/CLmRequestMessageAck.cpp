#include "CLmRequestMessageAck.h"

#include "LmMavlinkMessages.h"

CLmRequestMessageAck::CLmRequestMessageAck(quint32 messageId, QObject* parent, CLmClock* pClock)
    : CLMAckBase(parent, pClock)
    , m_nMessageId(messageId)
{
}

void CLmRequestMessageAck::DoCommand(const CLMCommandLongParam& param)
{
    CLMCommandLongParam request = param;
    request.command = LmMavlink::MAV_CMD_REQUEST_MESSAGE;
    request.param1 = static_cast<float>(m_nMessageId);
    m_bCollecting = true;
    CLMAckBase::DoCommand(request);
}

void CLmRequestMessageAck::OnMessage(const mavlink_message_t& message)
{
    if (!m_bCollecting)
        return;
    if (message.msgid == m_nMessageId) {
        if (IsWaiting())
            Acknowledge();
        m_listReplies << message;
        return;
    }
    if (m_listReplies.isEmpty())
        return;
    const QList<mavlink_message_t> replies = m_listReplies;
    m_listReplies.clear();
    m_bCollecting = false;
    Deliver(replies);
}
