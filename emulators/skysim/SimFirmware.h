#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>

class CLmMavlinkEncoder;
class SimFtpServer;
class SimTransport;
struct SimOptions;
struct mavlink_message_t;

// The aircraft's firmware: keeps the manifest the ground station sent,
// checks the package written to /fw/ against it (size and SHA-256) when told
// to install, "restarts" for a while (answering nothing about firmware) and
// then reports the new version. A package that fails the check is refused
// and the running firmware stays; so is any upgrade while armed.
class SimFirmware : public QObject
{
    Q_OBJECT
public:
    static constexpr int RestartMs = 1500;

    SimFirmware(const SimOptions& options, CLmMavlinkEncoder& encoder, SimTransport& transport,
                SimFtpServer& files, QObject* parent = nullptr);

    QString runningVersion() const { return m_strVersion; }

    void handleManifest(const mavlink_message_t& message);
    void handleInstall(const mavlink_message_t& message);
    void handleVersionRequest(const mavlink_message_t& message);

private:
    uint8_t checkPackage() const;
    void finishRestart();
    void report(uint8_t result);

    CLmMavlinkEncoder& m_encoder;
    SimTransport& m_transport;
    SimFtpServer& m_files;
    bool m_bArmed;
    QString m_strVersion;
    QTimer m_restartTimer;

    bool m_bHasManifest = false;
    QString m_strPackagePath;
    uint32_t m_nPackageSize = 0;
    QByteArray m_baSha256;
    QString m_strPackageVersion;
};
