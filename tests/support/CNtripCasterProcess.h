#pragma once

#include <QProcess>
#include <QString>

// An NTRIP caster for tests: rtklib's str2str serving one mount point with
// one account ("-out ntripc://user:password@:PORT/MOUNT"), fed from a TCP
// server port that nobody writes to.
class CNtripCasterProcess
{
public:
    CNtripCasterProcess() = default;
    ~CNtripCasterProcess();
    CNtripCasterProcess(const CNtripCasterProcess&) = delete;
    CNtripCasterProcess& operator=(const CNtripCasterProcess&) = delete;

    // Waits until the caster accepts connections.
    bool Start(const QString& mount, const QString& account, const QString& password, int timeoutMs = 10000);
    quint16 Port() const { return m_nPort; }

    // A loopback port free at the moment of asking.
    static quint16 FreePort();

private:
    QProcess m_process;
    quint16 m_nPort = 0;
};
