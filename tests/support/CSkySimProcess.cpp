#include "CSkySimProcess.h"

#include <QDeadlineTimer>
#include <signal.h>
#include <QDir>

namespace {

const QString kReadyPrefix = QStringLiteral("skysim ready on ");

} // namespace

CSkySimProcess::~CSkySimProcess()
{
    if (m_process.state() != QProcess::NotRunning && !Stop())
        m_process.kill();
    m_process.waitForFinished(2000);
}

QString CSkySimProcess::ProgramPath()
{
    const QString binDir = qEnvironmentVariable("SKYCONSOLE_BIN_DIR");
    return binDir.isEmpty() ? QStringLiteral(SKYSIM_DEFAULT_PATH) : QDir(binDir).filePath(QStringLiteral("skysim"));
}

bool CSkySimProcess::Start(const QStringList& arguments, int timeoutMs)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(ProgramPath(), arguments);
    const QDeadlineTimer deadline(timeoutMs);
    while (!m_process.canReadLine()) {
        if (deadline.hasExpired() || !m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return false;
    }
    const QString line = QString::fromUtf8(m_process.readLine()).trimmed();
    if (!line.startsWith(kReadyPrefix))
        return false;
    m_readyWhere = line.mid(kReadyPrefix.size());
    return true;
}

quint16 CSkySimProcess::UdpPort() const
{
    if (!m_readyWhere.startsWith(QLatin1String("udp ")))
        return 0;
    return static_cast<quint16>(m_readyWhere.section(QLatin1Char(':'), -1).toUInt());
}

void CSkySimProcess::WriteCommand(const QByteArray& line)
{
    m_process.write(line + '\n');
}

bool CSkySimProcess::Stop(int timeoutMs)
{
    if (m_process.state() == QProcess::NotRunning)
        return false;
    m_process.terminate();
    return m_process.waitForFinished(timeoutMs) && m_process.exitStatus() == QProcess::NormalExit
        && m_process.exitCode() == 0;
}

void CSkySimProcess::Freeze()
{
    ::kill(static_cast<pid_t>(m_process.processId()), SIGSTOP);
}

void CSkySimProcess::Thaw()
{
    ::kill(static_cast<pid_t>(m_process.processId()), SIGCONT);
}
