#include "CLmLinkManager.h"

#include "CLmLinkProvide.h"
#include "CLmTcpClientLink.h"
#include "LmConstants.h"
#include "LmLinkInstanceLog.h"

namespace {

// Client links take ids from here on, clear of the device links' small ids.
constexpr int kFirstClientLinkId = 100;
// Ends every notification on the push channel.
const QByteArray kPushFrameMarker = QByteArrayLiteral("SWOOLE_SOCKET_FINISH");

}  // namespace

CLmLinkManager::CLmLinkManager(QObject* parent)
    : QObject(parent)
{
    qRegisterMetaType<CLmLinkProvide*>("CLmLinkProvide*");
}

bool CLmLinkManager::AddLink(CLmLinkProvide* pLink)
{
    const int linkId = pLink->GetLinkId();
    if (m_hashLinks.contains(linkId)) {
        qCWarning(lcLinkInstanceLink) << "link id already in use:" << linkId;
        return false;
    }
    pLink->setParent(this);
    m_hashLinks.insert(linkId, pLink);
    connect(pLink, &CLmLinkProvide::bytesReceived, this,
            [this, pLink](const QByteArray& bytes) { emit bytesReceived(pLink, bytes); });
    connect(pLink, &CLmLinkProvide::connected, this, [this, pLink]() { emit linkConnected(pLink); });
    connect(pLink, &CLmLinkProvide::disconnected, this, [this, pLink]() { emit linkDisconnected(pLink); });
    connect(pLink, &QObject::destroyed, this, [this, linkId]() { m_hashLinks.remove(linkId); });
    return true;
}

CLmLinkProvide* CLmLinkManager::GetLink(int linkId) const
{
    return m_hashLinks.value(linkId, nullptr);
}

CLmLinkProvide* CLmLinkManager::AddTcpClientLink(QObject* owner, LINK_TYPE type)
{
    if (type != LINK_TYPE_TCP_CLIENT) {
        qCWarning(lcLinkInstanceLink) << "not a client link type:" << type;
        return nullptr;
    }
    auto* pLink = new CLmTcpClientLink(FreeLinkId(kFirstClientLinkId), GetPushChannelAddress());
    pLink->SetFrameDelimiter(kPushFrameMarker);
    AddLink(pLink);
    if (owner)
        pLink->setParent(owner);
    pLink->Connect();
    return pLink;
}

int CLmLinkManager::FreeLinkId(int firstCandidate) const
{
    int linkId = firstCandidate;
    while (m_hashLinks.contains(linkId))
        ++linkId;
    return linkId;
}

void CLmLinkManager::ConnectLink(int linkId)
{
    if (CLmLinkProvide* pLink = FindLinkOrWarn(linkId))
        pLink->Connect();
}

void CLmLinkManager::DisconnectLink(int linkId)
{
    if (CLmLinkProvide* pLink = FindLinkOrWarn(linkId))
        pLink->Disconnect();
}

CLmLinkProvide* CLmLinkManager::FindLinkOrWarn(int linkId) const
{
    CLmLinkProvide* pLink = GetLink(linkId);
    if (!pLink)
        qCWarning(lcLinkInstanceLink) << "no link with id" << linkId;
    return pLink;
}
