#pragma once

#include <QObject>
#include <QTimer>

#include <cstdint>

class CLmMavlinkEncoder;
class SimLogStore;
class SimTransport;

// Serves one LOG_REQUEST_DATA at a time as LOG_DATA packets of 90 bytes.
// On a paced link it keeps a few milliseconds of packets queued so the link
// never idles; on an unlimited link it sends a bounded batch per millisecond
// so a ground station on the loopback is not flooded.
class SimLogStreamer : public QObject
{
    Q_OBJECT
public:
    SimLogStreamer(const SimLogStore& store, CLmMavlinkEncoder& encoder, SimTransport& transport,
                   QObject* parent = nullptr);

    // Replaces any running transfer. A range starting at or past the end of
    // the log is answered with one empty packet.
    void start(uint16_t id, uint32_t offset, uint32_t count);
    void stop();
    bool isActive() const { return m_timer.isActive(); }

private:
    void pump();
    void sendNextPacket();
    qint64 queueTarget() const;

    const SimLogStore& m_store;
    CLmMavlinkEncoder& m_encoder;
    SimTransport& m_transport;
    QTimer m_timer;
    uint16_t m_id = 0;
    uint32_t m_offset = 0;
    uint32_t m_end = 0;
};
