#include "FtpServerProcess.h"

#include "BaseLog.h"

#include <QRegularExpression>

#include <csignal>
#include <sys/prctl.h>

namespace {
// Debian's interpreter: the module is a Debian package (python3-pyftpdlib).
const QString kPython = QStringLiteral("/usr/bin/python3");
constexpr int kStartTimeoutMs = 15000;
}  // namespace

FtpServerProcess::FtpServerProcess(QObject* parent)
    : QProcess(parent)
{
    setProcessChannelMode(QProcess::MergedChannels);
}

FtpServerProcess::~FtpServerProcess()
{
    if (state() == QProcess::NotRunning)
        return;
    terminate();
    if (!waitForFinished(3000))
        kill();
    waitForFinished(1000);
}

bool FtpServerProcess::StartServing(const QString& address, quint16 port, const QString& folder)
{
    start(kPython, {QStringLiteral("-m"), QStringLiteral("pyftpdlib"), QStringLiteral("-i"), address,
                    QStringLiteral("-p"), QString::number(port), QStringLiteral("-d"), folder});
    if (!waitForStarted(kStartTimeoutMs))
        return false;
    const QRegularExpression started(QStringLiteral(">>> starting FTP server on .*:(\\d+),"));
    QByteArray output;
    while (waitForReadyRead(kStartTimeoutMs)) {
        output += readAll();
        const QRegularExpressionMatch match = started.match(QString::fromUtf8(output));
        if (match.hasMatch()) {
            m_nPort = static_cast<quint16>(match.captured(1).toUInt());
            // pyftpdlib logs every session; keep reading so the pipe never fills.
            connect(this, &QProcess::readyRead, this, [this] { qCDebug(lcSkyBase) << readAll().trimmed(); });
            return true;
        }
    }
    qCWarning(lcSkyBase).noquote() << "FTP server did not start:" << output;
    return false;
}

void FtpServerProcess::setupChildProcess()
{
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
}
