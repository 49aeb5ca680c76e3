#include "CSkyBaseProcess.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QRegularExpression>

CSkyBaseProcess::~CSkyBaseProcess()
{
    if (m_process.state() != QProcess::NotRunning && !Stop())
        Kill();
}

QString CSkyBaseProcess::ProgramPath()
{
    const QString binDir = qEnvironmentVariable("SKYCONSOLE_BIN_DIR");
    return binDir.isEmpty() ? QStringLiteral(SKYBASE_DEFAULT_PATH) : QDir(binDir).filePath(QStringLiteral("skybase"));
}

bool CSkyBaseProcess::Start(const QString& dataDir, const QStringList& extraArguments, int timeoutMs)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(ProgramPath(), QStringList{QStringLiteral("--port"), QStringLiteral("0"),
                                               QStringLiteral("--ftp-port"), QStringLiteral("0"),
                                               QStringLiteral("--data"), dataDir}
                                       + extraArguments);
    const QDeadlineTimer deadline(timeoutMs);
    while (!m_process.canReadLine()) {
        if (deadline.hasExpired() || !m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return false;
    }
    const QString line = QString::fromUtf8(m_process.readLine()).trimmed();
    const QRegularExpressionMatch match =
        QRegularExpression(QStringLiteral("^skybase listening on control .*:(\\d+) ftp .*:(\\d+)$")).match(line);
    if (!match.hasMatch())
        return false;
    m_nControlPort = static_cast<quint16>(match.captured(1).toUInt());
    m_nFtpPort = static_cast<quint16>(match.captured(2).toUInt());
    return true;
}

bool CSkyBaseProcess::Stop(int timeoutMs)
{
    if (m_process.state() == QProcess::NotRunning)
        return false;
    m_process.terminate();
    return m_process.waitForFinished(timeoutMs) && m_process.exitStatus() == QProcess::NormalExit
           && m_process.exitCode() == 0;
}

void CSkyBaseProcess::Kill()
{
    m_process.kill();
    m_process.waitForFinished(3000);
}
