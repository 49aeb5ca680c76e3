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
#include <QtTest>

#include <utility>

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
    if (!m_extraArgs.contains(QLatin1String("--push-port")))
        args += {QStringLiteral("--push-port"), QString::number(m_requestedPushPort)};
    args += m_extraArgs;
    m_process.start(ProgramPath(), args, QIODevice::ReadOnly);
    if (!m_process.waitForStarted(timeoutMs)) {
        qWarning("CSkyCloudProcess: cannot start %s: %s", qPrintable(ProgramPath()),
                 qPrintable(m_process.errorString()));
        return false;
    }
    if (ReadPortLines(timeoutMs)) {
        m_bServing = true;
        return true;
    }
    Stop();
    return false;
}

void CSkyCloudProcess::SetPushPort(quint16 port)
{
    m_requestedPushPort = port;
}

QString CSkyCloudProcess::ReadLine(const QDeadlineTimer& deadline)
{
    while (!m_process.canReadLine()) {
        if (m_process.state() != QProcess::Running || deadline.hasExpired()
            || !m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime()))) {
            qWarning("CSkyCloudProcess: skycloud did not report its ports");
            return QString();
        }
    }
    return QString::fromUtf8(m_process.readLine()).trimmed();
}

bool CSkyCloudProcess::ReadPortLines(int timeoutMs)
{
    static const QRegularExpression listening(QStringLiteral("^skycloud listening on http://127\\.0\\.0\\.1:(\\d+)$"));
    static const QRegularExpression push(QStringLiteral("^skycloud push on 127\\.0\\.0\\.1:(\\d+)$"));
    const QDeadlineTimer deadline(timeoutMs);
    const QString first = ReadLine(deadline);
    const QString second = ReadLine(deadline);
    const QRegularExpressionMatch listeningMatch = listening.match(first);
    const QRegularExpressionMatch pushMatch = push.match(second);
    if (!listeningMatch.hasMatch() || !pushMatch.hasMatch()) {
        qWarning("CSkyCloudProcess: unexpected port lines: %s / %s", qPrintable(first), qPrintable(second));
        return false;
    }
    m_port = static_cast<quint16>(listeningMatch.captured(1).toUInt());
    m_pushPort = static_cast<quint16>(pushMatch.captured(1).toUInt());
    return m_port != 0 && m_pushPort != 0;
}

QByteArray CSkyCloudProcess::BaseUrl() const
{
    return "http://127.0.0.1:" + QByteArray::number(m_port);
}

quint16 CSkyCloudProcess::Port() const
{
    return m_port;
}

quint16 CSkyCloudProcess::PushPort() const
{
    return m_pushPort;
}

QString CSkyCloudProcess::DataDir() const
{
    return m_dataDir.path();
}

void CSkyCloudProcess::Stop()
{
    m_port = 0;
    m_pushPort = 0;
    const bool wasServing = std::exchange(m_bServing, false);
    if (m_process.state() == QProcess::NotRunning) {
        if (wasServing)
            ReportUncleanStop(QStringLiteral("skycloud ended before it was stopped"));
        return;
    }
    m_process.terminate();
    if (!m_process.waitForFinished(kStopTimeoutMs)) {
        m_process.kill();
        m_process.waitForFinished(kStopTimeoutMs);
        ReportUncleanStop(QStringLiteral("skycloud did not stop on SIGTERM"));
    } else if (m_process.exitStatus() != QProcess::NormalExit || m_process.exitCode() != 0) {
        ReportUncleanStop(QStringLiteral("skycloud stopped with exit code %1").arg(m_process.exitCode()));
    }
}

void CSkyCloudProcess::ReportUncleanStop(const QString& why)
{
    if (QTest::currentTestFunction())
        QTest::qFail(qPrintable(why), __FILE__, __LINE__);
    else
        qFatal("%s", qPrintable(why));
}

QJsonObject CSkyCloudProcess::Call(const QByteArray& path, const QByteArray& formBody, const QByteArray& token,
                                   int* httpStatus)
{
    return CallWithHeader(path, formBody, "token", token, httpStatus);
}

QByteArray CSkyCloudProcess::SignIn(const QByteArray& phone, const QByteArray& password)
{
    const QJsonObject reply = Call("/user/login", "phone=" + phone + "&password=" + password + "&device_id=");
    return reply.value(QStringLiteral("data")).toObject().value(QStringLiteral("token")).toString().toLatin1();
}

QJsonObject CSkyCloudProcess::CallWithHeader(const QByteArray& path, const QByteArray& formBody,
                                             const QByteArray& headerName, const QByteArray& headerValue,
                                             int* httpStatus)
{
    QNetworkAccessManager manager;
    manager.setProxy(QNetworkProxy::NoProxy);
    QNetworkRequest request(QUrl(QString::fromLatin1(BaseUrl() + path)));
    if (!headerValue.isEmpty())
        request.setRawHeader(headerName, headerValue);
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
