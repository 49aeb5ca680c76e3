#pragma once

#include <QObject>
#include <QTimer>

// The retry timer of the request acknowledgers: one pending time-out at a
// time. Tests replace it with a clock they step by hand.
class CLmAckClock : public QObject
{
    Q_OBJECT
public:
    explicit CLmAckClock(QObject* parent = nullptr);

    // Replaces a pending time-out.
    virtual void Start(int ms);
    virtual void Stop();

signals:
    void timeout();

private:
    QTimer m_timer{this};
};
