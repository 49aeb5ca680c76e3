#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QSet>

#include "LINK_TYPE.h"

class CLmLinkProvide;

// Owns the device links by id and reports their traffic and state with the
// link they came from. Aircraft links live on the UAV thread and are only
// tracked: addressed by id, not owned. Every operation is safe from any
// thread; ConnectLink/DisconnectLink run in the link's own thread.
class CLmLinkManager : public QObject
{
    Q_OBJECT
public:
    explicit CLmLinkManager(QObject* parent);

    // Takes ownership. Refused (false) when a link with the same id is held.
    bool AddLink(CLmLinkProvide* pLink);
    CLmLinkProvide* GetLink(int linkId) const;
    // A device link owned by its worker on another thread; forgotten when
    // it is destroyed.
    bool TrackLink(CLmLinkProvide* pLink);
    // The tracked device links that are connected now.
    QList<int> ConnectedDeviceLinkIds() const;

    // Adds and connects the client link to the cloud's push channel
    // (GetPushChannelAddress()), which subscribes with the signed-in user's
    // token, delivers whole notification frames through bytesReceived and
    // reconnects by itself after a loss. owner becomes its parent (the
    // manager when null). Only LINK_TYPE_TCP_CLIENT is a client link; other
    // types give null.
    CLmLinkProvide* AddTcpClientLink(QObject* owner, LINK_TYPE type);

    void ConnectLink(int linkId);
    void DisconnectLink(int linkId);

signals:
    void bytesReceived(CLmLinkProvide* pLink, QByteArray bytes);
    void linkConnected(CLmLinkProvide* pLink);
    void linkDisconnected(CLmLinkProvide* pLink);

private:
    bool Register(CLmLinkProvide* pLink);
    void SetConnected(int linkId, bool bConnected);
    CLmLinkProvide* FindLinkOrWarn(int linkId) const;
    int FreeLinkId(int firstCandidate) const;

    mutable QMutex m_mutex;
    QHash<int, CLmLinkProvide*> m_hashLinks;
    QSet<int> m_setDeviceLinkIds;
    QSet<int> m_setConnectedIds;
};
