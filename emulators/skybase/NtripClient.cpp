#include "NtripClient.h"

#include "BaseLog.h"

NtripClient::NtripClient(QObject* parent)
    : QObject(parent)
{
    m_timeout.setSingleShot(true);
    connect(&m_timeout, &QTimer::timeout, this, [this] { Finish(Unreachable); });
    connect(&m_socket, &QTcpSocket::connected, this, &NtripClient::OnConnected);
    connect(&m_socket, &QTcpSocket::readyRead, this, &NtripClient::OnReadyRead);
    connect(&m_socket, &QTcpSocket::disconnected, this, &NtripClient::OnEnded);
    connect(&m_socket, &QTcpSocket::errorOccurred, this, &NtripClient::OnEnded);
}

void NtripClient::Start(const QString& host, int port, const QString& mount, const QString& account,
                        const QString& password)
{
    m_bSourceTable = mount.isEmpty();
    m_request = "GET /" + mount.toLatin1() + " HTTP/1.0\r\nUser-Agent: NTRIP skybase/1.0\r\n";
    if (!m_bSourceTable)
        m_request += "Authorization: Basic " + (account + QLatin1Char(':') + password).toUtf8().toBase64() + "\r\n";
    m_request += "\r\n";
    m_timeout.start(kTimeoutMs);
    m_socket.connectToHost(host, static_cast<quint16>(port));
}

void NtripClient::OnConnected()
{
    m_socket.write(m_request);
}

void NtripClient::OnReadyRead()
{
    if (m_bLoggedIn) {
        m_socket.readAll();  // the corrections themselves go to the receiver, not modelled here
        return;
    }
    m_received += m_socket.readAll();
    const int lineEnd = m_received.indexOf("\r\n");
    if (lineEnd < 0)
        return;
    const QByteArray status = m_received.left(lineEnd);
    if (m_bSourceTable) {
        if (!status.startsWith("SOURCETABLE 200"))
            Finish(Unreachable);
        else if (m_received.contains("ENDSOURCETABLE"))
            Finish(Success, Mounts());
    } else if (status.startsWith("ICY 200") || status.startsWith("HTTP/1.1 200") || status.startsWith("HTTP/1.0 200")) {
        m_bLoggedIn = true;
        Finish(Success);
    } else {
        Finish(status.contains(" 401") ? Refused : Unreachable);
    }
}

void NtripClient::OnEnded()
{
    if (m_bLoggedIn) {
        m_bLoggedIn = false;
        emit lost();
        return;
    }
    Finish(Unreachable);
}

void NtripClient::Finish(int result, const QStringList& mounts)
{
    if (m_bDone)
        return;
    m_bDone = true;
    m_timeout.stop();
    if (!m_bLoggedIn) {
        m_socket.disconnect(this);
        m_socket.abort();
    }
    emit finished(result, mounts);
}

// The mount points of the "STR;" records of the source table.
QStringList NtripClient::Mounts() const
{
    QStringList mounts;
    for (const QByteArray& line : m_received.split('\n')) {
        const QList<QByteArray> fields = line.trimmed().split(';');
        if (fields.size() > 1 && fields.at(0) == "STR" && !fields.at(1).isEmpty())
            mounts.append(QString::fromLatin1(fields.at(1)));
    }
    return mounts;
}
