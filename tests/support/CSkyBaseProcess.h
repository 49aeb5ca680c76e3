#pragma once

#include <QProcess>
#include <QStringList>

// Runs the skybase emulator for one test on free ports and reads its first
// line. The binary is $SKYCONSOLE_BIN_DIR/skybase when that variable is set,
// else the one built with the tree. Its stderr goes to the test's stderr.
class CSkyBaseProcess
{
public:
    CSkyBaseProcess() = default;
    ~CSkyBaseProcess();
    CSkyBaseProcess(const CSkyBaseProcess&) = delete;
    CSkyBaseProcess& operator=(const CSkyBaseProcess&) = delete;

    // Starts "skybase --port 0 --ftp-port 0 --data dataDir" plus the extra
    // arguments and waits for "skybase listening on ...".
    bool Start(const QString& dataDir, const QStringList& extraArguments = {}, int timeoutMs = 20000);
    quint16 ControlPort() const { return m_nControlPort; }
    quint16 FtpPort() const { return m_nFtpPort; }
    // SIGTERM and wait; true when it ended by itself with exit code 0.
    bool Stop(int timeoutMs = 5000);
    // SIGKILL, the way a station loses power.
    void Kill();

    static QString ProgramPath();

private:
    QProcess m_process;
    quint16 m_nControlPort = 0;
    quint16 m_nFtpPort = 0;
};
