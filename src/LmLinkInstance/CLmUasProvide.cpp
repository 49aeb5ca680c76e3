#include "CLmUasProvide.h"

#include "CLmFtpPayload.h"
#include "CLmLinkProvide.h"
#include "CLmParameterDownload.h"
#include "CLmParameterSetAck.h"
#include "LmLinkInstanceLog.h"
#include "LmMavlinkMessages.h"

#include <QMutexLocker>

#include <algorithm>
#include <cstring>

using namespace LmMavlink;

namespace {

constexpr int kHeartbeatIntervalMs = 1000;
constexpr int kDefaultHeartbeatTimeoutMs = 3500;
// BATTERY_STATUS marks cells it does not have with this value.
constexpr uint16_t kUnusedCell = UINT16_MAX;

template <std::size_t N>
QString FieldText(const char (&field)[N])
{
    return QString::fromLatin1(field, static_cast<int>(strnlen(field, N)));
}

template <std::size_t N>
void SetFieldText(char (&field)[N], const QString& text)
{
    const QByteArray bytes = text.toLatin1();
    std::memset(field, 0, N);
    std::memcpy(field, bytes.constData(), std::min<std::size_t>(N, static_cast<std::size_t>(bytes.size())));
}

QString Number(double value)
{
    return QString::number(value);
}

QString Number(qint64 value)
{
    return QString::number(value);
}

bool IsIntegerParamType(int type)
{
    switch (type) {
    case MAV_PARAM_TYPE_UINT8:
    case MAV_PARAM_TYPE_INT8:
    case MAV_PARAM_TYPE_UINT16:
    case MAV_PARAM_TYPE_INT16:
    case MAV_PARAM_TYPE_UINT32:
    case MAV_PARAM_TYPE_INT32: return true;
    default: return false;
    }
}

bool IsIntegerVariant(const QVariant& value)
{
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort: return true;
    default: return false;
    }
}

EPlaneType PlaneTypeByVehicle(int vehicleType)
{
    switch (vehicleType) {
    case MAV_TYPE_FIXED_WING: return ePlaneTypeFixwing;
    case MAV_TYPE_QUADROTOR:
    case MAV_TYPE_HEXAROTOR:
    case MAV_TYPE_OCTOROTOR:
    case MAV_TYPE_TRICOPTER:
    case MAV_TYPE_COAXIAL:
    case MAV_TYPE_DODECAROTOR:
    case MAV_TYPE_DECAROTOR: return ePlaneTypeMultirotor;
    default: return ePlaneTypeUnknown;
    }
}

}  // namespace

CLmUasProvide::CLmUasProvide(CLmLinkProvide* pLink, int uasId, int componentId, QObject* parent)
    : QObject(parent)
    , m_pLink(pLink)
    , m_iUasId(uasId)
    , m_iComponentId(componentId)
    , m_encoder(GroundSystemId, GroundComponentId)
    , m_pParameterDownload(new CLmParameterDownload(this, this))
{
    qRegisterMetaType<mavlink_message_t>("mavlink_message_t");
    qRegisterMetaType<QList<SLmParameter>>("QList<SLmParameter>");
    qRegisterMetaType<QList<int>>("QList<int>");
    connect(m_pParameterDownload, &CLmParameterDownload::ParametersLoaded, this, &CLmUasProvide::ParametersLoaded);
    connect(m_pParameterDownload, &CLmParameterDownload::ParameterDownloadFailed, this,
            &CLmUasProvide::ParameterDownloadFailed);
    m_heartbeatTimer.setInterval(kHeartbeatIntervalMs);
    connect(&m_heartbeatTimer, &QTimer::timeout, this, &CLmUasProvide::SendHeartbeat);
    m_heartbeatTimer.start();
    m_heartbeatWatchdog.setSingleShot(true);
    m_heartbeatWatchdog.setInterval(kDefaultHeartbeatTimeoutMs);
    connect(&m_heartbeatWatchdog, &QTimer::timeout, this, &CLmUasProvide::heartbeatLost);
}

CLmLinkProvide* CLmUasProvide::GetLink() const
{
    return m_pLink;
}

int CLmUasProvide::GetUasID() const
{
    return m_iUasId;
}

int CLmUasProvide::GetComponentId() const
{
    return m_iComponentId;
}

QString CLmUasProvide::GetPlaneType() const
{
    QMutexLocker lock(&m_identityMutex);
    return m_strFirmware;
}

EPlaneType CLmUasProvide::GetPlaneTypeId() const
{
    QMutexLocker lock(&m_identityMutex);
    const EPlaneType byFirmware = GetPlaneTypeByFirmware(m_strFirmware);
    return byFirmware != ePlaneTypeUnknown ? byFirmware : PlaneTypeByVehicle(m_iVehicleType);
}

QString CLmUasProvide::GetPlaneTypeString() const
{
    return GetPlaneStringByType(GetPlaneTypeId());
}

bool CLmUasProvide::IsFixwing() const
{
    return ::IsFixwing(GetPlaneTypeId());
}

bool CLmUasProvide::IsIdentified() const
{
    QMutexLocker lock(&m_identityMutex);
    return !m_strFirmware.isEmpty();
}

void CLmUasProvide::SetHeartbeatTimeout(int ms)
{
    RunOnLinkThread([this, ms] { m_heartbeatWatchdog.setInterval(ms); });
}

void CLmUasProvide::StartStatusStream()
{
    CLMCommandLongParam param;
    param.command = MAV_CMD_SET_MESSAGE_INTERVAL;
    param.param1 = static_cast<float>(IsFixwing() ? MSG_ID_SKY_FIXWING_STATUS : MSG_ID_SKY_MULTIROTOR_STATUS);
    SendCommandLong(param);
}

void CLmUasProvide::RequestParachuteNum()
{
    SendRequest<SSkyParachuteCountRequest>(m_iComponentId);
}

void CLmUasProvide::ResetParachuteRope()
{
    SendRequest<SSkyParachuteRopeReset>(m_iComponentId);
}

void CLmUasProvide::SendCommandLong(int command, int confirmation, float param1, float param2, float param3,
                                    float param4, float param5, float param6, float param7, int targetComponent)
{
    SendCommandLong(CLMCommandLongParam{command, confirmation, param1, param2, param3, param4, param5, param6,
                                        param7, targetComponent});
}

void CLmUasProvide::SendCommandLong(const CLMCommandLongParam& param)
{
    SendRequest<SCommandLong>(param.targetComponent, [param](SCommandLong& command) {
        command.command = static_cast<uint16_t>(param.command);
        command.confirmation = static_cast<uint8_t>(param.confirmation);
        command.param1 = param.param1;
        command.param2 = param.param2;
        command.param3 = param.param3;
        command.param4 = param.param4;
        command.param5 = param.param5;
        command.param6 = param.param6;
        command.param7 = param.param7;
    });
}

void CLmUasProvide::RequestMessage(quint32 messageId, int confirmation)
{
    CLMCommandLongParam param;
    param.command = MAV_CMD_REQUEST_MESSAGE;
    param.confirmation = confirmation;
    param.param1 = static_cast<float>(messageId);
    SendCommandLong(param);
}

void CLmUasProvide::RequestLogList(quint16 start, quint16 end)
{
    SendRequest<SLogRequestList>(m_iComponentId, [start, end](SLogRequestList& request) {
        request.start = start;
        request.end = end;
    });
}

void CLmUasProvide::RequestLogData(quint16 logId, quint32 offset, quint32 count)
{
    SendRequest<SLogRequestData>(m_iComponentId, [logId, offset, count](SLogRequestData& request) {
        request.id = logId;
        request.ofs = offset;
        request.count = count;
    });
}

void CLmUasProvide::RequestLogEnd()
{
    SendRequest<SLogRequestEnd>(m_iComponentId);
}

void CLmUasProvide::EraseAllLogs()
{
    SendRequest<SLogErase>(m_iComponentId);
}

void CLmUasProvide::RequestRawFolderList(quint16 start, quint16 end)
{
    SendRequest<SSkyRawFolderRequestList>(m_iComponentId, [start, end](SSkyRawFolderRequestList& request) {
        request.start = start;
        request.end = end;
    });
}

void CLmUasProvide::RequestRawEntryList(quint16 folderId, quint16 start, quint16 end)
{
    SendRequest<SSkyRawEntryRequestList>(m_iComponentId, [folderId, start, end](SSkyRawEntryRequestList& request) {
        request.folder_id = folderId;
        request.start = start;
        request.end = end;
    });
}

void CLmUasProvide::RequestRawEntryData(quint16 folderId, quint16 entryId, quint32 offset, quint32 count)
{
    SendRequest<SSkyRawEntryRequestData>(m_iComponentId,
                                         [folderId, entryId, offset, count](SSkyRawEntryRequestData& request) {
                                             request.folder_id = folderId;
                                             request.entry_id = entryId;
                                             request.ofs = offset;
                                             request.count = count;
                                         });
}

void CLmUasProvide::RequestRawEnd()
{
    SendRequest<SSkyRawRequestEnd>(m_iComponentId);
}

void CLmUasProvide::SendFileTransfer(const CLmFtpPayload& request)
{
    SendRequest<SFileTransferProtocol>(m_iComponentId,
                                       [request](SFileTransferProtocol& message) { request.WriteTo(message.payload); });
}

void CLmUasProvide::SendFirmwareManifest(quint32 size, const QByteArray& sha256, const QString& version,
                                         const QString& fileName)
{
    SendRequest<SSkyFirmwareManifest>(m_iComponentId, [=](SSkyFirmwareManifest& manifest) {
        manifest.size = size;
        std::memcpy(manifest.sha256, sha256.constData(),
                    std::min<std::size_t>(sizeof manifest.sha256, static_cast<std::size_t>(sha256.size())));
        SetFieldText(manifest.version, version);
        SetFieldText(manifest.file_name, fileName);
    });
}

void CLmUasProvide::RequestFirmwareInstall()
{
    SendRequest<SSkyFirmwareInstall>(m_iComponentId);
}

void CLmUasProvide::RequestFirmwareVersion()
{
    SendRequest<SSkyFirmwareVersionRequest>(m_iComponentId);
}

void CLmUasProvide::RequestLicence()
{
    SendRequest<SSkyLicenceRequest>(m_iComponentId);
}

void CLmUasProvide::WriteLicencePiece(quint16 totalLength, quint16 offset, const QByteArray& piece)
{
    SendRequest<SSkyLicenceWrite>(m_iComponentId, [totalLength, offset, piece](SSkyLicenceWrite& request) {
        request.total_length = totalLength;
        request.offset = offset;
        request.count = static_cast<uint8_t>(std::min<int>(piece.size(), sizeof request.data));
        std::memcpy(request.data, piece.constData(), request.count);
    });
}

void CLmUasProvide::RequestParameterList()
{
    SendRequest<SParamRequestList>(m_iComponentId);
}

void CLmUasProvide::RequestParameter(const QString& name)
{
    SendRequest<SParamRequestRead>(m_iComponentId, [name](SParamRequestRead& request) {
        request.param_index = -1;
        SetFieldText(request.param_id, name);
    });
}

void CLmUasProvide::RequestParameterByIndex(int index)
{
    SendRequest<SParamRequestRead>(m_iComponentId, [index](SParamRequestRead& request) {
        request.param_index = static_cast<int16_t>(index);
    });
}

void CLmUasProvide::DownloadParameters()
{
    RunOnLinkThread([this] { m_pParameterDownload->Start(); });
}

void CLmUasProvide::SetParameter(int componentId, const QString& name, const QVariant& value)
{
    RunOnLinkThread([this, componentId, name, value] { StartParameterSet(componentId, name, value); });
}

void CLmUasProvide::WriteParameter(int componentId, const QString& name, const QVariant& value)
{
    SendRequest<SParamSet>(componentId, [this, name, value](SParamSet& request) {
        SetFieldText(request.param_id, name);
        request.param_value = value.toFloat();
        const int defaultType = IsIntegerVariant(value) ? MAV_PARAM_TYPE_INT32 : MAV_PARAM_TYPE_REAL32;
        request.param_type = static_cast<uint8_t>(m_mapParamTypes.value(name, defaultType));
        m_setPendingWrites.insert(name);
    });
}

void CLmUasProvide::StartParameterSet(int componentId, const QString& name, const QVariant& value)
{
    if (CLmParameterSetAck* pPending = m_mapParameterSets.value(name))
        EndParameterSet(pPending);
    auto* pSet = new CLmParameterSetAck(this);
    m_mapParameterSets.insert(name, pSet);
    connect(pSet, &CLmParameterSetAck::ParameterSetConfirmed, this, &CLmUasProvide::ParameterSetConfirmed);
    connect(pSet, &CLmParameterSetAck::ParameterSetFailed, this, &CLmUasProvide::ParameterSetFailed);
    connect(pSet, &CLmParameterSetAck::ParameterSetConfirmed, this, [this, pSet] { EndParameterSet(pSet); });
    connect(pSet, &CLmParameterSetAck::ParameterSetFailed, this, [this, pSet] { EndParameterSet(pSet); });
    pSet->SetUAS(this);
    pSet->Write(componentId, name, value);
}

void CLmUasProvide::EndParameterSet(CLmParameterSetAck* pSet)
{
    pSet->DisconnectToUAS();
    disconnect(pSet, nullptr, this, nullptr);
    m_mapParameterSets.remove(pSet->GetName());
    pSet->deleteLater();
}

void CLmUasProvide::HandleMessage(const mavlink_message_t& message)
{
    FinishBatteryReport(message.msgid);
    switch (message.msgid) {
    case MSG_ID_HEARTBEAT: OnHeartbeat(message); break;
    case MSG_ID_SKY_PLANE_INFO: OnPlaneInfo(message); break;
    case MSG_ID_SKY_FIXWING_STATUS: OnFixwingStatus(message); break;
    case MSG_ID_SKY_MULTIROTOR_STATUS: OnMultirotorStatus(message); break;
    case MSG_ID_SKY_FIXWING_BATTERY: OnFixwingBattery(message); break;
    case MSG_ID_SKY_CALIBRATION_FAILURE_CODE: OnCalibrationFailureCode(message); break;
    case MSG_ID_BATTERY_STATUS: OnBatteryStatus(message); break;
    case MSG_ID_SKY_PARACHUTE_NOTICE: OnParachuteNotice(message); break;
    case MSG_ID_SKY_KEY_STATUS: OnKeyStatus(message); break;
    case MSG_ID_LOG_ENTRY: OnLogEntry(message); break;
    case MSG_ID_LOG_DATA: OnLogData(message); break;
    case MSG_ID_PARAM_VALUE: OnParamValue(message); break;
    case MSG_ID_COMMAND_ACK: OnCommandAck(message); break;
    default: break;
    }
    emit messageReceived(message);
}

template <typename TMessage>
void CLmUasProvide::Send(const TMessage& message)
{
    if (m_pLink)
        m_pLink->WriteBytes(m_encoder.Encode(message));
}

template <typename TMessage>
void CLmUasProvide::SendRequest(int targetComponent, std::function<void(TMessage&)> fill)
{
    RunOnLinkThread([this, targetComponent, fill = std::move(fill)] {
        TMessage request;
        request.target_system = static_cast<uint8_t>(m_iUasId);
        request.target_component = static_cast<uint8_t>(targetComponent);
        if (fill)
            fill(request);
        Send(request);
    });
}

void CLmUasProvide::RunOnLinkThread(std::function<void()> request)
{
    QMetaObject::invokeMethod(this, std::move(request), Qt::AutoConnection);
}

void CLmUasProvide::SendHeartbeat()
{
    SHeartbeat heartbeat;
    heartbeat.type = MAV_TYPE_GCS;
    heartbeat.autopilot = MAV_AUTOPILOT_INVALID;
    heartbeat.system_status = MAV_STATE_ACTIVE;
    Send(heartbeat);
}

// The stream sends its batteries right after the multirotor status; the
// first other frame closes that report. Battery frames asked for on their
// own are not part of it.
void CLmUasProvide::FinishBatteryReport(uint32_t nextMessageId)
{
    if (nextMessageId == MSG_ID_BATTERY_STATUS || !m_bBatteryReportOpen)
        return;
    m_bBatteryReportOpen = false;
    if (m_mapBatteryReport.isEmpty())
        return;
    QStringList info;
    for (const QStringList& battery : qAsConst(m_mapBatteryReport))
        info << battery;
    m_mapBatteryReport.clear();
    emit signalMultirotorBatteryInfo(info);
}

void CLmUasProvide::OnHeartbeat(const mavlink_message_t& message)
{
    const SHeartbeat heartbeat = SHeartbeat::Unpack(message);
    {
        QMutexLocker lock(&m_identityMutex);
        m_iVehicleType = heartbeat.type;
    }
    m_heartbeatWatchdog.start();
    if (!IsIdentified())
        RequestMessage(MSG_ID_SKY_PLANE_INFO);
}

void CLmUasProvide::OnPlaneInfo(const mavlink_message_t& message)
{
    const QString firmware = FieldText(SSkyPlaneInfo::Unpack(message).firmware);
    bool bFirst = false;
    {
        QMutexLocker lock(&m_identityMutex);
        bFirst = m_strFirmware.isEmpty() && !firmware.isEmpty();
        m_strFirmware = firmware;
    }
    if (bFirst)
        emit identified();
}

void CLmUasProvide::OnFixwingStatus(const mavlink_message_t& message)
{
    const SSkyFixwingStatus status = SSkyFixwingStatus::Unpack(message);
    emit tolva_status({FieldText(status.serial_number), FieldText(status.firmware_version),
                       FieldText(status.hardware_version), Number(qint64(status.total_flight_time)),
                       Number(qint64(status.boot_count)), Number(double(status.flight_mileage)),
                       Number(qint64(status.motor_start_count)), Number(qint64(status.parachute_open_count)),
                       Number(qint64(status.sortie_count)), Number(qint64(status.servo_action_count)),
                       Number(qint64(status.last_flight_time)), Number(double(status.max_altitude))});
}

void CLmUasProvide::OnMultirotorStatus(const mavlink_message_t& message)
{
    const SSkyMultirotorStatus status = SSkyMultirotorStatus::Unpack(message);
    emit multirotor_tolva_status(
        {Number(double(status.flight_mileage)), Number(qint64(status.sortie_count)), FieldText(status.serial_number),
         FieldText(status.firmware_version), Number(qint64(status.total_flight_time)),
         Number(qint64(status.boot_count)), FieldText(status.gps_version), FieldText(status.bms_version),
         FieldText(status.magnetometer1_version), FieldText(status.magnetometer2_version),
         FieldText(status.gimbal_version), FieldText(status.esc1_version), FieldText(status.esc2_version),
         FieldText(status.esc3_version), FieldText(status.esc4_version), FieldText(status.ultrasonic_version),
         FieldText(status.vision_version), FieldText(status.cpld_version), FieldText(status.fpga_version),
         Number(qint64(status.battery_version)), Number(qint64(status.fault_flags))});
    m_bBatteryReportOpen = true;
    m_mapBatteryReport.clear();
}

void CLmUasProvide::OnFixwingBattery(const mavlink_message_t& message)
{
    const SSkyFixwingBattery battery = SSkyFixwingBattery::Unpack(message);
    emit batteryInfoAndFailsafeFlag(battery.remaining, battery.capacity, battery.failsafe_flags,
                                    battery.battery_state, battery.voltage);
}

void CLmUasProvide::OnCalibrationFailureCode(const mavlink_message_t& message)
{
    const SSkyCalibrationFailureCode report = SSkyCalibrationFailureCode::Unpack(message);
    emit calibrationInfoAndFailureCode(report.calibration_status, report.calibration, report.code_num, report.code0,
                                       report.code1);
}

void CLmUasProvide::OnBatteryStatus(const mavlink_message_t& message)
{
    if (!m_bBatteryReportOpen)
        return;
    const SBatteryStatus battery = SBatteryStatus::Unpack(message);
    qint64 totalMilliVolts = 0;
    for (uint16_t cell : battery.voltages) {
        if (cell != kUnusedCell)
            totalMilliVolts += cell;
    }
    for (uint16_t cell : battery.voltages_ext)
        totalMilliVolts += cell;
    m_mapBatteryReport.insert(battery.id, {Number(totalMilliVolts), Number(qint64(battery.current_battery)),
                                           Number(qint64(battery.temperature)),
                                           Number(qint64(battery.battery_remaining))});
}

void CLmUasProvide::OnParachuteNotice(const mavlink_message_t& message)
{
    const SSkyParachuteNotice notice = SSkyParachuteNotice::Unpack(message);
    emit parachuteNum(static_cast<int>(notice.open_count_at_rope_reset));
    emit NeedNotifyParachute(notice.rope_use_count);
}

void CLmUasProvide::OnKeyStatus(const mavlink_message_t& message)
{
    emit KeyStatusString(FieldText(SSkyKeyStatus::Unpack(message).text));
}

void CLmUasProvide::OnLogEntry(const mavlink_message_t& message)
{
    const SLogEntry entry = SLogEntry::Unpack(message);
    emit logEntry(m_iUasId, entry.time_utc, entry.size, entry.id, entry.num_logs, entry.last_log_num);
}

void CLmUasProvide::OnLogData(const mavlink_message_t& message)
{
    const SLogData data = SLogData::Unpack(message);
    const int count = std::min<int>(data.count, sizeof data.data);
    emit logData(static_cast<quint32>(m_iUasId), data.ofs, data.id, static_cast<quint8>(count),
                 QByteArray(reinterpret_cast<const char*>(data.data), count));
}

void CLmUasProvide::OnParamValue(const mavlink_message_t& message)
{
    const SParamValue param = SParamValue::Unpack(message);
    const QString name = FieldText(param.param_id);
    m_mapParamTypes.insert(name, param.param_type);
    const QVariant value = IsIntegerParamType(param.param_type) ? QVariant(qRound(param.param_value))
                                                                  : QVariant(double(param.param_value));
    emit parameterChanged(param.param_count, param.param_index, name, value);
    if (m_setPendingWrites.remove(name))
        emit signalParamSet(name, param.param_value);
}

void CLmUasProvide::OnCommandAck(const mavlink_message_t& message)
{
    const SCommandAck ack = SCommandAck::Unpack(message);
    if (ack.target_system != 0 && ack.target_system != GroundSystemId)
        return;
    emit commandAck(ack.command, ack.result);
}
