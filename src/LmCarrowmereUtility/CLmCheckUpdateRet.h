#pragma once

#include <QJsonObject>
#include <QObject>

class CLmPackageDownload;
class CLmUpdateQuery;

// The start-up check of the aircraft firmware and of the launcher. A newer
// firmware package is downloaded quietly into the firmware folder and, once
// verified, reported with DownLoadFinished; a newer launcher is only
// reported, since installing it needs the user (CLmCarrowmereUpgradeLauncher).
class CLmCheckUpdateRet : public QObject
{
    Q_OBJECT
public:
    explicit CLmCheckUpdateRet(QObject* parent = nullptr);

    void CheckUpdate();

    // The installed launcher's version: deployment key update/launcher_version,
    // else this application's version (the two ship together).
    static QString LauncherVersion();
    // The version of the firmware package held in the firmware folder, "0"
    // when none is held.
    static QString HeldFirmwareVersion();
    // The record of the held firmware package: "version", "file" (its full
    // path) and "sha256" as the release announced them; empty when none is held.
    static QJsonObject HeldFirmwarePackage();

signals:
    // filePath: the verified firmware package.
    void DownLoadFinished(const QString& filePath);
    void LauncherUpgradeInfor();

private:
    void DownloadFirmware(const QJsonObject& release);
    void RecordFirmware(const QString& filePath);

    CLmUpdateQuery* m_pFirmwareQuery;
    CLmUpdateQuery* m_pLauncherQuery;
    CLmPackageDownload* m_pFirmwareDownload;
    QJsonObject m_firmwareRelease;
};
