#pragma once

#include "CLMCommandLongParam.h"
#include "mavlink_message_t.h"

#include <QObject>
#include <QPointer>

class CLmClock;
class CLmUasProvide;

// A command to the aircraft that is sent again until the aircraft
// acknowledges it. StartUpload(retries, intervalMs, param) sends the first
// copy at once and, while no acknowledgement came, another copy every
// intervalMs, at most `retries` more; when the last wait ends unanswered (or
// the aircraft refuses the command) DoWhenRetriesFinished() runs, which emits
// UploadTimeOut. An answer is a COMMAND_ACK for the command that accepts it,
// or whatever a subclass counts as one (Acknowledge()).
class CLMAckBase : public QObject
{
    Q_OBJECT
public:
    // Takes the clock; a real timer when null.
    explicit CLMAckBase(QObject* parent = nullptr, CLmClock* pClock = nullptr);

    void SetUAS(CLmUasProvide* pUas);
    CLmUasProvide* GetUAS() const;
    void StartUpload(int retries, int intervalMs, const CLMCommandLongParam& param);
    // True from StartUpload until acknowledged or given up.
    bool IsWaiting() const;

    virtual void ConnectToUAS();
    // Stops listening to the aircraft and sending copies.
    virtual void DisconnectToUAS();
    // Sends one copy; param.confirmation counts the copies sent before.
    virtual void DoCommand(const CLMCommandLongParam& param);
    virtual void DoWhenRetriesFinished();

signals:
    void UploadTimeOut();

protected:
    void Acknowledge();
    // Every frame of the aircraft while connected.
    virtual void OnMessage(const mavlink_message_t& message);

private:
    void OnCommandAck(int command, int result);
    void OnRetryDue();
    void GiveUp();

    QPointer<CLmUasProvide> m_pUas;
    CLmClock* m_pClock;
    CLMCommandLongParam m_param;
    int m_iRetriesLeft = 0;
    int m_iIntervalMs = 0;
    bool m_bWaiting = false;
};
