#pragma once

#include <QJsonObject>
#include <QThread>

class CloudStore;
class PushHub;

// The push channel: a TCP listener on 127.0.0.1 served by a thread of its
// own, so that HTTP handlers on the server's thread pool can hand it
// notifications at any time.
class PushChannel
{
public:
    explicit PushChannel(CloudStore& store);
    ~PushChannel();
    PushChannel(const PushChannel&) = delete;
    PushChannel& operator=(const PushChannel&) = delete;

    // Binds to the port (0 picks a free one); returns the bound port or -1.
    int Start(int port);
    // Safe from any thread. Sends the notification, followed by the frame
    // marker, to every subscriber of the account, or keeps it for the next
    // one; returns the number of connections it was written to.
    int Send(qint64 accountId, const QJsonObject& notification);

    static const QByteArray FrameMarker;

private:
    CloudStore& m_store;
    QThread m_thread;
    PushHub* m_pHub = nullptr;
};
