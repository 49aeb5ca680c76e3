#include "CLmPackageDownload.h"

#include "LmCarrowmereUtilityLog.h"

#include <QDir>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

namespace {

QString TargetFileName(const QUrl& url)
{
    const QString name = url.fileName();
    return name.isEmpty() || name.startsWith(QLatin1Char('.')) ? QStringLiteral("package.bin") : name;
}

}  // namespace

CLmPackageDownload::CLmPackageDownload(QObject* parent)
    : QObject(parent)
{
}

CLmPackageDownload::~CLmPackageDownload()
{
    Abort();
}

void CLmPackageDownload::Start(const QJsonObject& release, const QString& folder)
{
    Abort();
    const QUrl url(release.value(QStringLiteral("url")).toString());
    m_nExpectedSize = static_cast<qint64>(release.value(QStringLiteral("size")).toDouble());
    m_expectedSha256 = release.value(QStringLiteral("sha256")).toString().toLatin1().toLower();
    m_nReceived = 0;
    m_hash.reset();

    QDir().mkpath(folder);
    m_pFile = std::make_unique<QSaveFile>(QDir(folder).filePath(TargetFileName(url)));
    if (!url.isValid() || !m_pFile->open(QIODevice::WriteOnly)) {
        Fail(QStringLiteral("cannot write into ") + folder);
        return;
    }
    m_pReply = m_manager.get(QNetworkRequest(url));
    connect(m_pReply, &QNetworkReply::readyRead, this, &CLmPackageDownload::OnReadyRead);
    connect(m_pReply, &QNetworkReply::downloadProgress, this, [this](qint64 received, qint64) {
        emit Progress(received, m_nExpectedSize);
    });
    connect(m_pReply, &QNetworkReply::finished, this, &CLmPackageDownload::OnFinished);
}

void CLmPackageDownload::Abort()
{
    if (m_pReply) {
        m_pReply->disconnect(this);
        m_pReply->abort();
        m_pReply->deleteLater();
    }
    m_pFile.reset();  // an uncommitted save file removes its temporary file
}

void CLmPackageDownload::OnReadyRead()
{
    const QByteArray bytes = m_pReply->readAll();
    m_nReceived += bytes.size();
    m_hash.addData(bytes);
    // Reading past the announced size is already a failure; stop storing.
    if (m_nReceived <= m_nExpectedSize)
        m_pFile->write(bytes);
}

void CLmPackageDownload::OnFinished()
{
    OnReadyRead();
    QNetworkReply* reply = m_pReply;
    m_pReply = nullptr;
    reply->deleteLater();

    const int httpStatus = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (reply->error() != QNetworkReply::NoError || httpStatus != 200) {
        Fail(QStringLiteral("transfer failed: ") + reply->errorString());
        return;
    }
    const QString mismatch = Verify();
    if (!mismatch.isEmpty()) {
        Fail(mismatch);
        return;
    }
    if (!m_pFile->commit()) {
        Fail(QStringLiteral("cannot rename into place: ") + m_pFile->errorString());
        return;
    }
    const QString path = m_pFile->fileName();
    m_pFile.reset();
    qCInfo(lcPackage) << "package verified:" << path;
    emit Finished(path);
}

QString CLmPackageDownload::Verify() const
{
    if (m_nReceived != m_nExpectedSize)
        return QStringLiteral("size %1 instead of %2").arg(m_nReceived).arg(m_nExpectedSize);
    if (m_hash.result().toHex() != m_expectedSha256)
        return QStringLiteral("SHA-256 digest does not match");
    return QString();
}

void CLmPackageDownload::Fail(const QString& reason)
{
    qCWarning(lcPackage) << "package download failed:" << reason;
    m_pFile.reset();
    emit Failed(reason);
}
