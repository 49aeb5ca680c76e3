#include "CLmClock.h"

CLmClock::CLmClock(QObject* parent)
    : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &CLmClock::timeout);
}

void CLmClock::SetSingleShot(bool bSingleShot)
{
    m_timer.setSingleShot(bSingleShot);
}

void CLmClock::Start(int ms)
{
    m_timer.start(ms);
}

void CLmClock::Stop()
{
    m_timer.stop();
}

bool CLmClock::IsActive() const
{
    return m_timer.isActive();
}
