#include "CLmDeployConfig.h"

#include "LmAlgorthmLog.h"

#include <QFileInfo>
#include <QMutex>
#include <QSettings>
#include <QStandardPaths>

#include <memory>

namespace {

// A numeric setting carries the range it must lie in; a value outside it
// (or not a whole number) is refused and the default kept, so a typing
// slip never becomes some other port or rate.
struct SDefault
{
    const char* key;
    const char* value;
    qint64 iMin = 0;
    qint64 iMax = 0;

    bool IsNumeric() const { return iMin < iMax; }
};

// A deployment file holds a few dozen short lines; anything much larger is
// not one, and is not read at all.
constexpr qint64 MaxFileBytes = 64 * 1024;

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
    {"aircraft/udp_listen_port", "14550", 0, 65535},
    {"aircraft/serial_ports", "auto"},
    {"aircraft/serial_baud", "57600", 300, 4000000},
    {"aircraft/heartbeat_timeout_ms", "3500", 500, 600000},
    // The GNSS base station; the defaults are skybase's default ports.
    {"basestation/host", "127.0.0.1"},
    {"basestation/control_port", "18060", 1, 65535},
    {"basestation/ftp_port", "18061", 1, 65535},
    {"storage/base_url", ""},
    // The demo key the bundled sibling stand-ins share; a deployment sets its own.
    {"noflyzone/cipher_key", "5b2f0c9e8a7d46e1b3c4f5a6978d0e1f2a3b4c5d6e7f8091a2b3c4d5e6f70819"},
};

QString EnvironmentName(const QString& groupKey)
{
    QString name = groupKey.toUpper();
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    return QStringLiteral("SKYCONSOLE_") + name;
}

bool IsReadableFile(const QString& iniPath)
{
    const QFileInfo file(iniPath);
    if (!file.exists())
        return false;
    if (!file.isFile() || file.size() > MaxFileBytes) {
        qCWarning(lcDeploy) << "deployment file" << iniPath << "ignored: not a regular file of at most"
                            << MaxFileBytes << "bytes; defaults kept";
        return false;
    }
    return true;
}

QMutex g_instanceMutex;
std::unique_ptr<CLmDeployConfig> g_instance;

}  // namespace

CLmDeployConfig::CLmDeployConfig(const QString& iniPath)
    : CLmDeployConfig(QStringList{iniPath})
{
}

CLmDeployConfig::CLmDeployConfig(const QStringList& iniPaths)
{
    for (const SDefault& entry : kDefaults)
        m_mapValues.insert(QLatin1String(entry.key), QString::fromLatin1(entry.value));

    for (const QString& iniPath : iniPaths) {
        if (iniPath.isEmpty() || !IsReadableFile(iniPath))
            continue;
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
    RefuseOutOfRange();
}

void CLmDeployConfig::RefuseOutOfRange()
{
    for (const SDefault& entry : kDefaults) {
        if (!entry.IsNumeric())
            continue;
        QVariant& value = m_mapValues[QLatin1String(entry.key)];
        bool isNumber = false;
        const qint64 number = value.toString().trimmed().toLongLong(&isNumber);
        if (isNumber && number >= entry.iMin && number <= entry.iMax)
            continue;
        qCWarning(lcDeploy) << entry.key << "=" << value.toString() << "refused: not a whole number from"
                            << entry.iMin << "to" << entry.iMax << "; default" << entry.value << "kept";
        value = QString::fromLatin1(entry.value);
    }
}

const CLmDeployConfig& CLmDeployConfig::Instance()
{
    QMutexLocker lock(&g_instanceMutex);
    if (!g_instance)
        g_instance = std::make_unique<CLmDeployConfig>(QStringList{SystemFilePath(), ActiveFilePath()});
    return *g_instance;
}

void CLmDeployConfig::Reload()
{
    QMutexLocker lock(&g_instanceMutex);
    g_instance = std::make_unique<CLmDeployConfig>(QStringList{SystemFilePath(), ActiveFilePath()});
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

QString CLmDeployConfig::SystemFilePath()
{
    return QStringLiteral("/etc/skyconsole/deployment.ini");
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
