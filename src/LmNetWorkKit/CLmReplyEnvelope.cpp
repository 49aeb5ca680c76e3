#include "CLmReplyEnvelope.h"

#include <QJsonDocument>

namespace {

constexpr int kSuccessStatus = 0;

}  // namespace

CLmReplyEnvelope CLmReplyEnvelope::Parse(const QByteArray& body)
{
    const QJsonDocument document = QJsonDocument::fromJson(body);
    return document.isObject() ? FromObject(document.object()) : CLmReplyEnvelope();
}

CLmReplyEnvelope CLmReplyEnvelope::FromObject(const QJsonObject& envelope)
{
    CLmReplyEnvelope result;
    result.m_envelope = envelope;
    result.m_bParsed = true;
    return result;
}

bool CLmReplyEnvelope::IsParsed() const
{
    return m_bParsed;
}

bool CLmReplyEnvelope::IsSuccess() const
{
    return Status() == kSuccessStatus;
}

int CLmReplyEnvelope::Status() const
{
    return StatusUnder(QStringLiteral("status"));
}

int CLmReplyEnvelope::StatusUnder(const QString& key) const
{
    // toInt() takes only whole numbers in range; "0" as text or 0.5 is no status.
    return m_envelope.value(key).toInt(NoStatus);
}

QString CLmReplyEnvelope::Message() const
{
    return m_envelope.value(QStringLiteral("message")).toString();
}

QJsonValue CLmReplyEnvelope::Data() const
{
    return m_envelope.value(QStringLiteral("data"));
}

QJsonObject CLmReplyEnvelope::DataObject() const
{
    return Data().toObject();
}

QJsonArray CLmReplyEnvelope::DataArray() const
{
    return Data().toArray();
}
