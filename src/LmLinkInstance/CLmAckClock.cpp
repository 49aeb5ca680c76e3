#include "CLmAckClock.h"

CLmAckClock::CLmAckClock(QObject* parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &CLmAckClock::timeout);
}

void CLmAckClock::Start(int ms)
{
    m_timer.start(ms);
}

void CLmAckClock::Stop()
{
    m_timer.stop();
}
