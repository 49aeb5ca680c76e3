#include "TestSession.h"

#include "CLmDeployConfig.h"
#include "LmConstants.h"

#include <QSettings>

namespace TestSession {

void PointCloudAt(const QByteArray& baseUrl)
{
    qputenv("SKYCONSOLE_CLOUD_PRODUCTION_URL", baseUrl);
    qputenv("SKYCONSOLE_CLOUD_TEST_URL", baseUrl);
    CLmDeployConfig::Reload();
}

void SetSession(const QString& token, const QString& userId)
{
    QSettings settings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)};
    settings.beginGroup(QLatin1String(UserInfoGroupName));
    settings.setValue(QLatin1String(UserInfoToken), token);
    settings.setValue(QLatin1String(UserInfoUserID), userId);
    settings.endGroup();
    settings.sync();
}

}  // namespace TestSession
