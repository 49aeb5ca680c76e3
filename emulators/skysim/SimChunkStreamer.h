#pragma once

#include <QObject>
#include <QTimer>

#include <cstdint>

class SimTransport;

// Sends a byte range of a stored file as a run of data packets, one request
// at a time. On a paced link it keeps a few milliseconds of packets queued
// so the link never idles; on an unlimited link it sends a bounded batch per
// millisecond so a ground station on the loopback is not flooded. Subclasses
// build the packets.
class SimChunkStreamer : public QObject
{
    Q_OBJECT
public:
    explicit SimChunkStreamer(SimTransport& transport, QObject* parent = nullptr);

    void stop();
    bool isActive() const { return m_timer.isActive(); }

protected:
    // Replaces any running transfer with bytes [offset, min(offset + count, size)).
    // A range starting at or past the end is answered with one empty packet.
    void startRange(uint32_t offset, uint32_t count, uint32_t size);
    SimTransport& transport() { return m_transport; }
    // Sends the packet carrying count bytes from offset (count 0: past the end).
    virtual void sendPacket(uint32_t offset, uint32_t count) = 0;

private:
    void pump();
    qint64 queueTarget() const;

    SimTransport& m_transport;
    QTimer m_timer;
    uint32_t m_offset = 0;
    uint32_t m_end = 0;
};
