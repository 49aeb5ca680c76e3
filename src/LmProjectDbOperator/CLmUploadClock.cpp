#include "CLmUploadClock.h"

CLmUploadClock::CLmUploadClock(QObject* parent)
    : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &CLmUploadClock::timeout);
}

void CLmUploadClock::Start(int ms)
{
    m_timer.start(ms);
}

void CLmUploadClock::Stop()
{
    m_timer.stop();
}

bool CLmUploadClock::IsActive() const
{
    return m_timer.isActive();
}
