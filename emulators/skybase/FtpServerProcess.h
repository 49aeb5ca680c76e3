#pragma once

#include <QProcess>

// Debian's pyftpdlib serving a folder read-only to anonymous users, as a
// child process that ends with skybase (even when skybase is killed).
class FtpServerProcess : public QProcess
{
    Q_OBJECT
public:
    explicit FtpServerProcess(QObject* parent = nullptr);
    ~FtpServerProcess() override;

    // Starts the server on address:port (0: a free port) and waits for its
    // start line; false when it did not start.
    bool StartServing(const QString& address, quint16 port, const QString& folder);
    quint16 Port() const { return m_nPort; }

protected:
    void setupChildProcess() override;

private:
    quint16 m_nPort = 0;
};
