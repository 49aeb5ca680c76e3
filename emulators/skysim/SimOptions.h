#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QVector>

#include <cstdint>

enum class SimAirframe { FixedWing, Multirotor };

// One cell that reads low: --low-cell BATTERY:CELL[:MV].
struct SimLowCell {
    int battery;
    int cell;
    uint16_t milliVolts;
};

// Everything the command line decides about one emulated aircraft and its link.
struct SimOptions {
    SimAirframe airframe = SimAirframe::FixedWing;
    uint8_t systemId = 1;
    QString firmware = QStringLiteral("2.4.1");

    // Exactly one of udpHost/serialDevice is used.
    QString udpHost;
    uint16_t udpPort = 0;
    uint16_t bindPort = 0;
    QString serialDevice;
    int baudRate = 57600;

    double statusRateHz = 1.0;   // status stream rate when the request asks for the default
    uint32_t parachuteCount = 0; // parachute deployments over the aircraft's life
    int logCount = 3;
    uint32_t logSize = 100000;
    int rawFolders = 2;                 // GNSS receiver raw-data folders
    int rawEntries = 3;                 // entries per folder: one .pvt and the .atom parts
    uint32_t rawEntrySize = 20000;
    uint32_t rawFirstTimeUtc = 1714550400; // 2024-05-01 08:00:00 UTC

    double linkRate = 0.0;  // bytes per second, 0 for unlimited
    double lossPercent = 0.0;
    uint32_t seed = 1;
    bool noAck = false;
    bool ackOnRetry = false;
    double silentAfterS = -1.0; // < 0: heartbeats never stop
    double silentForS = -1.0;   // < 0: once stopped they stay stopped

    int batteryCount = 0;             // 0: the airframe's own (fixed-wing 1, multirotor 2)
    QVector<int> cellsPerBattery;     // empty: the airframe's own; one value for all, or one per battery
    QVector<SimLowCell> lowCells;
    QSet<int> missingBatteries;       // battery ids that do not answer
    QSet<int> failureCodes;           // active failure codes of the multirotor
    int parameterCount = 0;           // the table is filled up to this many parameters

    bool armed = false;             // armed and in the air: firmware upgrades are refused
    bool ftpLoseLastReply = false;  // the reply to the write that completes a firmware package is lost once
    QByteArray licencePublicKey;      // the cloud's Ed25519 key; empty: no licence checks (a key dongle)
};
