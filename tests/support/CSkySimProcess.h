#pragma once

#include <QProcess>
#include <QStringList>

// Runs the skysim emulator for one test and reads its ready line. The binary
// is $SKYCONSOLE_BIN_DIR/skysim when that variable is set, else the one built
// with the tree. Its stderr goes to the test's stderr.
class CSkySimProcess
{
public:
    CSkySimProcess() = default;
    ~CSkySimProcess();
    CSkySimProcess(const CSkySimProcess&) = delete;
    CSkySimProcess& operator=(const CSkySimProcess&) = delete;

    // Starts skysim with the arguments and waits for "skysim ready on ...".
    bool Start(const QStringList& arguments, int timeoutMs = 10000);
    // What follows "skysim ready on ", e.g. "udp 127.0.0.1:40123".
    QString ReadyWhere() const { return m_readyWhere; }
    // The local UDP port of the ready line, 0 when it runs on serial.
    quint16 UdpPort() const;
    // Types one console command line (see the skysim README) on its stdin.
    void WriteCommand(const QByteArray& line);
    // Freezes the emulator (SIGSTOP) and lets it go on (SIGCONT): an aircraft
    // whose radio drops out and comes back with everything it held.
    void Freeze();
    void Thaw();
    // Sends SIGTERM and waits; true when it ended by itself with exit code 0.
    bool Stop(int timeoutMs = 5000);

    static QString ProgramPath();

private:
    QProcess m_process;
    QString m_readyWhere;
};
