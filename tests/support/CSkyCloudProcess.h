#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

// Runs the skycloud emulator for one test: on free loopback ports (HTTP and
// push channel), with a data folder of its own that lives as long as this object. The binary is
// $SKYCONSOLE_BIN_DIR/skycloud when that variable is set, else the one built
// with the tree. Its stderr goes to the test's stderr. An emulator that does
// not stop cleanly (a crash, a hang, a non-zero exit) fails the test that
// stops it, or aborts the test program when no test function is running.
class CSkyCloudProcess
{
public:
    explicit CSkyCloudProcess(QStringList extraArgs = {});
    ~CSkyCloudProcess();
    CSkyCloudProcess(const CSkyCloudProcess&) = delete;
    CSkyCloudProcess& operator=(const CSkyCloudProcess&) = delete;

    // Starts the emulator and waits for its two port lines. Can be called
    // again after Stop(); the data folder stays the same.
    bool Start(int timeoutMs = 10000);
    // The push channel port for the following starts; 0 (the default) picks
    // a free one. Restarting on the previous PushPort() lets a test drop and
    // bring back the push channel its client is connected to.
    void SetPushPort(quint16 port);
    // "http://127.0.0.1:PORT", no trailing slash.
    QByteArray BaseUrl() const;
    quint16 Port() const;
    quint16 PushPort() const;
    QString DataDir() const;
    void Stop();

    // Blocking request for emulator tests only: POST of the form body when
    // there is one, else GET; the token goes in the "token" header. Returns
    // the reply's JSON object (empty when it does not parse).
    QJsonObject Call(const QByteArray& path, const QByteArray& formBody = {}, const QByteArray& token = {},
                     int* httpStatus = nullptr);
    // Signs the account in through "/user/login" and returns its token
    // (empty when the sign-in failed).
    QByteArray SignIn(const QByteArray& phone, const QByteArray& password = "skyconsole");
    // As Call(), with the value sent in the named header (for example
    // "admin-token" for "/push/send").
    QJsonObject CallWithHeader(const QByteArray& path, const QByteArray& formBody, const QByteArray& headerName,
                               const QByteArray& headerValue, int* httpStatus = nullptr);

    static QString ProgramPath();

private:
    bool ReadPortLines(int timeoutMs);
    QString ReadLine(const QDeadlineTimer& deadline);
    static void ReportUncleanStop(const QString& why);

    QStringList m_extraArgs;
    QTemporaryDir m_dataDir;
    QProcess m_process;
    quint16 m_port = 0;
    quint16 m_pushPort = 0;
    quint16 m_requestedPushPort = 0;
    bool m_bServing = false;
};
