#include "CLmFirmwareController.h"

#include "CLmCheckUpdateRet.h"
#include "CLmUasProvide.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonObject>
#include <QtConcurrent>

#include <cmath>

CLmFirmwareController::CLmFirmwareController(QObject* parent)
    : QObject(parent)
{
    connect(&m_packageRead, &QFutureWatcher<QByteArray>::finished, this,
            [this] { OnPackageRead(m_packageRead.result()); });
}

CLmFirmwareController::~CLmFirmwareController()
{
    DropUpgrade();
}

// An aircraft that drops out during an upgrade keeps its upgrade, so that the
// upload can be resumed when the same aircraft comes back.
void CLmFirmwareController::SetCurrentUas(CLmUasProvide* pUas)
{
    if (pUas == m_pUas)
        return;
    m_pUas = pUas;
    m_strAircraftVersion.clear();
    m_bFlightStateKnown = false;
    const bool bKeepUpgrade = m_pUpgrade && (pUas == m_pUpgradeUas || (!pUas && (m_bUpgrading || m_bResumable)));
    if (!bKeepUpgrade) {
        DropUpgrade();
        if (m_pUas)
            CreateUpgrade();
    }
    if (m_pUas)
        QMetaObject::invokeMethod(m_pUpgrade, &CLmFirmwareUpgrade::RequestVersion);
    emit Changed();
}

void CLmFirmwareController::CreateUpgrade()
{
    m_pUpgradeUas = m_pUas;
    m_pUpgrade = new CLmFirmwareUpgrade(m_pUas);
    m_pUpgrade->moveToThread(m_pUas->thread());
    connect(m_pUpgrade, &CLmFirmwareUpgrade::Progress, this, &CLmFirmwareController::OnProgress);
    connect(m_pUpgrade, &CLmFirmwareUpgrade::Installing, this,
            [this] { emit StatusChanged(tr("Installing; the aircraft restarts...")); });
    connect(m_pUpgrade, &CLmFirmwareUpgrade::Finished, this, &CLmFirmwareController::OnFinished);
    connect(m_pUpgrade, &CLmFirmwareUpgrade::Failed, this, &CLmFirmwareController::OnFailed);
    connect(m_pUpgrade, &CLmFirmwareUpgrade::AircraftVersion, this, &CLmFirmwareController::OnAircraftVersion);
    connect(m_pUpgrade, &CLmFirmwareUpgrade::FlightStateChanged, this, &CLmFirmwareController::OnFlightState);
}

void CLmFirmwareController::LoadHeldPackage()
{
    const QJsonObject record = CLmCheckUpdateRet::HeldFirmwarePackage();
    m_strPackageVersion = record.value(QStringLiteral("version")).toString();
    m_strPackagePath = record.value(QStringLiteral("file")).toString();
    m_baPackageSha256 = QByteArray::fromHex(record.value(QStringLiteral("sha256")).toString().toLatin1());
    emit Changed();
}

QString CLmFirmwareController::UpgradeRefusal() const
{
    if (!m_pUas)
        return tr("No aircraft connected.");
    if (m_bUpgrading)
        return tr("An upgrade is already running.");
    if (m_strPackagePath.isEmpty() || m_baPackageSha256.size() != 32)
        return tr("No firmware package has been downloaded.");
    if (!m_bFlightStateKnown)
        return tr("Waiting for the aircraft to report whether it is on the ground.");
    if (m_bArmedOrFlying)
        return tr("The aircraft must be on the ground and disarmed to upgrade its firmware.");
    return {};
}

void CLmFirmwareController::StartUpgrade()
{
    if (!UpgradeRefusal().isEmpty())
        return;
    m_bUpgrading = true;
    m_bResumable = false;
    emit StatusChanged(tr("Uploading the firmware package..."));
    emit ProgressChanged(0, -1);
    emit Changed();
    m_packageRead.setFuture(QtConcurrent::run([path = m_strPackagePath] {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }));
}

void CLmFirmwareController::OnPackageRead(const QByteArray& package)
{
    if (!m_bUpgrading || !m_pUpgrade)
        return; // the aircraft changed while the package was read
    if (package.isEmpty()) {
        m_bUpgrading = false;
        emit StatusChanged(tr("The firmware package cannot be read."));
        emit UpgradeFailed(tr("The firmware package cannot be read."));
        emit Changed();
        return;
    }
    m_uploadClock.start();
    QMetaObject::invokeMethod(m_pUpgrade, [upgrade = m_pUpgrade, package, version = m_strPackageVersion,
                                           name = QFileInfo(m_strPackagePath).fileName(), sha = m_baPackageSha256] {
        upgrade->Start(package, version, name, sha);
    });
}

bool CLmFirmwareController::CanResume() const
{
    return m_bResumable && m_pUas;
}

void CLmFirmwareController::ResumeUpgrade()
{
    if (!CanResume())
        return;
    m_bResumable = false;
    m_bUpgrading = true;
    emit StatusChanged(tr("Uploading the firmware package..."));
    emit Changed();
    QMetaObject::invokeMethod(m_pUpgrade, &CLmFirmwareUpgrade::Resume);
}

// The upgrade lives on the aircraft handle's thread: its answer comes back
// queued, and only while it is still the current upgrade.
void CLmFirmwareController::AskWhetherResumable()
{
    QPointer<CLmFirmwareController> self(this);
    QMetaObject::invokeMethod(m_pUpgrade, [self, upgrade = m_pUpgrade] {
        const bool bResumable = upgrade->CanResume();
        QMetaObject::invokeMethod(self, [self, upgrade, bResumable] {
            if (!self || self->m_pUpgrade != upgrade || self->m_bUpgrading)
                return;
            self->m_bResumable = bResumable;
            emit self->Changed();
        });
    });
}

// The remaining time follows the rate seen so far.
void CLmFirmwareController::OnProgress(qint64 sentBytes, qint64 totalBytes)
{
    if (totalBytes <= 0)
        return;
    const double seconds = static_cast<double>(m_uploadClock.elapsed()) / 1000.0;
    const int remaining = sentBytes > 0
        ? static_cast<int>(std::ceil(seconds * static_cast<double>(totalBytes - sentBytes) / static_cast<double>(sentBytes)))
        : -1;
    emit ProgressChanged(static_cast<int>(sentBytes * 100 / totalBytes), remaining);
}

void CLmFirmwareController::OnFinished(const QString& version)
{
    m_bUpgrading = false;
    m_strAircraftVersion = version;
    emit StatusChanged(tr("Upgrade finished: the aircraft runs firmware %1.").arg(version));
    emit ProgressChanged(100, 0);
    emit UpgradeFinished(version);
    emit Changed();
}

void CLmFirmwareController::OnFailed(CLmFirmwareUpgrade::EFailure failure)
{
    m_bUpgrading = false;
    emit StatusChanged(FailureText(failure));
    emit UpgradeFailed(FailureText(failure));
    emit Changed();
    if (failure == CLmFirmwareUpgrade::EFailure::LinkLost)
        AskWhetherResumable();
}

void CLmFirmwareController::OnAircraftVersion(const QString& version)
{
    m_strAircraftVersion = version;
    emit Changed();
}

void CLmFirmwareController::OnFlightState(bool bArmedOrFlying)
{
    m_bFlightStateKnown = true;
    m_bArmedOrFlying = bArmedOrFlying;
    emit Changed();
}

void CLmFirmwareController::DropUpgrade()
{
    if (m_pUpgrade)
        m_pUpgrade->deleteLater();
    m_pUpgrade = nullptr;
    m_pUpgradeUas = nullptr;
    m_bUpgrading = false;
    m_bResumable = false;
}

QString CLmFirmwareController::FailureText(CLmFirmwareUpgrade::EFailure failure)
{
    switch (failure) {
    case CLmFirmwareUpgrade::EFailure::LinkLost: return tr("The link to the aircraft was lost during the upgrade.");
    case CLmFirmwareUpgrade::EFailure::Armed:
        return tr("The aircraft refused the upgrade: it is armed or in the air.");
    case CLmFirmwareUpgrade::EFailure::ChecksumRefused:
        return tr("The aircraft refused the package: its checksum does not match. The old firmware stays.");
    case CLmFirmwareUpgrade::EFailure::NoPackage: return tr("The aircraft did not receive the package.");
    case CLmFirmwareUpgrade::EFailure::TransferRefused: return tr("The aircraft refused the package upload.");
    }
    return {};
}
