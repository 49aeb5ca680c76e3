#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

// The cloud's reply envelope {"status", "message", "data"} read from a reply
// body. A body that is empty, not JSON or not an object reads as not parsed:
// IsParsed() is false, Status() is NoStatus and nothing else is set, so a
// caller can ignore it or say so without touching its own state.
class CLmReplyEnvelope
{
public:
    // The status of a reply without a numeric "status".
    static constexpr int NoStatus = -1;

    static CLmReplyEnvelope Parse(const QByteArray& body);
    // An envelope already parsed, such as one push notification of several.
    static CLmReplyEnvelope FromObject(const QJsonObject& envelope);

    bool IsParsed() const;
    // Parsed and its status is the service's "done" (0).
    bool IsSuccess() const;
    int Status() const;
    // The one reply that carries its result under another key ("state").
    int StatusUnder(const QString& key) const;
    QString Message() const;
    QJsonValue Data() const;
    QJsonObject DataObject() const;
    QJsonArray DataArray() const;

private:
    QJsonObject m_envelope;
    bool m_bParsed = false;
};
