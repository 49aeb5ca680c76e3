#pragma once

#include "CLmFrameSplitter.h"
#include "CLmLinkProvide.h"
#include "CLmReconnectBackoff.h"

#include <QElapsedTimer>
#include <QTcpSocket>
#include <QTimer>

// A TCP client link to "host:port". Once Connect() is called it stays
// connected: a refused or lost connection is tried again after a back-off
// (CLmReconnectBackoff) until Disconnect(). After every connect it sends the
// subscription line "SUBSCRIBE <token>\n" with the signed-in user's token
// (none while nobody is signed in).
//
// With a frame delimiter set, bytesReceived carries only whole frames: the
// bytes up to and including the last delimiter received; the rest waits for
// the next read.
class CLmTcpClientLink : public CLmLinkProvide
{
    Q_OBJECT
public:
    CLmTcpClientLink(int linkId, const QString& address, QObject* parent = nullptr);
    ~CLmTcpClientLink() override;

    void SetFrameDelimiter(const QByteArray& delimiter);

    void Connect() override;
    void Disconnect() override;
    // Subscribes again for a user who signed in, switched accounts or signed
    // out: at once on a connected link, and a link waiting to reconnect
    // connects now with a fresh back-off.
    void Resubscribe();

    bool IsConnected() const;

private:
    void OnStateChanged(QAbstractSocket::SocketState state);
    void OnConnected();
    // Sends "SUBSCRIBE <token>" when somebody is signed in.
    bool SendSubscription();
    void OnConnectionEnded();
    void OnReadyRead();
    void ConnectToHost();

    QString m_strHost;
    quint16 m_nPort = 0;
    QTcpSocket m_socket{this};
    QTimer m_reconnectTimer{this};
    CLmReconnectBackoff m_backoff;
    QElapsedTimer m_connectedFor;
    CLmFrameSplitter m_frames;
    bool m_bWanted = false;
    bool m_bWasConnected = false;
};
