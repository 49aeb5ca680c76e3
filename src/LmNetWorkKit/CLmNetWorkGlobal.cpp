#include "CLmNetWorkGlobal.h"

#include "LmConstants.h"
#include "LmNetWorkKitLog.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

CLmNetWorkGlobal::CLmNetWorkGlobal(QObject* parent)
    : QObject(parent)
{
}

CLmNetWorkGlobal::~CLmNetWorkGlobal() = default;

void CLmNetWorkGlobal::SetTimerInterval(int ms)
{
    m_iIntervalMs = ms;
}

void CLmNetWorkGlobal::slotTestNetWorkConnectState()
{
    if (!m_pTimer) {
        m_pTimer = new QTimer(this);
        m_pManager = new QNetworkAccessManager(this);
        connect(m_pTimer, &QTimer::timeout, this, &CLmNetWorkGlobal::Probe);
    }
    m_pTimer->start(m_iIntervalMs);
    Probe();
}

void CLmNetWorkGlobal::StopProbing()
{
    if (m_pTimer)
        m_pTimer->stop();
    if (m_pReply) {
        m_pReply->disconnect(this);
        m_pReply->abort();
        delete m_pReply;
        m_pReply = nullptr;
    }
}

void CLmNetWorkGlobal::Probe()
{
    if (m_pReply)
        return;  // the previous probe is still under way
    if (m_pTimer->interval() != m_iIntervalMs)
        m_pTimer->setInterval(m_iIntervalMs);
    QNetworkRequest request(QUrl::fromEncoded(GetServerIP() + "/ping"));
    request.setTransferTimeout(ProbeTimeoutMs);
    m_pReply = m_pManager->get(request);
    connect(m_pReply, &QNetworkReply::finished, this, &CLmNetWorkGlobal::slotProbeFinished);
}

void CLmNetWorkGlobal::slotProbeFinished()
{
    QNetworkReply* reply = m_pReply;
    m_pReply = nullptr;
    reply->deleteLater();
    // Any HTTP answer proves the service is reachable.
    const bool online = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() > 0;
    qCDebug(lcNetTest) << "cloud reachable:" << online;
    Q_EMIT NetWorkConnectState(online);
}
