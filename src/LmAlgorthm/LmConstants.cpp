#include "LmConstants.h"

#include "CLmDeployConfig.h"

#include <QRegularExpression>


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

QByteArray GetStorageIP()
{
    const QString storage = CLmDeployConfig::Instance().Value(QStringLiteral("storage"), QStringLiteral("base_url"));
    return storage.isEmpty() ? GetServerIP() : WithoutTrailingSlash(storage).toUtf8();
}

QByteArray GetNoflyZoneKey()
{
    const QString hex = CLmDeployConfig::Instance().Value(QStringLiteral("noflyzone"), QStringLiteral("cipher_key"));
    static const QRegularExpression kKeyDigits(QStringLiteral("^[0-9a-fA-F]{64}$"));
    if (!kKeyDigits.match(hex).hasMatch())
        return {};
    return QByteArray::fromHex(hex.toLatin1());
}
