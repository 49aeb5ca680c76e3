#include "SimLogStreamer.h"

#include "CLmMavlinkEncoder.h"
#include "LmMavlinkMessages.h"
#include "SimLogStore.h"
#include "SimTransport.h"

#include <algorithm>
#include <climits>

namespace {

constexpr uint32_t PACKET_DATA_SIZE = sizeof(LmMavlink::SLogData::data);
constexpr int PACKETS_PER_TICK_UNPACED = 16;
constexpr qint64 MIN_QUEUE_BYTES = 1024;
constexpr int QUEUE_MILLISECONDS = 20;

} // namespace

SimLogStreamer::SimLogStreamer(const SimLogStore& store, CLmMavlinkEncoder& encoder, SimTransport& transport,
                               QObject* parent)
    : QObject(parent)
    , m_store(store)
    , m_encoder(encoder)
    , m_transport(transport)
{
    m_timer.setInterval(1);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &SimLogStreamer::pump);
}

void SimLogStreamer::start(uint16_t id, uint32_t offset, uint32_t count)
{
    const SimLogStore::SEntry* entry = m_store.find(id);
    if (!entry)
        return;
    m_id = id;
    m_offset = offset;
    m_end = static_cast<uint32_t>(std::min<uint64_t>(uint64_t(offset) + count, entry->size));
    if (m_offset >= m_end) {
        LmMavlink::SLogData empty;
        empty.id = id;
        empty.ofs = offset;
        m_transport.send(m_encoder.Encode(empty));
        stop();
        return;
    }
    m_timer.start();
    pump();
}

void SimLogStreamer::stop()
{
    m_timer.stop();
}

void SimLogStreamer::pump()
{
    int budget = m_transport.isPaced() ? INT_MAX : PACKETS_PER_TICK_UNPACED;
    while (m_offset < m_end && budget-- > 0 && m_transport.pendingBytes() < queueTarget())
        sendNextPacket();
    if (m_offset >= m_end)
        stop();
}

void SimLogStreamer::sendNextPacket()
{
    LmMavlink::SLogData packet;
    packet.id = m_id;
    packet.ofs = m_offset;
    packet.count = static_cast<uint8_t>(std::min(PACKET_DATA_SIZE, m_end - m_offset));
    SimLogStore::fill(m_id, m_offset, packet.count, packet.data);
    m_offset += packet.count;
    m_transport.send(m_encoder.Encode(packet));
}

qint64 SimLogStreamer::queueTarget() const
{
    if (!m_transport.isPaced())
        return 1; // nothing queues on an unlimited link; the batch size bounds each tick
    return std::max<qint64>(MIN_QUEUE_BYTES,
                            static_cast<qint64>(m_transport.bytesPerSecond() * QUEUE_MILLISECONDS / 1000));
}
