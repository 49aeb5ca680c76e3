#include "CSkyCloudProcess.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QRegularExpression>
#include <QTimer>
#include <QUrl>

namespace {

constexpr int kStopTimeoutMs = 5000;
constexpr int kCallTimeoutMs = 10000;

}  // namespace

CSkyCloudProcess::CSkyCloudProcess(QStringList extraArgs)
    : m_extraArgs(std::move(extraArgs))
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

CSkyCloudProcess::~CSkyCloudProcess()
{
    Stop();
}

QString CSkyCloudProcess::ProgramPath()
{
    const QByteArray binDir = qgetenv("SKYCONSOLE_BIN_DIR");
    if (!binDir.isEmpty())
        return QDir(QString::fromLocal8Bit(binDir)).filePath(QStringLiteral("skycloud"));
    return QStringLiteral(SKYCLOUD_DEFAULT_PATH);
}

bool CSkyCloudProcess::Start(int timeoutMs)
{
    if (!m_dataDir.isValid()) {
        qWarning("CSkyCloudProcess: no temporary data folder");
        return false;
    }
    Stop();
    QStringList args{QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--data"), m_dataDir.path()};
    args += m_extraArgs;
    m_process.start(ProgramPath(), args, QIODevice::ReadOnly);
    if (!m_process.waitForStarted(timeoutMs)) {
        qWarning("CSkyCloudProcess: cannot start %s: %s", qPrintable(ProgramPath()),
                 qPrintable(m_process.errorString()));
        return false;
    }
    if (ReadListeningLine(timeoutMs))
        return true;
    Stop();
    return false;
}

bool CSkyCloudProcess::ReadListeningLine(int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    while (!m_process.canReadLine()) {
        if (m_process.state() != QProcess::Running || deadline.hasExpired()
            || !m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime()))) {
            qWarning("CSkyCloudProcess: skycloud did not report its port");
            return false;
        }
    }
    static const QRegularExpression listening(QStringLiteral("^skycloud listening on http://127\\.0\\.0\\.1:(\\d+)$"));
    const QString line = QString::fromUtf8(m_process.readLine()).trimmed();
    const QRegularExpressionMatch match = listening.match(line);
    if (!match.hasMatch()) {
        qWarning("CSkyCloudProcess: unexpected first line: %s", qPrintable(line));
        return false;
    }
    m_port = static_cast<quint16>(match.captured(1).toUInt());
    return m_port != 0;
}

QByteArray CSkyCloudProcess::BaseUrl() const
{
    return "http://127.0.0.1:" + QByteArray::number(m_port);
}

quint16 CSkyCloudProcess::Port() const
{
    return m_port;
}

QString CSkyCloudProcess::DataDir() const
{
    return m_dataDir.path();
}

void CSkyCloudProcess::Stop()
{
    m_port = 0;
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(kStopTimeoutMs)) {
        m_process.kill();
        m_process.waitForFinished(kStopTimeoutMs);
    }
}

QJsonObject CSkyCloudProcess::Call(const QByteArray& path, const QByteArray& formBody, const QByteArray& token,
                                   int* httpStatus)
{
    QNetworkAccessManager manager;
    manager.setProxy(QNetworkProxy::NoProxy);
    QNetworkRequest request(QUrl(QString::fromLatin1(BaseUrl() + path)));
    if (!token.isEmpty())
        request.setRawHeader("token", token);
    QNetworkReply* reply = nullptr;
    if (formBody.isEmpty()) {
        reply = manager.get(request);
    } else {
        request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/x-www-form-urlencoded"));
        reply = manager.post(request, formBody);
    }

    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(kCallTimeoutMs, &loop, &QEventLoop::quit);
    loop.exec();
    if (!reply->isFinished()) {
        qWarning("CSkyCloudProcess: %s timed out", path.constData());
        reply->abort();
    }

    if (httpStatus)
        *httpStatus = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QJsonObject envelope = QJsonDocument::fromJson(reply->readAll()).object();
    delete reply;
    return envelope;
}
