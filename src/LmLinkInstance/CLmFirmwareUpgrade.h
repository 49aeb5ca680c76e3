#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>

class CLmClock;
class CLmFileTransfer;
class CLmUasProvide;
struct mavlink_message_t;

// Upgrades the aircraft's firmware: sends the package's manifest (version,
// file name, size, SHA-256), writes the package to /fw/ with the file
// transfer protocol, orders the install and waits for the aircraft to come
// back reporting the new version. The aircraft itself checks the package
// against the manifest and refuses while armed. Manifest, install and the
// version polls after the restart are repeated on a quiet time, a bounded
// number of times. A link lost during the package upload can be resumed.
// Lives on the aircraft handle's thread.
class CLmFirmwareUpgrade : public QObject
{
    Q_OBJECT
public:
    enum class EFailure { LinkLost, Armed, ChecksumRefused, NoPackage, TransferRefused };
    Q_ENUM(EFailure)

    static constexpr int DefaultTimeoutMs = 1000;
    static constexpr int DefaultRetries = 5;
    static constexpr int RestartPollMs = 2000;
    static constexpr int RestartPolls = 15;
    static constexpr const char* PackageFolder = "/fw/";

    // Takes the clocks (one for the upgrade steps, one for the file transfer); real timers when null.
    CLmFirmwareUpgrade(CLmUasProvide* pUas, QObject* parent = nullptr, CLmClock* pClock = nullptr,
                       CLmClock* pTransferClock = nullptr);

    // Applies to every step and to the package's file transfer.
    void SetTimeoutMs(int ms);
    void SetRetries(int retries);

    // sha256 is the digest the manifest announces (from the package's release
    // record), not recomputed here: the aircraft checks what it received.
    void Start(const QByteArray& package, const QString& version, const QString& fileName, const QByteArray& sha256);
    bool IsRunning() const { return m_ePhase != EPhase::Idle; }
    // After a LinkLost failure during the upload: continues it.
    bool CanResume() const;
    void Resume();
    // The aircraft answers with AircraftVersion().
    void RequestVersion();

signals:
    void Progress(qint64 sentBytes, qint64 totalBytes);
    // The package matched and the aircraft is restarting.
    void Installing();
    void Finished(const QString& version);
    void Failed(CLmFirmwareUpgrade::EFailure failure);
    void AircraftVersion(const QString& version);
    // From the heartbeats: armed or flying, when no upgrade may start.
    void FlightStateChanged(bool bArmedOrFlying);

private:
    enum class EPhase { Idle, Manifest, Upload, Install, Restart };

    void OnMessage(const mavlink_message_t& message);
    void OnHeartbeat(const mavlink_message_t& message);
    void OnStatus(int result, const QString& version);
    void OnTransferFailed(int error);
    void OnTimeout();
    void EnterPhase(EPhase phase, int retries, int timeoutMs);
    void SendPhaseRequest();
    void Fail(EFailure failure);
    void Stop();

    QPointer<CLmUasProvide> m_pUas;
    CLmClock* m_pClock;
    CLmFileTransfer* m_pTransfer;
    int m_iTimeoutMs = DefaultTimeoutMs;
    int m_iRetries = DefaultRetries;

    EPhase m_ePhase = EPhase::Idle;
    int m_iRetriesLeft = 0;
    int m_iPhaseTimeoutMs = DefaultTimeoutMs;
    QByteArray m_baPackage;
    QByteArray m_baSha256;
    QString m_strVersion;
    QString m_strFileName;
    int m_iArmedOrFlying = -1; // unknown until the first heartbeat
};
