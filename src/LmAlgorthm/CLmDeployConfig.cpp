#include "CLmDeployConfig.h"

#include "LmAlgorthmLog.h"

#include <QFileInfo>
#include <QMutex>
#include <QSettings>
#include <QStandardPaths>

#include <memory>

namespace {

struct SDefault
{
    const char* key;
    const char* value;
};

// The bundled emulators on loopback; README's run command starts skycloud on
// port 18080 (HTTP) and 18081 (push channel).
const SDefault kDefaults[] = {
    {"cloud/use_test_server", "false"},
    {"cloud/production_url", "http://127.0.0.1:18080"},
    {"cloud/test_url", "http://127.0.0.1:18080"},
    {"cloud/page_base", ""},
    {"cloud/push_address", "127.0.0.1:18081"},
    {"cloud/monitor_production_url", ""},
    {"cloud/monitor_test_url", ""},
    {"launcher/launch_key", "{6f1c2b7e-4d3a-4b8e-9c51-2a7d0e8f4b13}"},
    {"launcher/application_dir", ""},
    {"help/manual_url", ""},
    {"update/launcher_version", ""},
    {"aircraft/udp_listen_port", "14550"},
    {"aircraft/serial_ports", "auto"},
    {"aircraft/serial_baud", "57600"},
    {"aircraft/heartbeat_timeout_ms", "3500"},
    // The GNSS base station; the defaults are skybase's default ports.
    {"basestation/host", "127.0.0.1"},
    {"basestation/control_port", "18060"},
    {"basestation/ftp_port", "18061"},
};

QString EnvironmentName(const QString& groupKey)
{
    QString name = groupKey.toUpper();
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    return QStringLiteral("SKYCONSOLE_") + name;
}

QMutex g_instanceMutex;
std::unique_ptr<CLmDeployConfig> g_instance;

}  // namespace

CLmDeployConfig::CLmDeployConfig(const QString& iniPath)
{
    for (const SDefault& entry : kDefaults)
        m_mapValues.insert(QLatin1String(entry.key), QString::fromLatin1(entry.value));

    if (!iniPath.isEmpty() && QFileInfo::exists(iniPath)) {
        QSettings file(iniPath, QSettings::IniFormat);
        for (const QString& key : file.allKeys())
            m_mapValues.insert(key, file.value(key));
        qCInfo(lcDeploy) << "deployment data from" << iniPath;
    }

    for (auto it = m_mapValues.begin(); it != m_mapValues.end(); ++it) {
        const QByteArray env = qgetenv(EnvironmentName(it.key()).toLatin1().constData());
        if (!env.isNull())
            it.value() = QString::fromUtf8(env);
    }
}

const CLmDeployConfig& CLmDeployConfig::Instance()
{
    QMutexLocker lock(&g_instanceMutex);
    if (!g_instance)
        g_instance = std::make_unique<CLmDeployConfig>(ActiveFilePath());
    return *g_instance;
}

void CLmDeployConfig::Reload()
{
    QMutexLocker lock(&g_instanceMutex);
    g_instance = std::make_unique<CLmDeployConfig>(ActiveFilePath());
}

QString CLmDeployConfig::Value(const QString& group, const QString& key) const
{
    return m_mapValues.value(group + QLatin1Char('/') + key).toString().trimmed();
}

bool CLmDeployConfig::BoolValue(const QString& group, const QString& key) const
{
    const QString text = Value(group, key).toLower();
    return text == QLatin1String("true") || text == QLatin1String("1") || text == QLatin1String("yes");
}

QString CLmDeployConfig::DefaultFilePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QStringLiteral("/SkyConsole/deployment.ini");
}

QString CLmDeployConfig::ActiveFilePath()
{
    const QString named = qEnvironmentVariable("SKYCONSOLE_CONFIG");
    return named.isEmpty() ? DefaultFilePath() : named;
}
