#include "CLmCheckUpdateRet.h"

#include "CLmDeployConfig.h"
#include "CLmPackageDownload.h"
#include "CLmUpdateFolders.h"
#include "CLmUpdateQuery.h"
#include "LmCarrowmereUtilityLog.h"
#include "LmVersion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

namespace {

QString FirmwareRecordPath()
{
    return QDir(CLmUpdateFolders::Firmware()).filePath(QStringLiteral("firmware.json"));
}

QJsonObject HeldFirmwareRecord()
{
    QFile file(FirmwareRecordPath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

}  // namespace

CLmCheckUpdateRet::CLmCheckUpdateRet(QObject* parent)
    : QObject(parent)
    , m_pFirmwareQuery(new CLmUpdateQuery(this))
    , m_pLauncherQuery(new CLmUpdateQuery(this))
    , m_pFirmwareDownload(new CLmPackageDownload(this))
{
    connect(m_pFirmwareQuery, &CLmUpdateQuery::NewerRelease, this, &CLmCheckUpdateRet::DownloadFirmware);
    connect(m_pFirmwareDownload, &CLmPackageDownload::Finished, this, &CLmCheckUpdateRet::RecordFirmware);
    connect(m_pLauncherQuery, &CLmUpdateQuery::NewerRelease, this, &CLmCheckUpdateRet::LauncherUpgradeInfor);
    for (CLmUpdateQuery* query : {m_pFirmwareQuery, m_pLauncherQuery}) {
        connect(query, &CLmUpdateQuery::Failed, this,
                [](const QString& message) { qCInfo(lcUpdateCheck) << "update check failed:" << message; });
    }
}

QString CLmCheckUpdateRet::LauncherVersion()
{
    const QString configured =
        CLmDeployConfig::Instance().Value(QStringLiteral("update"), QStringLiteral("launcher_version"));
    return configured.isEmpty() ? LmVersion::Current() : configured;
}

QString CLmCheckUpdateRet::HeldFirmwareVersion()
{
    const QJsonObject record = HeldFirmwareRecord();
    const QString file = QDir(CLmUpdateFolders::Firmware()).filePath(record.value(QStringLiteral("file")).toString());
    const QString version = record.value(QStringLiteral("version")).toString();
    return version.isEmpty() || !QFileInfo(file).isFile() ? QStringLiteral("0") : version;
}

QJsonObject CLmCheckUpdateRet::HeldFirmwarePackage()
{
    QJsonObject record = HeldFirmwareRecord();
    // The name comes from the cloud: it never leaves the firmware folder.
    const QString name = QFileInfo(record.value(QStringLiteral("file")).toString()).fileName();
    const QString file = QDir(CLmUpdateFolders::Firmware()).filePath(name);
    if (name.isEmpty() || !QFileInfo(file).isFile())
        return {};
    record.insert(QStringLiteral("file"), file);
    return record;
}

void CLmCheckUpdateRet::CheckUpdate()
{
    m_pFirmwareQuery->Query(QStringLiteral("firmware"), HeldFirmwareVersion());
    m_pLauncherQuery->Query(QStringLiteral("launcher"), LauncherVersion());
}

void CLmCheckUpdateRet::DownloadFirmware(const QJsonObject& release)
{
    m_firmwareRelease = release;
    m_pFirmwareDownload->Start(release, CLmUpdateFolders::Firmware());
}

void CLmCheckUpdateRet::RecordFirmware(const QString& filePath)
{
    const QJsonObject record{{"version", m_firmwareRelease.value(QStringLiteral("version"))},
                             {"file", QFileInfo(filePath).fileName()},
                             {"sha256", m_firmwareRelease.value(QStringLiteral("sha256"))}};
    QSaveFile file(FirmwareRecordPath());
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(record).toJson()) < 0 || !file.commit())
        qCWarning(lcPackage) << "cannot record the firmware package:" << file.errorString();
    emit DownLoadFinished(filePath);
}
