#pragma once

#include "CLMAckBase.h"

#include <QList>
#include <QMap>
#include <QStringList>

// Asks the aircraft for one message type (MAV_CMD_REQUEST_MESSAGE) and
// collects the replies (one per battery). The first reply also counts as the
// acknowledgement, for aircraft that answer without a COMMAND_ACK. The
// replies come back to back: the first other frame of the aircraft ends the
// collection and hands the replies, in arrival order, to Deliver(). Nothing
// is collected between a delivery and the next request.
class CLmRequestMessageAck : public CLMAckBase
{
    Q_OBJECT
public:
    CLmRequestMessageAck(quint32 messageId, QObject* parent = nullptr, CLmClock* pClock = nullptr);

    void DoCommand(const CLMCommandLongParam& param) override;

protected:
    void OnMessage(const mavlink_message_t& message) override;
    virtual void Deliver(const QList<mavlink_message_t>& replies) = 0;
    // The texts fields() makes of each reply, in the order of the replies'
    // ids (battery ids); a later reply with the same id replaces an earlier one.
    template <typename TMessage>
    static QStringList FieldsInIdOrder(const QList<mavlink_message_t>& replies,
                                       QStringList (*fields)(const TMessage&));

private:
    const quint32 m_nMessageId;
    QList<mavlink_message_t> m_listReplies;
    bool m_bCollecting = false;
};

template <typename TMessage>
QStringList CLmRequestMessageAck::FieldsInIdOrder(const QList<mavlink_message_t>& replies,
                                                  QStringList (*fields)(const TMessage&))
{
    QMap<int, QStringList> byId;
    for (const mavlink_message_t& reply : replies) {
        const TMessage message = TMessage::Unpack(reply);
        byId.insert(message.id, fields(message));
    }
    QStringList texts;
    for (const QStringList& replyTexts : qAsConst(byId))
        texts << replyTexts;
    return texts;
}
