#include "CLMAckBase.h"

#include "CLmClock.h"
#include "CLmUasProvide.h"
#include "LmLinkInstanceLog.h"
#include "LmMavlinkEnums.h"

CLMAckBase::CLMAckBase(QObject* parent, CLmClock* pClock)
    : QObject(parent)
    , m_pClock(pClock ? pClock : new CLmClock)
{
    m_pClock->setParent(this);
    m_pClock->SetSingleShot(true);
    connect(m_pClock, &CLmClock::timeout, this, &CLMAckBase::OnRetryDue);
}

void CLMAckBase::SetUAS(CLmUasProvide* pUas)
{
    if (pUas == m_pUas)
        return;
    DisconnectToUAS();
    m_pUas = pUas;
}

CLmUasProvide* CLMAckBase::GetUAS() const
{
    return m_pUas;
}

void CLMAckBase::StartUpload(int retries, int intervalMs, const CLMCommandLongParam& param)
{
    if (!m_pUas) {
        qCWarning(lcLinkInstanceUav) << "request without an aircraft ignored";
        return;
    }
    m_param = param;
    m_param.confirmation = 0;
    m_iRetriesLeft = retries;
    m_iIntervalMs = intervalMs;
    m_bWaiting = true;
    ConnectToUAS();
    DoCommand(m_param);
    m_pClock->Start(m_iIntervalMs);
}

bool CLMAckBase::IsWaiting() const
{
    return m_bWaiting;
}

void CLMAckBase::ConnectToUAS()
{
    if (!m_pUas)
        return;
    connect(m_pUas, &CLmUasProvide::commandAck, this, &CLMAckBase::OnCommandAck, Qt::UniqueConnection);
    connect(m_pUas, &CLmUasProvide::messageReceived, this, &CLMAckBase::OnMessage, Qt::UniqueConnection);
}

void CLMAckBase::DisconnectToUAS()
{
    m_bWaiting = false;
    m_pClock->Stop();
    if (m_pUas)
        disconnect(m_pUas, nullptr, this, nullptr);
}

void CLMAckBase::DoCommand(const CLMCommandLongParam& param)
{
    if (m_pUas)
        m_pUas->SendCommandLong(param);
}

void CLMAckBase::DoWhenRetriesFinished()
{
    emit UploadTimeOut();
}

void CLMAckBase::Acknowledge()
{
    m_bWaiting = false;
    m_pClock->Stop();
}

void CLMAckBase::OnMessage(const mavlink_message_t&) {}

void CLMAckBase::OnCommandAck(int command, int result)
{
    // Matched against the caller's command: a message request's answer is
    // the message itself, since an acknowledgement of "request message"
    // cannot tell which of several pending requests it answers.
    if (!m_bWaiting || command != m_param.command)
        return;
    switch (result) {
    case LmMavlink::MAV_RESULT_ACCEPTED:
    case LmMavlink::MAV_RESULT_IN_PROGRESS: Acknowledge(); break;
    case LmMavlink::MAV_RESULT_TEMPORARILY_REJECTED: break;  // the next copy may be taken
    default: GiveUp(); break;
    }
}

void CLMAckBase::OnRetryDue()
{
    if (!m_bWaiting)
        return;
    if (m_iRetriesLeft <= 0) {
        GiveUp();
        return;
    }
    --m_iRetriesLeft;
    ++m_param.confirmation;
    DoCommand(m_param);
    m_pClock->Start(m_iIntervalMs);
}

void CLMAckBase::GiveUp()
{
    m_bWaiting = false;
    m_pClock->Stop();
    DoWhenRetriesFinished();
}
