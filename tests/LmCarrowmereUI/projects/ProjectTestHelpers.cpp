#include "ProjectTestHelpers.h"

#include "CLmControl.h"
#include "CLmDataBase.h"
#include "CLmDeployConfig.h"
#include "LmConstants.h"
#include "LmProjectConstants.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QTemporaryDir>

namespace ProjectTestHelpers {


QString ProjectRoot()
{
    return CLmControl::GetInstance()->GetProjectDirPath();
}

void ClearProjectRoot()
{
    QDir(ProjectRoot()).removeRecursively();
}

CLmProjectGenerator::SOptions Project(const QString& id, const QString& name, const QString& updatedAt,
                                      const QString& userId)
{
    CLmProjectGenerator::SOptions options;
    options.strProjID = id;
    options.strProjName = name;
    options.strUserID = userId;
    options.updatedAt = QDateTime::fromString(updatedAt, QLatin1String(DateTimeSFormat));
    options.iMissions = 3;
    options.iFlownMissions = 2;
    options.iLogRowsPerFlight = 2;
    return options;
}

QString WriteLocal(const CLmProjectGenerator::SOptions& options, const QString& folder)
{
    const QString name = folder.isEmpty() ? options.strProjName : folder;
    return CLmProjectGenerator::WriteProject(ProjectRoot() + QLatin1Char('/') + name, options);
}

QByteArray ProjectFileBytes(const CLmProjectGenerator::SOptions& options)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("cloud.proj"));
    CLmProjectGenerator::WriteProjectDatabase(path, options);
    return ReadFile(path);
}

QByteArray ListReply(const QJsonArray& projects)
{
    return QJsonDocument(QJsonObject{{"status", 0}, {"message", "OK"}, {"data", projects}}).toJson();
}

QJsonObject CloudEntry(const QString& id, const QString& name, const QString& updatedAt, int missions)
{
    return QJsonObject{{"id", id}, {"project_name", name}, {"updated_at", updatedAt}, {"flight_mission_count", missions}};
}

QByteArray ReadFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

qint64 VersionOf(const QString& projectFile)
{
    CLmDataBase db(projectFile);
    if (!db.Open(true))
        return -1;
    return db.SelectValue(QStringLiteral("select version from %1").arg(QLatin1String(ProjectTableName))).toLongLong();
}

}  // namespace ProjectTestHelpers
