#pragma once

#include "CLmFirmwareUpgrade.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QFutureWatcher>
#include <QObject>
#include <QPointer>
#include <QString>

class CLmUasProvide;

// What the firmware section shows and does, without widgets: the aircraft's
// firmware version, the package the update check holds, whether an upgrade
// may start (an aircraft on the ground and disarmed, a package), and the
// running upgrade's progress, remaining time and outcome. The upgrade itself
// runs on the aircraft handle's thread (CLmFirmwareUpgrade).
class CLmFirmwareController : public QObject
{
    Q_OBJECT
public:
    explicit CLmFirmwareController(QObject* parent = nullptr);
    ~CLmFirmwareController() override;

    void SetCurrentUas(CLmUasProvide* pUas);
    // Reads the package record the update check keeps in the firmware folder.
    void LoadHeldPackage();

    QString AircraftVersion() const { return m_strAircraftVersion; }
    QString PackageVersion() const { return m_strPackageVersion; }
    bool IsUpgrading() const { return m_bUpgrading; }
    // Empty when an upgrade may start, else the reason for the user.
    QString UpgradeRefusal() const;
    // Reads the package on a worker thread, then hands it to the upgrade.
    void StartUpgrade();
    // After the link was lost during the package upload: the upload can go on
    // from where it stopped.
    bool CanResume() const;
    void ResumeUpgrade();

signals:
    // Versions, flight state or the upgrade's state changed.
    void Changed();
    void ProgressChanged(int percent, int remainingSeconds);
    void StatusChanged(const QString& text);
    void UpgradeFinished(const QString& version);
    void UpgradeFailed(const QString& message);

private:
    void OnProgress(qint64 sentBytes, qint64 totalBytes);
    void OnFinished(const QString& version);
    void OnFailed(CLmFirmwareUpgrade::EFailure failure);
    void OnAircraftVersion(const QString& version);
    void OnFlightState(bool bArmedOrFlying);
    void CreateUpgrade();
    void OnPackageRead(const QByteArray& package);
    void AskWhetherResumable();
    void DropUpgrade();
    static QString FailureText(CLmFirmwareUpgrade::EFailure failure);

    QPointer<CLmUasProvide> m_pUas;
    CLmFirmwareUpgrade* m_pUpgrade = nullptr; // on the aircraft handle's thread
    QPointer<CLmUasProvide> m_pUpgradeUas;     // the aircraft m_pUpgrade talks to
    QString m_strAircraftVersion;
    QString m_strPackageVersion;
    QString m_strPackagePath;
    QByteArray m_baPackageSha256;
    bool m_bFlightStateKnown = false; // no heartbeat read yet: no upgrade either
    bool m_bArmedOrFlying = false;
    bool m_bUpgrading = false;
    bool m_bResumable = false;
    QElapsedTimer m_uploadClock;
    QFutureWatcher<QByteArray> m_packageRead;
};
