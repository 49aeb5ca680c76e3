#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <deque>
#include <random>

// Byte link of the emulated aircraft, the way its radio behaves: frames go
// out one after another at the configured link rate (immediately when the
// rate is unlimited), and a share of them is lost. A lost frame still takes
// its air time. Subclasses only open the device and write one frame.
class SimTransport : public QObject
{
    Q_OBJECT
public:
    SimTransport(double bytesPerSecond, double lossPercent, uint32_t seed, QObject* parent = nullptr);

    virtual bool open(QString* error) = 0;
    // "udp 127.0.0.1:PORT" or "serial DEVICE", as the ready line shows it.
    virtual QString description() const = 0;

    void send(const QByteArray& frame);
    bool isPaced() const { return m_bytesPerSecond > 0.0; }
    double bytesPerSecond() const { return m_bytesPerSecond; }
    // Bytes waiting for their turn on a paced link.
    qint64 pendingBytes() const { return m_pendingBytes; }

signals:
    void bytesReceived(const QByteArray& bytes);

protected:
    virtual void writeFrame(const QByteArray& frame) = 0;

private:
    void sendDueFrames();
    void scheduleNextSend();
    void transmit(const QByteArray& frame);
    bool isLost();
    qint64 airTimeNs(qsizetype bytes) const;

    double m_bytesPerSecond;
    double m_lossPercent;
    std::mt19937 m_random;
    std::uniform_real_distribution<double> m_percent{0.0, 100.0};
    std::deque<QByteArray> m_queue;
    qint64 m_pendingBytes = 0;
    QElapsedTimer m_clock;
    qint64 m_linkFreeAtNs = 0; // when the link has finished the last frame handed to it
    QTimer m_sendTimer;
};
