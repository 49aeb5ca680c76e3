#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

// Runs the skycloud emulator for one test: on a free loopback port, with a
// data folder of its own that lives as long as this object. The binary is
// $SKYCONSOLE_BIN_DIR/skycloud when that variable is set, else the one built
// with the tree. Its stderr goes to the test's stderr.
class CSkyCloudProcess
{
public:
    explicit CSkyCloudProcess(QStringList extraArgs = {});
    ~CSkyCloudProcess();
    CSkyCloudProcess(const CSkyCloudProcess&) = delete;
    CSkyCloudProcess& operator=(const CSkyCloudProcess&) = delete;

    // Starts the emulator and waits for its "listening" line. Can be called
    // again after Stop(); the data folder stays the same.
    bool Start(int timeoutMs = 10000);
    // "http://127.0.0.1:PORT", no trailing slash.
    QByteArray BaseUrl() const;
    quint16 Port() const;
    QString DataDir() const;
    void Stop();

    // Blocking request for emulator tests only: POST of the form body when
    // there is one, else GET; the token goes in the "token" header. Returns
    // the reply's JSON object (empty when it does not parse).
    QJsonObject Call(const QByteArray& path, const QByteArray& formBody = {}, const QByteArray& token = {},
                     int* httpStatus = nullptr);

    static QString ProgramPath();

private:
    bool ReadListeningLine(int timeoutMs);

    QStringList m_extraArgs;
    QTemporaryDir m_dataDir;
    QProcess m_process;
    quint16 m_port = 0;
};
