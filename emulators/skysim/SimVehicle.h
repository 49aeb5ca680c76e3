#pragma once

#include "CLmMavlinkEncoder.h"
#include "CLmMavlinkParser.h"
#include "SimCommandGate.h"
#include "SimFirmware.h"
#include "SimFtpServer.h"
#include "SimLicence.h"
#include "SimLogStore.h"
#include "SimRawDataStore.h"
#include "SimRawDataStreamer.h"
#include "SimLogStreamer.h"
#include "SimOptions.h"
#include "SimParameters.h"
#include "SimStatusReports.h"
#include "SimTransport.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>

// The emulated autopilot: its state (parameters, logs, parachute counters,
// status stream) and its answers to everything a ground station sends.
class SimVehicle : public QObject
{
    Q_OBJECT
public:
    static constexpr uint8_t COMPONENT_ID = 1;
    // The ground station writes GCS_TIMEOUT to this component (the link-loss
    // guard); the autopilot keeps that parameter and answers for it.
    static constexpr uint8_t LINK_GUARD_COMPONENT_ID = 126;

    SimVehicle(const SimOptions& options, SimTransport& transport, QObject* parent = nullptr);

    // Starts the 1 Hz heartbeat and system status.
    void start();
    // The multirotor reports these failure codes from now on, at once and in
    // every status round.
    void setFailureCodes(const QSet<int>& codes);

private:
    struct SCommandOutcome {
        uint8_t result;
        std::function<void()> reply; // sent after the COMMAND_ACK, only when accepted
    };

    template <typename TMessage>
    void send(const TMessage& message)
    {
        m_transport.send(m_encoder.Encode(message));
    }

    void receiveBytes(const QByteArray& bytes);
    void dispatch(const mavlink_message_t& message);
    bool isForMe(uint8_t targetSystem) const;
    bool isForParameters(uint8_t targetSystem, uint8_t targetComponent) const;
    void noticeGroundStation(uint8_t systemId);

    void sendHeartbeatAndSystemStatus();
    bool heartbeatsSilenced() const;
    void announceIdentity();
    void sendStatusStream();
    void sendCalibrationReports();
    void setStatusInterval(double intervalUs);

    void handleCommandLong(const mavlink_message_t& message);
    SCommandOutcome runCommand(uint16_t command, const float (&params)[7]);
    SCommandOutcome requestMessage(uint32_t msgid);
    SCommandOutcome setMessageInterval(uint32_t msgid, double intervalUs);
    SCommandOutcome parachute(int action);
    void sendBatteryStatus();
    void sendSmartBatteryInfo();
    void sendParachuteNotice();

    void handleParamRequestList(const mavlink_message_t& message);
    void handleParamRequestRead(const mavlink_message_t& message);
    void handleParamSet(const mavlink_message_t& message);
    void sendParameter(int index);

    void handleLogRequestList(const mavlink_message_t& message);
    void handleLogRequestData(const mavlink_message_t& message);
    void handleLogRequestEnd(const mavlink_message_t& message);
    void handleLogErase(const mavlink_message_t& message);

    void handleRawFolderRequestList(const mavlink_message_t& message);
    void handleRawEntryRequestList(const mavlink_message_t& message);
    void handleRawEntryRequestData(const mavlink_message_t& message);
    void handleRawRequestEnd(const mavlink_message_t& message);

    void handleFirmwareMessage(const mavlink_message_t& message);
    void handleParachuteCountRequest(const mavlink_message_t& message);
    void handleLicenceRequest(const mavlink_message_t& message);
    void handleLicenceWrite(const mavlink_message_t& message);
    void handleRopeReset(const mavlink_message_t& message);

    SimOptions m_options;
    SimTransport& m_transport;
    CLmMavlinkEncoder m_encoder;
    CLmMavlinkParser m_parser;
    SimStatusReports m_reports;
    SimParameters m_parameters;
    SimLogStore m_logs;
    SimLogStreamer m_logStreamer;
    SimRawDataStore m_rawData;
    SimRawDataStreamer m_rawDataStreamer;
    SimCommandGate m_commandGate;
    SimFtpServer m_ftpServer;
    SimFirmware m_firmware;
    SimLicence m_licence;

    QElapsedTimer m_uptime;
    QTimer m_heartbeatTimer;
    QTimer m_statusTimer;
    int m_groundSystemId = -1;
    uint32_t m_parachuteOpenCount;
    uint32_t m_parachuteCountAtRopeReset = 0;
    QSet<int> m_failureCodes;
};
