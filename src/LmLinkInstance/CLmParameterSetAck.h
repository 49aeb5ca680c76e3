#pragma once

#include "CLMAckBase.h"

#include <QString>
#include <QVariant>

// Writes one parameter (PARAM_SET) and sends it again until the aircraft
// echoes the value (PARAM_VALUE of that name with exactly the value written).
// An echo with another value (the aircraft refused or rounded it, or an
// older value was still on its way) is no confirmation. When the retries are
// used up ParameterSetFailed is emitted and the aircraft is no longer
// listened to.
class CLmParameterSetAck : public CLMAckBase
{
    Q_OBJECT
public:
    static constexpr int DefaultRetries = 3;
    static constexpr int DefaultIntervalMs = 700;

    explicit CLmParameterSetAck(QObject* parent = nullptr, CLmClock* pClock = nullptr);

    void Write(int componentId, const QString& name, const QVariant& value, int retries = DefaultRetries,
               int intervalMs = DefaultIntervalMs);
    QString GetName() const { return m_strName; }

    void DoCommand(const CLMCommandLongParam& param) override;
    void DoWhenRetriesFinished() override;

signals:
    void ParameterSetConfirmed(QString name, QVariant value);
    void ParameterSetFailed(QString name);

protected:
    void OnMessage(const mavlink_message_t& message) override;

private:
    int m_iComponentId = 0;
    QString m_strName;
    QVariant m_value;
};
