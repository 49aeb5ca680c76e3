#pragma once

#include <QString>

#include <cstdint>

enum class SimAirframe { FixedWing, Multirotor };

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

    double linkRate = 0.0;  // bytes per second, 0 for unlimited
    double lossPercent = 0.0;
    uint32_t seed = 1;
    bool noAck = false;
    bool ackOnRetry = false;
    double silentAfterS = -1.0; // < 0: heartbeats never stop
    double silentForS = -1.0;   // < 0: once stopped they stay stopped
};
