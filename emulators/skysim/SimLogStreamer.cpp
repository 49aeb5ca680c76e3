#include "SimLogStreamer.h"

#include "CLmMavlinkEncoder.h"
#include "LmMavlinkMessages.h"
#include "SimLogStore.h"
#include "SimTransport.h"

SimLogStreamer::SimLogStreamer(const SimLogStore& store, CLmMavlinkEncoder& encoder, SimTransport& transport,
                               QObject* parent)
    : SimChunkStreamer(transport, parent)
    , m_store(store)
    , m_encoder(encoder)
{
}

void SimLogStreamer::start(uint16_t id, uint32_t offset, uint32_t count)
{
    const SimLogStore::SEntry* entry = m_store.find(id);
    if (!entry)
        return;
    m_id = id;
    startRange(offset, count, entry->size);
}

void SimLogStreamer::sendPacket(uint32_t offset, uint32_t count)
{
    LmMavlink::SLogData packet;
    packet.id = m_id;
    packet.ofs = offset;
    packet.count = static_cast<uint8_t>(count);
    SimLogStore::fill(m_id, offset, count, packet.data);
    transport().send(m_encoder.Encode(packet));
}
