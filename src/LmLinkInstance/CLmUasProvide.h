#pragma once

#include "CLMCommandLongParam.h"
#include "CLmMavlinkEncoder.h"
#include "LmPlaneType.h"
#include "SLmParameter.h"
#include "mavlink_message_t.h"

#include <QMap>
#include <QMutex>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>
#include <QVariant>

#include <functional>

class CLmLinkProvide;
class CLmFtpPayload;
class CLmParameterDownload;
class CLmParameterSetAck;

// Handle of one connected aircraft on one link: who it is, what it reports
// and what can be asked of it.
//
// The handle lives on the thread of its link. The connection worker feeds it
// every decoded frame of its aircraft (HandleMessage); it turns them into the
// signals below. Every request may be called from any thread: it is queued
// onto the link's thread. While it exists the handle sends the ground
// station's heartbeat once a second, so the aircraft knows where to answer.
class CLmUasProvide : public QObject
{
    Q_OBJECT
public:
    // Identity of this ground station on the link.
    static constexpr int GroundSystemId = 255;
    static constexpr int GroundComponentId = 190;

    CLmUasProvide(CLmLinkProvide* pLink, int uasId, int componentId, QObject* parent = nullptr);

    CLmLinkProvide* GetLink() const;
    int GetUasID() const;
    int GetComponentId() const;
    // Firmware identification text from the aircraft's plane information,
    // empty until it arrived; GetPlaneTypeByFirmware() reads the model from it.
    QString GetPlaneType() const;
    // The model by firmware, or by the heartbeat's vehicle type before the
    // plane information arrived.
    EPlaneType GetPlaneTypeId() const;
    QString GetPlaneTypeString() const;
    virtual bool IsFixwing() const;
    // True once the plane information arrived.
    bool IsIdentified() const;

    // Heartbeats further apart than this raise heartbeatLost().
    void SetHeartbeatTimeout(int ms);

    // Asks for the type's status list (fixed-wing or multirotor) at the
    // aircraft's default rate.
    virtual void StartStatusStream();
    virtual void RequestParachuteNum();
    virtual void ResetParachuteRope();
    virtual void SendCommandLong(int command, int confirmation, float param1, float param2, float param3, float param4,
                         float param5, float param6, float param7, int targetComponent);
    virtual void SendCommandLong(const CLMCommandLongParam& param);
    void RequestMessage(quint32 messageId, int confirmation = 0);
    virtual void RequestLogList(quint16 start, quint16 end);
    // count 0xFFFFFFFF asks for everything from offset to the end.
    virtual void RequestLogData(quint16 logId, quint32 offset, quint32 count);
    virtual void RequestLogEnd();
    virtual void EraseAllLogs();
    // The GNSS receiver's raw-data folders (SKY_RAW_* messages; what comes
    // back is read by CLmRtkDataLink from messageReceived).
    void RequestRawFolderList(quint16 start, quint16 end);
    void RequestRawEntryList(quint16 folderId, quint16 start, quint16 end);
    // count 0xFFFFFFFF asks for everything from offset to the end.
    void RequestRawEntryData(quint16 folderId, quint16 entryId, quint32 offset, quint32 count);
    void RequestRawEnd();
    // Firmware upgrade: one file transfer protocol request, and the dialect's
    // package manifest, install order and version request.
    void SendFileTransfer(const CLmFtpPayload& request);
    void SendFirmwareManifest(quint32 size, const QByteArray& sha256, const QString& version, const QString& fileName);
    void RequestFirmwareInstall();
    void RequestFirmwareVersion();
    // The aircraft's licence (SKY_LICENCE_* messages; the answers are read
    // by CLmLicenceLink from messageReceived). A piece holds at most
    // LicencePieceSize bytes.
    static constexpr int LicencePieceSize = 200;
    void RequestLicence();
    void WriteLicencePiece(quint16 totalLength, quint16 offset, const QByteArray& piece);
    void RequestParameterList();
    void RequestParameter(const QString& name);
    void RequestParameterByIndex(int index);
    // Integer values are sent as integer parameters unless the aircraft told
    // another type for that name; the aircraft's echo raises signalParamSet.
    // One PARAM_SET, no retries: SetParameter() is the confirmed write.
    void WriteParameter(int componentId, const QString& name, const QVariant& value);

    // Downloads the whole table (CLmParameterDownload): ends in
    // ParametersLoaded or ParameterDownloadFailed. A new call starts over.
    void DownloadParameters();
    // Writes the parameter until the aircraft echoes exactly this value:
    // ends in ParameterSetConfirmed or ParameterSetFailed
    // (CLmParameterSetAck). A new write of the same name replaces a pending one.
    void SetParameter(int componentId, const QString& name, const QVariant& value);

    // On the link's thread: one decoded frame from this aircraft.
    void HandleMessage(const mavlink_message_t& message);

signals:
    // Fixed-wing status: twelve texts (serial number, firmware version,
    // hardware version, total flight time s, boot count, mileage km, motor
    // starts, parachute openings, sorties, servo actions, last flight s,
    // highest altitude m).
    void tolva_status(QStringList status);
    // Multirotor status: twenty-one texts (mileage km, flights, serial number,
    // firmware version, total flight time s, boot count, the versions of GPS,
    // BMS, magnetometer 1 and 2, gimbal, ESC 1..4, ultrasonic, vision, CPLD and
    // FPGA, battery version as a decimal number, fault flags).
    void multirotor_tolva_status(QStringList status);
    // Fixed-wing battery: remaining %, capacity mAh, fail-safe flags, battery
    // state, voltage mV.
    void batteryInfoAndFailsafeFlag(qint8 remaining, quint16 capacity, quint8 failsafe, quint8 state,
                                    quint16 voltage);
    void calibrationInfoAndFailureCode(qint8 calibration_status, qint16 calibration, quint8 code_num, quint32 code0,
                                       quint32 code1);
    // Multirotor batteries of the status stream, four texts per battery in id
    // order: total voltage mV, current cA, temperature c°C, remaining %.
    void signalMultirotorBatteryInfo(QStringList info);
    // Parachute openings counted when the rope was last replaced.
    void parachuteNum(int openCountAtRopeReset);
    // Parachute openings since the rope was last replaced.
    void NeedNotifyParachute(int ropeUseCount);
    void KeyStatusString(QString status);
    void logEntry(int uasId, quint32 time_utc, quint32 size, quint16 id, quint16 num_logs, quint16 last_log_num);
    void logData(quint32 uasId, quint32 ofs, quint16 id, quint8 count, QByteArray data);
    void parameterChanged(int paramCount, int paramIndex, QString name, QVariant value);
    void signalParamSet(const QString& name, float value);
    void ParametersLoaded(QList<SLmParameter> parameters);
    void ParameterDownloadFailed(QList<int> missing);
    void ParameterSetConfirmed(QString name, QVariant value);
    void ParameterSetFailed(QString name);
    void commandAck(int command, int result);
    // Every frame from the aircraft, after the handle read it.
    void messageReceived(const mavlink_message_t& message);
    void identified();
    void heartbeatLost();

private:
    template <typename TMessage>
    void Send(const TMessage& message);
    // On the link's thread: sends a TMessage addressed to this aircraft and
    // its component targetComponent, after fill set the other fields.
    template <typename TMessage>
    void SendRequest(int targetComponent, std::function<void(TMessage&)> fill = {});
    void RunOnLinkThread(std::function<void()> request);
    void SendHeartbeat();
    void FinishBatteryReport(uint32_t nextMessageId);
    void StartParameterSet(int componentId, const QString& name, const QVariant& value);
    void EndParameterSet(CLmParameterSetAck* pSet);

    void OnHeartbeat(const mavlink_message_t& message);
    void OnPlaneInfo(const mavlink_message_t& message);
    void OnFixwingStatus(const mavlink_message_t& message);
    void OnMultirotorStatus(const mavlink_message_t& message);
    void OnFixwingBattery(const mavlink_message_t& message);
    void OnCalibrationFailureCode(const mavlink_message_t& message);
    void OnBatteryStatus(const mavlink_message_t& message);
    void OnParachuteNotice(const mavlink_message_t& message);
    void OnKeyStatus(const mavlink_message_t& message);
    void OnLogEntry(const mavlink_message_t& message);
    void OnLogData(const mavlink_message_t& message);
    void OnParamValue(const mavlink_message_t& message);
    void OnCommandAck(const mavlink_message_t& message);

    CLmLinkProvide* m_pLink;
    const int m_iUasId;
    const int m_iComponentId;
    CLmMavlinkEncoder m_encoder;
    QTimer m_heartbeatTimer{this};
    QTimer m_heartbeatWatchdog{this};

    mutable QMutex m_identityMutex;
    QString m_strFirmware;
    int m_iVehicleType = -1;

    QMap<QString, int> m_mapParamTypes;
    QSet<QString> m_setPendingWrites;
    CLmParameterDownload* m_pParameterDownload;
    QMap<QString, CLmParameterSetAck*> m_mapParameterSets;
    bool m_bBatteryReportOpen = false;
    QMap<int, QStringList> m_mapBatteryReport;
};
