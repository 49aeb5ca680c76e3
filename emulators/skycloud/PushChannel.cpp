#include "PushChannel.h"

#include "AsciiJson.h"
#include "PushHub.h"

const QByteArray PushChannel::FrameMarker = QByteArrayLiteral("SWOOLE_SOCKET_FINISH");

PushChannel::PushChannel(CloudStore& store)
    : m_store(store)
{
}

PushChannel::~PushChannel()
{
    m_thread.quit();
    m_thread.wait();
}

int PushChannel::Start(int port)
{
    m_pHub = new PushHub(m_store);
    m_pHub->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_pHub, &QObject::deleteLater);
    m_thread.setObjectName(QStringLiteral("push"));
    m_thread.start();

    int boundPort = -1;
    QMetaObject::invokeMethod(
        m_pHub, [this, port, &boundPort] { boundPort = m_pHub->Listen(port); }, Qt::BlockingQueuedConnection);
    return boundPort;
}

int PushChannel::Send(qint64 accountId, const QJsonObject& notification)
{
    const QByteArray frame = AsciiJson::Compact(notification) + FrameMarker;
    int delivered = 0;
    QMetaObject::invokeMethod(
        m_pHub, [this, accountId, &frame, &delivered] { delivered = m_pHub->Deliver(accountId, frame); },
        Qt::BlockingQueuedConnection);
    return delivered;
}
