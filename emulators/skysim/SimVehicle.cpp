#include "SimVehicle.h"

#include "SimLog.h"
#include "SimText.h"
#include "SimTransport.h"

#include <algorithm>
#include <cmath>

using namespace LmMavlink;

namespace {

constexpr int HEARTBEAT_INTERVAL_MS = 1000;

} // namespace

SimVehicle::SimVehicle(const SimOptions& options, SimTransport& transport, QObject* parent)
    : QObject(parent)
    , m_options(options)
    , m_transport(transport)
    , m_encoder(options.systemId, COMPONENT_ID)
    , m_reports(options)
    , m_parameters(options.airframe, options.systemId, options.parameterCount)
    , m_logs(options.logCount, options.logSize)
    , m_logStreamer(m_logs, m_encoder, transport)
    , m_rawData(options.rawFolders, options.rawEntries, options.rawEntrySize, options.rawFirstTimeUtc)
    , m_rawDataStreamer(m_rawData, m_encoder, transport)
    , m_commandGate(options.noAck, options.ackOnRetry)
    , m_ftpServer(options, m_encoder, transport)
    , m_firmware(options, m_encoder, transport, m_ftpServer)
    , m_licence(m_reports.serialNumber(), options.licencePublicKey)
    , m_parachuteOpenCount(options.parachuteCount)
    , m_failureCodes(options.failureCodes)
{
    connect(&m_transport, &SimTransport::bytesReceived, this, &SimVehicle::receiveBytes);
    m_heartbeatTimer.setInterval(HEARTBEAT_INTERVAL_MS);
    connect(&m_heartbeatTimer, &QTimer::timeout, this, &SimVehicle::sendHeartbeatAndSystemStatus);
    connect(&m_statusTimer, &QTimer::timeout, this, &SimVehicle::sendStatusStream);
}

void SimVehicle::start()
{
    m_uptime.start();
    m_heartbeatTimer.start();
    sendHeartbeatAndSystemStatus();
    announceIdentity();
}

void SimVehicle::setFailureCodes(const QSet<int>& codes)
{
    m_failureCodes = codes;
    if (m_options.airframe == SimAirframe::Multirotor)
        sendCalibrationReports();
}

void SimVehicle::receiveBytes(const QByteArray& bytes)
{
    m_parser.Feed(bytes);
    mavlink_message_t message;
    while (m_parser.Next(message))
        dispatch(message);
}

void SimVehicle::dispatch(const mavlink_message_t& message)
{
    noticeGroundStation(message.sysid);
    switch (message.msgid) {
    case MSG_ID_COMMAND_LONG: handleCommandLong(message); break;
    case MSG_ID_PARAM_REQUEST_LIST: handleParamRequestList(message); break;
    case MSG_ID_PARAM_REQUEST_READ: handleParamRequestRead(message); break;
    case MSG_ID_PARAM_SET: handleParamSet(message); break;
    case MSG_ID_LOG_REQUEST_LIST: handleLogRequestList(message); break;
    case MSG_ID_LOG_REQUEST_DATA: handleLogRequestData(message); break;
    case MSG_ID_LOG_REQUEST_END: handleLogRequestEnd(message); break;
    case MSG_ID_LOG_ERASE: handleLogErase(message); break;
    case MSG_ID_SKY_RAW_FOLDER_REQUEST_LIST: handleRawFolderRequestList(message); break;
    case MSG_ID_SKY_RAW_ENTRY_REQUEST_LIST: handleRawEntryRequestList(message); break;
    case MSG_ID_SKY_RAW_ENTRY_REQUEST_DATA: handleRawEntryRequestData(message); break;
    case MSG_ID_SKY_RAW_REQUEST_END: handleRawRequestEnd(message); break;
    case MSG_ID_SKY_PARACHUTE_COUNT_REQUEST: handleParachuteCountRequest(message); break;
    case MSG_ID_SKY_PARACHUTE_ROPE_RESET: handleRopeReset(message); break;
    case MSG_ID_FILE_TRANSFER_PROTOCOL:
    case MSG_ID_SKY_FIRMWARE_MANIFEST:
    case MSG_ID_SKY_FIRMWARE_INSTALL:
    case MSG_ID_SKY_FIRMWARE_VERSION_REQUEST: handleFirmwareMessage(message); break;
    case MSG_ID_SKY_LICENCE_REQUEST: handleLicenceRequest(message); break;
    case MSG_ID_SKY_LICENCE_WRITE: handleLicenceWrite(message); break;
    default: break; // heartbeats of the ground station and anything an autopilot need not answer
    }
}

bool SimVehicle::isForMe(uint8_t targetSystem) const
{
    return targetSystem == 0 || targetSystem == m_options.systemId;
}

bool SimVehicle::isForParameters(uint8_t targetSystem, uint8_t targetComponent) const
{
    return isForMe(targetSystem)
        && (targetComponent == 0 || targetComponent == COMPONENT_ID || targetComponent == LINK_GUARD_COMPONENT_ID);
}

// A ground station that starts talking (or a different one) gets the
// identity messages at once instead of waiting for a request.
void SimVehicle::noticeGroundStation(uint8_t systemId)
{
    if (m_groundSystemId == systemId)
        return;
    m_groundSystemId = systemId;
    qCInfo(lcSkySim) << "ground station" << systemId << "is talking";
    announceIdentity();
}

void SimVehicle::sendHeartbeatAndSystemStatus()
{
    if (!heartbeatsSilenced())
        send(m_reports.heartbeat());
    send(m_reports.sysStatus());
}

bool SimVehicle::heartbeatsSilenced() const
{
    if (m_options.silentAfterS < 0)
        return false;
    const double seconds = static_cast<double>(m_uptime.elapsed()) / 1000.0;
    const bool silenceStarted = seconds >= m_options.silentAfterS;
    const bool silenceOver = m_options.silentForS >= 0 && seconds >= m_options.silentAfterS + m_options.silentForS;
    return silenceStarted && !silenceOver;
}

void SimVehicle::announceIdentity()
{
    send(m_reports.planeInfo());
    send(m_licence.keyStatus());
}

void SimVehicle::sendStatusStream()
{
    if (m_options.airframe == SimAirframe::FixedWing) {
        send(m_reports.fixwingStatus(m_parachuteOpenCount));
        send(m_reports.fixwingBattery());
        return;
    }
    send(m_reports.multirotorStatus());
    sendBatteryStatus();
    sendCalibrationReports();
}

void SimVehicle::sendCalibrationReports()
{
    for (const SSkyCalibrationFailureCode& report : SimStatusReports::calibrationReports(m_failureCodes))
        send(report);
}

void SimVehicle::setStatusInterval(double intervalUs)
{
    if (intervalUs < 0) {
        m_statusTimer.stop();
        return;
    }
    const double intervalMs = intervalUs > 0 ? intervalUs / 1000.0 : 1000.0 / m_options.statusRateHz;
    m_statusTimer.start(std::max(1, static_cast<int>(std::lround(intervalMs))));
    sendStatusStream();
}

// ---- COMMAND_LONG ----

void SimVehicle::handleCommandLong(const mavlink_message_t& message)
{
    const SCommandLong command = SCommandLong::Unpack(message);
    if (!isForMe(command.target_system) || !m_commandGate.accept(command.command, command.confirmation))
        return;
    const float params[7] = {command.param1, command.param2, command.param3, command.param4,
                             command.param5, command.param6, command.param7};
    const SCommandOutcome outcome = runCommand(command.command, params);
    if (m_commandGate.sendsAcks()) {
        SCommandAck ack;
        ack.command = command.command;
        ack.result = outcome.result;
        ack.target_system = message.sysid;
        ack.target_component = message.compid;
        send(ack);
    }
    if (outcome.result == MAV_RESULT_ACCEPTED && outcome.reply)
        outcome.reply();
}

SimVehicle::SCommandOutcome SimVehicle::runCommand(uint16_t command, const float (&params)[7])
{
    switch (command) {
    case MAV_CMD_REQUEST_MESSAGE:
        return requestMessage(static_cast<uint32_t>(params[0]));
    case MAV_CMD_REQUEST_AUTOPILOT_CAPABILITIES:
        return requestMessage(MSG_ID_AUTOPILOT_VERSION);
    case MAV_CMD_SET_MESSAGE_INTERVAL:
        return setMessageInterval(static_cast<uint32_t>(params[0]), static_cast<double>(params[1]));
    case MAV_CMD_DO_PARACHUTE:
        return parachute(static_cast<int>(params[0]));
    case MAV_CMD_PREFLIGHT_REBOOT_SHUTDOWN:
        return {MAV_RESULT_ACCEPTED, {}};
    default:
        qCInfo(lcSkySim) << "unsupported command" << command;
        return {MAV_RESULT_UNSUPPORTED, {}};
    }
}

SimVehicle::SCommandOutcome SimVehicle::requestMessage(uint32_t msgid)
{
    const bool fixedWing = m_options.airframe == SimAirframe::FixedWing;
    switch (msgid) {
    case MSG_ID_HEARTBEAT: return {MAV_RESULT_ACCEPTED, [this] { send(m_reports.heartbeat()); }};
    case MSG_ID_SYS_STATUS: return {MAV_RESULT_ACCEPTED, [this] { send(m_reports.sysStatus()); }};
    case MSG_ID_AUTOPILOT_VERSION: return {MAV_RESULT_ACCEPTED, [this] { send(m_reports.autopilotVersion()); }};
    case MSG_ID_BATTERY_STATUS: return {MAV_RESULT_ACCEPTED, [this] { sendBatteryStatus(); }};
    case MSG_ID_SMART_BATTERY_INFO: return {MAV_RESULT_ACCEPTED, [this] { sendSmartBatteryInfo(); }};
    case MSG_ID_SKY_PLANE_INFO: return {MAV_RESULT_ACCEPTED, [this] { send(m_reports.planeInfo()); }};
    case MSG_ID_SKY_KEY_STATUS: return {MAV_RESULT_ACCEPTED, [this] { send(m_licence.keyStatus()); }};
    case MSG_ID_SKY_PARACHUTE_NOTICE: return {MAV_RESULT_ACCEPTED, [this] { sendParachuteNotice(); }};
    case MSG_ID_SKY_FIXWING_STATUS:
    case MSG_ID_SKY_FIXWING_BATTERY:
        if (!fixedWing)
            break;
        return {MAV_RESULT_ACCEPTED, [this] { sendStatusStream(); }};
    case MSG_ID_SKY_MULTIROTOR_STATUS:
    case MSG_ID_SKY_CALIBRATION_FAILURE_CODE:
        if (fixedWing)
            break;
        return {MAV_RESULT_ACCEPTED, [this] { sendStatusStream(); }};
    default: break;
    }
    return {MAV_RESULT_DENIED, {}};
}

SimVehicle::SCommandOutcome SimVehicle::setMessageInterval(uint32_t msgid, double intervalUs)
{
    if (msgid != m_reports.statusMessageId())
        return {MAV_RESULT_DENIED, {}};
    return {MAV_RESULT_ACCEPTED, [this, intervalUs] { setStatusInterval(intervalUs); }};
}

SimVehicle::SCommandOutcome SimVehicle::parachute(int action)
{
    switch (action) {
    case PARACHUTE_DISABLE:
    case PARACHUTE_ENABLE:
        return {MAV_RESULT_ACCEPTED, {}};
    case PARACHUTE_RELEASE:
        return {MAV_RESULT_ACCEPTED, [this] {
                    ++m_parachuteOpenCount;
                    sendParachuteNotice();
                }};
    default:
        return {MAV_RESULT_DENIED, {}};
    }
}

void SimVehicle::sendBatteryStatus()
{
    for (int index = 0; index < m_reports.batteryCount(); ++index) {
        if (m_reports.isBatteryPresent(index))
            send(m_reports.batteryStatus(index));
    }
}

void SimVehicle::sendSmartBatteryInfo()
{
    for (int index = 0; index < m_reports.batteryCount(); ++index) {
        if (m_reports.isBatteryPresent(index))
            send(m_reports.smartBatteryInfo(index));
    }
}

void SimVehicle::sendParachuteNotice()
{
    SSkyParachuteNotice notice;
    notice.open_count = m_parachuteOpenCount;
    notice.open_count_at_rope_reset = m_parachuteCountAtRopeReset;
    notice.rope_use_count = static_cast<uint16_t>(
        std::min<uint32_t>(m_parachuteOpenCount - m_parachuteCountAtRopeReset, UINT16_MAX));
    send(notice);
}

// ---- parameters ----

void SimVehicle::handleParamRequestList(const mavlink_message_t& message)
{
    const SParamRequestList request = SParamRequestList::Unpack(message);
    if (!isForParameters(request.target_system, request.target_component))
        return;
    for (int index = 0; index < m_parameters.count(); ++index)
        sendParameter(index);
}

void SimVehicle::handleParamRequestRead(const mavlink_message_t& message)
{
    const SParamRequestRead request = SParamRequestRead::Unpack(message);
    if (!isForParameters(request.target_system, request.target_component))
        return;
    const int index = request.param_index >= 0 ? request.param_index : m_parameters.indexOf(fieldText(request.param_id));
    if (index >= 0 && index < m_parameters.count())
        sendParameter(index);
}

void SimVehicle::handleParamSet(const mavlink_message_t& message)
{
    const SParamSet request = SParamSet::Unpack(message);
    if (!isForParameters(request.target_system, request.target_component))
        return;
    const QString name = fieldText(request.param_id);
    if (!m_parameters.set(name, request.param_value)) {
        qCInfo(lcSkySim) << "PARAM_SET of unknown parameter" << name;
        return;
    }
    sendParameter(m_parameters.indexOf(name));
}

void SimVehicle::sendParameter(int index)
{
    const SimParameters::SParameter& parameter = m_parameters.at(index);
    SParamValue value;
    setFieldText(value.param_id, parameter.name.toLatin1());
    value.param_value = parameter.value;
    value.param_type = parameter.type;
    value.param_count = static_cast<uint16_t>(m_parameters.count());
    value.param_index = static_cast<uint16_t>(index);
    send(value);
}

// ---- onboard logs ----

void SimVehicle::handleLogRequestList(const mavlink_message_t& message)
{
    const SLogRequestList request = SLogRequestList::Unpack(message);
    if (!isForMe(request.target_system))
        return;
    const QVector<SimLogStore::SEntry>& entries = m_logs.entries();
    if (entries.isEmpty()) {
        send(SLogEntry{});
        return;
    }
    for (const SimLogStore::SEntry& entry : entries) {
        if (entry.id < request.start || entry.id > request.end)
            continue;
        SLogEntry reply;
        reply.id = entry.id;
        reply.num_logs = static_cast<uint16_t>(entries.size());
        reply.last_log_num = entries.last().id;
        reply.time_utc = entry.timeUtc;
        reply.size = entry.size;
        send(reply);
    }
}

void SimVehicle::handleLogRequestData(const mavlink_message_t& message)
{
    const SLogRequestData request = SLogRequestData::Unpack(message);
    if (isForMe(request.target_system))
        m_logStreamer.start(request.id, request.ofs, request.count);
}

void SimVehicle::handleLogRequestEnd(const mavlink_message_t& message)
{
    if (isForMe(SLogRequestEnd::Unpack(message).target_system))
        m_logStreamer.stop();
}

void SimVehicle::handleLogErase(const mavlink_message_t& message)
{
    if (!isForMe(SLogErase::Unpack(message).target_system))
        return;
    m_logStreamer.stop();
    m_logs.eraseAll();
}

// ---- GNSS receiver raw data ----

void SimVehicle::handleRawFolderRequestList(const mavlink_message_t& message)
{
    const SSkyRawFolderRequestList request = SSkyRawFolderRequestList::Unpack(message);
    if (!isForMe(request.target_system))
        return;
    const QVector<SimRawDataStore::SFolder>& folders = m_rawData.folders();
    if (folders.isEmpty()) {
        send(SSkyRawFolderEntry{});
        return;
    }
    for (const SimRawDataStore::SFolder& folder : folders) {
        if (folder.id < request.start || folder.id > request.end)
            continue;
        SSkyRawFolderEntry reply;
        reply.folder_id = folder.id;
        reply.folder_size = m_rawData.folderSize();
        reply.last_folder_num = folders.last().id;
        reply.folder_count = static_cast<uint16_t>(folders.size());
        reply.time_utc = folder.timeUtc;
        setFieldText(reply.text, folder.label);
        send(reply);
    }
}

void SimVehicle::handleRawEntryRequestList(const mavlink_message_t& message)
{
    const SSkyRawEntryRequestList request = SSkyRawEntryRequestList::Unpack(message);
    const SimRawDataStore::SFolder* folder = m_rawData.find(request.folder_id);
    if (!isForMe(request.target_system) || !folder)
        return;
    const int entries = m_rawData.entriesPerFolder();
    for (int id = request.start; id < entries && id <= request.end; ++id) {
        SSkyRawEntry reply;
        reply.folder_id = folder->id;
        reply.entry_id = static_cast<uint16_t>(id);
        reply.last_entry_num = static_cast<uint16_t>(entries - 1);
        reply.entry_count = static_cast<uint16_t>(entries);
        reply.size = m_rawData.entrySize();
        reply.time_utc = folder->timeUtc + static_cast<uint32_t>(id) * SimRawDataStore::ENTRY_SPACING_S;
        send(reply);
    }
}

void SimVehicle::handleRawEntryRequestData(const mavlink_message_t& message)
{
    const SSkyRawEntryRequestData request = SSkyRawEntryRequestData::Unpack(message);
    if (isForMe(request.target_system))
        m_rawDataStreamer.start(request.folder_id, request.entry_id, request.ofs, request.count);
}

void SimVehicle::handleRawRequestEnd(const mavlink_message_t& message)
{
    if (isForMe(SSkyRawRequestEnd::Unpack(message).target_system))
        m_rawDataStreamer.stop();
}

// ---- parachute ----

void SimVehicle::handleParachuteCountRequest(const mavlink_message_t& message)
{
    if (isForMe(SSkyParachuteCountRequest::Unpack(message).target_system))
        sendParachuteNotice();
}

void SimVehicle::handleRopeReset(const mavlink_message_t& message)
{
    if (!isForMe(SSkyParachuteRopeReset::Unpack(message).target_system))
        return;
    m_parachuteCountAtRopeReset = m_parachuteOpenCount;
    SSkyParachuteRopeResetAck ack;
    ack.result = MAV_RESULT_ACCEPTED;
    ack.open_count_at_rope_reset = m_parachuteCountAtRopeReset;
    send(ack);
    sendParachuteNotice();
}

void SimVehicle::handleFirmwareMessage(const mavlink_message_t& message)
{
    switch (message.msgid) {
    case MSG_ID_FILE_TRANSFER_PROTOCOL:
        if (isForMe(SFileTransferProtocol::Unpack(message).target_system))
            m_ftpServer.receive(message);
        break;
    case MSG_ID_SKY_FIRMWARE_MANIFEST:
        if (isForMe(SSkyFirmwareManifest::Unpack(message).target_system))
            m_firmware.handleManifest(message);
        break;
    case MSG_ID_SKY_FIRMWARE_INSTALL:
        if (isForMe(SSkyFirmwareInstall::Unpack(message).target_system))
            m_firmware.handleInstall(message);
        break;
    default:
        if (isForMe(SSkyFirmwareVersionRequest::Unpack(message).target_system))
            m_firmware.handleVersionRequest(message);
        break;
    }
}

// ---- licence ----

void SimVehicle::handleLicenceRequest(const mavlink_message_t& message)
{
    if (isForMe(SSkyLicenceRequest::Unpack(message).target_system))
        send(m_licence.status(SKY_LICENCE_RESULT_REPORT));
}

// A licence that was kept changes the key status, which the aircraft
// announces as it does for a key dongle plugged in.
void SimVehicle::handleLicenceWrite(const mavlink_message_t& message)
{
    const SSkyLicenceWrite piece = SSkyLicenceWrite::Unpack(message);
    if (!isForMe(piece.target_system))
        return;
    const std::optional<uint8_t> verdict = m_licence.receivePiece(piece);
    if (!verdict)
        return;
    send(m_licence.status(*verdict));
    if (*verdict == SKY_LICENCE_RESULT_ACCEPTED)
        send(m_licence.keyStatus());
}
