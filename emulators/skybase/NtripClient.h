#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>
#include <QTcpSocket>
#include <QTimer>

// The station's NTRIP client (NTRIP 1.0 over TCP): fetches a caster's source
// table, or logs in to a mount point and keeps receiving its corrections.
class NtripClient : public QObject
{
    Q_OBJECT
public:
    enum EResult { Success = 0, Refused = 1, Unreachable = 2 };

    explicit NtripClient(QObject* parent = nullptr);

    // Empty mount: the source table. Ends with finished() once.
    void Start(const QString& host, int port, const QString& mount, const QString& account,
               const QString& password);
    bool IsLoggedIn() const { return m_bLoggedIn; }

    static constexpr int kTimeoutMs = 8000;

signals:
    void finished(int result, QStringList mounts);
    // A logged-in connection ended.
    void lost();

private:
    void OnConnected();
    void OnReadyRead();
    void OnEnded();
    void Finish(int result, const QStringList& mounts = {});
    QStringList Mounts() const;

    QTcpSocket m_socket{this};
    QTimer m_timeout{this};
    QByteArray m_request;
    QByteArray m_received;
    bool m_bSourceTable = false;
    bool m_bDone = false;
    bool m_bLoggedIn = false;
};
