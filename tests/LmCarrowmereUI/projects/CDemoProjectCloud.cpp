#include "CDemoProjectCloud.h"

#include "TestSession.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace {

// "/project/downloadfile" answers with the file itself, not an envelope.
QByteArray FetchProjectFile(const QByteArray& baseUrl, const QByteArray& token, const QString& projectId)
{
    QNetworkAccessManager manager;
    manager.setProxy(QNetworkProxy::NoProxy);
    QNetworkRequest request(QUrl(QString::fromLatin1(baseUrl + "/project/downloadfile")));
    request.setRawHeader("token", token);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/x-www-form-urlencoded"));
    QNetworkReply* reply = manager.post(request, "id=" + projectId.toUtf8());
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    loop.exec();
    reply->deleteLater();
    return reply->error() == QNetworkReply::NoError ? reply->readAll() : QByteArray();
}

}  // namespace

bool CDemoProjectCloud::Start()
{
    if (!m_cloud.Start())
        return false;
    TestSession::PointCloudAt(m_cloud.BaseUrl());
    m_token = m_cloud.SignIn("13800000001");
    TestSession::SetSession(QString::fromLatin1(m_token), QStringLiteral("1"));
    for (const QJsonValue& project : Rows("/project/list", {})) {
        if (project.toObject().value(QStringLiteral("project_name")).toString() == QLatin1String(ProjectName))
            m_strProjectId = project.toObject().value(QStringLiteral("id")).toString();
    }
    m_projectFile = FetchProjectFile(m_cloud.BaseUrl(), m_token, m_strProjectId);
    return !m_token.isEmpty() && !m_strProjectId.isEmpty() && !m_projectFile.isEmpty();
}

QByteArray CDemoProjectCloud::BaseUrl() const
{
    return m_cloud.BaseUrl();
}

QString CDemoProjectCloud::ProjectId() const
{
    return m_strProjectId;
}

QString CDemoProjectCloud::WriteProjectFile(const QString& root) const
{
    const QString folder = root + QLatin1Char('/') + QLatin1String(ProjectName);
    const QString path = folder + QLatin1Char('/') + QLatin1String(ProjectName) + QStringLiteral(".proj");
    QFile file(path);
    if (!QDir().mkpath(folder) || !file.open(QIODevice::WriteOnly) || file.write(m_projectFile) != m_projectFile.size())
        return QString();
    return path;
}

QJsonArray CDemoProjectCloud::Rows(const QByteArray& path, const QByteArray& formBody)
{
    return m_cloud.Call(path, formBody, m_token).value(QStringLiteral("data")).toArray();
}
