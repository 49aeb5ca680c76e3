#pragma once

#include <QObject>
#include <QTimer>

// The timers of retry and polling logic. Tests put a clock they step by
// hand in its place, so time-outs are tested without sleeping.
class CLmClock : public QObject
{
    Q_OBJECT
public:
    explicit CLmClock(QObject* parent = nullptr);

    // A single-shot clock fires once per Start(); otherwise every period.
    void SetSingleShot(bool bSingleShot);

    // (Re)starts the period, replacing a pending one.
    virtual void Start(int ms);
    virtual void Stop();
    virtual bool IsActive() const;

Q_SIGNALS:
    void timeout();

private:
    QTimer m_timer{this};
};
