#include "CLmParameterSetAck.h"

#include "CLmUasProvide.h"
#include "LmLinkInstanceLog.h"
#include "LmMavlinkMessages.h"

#include <cstring>

using LmMavlink::SParamValue;

namespace {

QString ParamName(const SParamValue& value)
{
    return QString::fromLatin1(value.param_id, static_cast<int>(strnlen(value.param_id, sizeof value.param_id)));
}

} // namespace

CLmParameterSetAck::CLmParameterSetAck(QObject* parent, CLmClock* pClock)
    : CLMAckBase(parent, pClock)
{
}

void CLmParameterSetAck::Write(int componentId, const QString& name, const QVariant& value, int retries,
                               int intervalMs)
{
    m_iComponentId = componentId;
    m_strName = name;
    m_value = value;
    StartUpload(retries, intervalMs, CLMCommandLongParam());
}

void CLmParameterSetAck::DoCommand(const CLMCommandLongParam&)
{
    if (GetUAS())
        GetUAS()->WriteParameter(m_iComponentId, m_strName, m_value);
}

void CLmParameterSetAck::DoWhenRetriesFinished()
{
    DisconnectToUAS();
    qCWarning(lcLinkInstanceParam) << "parameter" << m_strName << "was not confirmed";
    emit ParameterSetFailed(m_strName);
}

// Matched on the frame rather than on parameterChanged, so that the float
// the aircraft echoed is compared with the float that was sent.
void CLmParameterSetAck::OnMessage(const mavlink_message_t& message)
{
    if (!IsWaiting() || message.msgid != LmMavlink::MSG_ID_PARAM_VALUE)
        return;
    const SParamValue echo = SParamValue::Unpack(message);
    if (ParamName(echo) != m_strName)
        return;
    if (echo.param_value != m_value.toFloat()) {
        qCInfo(lcLinkInstanceParam) << "parameter" << m_strName << "echoed" << echo.param_value << "instead of"
                                    << m_value;
        return;
    }
    Acknowledge();
    DisconnectToUAS();
    emit ParameterSetConfirmed(m_strName, m_value);
}
