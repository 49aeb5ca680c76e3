#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

// Deployment data: where the cloud service, its web pages and push channel
// live, which of the test and production services is used, the launch key
// shared with the sibling applications, the help addresses and how aircraft
// are reached (UDP port, serial radios, heartbeat time-out).
//
// Sources, later ones winning:
//   1. built-in defaults: the bundled emulators on loopback;
//   2. the machine's file /etc/skyconsole/deployment.ini when it exists (the
//      installed package puts it there);
//   3. the user's file: the INI file named by $SKYCONSOLE_CONFIG, or else
//      $XDG_CONFIG_HOME/SkyConsole/deployment.ini when it exists;
//   4. environment variables SKYCONSOLE_<GROUP>_<KEY> in upper case, for
//      example SKYCONSOLE_CLOUD_PRODUCTION_URL for key "production_url" of
//      group [cloud].
// A file larger than 64 KiB is not read, and a numeric setting outside its
// range is refused (each with a warning); the default stays in both cases.
// See docs/configuration.md for every key.
class CLmDeployConfig
{
public:
    // The process-wide configuration, read on first use.
    static const CLmDeployConfig& Instance();
    // Reads the sources again (after the environment or file changed).
    static void Reload();

    explicit CLmDeployConfig(const QString& iniPath);
    // Files later in the list override single keys of earlier ones.
    explicit CLmDeployConfig(const QStringList& iniPaths);

    QString Value(const QString& group, const QString& key) const;
    bool BoolValue(const QString& group, const QString& key) const;

    static QString SystemFilePath();
    static QString DefaultFilePath();
    static QString ActiveFilePath();

private:
    void RefuseOutOfRange();

    QVariantMap m_mapValues;  // "group/key" -> value
};
