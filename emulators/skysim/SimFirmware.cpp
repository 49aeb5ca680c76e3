#include "SimFirmware.h"

#include "CLmMavlinkEncoder.h"
#include "LmMavlinkMessages.h"
#include "SimFtpServer.h"
#include "SimLog.h"
#include "SimOptions.h"
#include "SimText.h"
#include "SimTransport.h"

#include <QCryptographicHash>

using namespace LmMavlink;

SimFirmware::SimFirmware(const SimOptions& options, CLmMavlinkEncoder& encoder, SimTransport& transport,
                         SimFtpServer& files, QObject* parent)
    : QObject(parent)
    , m_encoder(encoder)
    , m_transport(transport)
    , m_files(files)
    , m_bArmed(options.armed)
    , m_strVersion(options.firmware)
{
    m_restartTimer.setSingleShot(true);
    m_restartTimer.setInterval(RestartMs);
    connect(&m_restartTimer, &QTimer::timeout, this, &SimFirmware::finishRestart);
}

void SimFirmware::handleManifest(const mavlink_message_t& message)
{
    if (m_restartTimer.isActive())
        return;
    if (m_bArmed) {
        report(SKY_FIRMWARE_RESULT_REFUSED_ARMED);
        return;
    }
    const SSkyFirmwareManifest manifest = SSkyFirmwareManifest::Unpack(message);
    m_bHasManifest = true;
    m_strPackagePath = QLatin1String(SimFtpServer::Folder) + fieldText(manifest.file_name);
    m_nPackageSize = manifest.size;
    m_baSha256 = QByteArray(reinterpret_cast<const char*>(manifest.sha256), sizeof manifest.sha256);
    m_strPackageVersion = fieldText(manifest.version);
    m_files.announceSize(m_strPackagePath, m_nPackageSize);
    qCInfo(lcSkySim) << "firmware manifest for" << m_strPackageVersion << "in" << m_strPackagePath << m_nPackageSize
                     << "bytes";
    report(SKY_FIRMWARE_RESULT_MANIFEST_ACCEPTED);
}

// A repeated install order during the restart is answered again, so a lost
// answer costs nothing.
void SimFirmware::handleInstall(const mavlink_message_t& /*message*/)
{
    if (m_restartTimer.isActive()) {
        report(SKY_FIRMWARE_RESULT_INSTALLING);
        return;
    }
    const uint8_t result = checkPackage();
    if (result != SKY_FIRMWARE_RESULT_INSTALLING) {
        qCWarning(lcSkySim) << "firmware package refused with result" << result << "; keeping" << m_strVersion;
        report(result);
        return;
    }
    qCInfo(lcSkySim) << "installing firmware" << m_strPackageVersion << "and restarting";
    report(SKY_FIRMWARE_RESULT_INSTALLING);
    m_restartTimer.start();
}

void SimFirmware::handleVersionRequest(const mavlink_message_t& /*message*/)
{
    if (!m_restartTimer.isActive())
        report(SKY_FIRMWARE_RESULT_RUNNING);
}

uint8_t SimFirmware::checkPackage() const
{
    if (m_bArmed)
        return SKY_FIRMWARE_RESULT_REFUSED_ARMED;
    if (!m_bHasManifest || !m_files.hasFile(m_strPackagePath))
        return SKY_FIRMWARE_RESULT_REFUSED_NO_PACKAGE;
    const QByteArray package = m_files.file(m_strPackagePath);
    if (static_cast<uint32_t>(package.size()) != m_nPackageSize
        || QCryptographicHash::hash(package, QCryptographicHash::Sha256) != m_baSha256)
        return SKY_FIRMWARE_RESULT_REFUSED_CHECKSUM;
    return SKY_FIRMWARE_RESULT_INSTALLING;
}

void SimFirmware::finishRestart()
{
    m_strVersion = m_strPackageVersion;
    m_files.removeFile(m_strPackagePath);
    m_bHasManifest = false;
    qCInfo(lcSkySim) << "restarted with firmware" << m_strVersion;
    report(SKY_FIRMWARE_RESULT_RUNNING);
}

void SimFirmware::report(uint8_t result)
{
    SSkyFirmwareStatus status;
    status.result = result;
    setFieldText(status.version, m_strVersion.toLatin1());
    m_transport.send(m_encoder.Encode(status));
}
