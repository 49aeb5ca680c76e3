#pragma once

#include "LmMavlinkMessages.h"
#include "SimOptions.h"

#include <QVector>

// The identity, status and battery messages of one airframe personality.
// Values are fixed, plausible figures for a survey aircraft in standby;
// only the parachute count and the firmware come from the command line.
class SimStatusReports
{
public:
    explicit SimStatusReports(const SimOptions& options);

    uint32_t statusMessageId() const;
    // Battery ids are 0..batteryCount()-1; a missing battery does not answer.
    int batteryCount() const;
    bool isBatteryPresent(int index) const;

    LmMavlink::SHeartbeat heartbeat() const;
    LmMavlink::SSysStatus sysStatus() const;
    LmMavlink::SAutopilotVersion autopilotVersion() const;
    LmMavlink::SSkyPlaneInfo planeInfo() const;
    LmMavlink::SSkyFixwingStatus fixwingStatus(uint32_t parachuteOpenCount) const;
    LmMavlink::SSkyFixwingBattery fixwingBattery() const;
    LmMavlink::SSkyMultirotorStatus multirotorStatus() const;
    // The multirotor's failure report comes in two parts, code_num 0 and 1,
    // each a bit set over 64 codes (see SKY_CALIBRATION_FAILURE_CODE).
    static QVector<LmMavlink::SSkyCalibrationFailureCode> calibrationReports(const QSet<int>& failureCodes);
    LmMavlink::SBatteryStatus batteryStatus(int index) const;
    LmMavlink::SSmartBatteryInfo smartBatteryInfo(int index) const;

    // "2.4.1" as MAVLink's packed version: major, minor, patch, release type.
    static uint32_t packedFirmwareVersion(const QString& text);
    // Cell voltage of a battery in mV; the same figures BATTERY_STATUS carries.
    uint16_t cellVoltage(int battery, int cell) const;
    int cellCount(int battery) const;
    QByteArray serialNumber() const;

private:
    bool isFixedWing() const { return m_options.airframe == SimAirframe::FixedWing; }
    uint32_t batteryVoltage(int index) const;
    int32_t ratedCapacity() const;

    SimOptions m_options;
};
