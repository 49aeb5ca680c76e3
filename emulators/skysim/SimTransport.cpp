#include "SimTransport.h"

#include <algorithm>
#include <cmath>

SimTransport::SimTransport(double bytesPerSecond, double lossPercent, uint32_t seed, QObject* parent)
    : QObject(parent)
    , m_bytesPerSecond(bytesPerSecond)
    , m_lossPercent(lossPercent)
    , m_random(seed)
{
    m_clock.start();
    m_sendTimer.setSingleShot(true);
    m_sendTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_sendTimer, &QTimer::timeout, this, &SimTransport::sendDueFrames);
}

void SimTransport::send(const QByteArray& frame)
{
    if (!isPaced()) {
        transmit(frame);
        return;
    }
    if (m_queue.empty())
        m_linkFreeAtNs = std::max(m_linkFreeAtNs, m_clock.nsecsElapsed());
    m_queue.push_back(frame);
    m_pendingBytes += frame.size();
    if (!m_sendTimer.isActive())
        sendDueFrames();
}

// The link clock advances by each frame's exact air time, not by when the
// timer happened to fire, so the long-run rate matches the configured one.
void SimTransport::sendDueFrames()
{
    while (!m_queue.empty() && m_linkFreeAtNs <= m_clock.nsecsElapsed()) {
        const QByteArray frame = std::move(m_queue.front());
        m_queue.pop_front();
        m_pendingBytes -= frame.size();
        m_linkFreeAtNs += airTimeNs(frame.size());
        transmit(frame);
    }
    scheduleNextSend();
}

void SimTransport::scheduleNextSend()
{
    if (m_queue.empty())
        return;
    const qint64 waitNs = m_linkFreeAtNs - m_clock.nsecsElapsed();
    m_sendTimer.start(static_cast<int>(std::max<qint64>(0, (waitNs + 999999) / 1000000)));
}

void SimTransport::transmit(const QByteArray& frame)
{
    if (!isLost())
        writeFrame(frame);
}

bool SimTransport::isLost()
{
    return m_lossPercent > 0.0 && m_percent(m_random) < m_lossPercent;
}

qint64 SimTransport::airTimeNs(qsizetype bytes) const
{
    return static_cast<qint64>(std::llround(static_cast<double>(bytes) * 1e9 / m_bytesPerSecond));
}
