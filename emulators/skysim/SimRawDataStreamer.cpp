#include "SimRawDataStreamer.h"

#include "CLmMavlinkEncoder.h"
#include "LmMavlinkMessages.h"
#include "SimRawDataStore.h"
#include "SimTransport.h"

SimRawDataStreamer::SimRawDataStreamer(const SimRawDataStore& store, CLmMavlinkEncoder& encoder,
                                       SimTransport& transport, QObject* parent)
    : SimChunkStreamer(transport, parent)
    , m_store(store)
    , m_encoder(encoder)
{
}

void SimRawDataStreamer::start(uint16_t folderId, uint16_t entryId, uint32_t offset, uint32_t count)
{
    if (!m_store.find(folderId) || entryId >= m_store.entriesPerFolder())
        return;
    m_folderId = folderId;
    m_entryId = entryId;
    startRange(offset, count, m_store.entrySize());
}

void SimRawDataStreamer::sendPacket(uint32_t offset, uint32_t count)
{
    LmMavlink::SSkyRawEntryData packet;
    packet.folder_id = m_folderId;
    packet.entry_id = m_entryId;
    packet.ofs = offset;
    packet.count = static_cast<uint8_t>(count);
    SimRawDataStore::fill(m_folderId, m_entryId, offset, count, packet.data);
    transport().send(m_encoder.Encode(packet));
}
