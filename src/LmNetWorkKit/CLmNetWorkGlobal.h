#pragma once

#include <QObject>

#include <atomic>

class QNetworkAccessManager;
class QNetworkReply;
class QTimer;

// Tells whether the cloud service can be reached. Lives on the network-test
// thread: each start of that thread probes at once and then every interval;
// every probe answers with NetWorkConnectState. Stopping the thread stops
// the probing until it is started again.
class CLmNetWorkGlobal : public QObject
{
    Q_OBJECT
public:
    static constexpr int DefaultIntervalMs = 5000;
    static constexpr int ProbeTimeoutMs = 3000;

    explicit CLmNetWorkGlobal(QObject* parent = nullptr);
    ~CLmNetWorkGlobal() override;

    // Takes effect at the next start of the thread or the next probe round.
    void SetTimerInterval(int ms);

    // Connect the thread's finished() here with a direct connection so that
    // the timer and a pending probe end in their own thread.
    void StopProbing();

public Q_SLOTS:
    void slotTestNetWorkConnectState();

Q_SIGNALS:
    void NetWorkConnectState(bool online);

private:
    void Probe();
    void slotProbeFinished();

    std::atomic<int> m_iIntervalMs{DefaultIntervalMs};
    QTimer* m_pTimer = nullptr;
    QNetworkAccessManager* m_pManager = nullptr;
    QNetworkReply* m_pReply = nullptr;
};
