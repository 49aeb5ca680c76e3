#pragma once

#include "CLmBatteryGroup.h"
#include "LmPlaneStatusLists.h"

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <memory>

class CLMAckBase;
class CLmRequestBatteryCellVoltageAck;
class CLmRequestBatteryDataAck;
class CLmUasProvide;

// What the plane status page shows of the connected aircraft, without
// widgets: it binds to the aircraft's status signals by type, reads the
// status lists, runs the multirotor's battery requests (status stream ->
// battery data -> cell voltages) and collects the batteries and failure
// codes. The page shows what it reports.
class CLmPlaneStatusController : public QObject
{
    Q_OBJECT
public:
    // Retries and interval of the two battery requests.
    static constexpr int BatteryRequestRetries = 3;
    static constexpr int BatteryRequestIntervalMs = 700;

    explicit CLmPlaneStatusController(QObject* parent = nullptr);
    ~CLmPlaneStatusController() override;

    // The aircraft from the maintenance page; null when it went away. The
    // last aircraft is kept after it went away, so that the parachute
    // requests still address it.
    void SetUas(CLmUasProvide* pUas);
    CLmUasProvide* Uas() const;

    // Resets the rope count on the aircraft and reads it back.
    void ReplaceParachuteRope();
    // Asks the aircraft to open the parachute cover for a check.
    void OpenParachuteCover();

    const CLmBatteryGroup& BatteryGroup() const { return m_batteryGroup; }
    // The last link of the battery request chain is waiting for its answer.
    bool IsWaitingForCellVoltages() const;

public Q_SLOTS:
    void slot_tolva_status(QStringList status);
    void slot_multirotor_tolva_status(QStringList status);
    void slotCalibrationInfoAndFailureCode(qint8 calibration_status, qint16 calibration, quint8 code_num,
                                           quint32 code0, quint32 code1);
    void slotSystemStatus(qint8 remaining, quint16 capacity, quint8 failsafe, quint8 state, quint16 voltage);
    void slotParachuteNum(int iPreParaNum);
    void slotMultirotorBatteryInfo(QStringList info);
    void slotBatteryData(QStringList data);
    void slotBatteryCellVoltage(QStringList data);
    void slotSendBatteryCellTimeOut();
    void slotSendBatteryDataTimeOut();

Q_SIGNALS:
    void FixwingStatusRead(const LmPlaneStatusLists::SFixwing& status);
    void MultirotorStatusRead(const LmPlaneStatusLists::SMultirotor& status);
    // Texts of the fixed-wing battery: charge, voltage, capacity, state.
    void FixwingBatteryRead(const QString& charge, const QString& voltage, const QString& capacity,
                            const QString& state);
    void RopeUseCountRead(const QString& count);
    // The fixed-wing's rope count and battery texts are no longer known.
    void FixwingBatteryLost();
    // The cell voltages completed a battery round.
    void BatteriesRead(const CLmBatteryGroup& group);
    void BatteriesLost();
    void FailureTextsRead(const QStringList& texts);

private:
    void Bind();
    void Unbind();
    void BlankFixwing();
    void BlankMultirotor();
    void StartBatteryRequest(CLMAckBase& ack);
    CLmBattery* StreamedBattery(int index);
    void ReadFailureTexts();

    QPointer<CLmUasProvide> m_pUas;
    // The type the aircraft's signals are bound by, while bound.
    bool m_bBound = false;
    bool m_bFixwing = false;
    std::unique_ptr<CLmRequestBatteryCellVoltageAck> m_pCellVoltageAck;
    std::unique_ptr<CLmRequestBatteryDataAck> m_pBatteryDataAck;
    CLmBatteryGroup m_batteryGroup;
    int m_iParachuteOpenCount = 0;
    // Failure codes by report number; both reports make a complete picture.
    QMap<quint8, QList<int>> m_mapStatusCodes;
    QMetaObject::Connection m_failureCodeConnection;
};
