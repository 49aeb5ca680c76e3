#pragma once

#include "SimChunkStreamer.h"

class CLmMavlinkEncoder;
class SimRawDataStore;

// Serves one SKY_RAW_ENTRY_REQUEST_DATA at a time as SKY_RAW_ENTRY_DATA
// packets of 90 bytes.
class SimRawDataStreamer : public SimChunkStreamer
{
    Q_OBJECT
public:
    SimRawDataStreamer(const SimRawDataStore& store, CLmMavlinkEncoder& encoder, SimTransport& transport,
                       QObject* parent = nullptr);

    // Replaces any running transfer; unknown folders and entries are ignored.
    void start(uint16_t folderId, uint16_t entryId, uint32_t offset, uint32_t count);

protected:
    void sendPacket(uint32_t offset, uint32_t count) override;

private:
    const SimRawDataStore& m_store;
    CLmMavlinkEncoder& m_encoder;
    uint16_t m_folderId = 0;
    uint16_t m_entryId = 0;
};
