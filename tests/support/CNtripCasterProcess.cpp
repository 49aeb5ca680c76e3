#include "CNtripCasterProcess.h"

#include <QDeadlineTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

CNtripCasterProcess::~CNtripCasterProcess()
{
    m_process.terminate();
    if (!m_process.waitForFinished(3000))
        m_process.kill();
    m_process.waitForFinished(1000);
}

quint16 CNtripCasterProcess::FreePort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    return probe.serverPort();
}

bool CNtripCasterProcess::Start(const QString& mount, const QString& account, const QString& password, int timeoutMs)
{
    m_nPort = FreePort();
    const QString output = QStringLiteral("ntripc://%1:%2@:%3/%4").arg(account, password).arg(m_nPort).arg(mount);
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_process.start(QStringLiteral("str2str"),
                    {QStringLiteral("-in"), QStringLiteral("tcpsvr://:%1").arg(FreePort()), QStringLiteral("-out"),
                     output});
    if (!m_process.waitForStarted(timeoutMs))
        return false;
    const QDeadlineTimer deadline(timeoutMs);
    while (!deadline.hasExpired() && m_process.state() == QProcess::Running) {
        QTcpSocket probe;
        probe.connectToHost(QHostAddress::LocalHost, m_nPort);
        if (probe.waitForConnected(500))
            return true;
        QThread::msleep(100);
    }
    return false;
}
