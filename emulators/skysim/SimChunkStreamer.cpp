#include "SimChunkStreamer.h"

#include "SimTransport.h"

#include <algorithm>
#include <climits>

namespace {

// Both our data packets (LOG_DATA, SKY_RAW_ENTRY_DATA) carry 90 bytes.
constexpr uint32_t PACKET_DATA_SIZE = 90;
constexpr int PACKETS_PER_TICK_UNPACED = 16;
constexpr qint64 MIN_QUEUE_BYTES = 1024;
constexpr int QUEUE_MILLISECONDS = 20;

} // namespace

SimChunkStreamer::SimChunkStreamer(SimTransport& transport, QObject* parent)
    : QObject(parent)
    , m_transport(transport)
{
    m_timer.setInterval(1);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &SimChunkStreamer::pump);
}

void SimChunkStreamer::startRange(uint32_t offset, uint32_t count, uint32_t size)
{
    m_offset = offset;
    m_end = static_cast<uint32_t>(std::min<uint64_t>(uint64_t(offset) + count, size));
    if (m_offset >= m_end) {
        sendPacket(offset, 0);
        stop();
        return;
    }
    m_timer.start();
    pump();
}

void SimChunkStreamer::stop()
{
    m_timer.stop();
}

void SimChunkStreamer::pump()
{
    int budget = m_transport.isPaced() ? INT_MAX : PACKETS_PER_TICK_UNPACED;
    while (m_offset < m_end && budget-- > 0 && m_transport.pendingBytes() < queueTarget()) {
        const uint32_t count = std::min(PACKET_DATA_SIZE, m_end - m_offset);
        sendPacket(m_offset, count);
        m_offset += count;
    }
    if (m_offset >= m_end)
        stop();
}

qint64 SimChunkStreamer::queueTarget() const
{
    if (!m_transport.isPaced())
        return 1; // nothing queues on an unlimited link; the batch size bounds each tick
    return std::max<qint64>(MIN_QUEUE_BYTES,
                            static_cast<qint64>(m_transport.bytesPerSecond() * QUEUE_MILLISECONDS / 1000));
}
