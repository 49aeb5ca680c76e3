#include "TestSession.h"

#include "CLmDeployConfig.h"
#include "CLmSessionStore.h"

namespace TestSession {

void PointCloudAt(const QByteArray& baseUrl)
{
    qputenv("SKYCONSOLE_CLOUD_PRODUCTION_URL", baseUrl);
    qputenv("SKYCONSOLE_CLOUD_TEST_URL", baseUrl);
    CLmDeployConfig::Reload();
}

void SetSession(const QString& token, const QString& userId)
{
    SLmUserInfo user;
    user.strToken = token;
    user.strUserID = userId;
    CLmSessionStore().SaveSignIn(user, QString());
}

}  // namespace TestSession
