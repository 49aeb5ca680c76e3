#pragma once

#include "CLmClock.h"
#include "CLmLinkProvide.h"
#include "CLmMavlinkEncoder.h"
#include "CLmMavlinkParser.h"
#include "LmMavlinkMessages.h"

#include <QVector>

// Keeps every frame the aircraft handle writes.
class CCapturingLink : public CLmLinkProvide
{
public:
    CCapturingLink()
        : CLmLinkProvide(1)
    {
    }

    void Connect() override {}
    void Disconnect() override {}
    void WriteBytes(const QByteArray& bytes) override { m_frames += m_parser.Parse(bytes); }

    template <typename TMessage>
    QVector<TMessage> Sent() const
    {
        QVector<TMessage> messages;
        for (const mavlink_message_t& frame : m_frames) {
            if (frame.msgid == TMessage::MSG_ID)
                messages << TMessage::Unpack(frame);
        }
        return messages;
    }
    void Clear() { m_frames.clear(); }

private:
    CLmMavlinkParser m_parser;
    QVector<mavlink_message_t> m_frames;
};

// A clock the test moves forward by hand.
class CFakeClock : public CLmClock
{
public:
    void Start(int ms) override { m_iRemainingMs = ms; }
    void Stop() override { m_iRemainingMs = -1; }
    bool IsActive() const override { return m_iRemainingMs >= 0; }

    void Advance(int ms)
    {
        for (int step = 0; step < ms && m_iRemainingMs >= 0; ++step) {
            if (--m_iRemainingMs == 0) {
                m_iRemainingMs = -1;
                emit timeout();
            }
        }
    }

private:
    int m_iRemainingMs = -1;
};
