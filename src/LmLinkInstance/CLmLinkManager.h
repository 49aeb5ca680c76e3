#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>

class CLmLinkProvide;

// Owns the device links by id and reports their traffic and state with the
// link they came from.
class CLmLinkManager : public QObject
{
    Q_OBJECT
public:
    explicit CLmLinkManager(QObject* parent);

    // Takes ownership. Refused (false) when a link with the same id is held.
    bool AddLink(CLmLinkProvide* pLink);
    CLmLinkProvide* GetLink(int linkId) const;

    void ConnectLink(int linkId);
    void DisconnectLink(int linkId);

signals:
    void bytesReceived(CLmLinkProvide* pLink, QByteArray bytes);
    void linkConnected(CLmLinkProvide* pLink);
    void linkDisconnected(CLmLinkProvide* pLink);

private:
    CLmLinkProvide* FindLinkOrWarn(int linkId) const;

    QHash<int, CLmLinkProvide*> m_hashLinks;
};
