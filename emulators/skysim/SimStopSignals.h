#pragma once

#include <QObject>
#include <QSocketNotifier>

// Turns SIGINT and SIGTERM into the stopRequested() signal, delivered by the
// event loop: the handler only writes a byte into a pipe the loop watches.
class SimStopSignals : public QObject
{
    Q_OBJECT
public:
    explicit SimStopSignals(QObject* parent = nullptr);
    ~SimStopSignals() override;

signals:
    void stopRequested();

private:
    static void handleSignal(int signal);
    void readSignal();

    QSocketNotifier* m_notifier = nullptr;
};
