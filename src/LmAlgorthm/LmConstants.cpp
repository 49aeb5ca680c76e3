#include "LmConstants.h"

#include "CLmDeployConfig.h"

#include <QSettings>

namespace {

QString CloudValue(const char* key)
{
    return CLmDeployConfig::Instance().Value(QStringLiteral("cloud"), QLatin1String(key));
}

QString WithoutTrailingSlash(QString url)
{
    while (url.endsWith(QLatin1Char('/')))
        url.chop(1);
    return url;
}

}  // namespace

bool IsTestServer()
{
    return CLmDeployConfig::Instance().BoolValue(QStringLiteral("cloud"), QStringLiteral("use_test_server"));
}

QByteArray GetServerIP()
{
    return WithoutTrailingSlash(CloudValue(IsTestServer() ? "test_url" : "production_url")).toUtf8();
}

QByteArray GetPageIP()
{
    // Page paths such as "8083/news" are appended as they stand, so a
    // production base ends in "host:" and the emulator's in "host:port/".
    const QString pageBase = CloudValue("page_base");
    return pageBase.isEmpty() ? GetServerIP() + '/' : pageBase.toUtf8();
}

QByteArray GetMonitorIP()
{
    const QString monitor = CloudValue(IsTestServer() ? "monitor_test_url" : "monitor_production_url");
    return monitor.isEmpty() ? GetServerIP() : WithoutTrailingSlash(monitor).toUtf8();
}

QString GetPushChannelAddress()
{
    return CloudValue("push_address");
}

QString GetLaunchKey()
{
    return CLmDeployConfig::Instance().Value(QStringLiteral("launcher"), QStringLiteral("launch_key"));
}

QString GetHelpUrl()
{
    const QString configured = CLmDeployConfig::Instance().Value(QStringLiteral("help"), QStringLiteral("manual_url"));
    return configured.isEmpty() ? QString::fromUtf8(GetPageIP()) + QStringLiteral("help") : configured;
}

SLmUserInfo GetCurUserInfo()
{
    QSettings settings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)};
    settings.beginGroup(QLatin1String(UserInfoGroupName));
    SLmUserInfo info;
    info.strToken = settings.value(QLatin1String(UserInfoToken)).toString();
    info.strUserID = settings.value(QLatin1String(UserInfoUserID)).toString();
    info.strAccount = settings.value(QLatin1String(UserInfoAccount)).toString();
    info.strNickName = settings.value(QLatin1String(UserInfoNickName)).toString();
    info.strUserType = settings.value(QStringLiteral("User_Type")).toString();
    settings.endGroup();
    return info;
}

void ClearCurUserSession()
{
    QSettings settings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)};
    settings.beginGroup(QLatin1String(UserInfoGroupName));
    settings.setValue(QStringLiteral("AutoLogin"), false);
    settings.setValue(QLatin1String(UserInfoToken), QString());
    settings.setValue(QLatin1String(UserInfoNickName), QString());
    settings.setValue(QLatin1String(UserInfoUserID), QString());
    settings.setValue(QStringLiteral("PWD"), QString());
    settings.endGroup();
}
