// Upload of a 50 MB flight log to the skycloud emulator's storage by the log
// upload controller (authorisation, SHA-1, start, slices, fault report),
// against curl posting another 50 MB file to the same storage in one
// request, in the same run: the controller's rate as a multiple of curl's.
#include "CLmDeployConfig.h"
#include "CLmLogDownloadController.h"
#include "CLmLogUploadController.h"
#include "CLmSessionStore.h"
#include "LmLogMultipart.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <optional>

namespace {

constexpr int FILE_SIZE = 50 * 1000 * 1000;
constexpr int GIVE_UP_MS = 120000;
constexpr double TARGET = 0.70;
constexpr quint32 ROUNDS = 5;
const QByteArray ACCOUNT = "13800000001";

QByteArray WriteRandomFile(const QString& path, quint32 seed)
{
    QByteArray bytes(FILE_SIZE, Qt::Uninitialized);
    QRandomGenerator generator(seed);
    generator.fillRange(reinterpret_cast<quint32*>(bytes.data()), FILE_SIZE / 4);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != FILE_SIZE)
        return {};
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
}

// The service's base URL, empty when skycloud did not start.
QByteArray StartCloud(QProcess& cloud, const QString& dataDir)
{
    cloud.setStandardErrorFile(QProcess::nullDevice());
    cloud.start(QCoreApplication::applicationDirPath() + QStringLiteral("/skycloud"),
                {QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--data"), dataDir});
    if (!cloud.waitForReadyRead(10000))
        return {};
    const QByteArray line = cloud.readLine().trimmed();
    const QByteArray prefix = "skycloud listening on ";
    return line.startsWith(prefix) ? line.mid(prefix.size()) : QByteArray();
}

QJsonObject Exchange(QNetworkAccessManager& network, const QNetworkRequest& request, const QByteArray* body)
{
    QNetworkReply* reply = body ? network.post(request, *body) : network.get(request);
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    loop.exec();
    reply->deleteLater();
    return QJsonDocument::fromJson(reply->readAll()).object();
}

QString DataField(const QJsonObject& answer, const char* key)
{
    return answer.value(QStringLiteral("data")).toObject().value(QLatin1String(key)).toString();
}

struct SSession
{
    QByteArray token;
    QByteArray authorization;
};

SSession SignIn(QNetworkAccessManager& network, const QByteArray& base)
{
    QNetworkRequest login(QUrl(QString::fromLatin1(base + "/user/login")));
    login.setHeader(QNetworkRequest::ContentTypeHeader, "application/x-www-form-urlencoded");
    const QByteArray form = "phone=" + ACCOUNT + "&password=skyconsole";
    const QByteArray token = DataField(Exchange(network, login, &form), "token").toLatin1();
    QNetworkRequest grant(QUrl(QString::fromLatin1(base + "/file/authorization")));
    grant.setRawHeader("token", token);
    return {token, DataField(Exchange(network, grant, nullptr), "Authorization").toLatin1()};
}

// Seconds of curl's one request carrying the whole file as a single slice
// of a started upload; nothing when the storage did not take the file.
std::optional<double> CurlSeconds(QNetworkAccessManager& network, const QByteArray& base, const SSession& session,
                                  const QString& path, const QByteArray& sha)
{
    QNetworkRequest start(QUrl(QString::fromLatin1(base + CLmLogUploadController::StoragePath + "curl.zf")));
    start.setRawHeader("Authorization", session.authorization);
    start.setRawHeader("Content-Type", LmLogMultipart::ContentType());
    const QByteArray startBody = LmLogMultipart::StartBody(FILE_SIZE, sha);
    const QString storageSession = DataField(Exchange(network, start, &startBody), "session");

    QProcess curl;
    QElapsedTimer clock;
    clock.start();
    curl.start(QStringLiteral("curl"),
               {QStringLiteral("-s"), QStringLiteral("-H"), QStringLiteral("Authorization: ") + session.authorization,
                QStringLiteral("-F"), QStringLiteral("op=upload_slice"), QStringLiteral("-F"),
                QStringLiteral("offset=0"), QStringLiteral("-F"), QStringLiteral("session=") + storageSession,
                QStringLiteral("-F"), QStringLiteral("filecontent=@") + path, start.url().toString()});
    if (!curl.waitForFinished(GIVE_UP_MS))
        return std::nullopt;
    const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    if (DataField(QJsonDocument::fromJson(curl.readAllStandardOutput()).object(), "access_url").isEmpty())
        return std::nullopt;
    return seconds;
}

// Seconds of the controller's upload from the authorisation to the cloud's
// answer to the report; nothing when it failed.
std::optional<double> ControllerSeconds(const QString& path)
{
    CLmLogDownloadController download;
    CLmLogUploadController upload(&download);
    CLmLogUploadController::SReport report;
    report.strSoftwareVersion = QStringLiteral("2.4.1");
    report.strOsVersion = QStringLiteral("bench");
    report.strQuestion = QStringLiteral("upload rate");
    report.nLevel = 2;
    upload.SetReport(report);
    QEventLoop loop;
    std::optional<double> seconds;
    QElapsedTimer clock;
    QObject::connect(&upload, &CLmLogUploadController::UploadCompleted, &loop, [&] {
        seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
        loop.quit();
    });
    QObject::connect(&upload, &CLmLogUploadController::Message, &loop, &QEventLoop::quit);
    QTimer::singleShot(GIVE_UP_MS, &loop, &QEventLoop::quit);
    clock.start();
    upload._UploadToCloud(path, 1);
    loop.exec();
    return seconds;
}

}  // namespace

int main(int argc, char* argv[])
{
    QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (home.path() + QStringLiteral("/config")).toUtf8());
    qputenv("XDG_DATA_HOME", (home.path() + QStringLiteral("/data")).toUtf8());
    QCoreApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("sky.*=false"));  // keep the figures alone on the terminal

    QProcess cloud;
    const QByteArray base = StartCloud(cloud, home.path() + QStringLiteral("/cloud"));
    if (base.isEmpty()) {
        std::fprintf(stderr, "log_slice_upload_50MB: skycloud did not start\n");
        return 1;
    }
    qputenv("SKYCONSOLE_CLOUD_PRODUCTION_URL", base);
    CLmDeployConfig::Reload();
    QNetworkAccessManager network;
    const SSession session = SignIn(network, base);
    SLmUserInfo user;
    user.strToken = QString::fromLatin1(session.token);
    user.strUserID = QStringLiteral("1");
    user.strAccount = QString::fromLatin1(ACCOUNT);
    CLmSessionStore().SaveSignIn(user, QString());

    // The best of a few rounds of each, alternating, so a busy machine
    // slows both alike; every round uploads files the storage has not seen.
    std::optional<double> curlSeconds;
    std::optional<double> ownSeconds;
    for (quint32 round = 0; round < ROUNDS; ++round) {
        const QString curlFile = home.path() + QStringLiteral("/curl.bin");
        const QString ownFile = home.path() + QStringLiteral("/LM_1_2024-05-01_10-22-07.zf");
        const QByteArray curlSha = WriteRandomFile(curlFile, 2 * round + 1);
        if (curlSha.isEmpty() || WriteRandomFile(ownFile, 2 * round + 2).isEmpty()) {
            std::fprintf(stderr, "log_slice_upload_50MB: cannot write the files\n");
            return 1;
        }
        const std::optional<double> curlRound = CurlSeconds(network, base, session, curlFile, curlSha);
        const std::optional<double> ownRound = ControllerSeconds(ownFile);
        if (!curlRound || !ownRound) {
            std::fprintf(stderr, "log_slice_upload_50MB: %s upload failed\n", curlRound ? "sliced" : "curl");
            return 1;
        }
        curlSeconds = std::min(curlSeconds.value_or(*curlRound), *curlRound);
        ownSeconds = std::min(ownSeconds.value_or(*ownRound), *ownRound);
        QDir(home.path() + QStringLiteral("/cloud/storage/airlog")).removeRecursively();
        QDir(home.path() + QStringLiteral("/cloud/storage/airlog")).mkpath(QStringLiteral("."));
    }
    cloud.terminate();
    cloud.waitForFinished(5000);
    const double megabytes = FILE_SIZE / 1e6;
    std::printf("log_slice_upload_50MB: %.1f MB/s = %.2fx curl's one-request upload at %.1f MB/s (target >= %.2fx)\n",
                megabytes / *ownSeconds, *curlSeconds / *ownSeconds, megabytes / *curlSeconds, TARGET);
    return 0;
}
