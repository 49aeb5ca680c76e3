#pragma once

#include <QObject>
#include <QTimer>

// The periodic timer of the flight-data uploader. Tests replace it with a
// clock they step by hand.
class CLmUploadClock : public QObject
{
    Q_OBJECT
public:
    explicit CLmUploadClock(QObject* parent = nullptr);

    // Fires every ms milliseconds until Stop(); restarting replaces the period.
    virtual void Start(int ms);
    virtual void Stop();
    virtual bool IsActive() const;

Q_SIGNALS:
    void timeout();

private:
    QTimer m_timer{this};
};
