#pragma once

#include "SimChunkStreamer.h"

class CLmMavlinkEncoder;
class SimLogStore;

// Serves one LOG_REQUEST_DATA at a time as LOG_DATA packets of 90 bytes.
class SimLogStreamer : public SimChunkStreamer
{
    Q_OBJECT
public:
    SimLogStreamer(const SimLogStore& store, CLmMavlinkEncoder& encoder, SimTransport& transport,
                   QObject* parent = nullptr);

    // Replaces any running transfer. A range starting at or past the end of
    // the log is answered with one empty packet. Unknown ids are ignored.
    void start(uint16_t id, uint32_t offset, uint32_t count);

protected:
    void sendPacket(uint32_t offset, uint32_t count) override;

private:
    const SimLogStore& m_store;
    CLmMavlinkEncoder& m_encoder;
    uint16_t m_id = 0;
};
