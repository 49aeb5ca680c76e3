#include "CLmLinkManager.h"

#include "CLmLinkProvide.h"
#include "CLmTcpClientLink.h"
#include "LmConstants.h"
#include "LmLinkInstanceLog.h"

#include <algorithm>

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
    if (!Register(pLink))
        return false;
    pLink->setParent(this);
    return true;
}

bool CLmLinkManager::TrackLink(CLmLinkProvide* pLink)
{
    if (!Register(pLink))
        return false;
    QMutexLocker lock(&m_mutex);
    m_setDeviceLinkIds.insert(pLink->GetLinkId());
    return true;
}

bool CLmLinkManager::Register(CLmLinkProvide* pLink)
{
    const int linkId = pLink->GetLinkId();
    {
        QMutexLocker lock(&m_mutex);
        if (m_hashLinks.contains(linkId)) {
            qCWarning(lcLinkInstanceLink) << "link id already in use:" << linkId;
            return false;
        }
        m_hashLinks.insert(linkId, pLink);
    }
    connect(pLink, &CLmLinkProvide::bytesReceived, this,
            [this, pLink](const QByteArray& bytes) { emit bytesReceived(pLink, bytes); });
    connect(pLink, &CLmLinkProvide::connected, this, [this, pLink]() { emit linkConnected(pLink); });
    connect(pLink, &CLmLinkProvide::disconnected, this, [this, pLink]() { emit linkDisconnected(pLink); });
    // The state and the table follow the link at once, in the link's thread.
    connect(pLink, &CLmLinkProvide::connected, this, [this, linkId]() { SetConnected(linkId, true); },
            Qt::DirectConnection);
    connect(pLink, &CLmLinkProvide::disconnected, this, [this, linkId]() { SetConnected(linkId, false); },
            Qt::DirectConnection);
    connect(
        pLink, &QObject::destroyed, this,
        [this, linkId]() {
            QMutexLocker lock(&m_mutex);
            m_hashLinks.remove(linkId);
            m_setDeviceLinkIds.remove(linkId);
            m_setConnectedIds.remove(linkId);
        },
        Qt::DirectConnection);
    return true;
}

void CLmLinkManager::SetConnected(int linkId, bool bConnected)
{
    QMutexLocker lock(&m_mutex);
    if (bConnected)
        m_setConnectedIds.insert(linkId);
    else
        m_setConnectedIds.remove(linkId);
}

QList<int> CLmLinkManager::ConnectedDeviceLinkIds() const
{
    QMutexLocker lock(&m_mutex);
    QList<int> ids = (m_setDeviceLinkIds & m_setConnectedIds).values();
    std::sort(ids.begin(), ids.end());
    return ids;
}

CLmLinkProvide* CLmLinkManager::GetLink(int linkId) const
{
    QMutexLocker lock(&m_mutex);
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
    QMutexLocker lock(&m_mutex);
    int linkId = firstCandidate;
    while (m_hashLinks.contains(linkId))
        ++linkId;
    return linkId;
}

void CLmLinkManager::ConnectLink(int linkId)
{
    if (CLmLinkProvide* pLink = FindLinkOrWarn(linkId))
        QMetaObject::invokeMethod(pLink, [pLink] { pLink->Connect(); });
}

void CLmLinkManager::DisconnectLink(int linkId)
{
    if (CLmLinkProvide* pLink = FindLinkOrWarn(linkId))
        QMetaObject::invokeMethod(pLink, [pLink] { pLink->Disconnect(); });
}

CLmLinkProvide* CLmLinkManager::FindLinkOrWarn(int linkId) const
{
    CLmLinkProvide* pLink = GetLink(linkId);
    if (!pLink)
        qCWarning(lcLinkInstanceLink) << "no link with id" << linkId;
    return pLink;
}
