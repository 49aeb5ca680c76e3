#include "CLmControl.h"

#include "CLmDeployConfig.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

CLmControl* CLmControl::GetInstance()
{
    static CLmControl instance;
    return &instance;
}

QString CLmControl::GetAppDataDirectory() const
{
    const QString path = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                         + QStringLiteral("/SkyConsole");
    QDir().mkpath(path);
    return path;
}

QString CLmControl::GetApplicationDirectory() const
{
    const QString configured =
        CLmDeployConfig::Instance().Value(QStringLiteral("launcher"), QStringLiteral("application_dir"));
    return configured.isEmpty() ? QCoreApplication::applicationDirPath() : QDir::cleanPath(configured);
}

QString CLmControl::GetProjectDirPath() const
{
    const QString path = GetAppDataDirectory() + QStringLiteral("/Projects");
    QDir().mkpath(path);
    return path;
}

QString CLmControl::GetFlightMissionFilePath(const QString& projectFilePath) const
{
    const QFileInfo project(projectFilePath);
    return project.absolutePath() + QLatin1Char('/') + project.completeBaseName() + QStringLiteral(".db");
}

void CLmControl::SetRouteFolder(const QString& folder)
{
    QMutexLocker lock(&m_mutex);
    m_strRouteFolder = folder;
}

QString CLmControl::GetRouteFolder() const
{
    QMutexLocker lock(&m_mutex);
    return m_strRouteFolder;
}

void CLmControl::SetNetWorkState(bool connected)
{
    m_bNetWorkConnected = connected;
}

bool CLmControl::IsNetWorkConnected() const
{
    return m_bNetWorkConnected;
}
