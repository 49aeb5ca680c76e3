#include "CLmReplyEnvelope.h"

#include <QJsonDocument>

namespace {

constexpr int kSuccessStatus = 0;

}  // namespace

CLmReplyEnvelope CLmReplyEnvelope::Parse(const QByteArray& body)
{
    CLmReplyEnvelope envelope;
    const QJsonDocument document = QJsonDocument::fromJson(body);
    if (document.isObject()) {
        envelope.m_envelope = document.object();
        envelope.m_bParsed = true;
    }
    return envelope;
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
