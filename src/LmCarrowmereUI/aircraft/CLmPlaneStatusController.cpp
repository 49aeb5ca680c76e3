#include "CLmPlaneStatusController.h"

#include "CLmRequestBatteryCellVoltageAck.h"
#include "CLmRequestBatteryDataAck.h"
#include "CLmUasProvide.h"
#include "LmCarrowmereUILog.h"
#include "LmStatusCode.h"

using namespace LmPlaneStatusLists;

namespace {

constexpr int kBatteryInfoFields = 4;
constexpr int kBatteryDataFields = 4;
constexpr int kGroupSettingFields = 3;
constexpr int kCellFields = CLmRequestBatteryCellVoltageAck::CellsPerBattery;
// The failure codes come in two reports (codes 0..63 and 64..127).
constexpr int kFailureReports = 2;
constexpr int kParachuteCommand = 208;
constexpr int kParachuteTargetComponent = 126;

// Battery k's fields of a list of per-battery groups.
QStringList BatteryFields(const QStringList& list, int k, int fieldsPerBattery)
{
    return list.mid(k * fieldsPerBattery, fieldsPerBattery);
}

}  // namespace

CLmPlaneStatusController::CLmPlaneStatusController(QObject* parent)
    : QObject(parent)
    , m_pCellVoltageAck(std::make_unique<CLmRequestBatteryCellVoltageAck>())
    , m_pBatteryDataAck(std::make_unique<CLmRequestBatteryDataAck>())
{
    connect(m_pCellVoltageAck.get(), &CLMAckBase::UploadTimeOut, this,
            &CLmPlaneStatusController::slotSendBatteryCellTimeOut);
    connect(m_pBatteryDataAck.get(), &CLMAckBase::UploadTimeOut, this,
            &CLmPlaneStatusController::slotSendBatteryDataTimeOut);
    connect(m_pCellVoltageAck.get(), &CLmRequestBatteryCellVoltageAck::BatteryCellVoltage, this,
            &CLmPlaneStatusController::slotBatteryCellVoltage);
    connect(m_pBatteryDataAck.get(), &CLmRequestBatteryDataAck::BatteryData, this,
            &CLmPlaneStatusController::slotBatteryData);
}

CLmPlaneStatusController::~CLmPlaneStatusController() = default;

void CLmPlaneStatusController::SetUas(CLmUasProvide* pUas)
{
    if (!pUas) {
        if (!m_bBound)
            return;
        Unbind();
        if (m_bFixwing)
            BlankFixwing();
        else
            BlankMultirotor();
        return;
    }
    if (m_bBound)
        Unbind();
    m_pUas = pUas;
    Bind();
    m_pUas->StartStatusStream();
}

CLmUasProvide* CLmPlaneStatusController::Uas() const
{
    return m_pUas;
}

void CLmPlaneStatusController::Bind()
{
    m_bBound = true;
    m_bFixwing = m_pUas->IsFixwing();
    qCInfo(lcAircraft) << "plane status bound to aircraft" << m_pUas->GetUasID()
                       << (m_bFixwing ? "as fixed-wing" : "as multirotor");
    if (m_bFixwing) {
        connect(m_pUas, &CLmUasProvide::tolva_status, this, &CLmPlaneStatusController::slot_tolva_status);
        connect(m_pUas, &CLmUasProvide::parachuteNum, this, &CLmPlaneStatusController::slotParachuteNum);
        connect(m_pUas, &CLmUasProvide::batteryInfoAndFailsafeFlag, this,
                &CLmPlaneStatusController::slotSystemStatus);
        return;
    }
    connect(m_pUas, &CLmUasProvide::multirotor_tolva_status, this,
            &CLmPlaneStatusController::slot_multirotor_tolva_status);
    connect(m_pUas, &CLmUasProvide::signalMultirotorBatteryInfo, this,
            &CLmPlaneStatusController::slotMultirotorBatteryInfo);
    m_mapStatusCodes.clear();
    m_failureCodeConnection = connect(m_pUas, &CLmUasProvide::calibrationInfoAndFailureCode, this,
                                      &CLmPlaneStatusController::slotCalibrationInfoAndFailureCode);
}

// The requests still running for the aircraft stop with it.
void CLmPlaneStatusController::Unbind()
{
    m_bBound = false;
    if (m_pUas)
        disconnect(m_pUas, nullptr, this, nullptr);
    m_pBatteryDataAck->DisconnectToUAS();
    m_pCellVoltageAck->DisconnectToUAS();
}

void CLmPlaneStatusController::BlankFixwing()
{
    slot_tolva_status(NotAvailable(FixwingFields));
    Q_EMIT FixwingBatteryLost();
}

void CLmPlaneStatusController::BlankMultirotor()
{
    Q_EMIT BatteriesLost();
    slot_multirotor_tolva_status(NotAvailable(MultirotorFields));
}

void CLmPlaneStatusController::ReplaceParachuteRope()
{
    if (!m_pUas)
        return;
    m_pUas->ResetParachuteRope();
    m_pUas->RequestParachuteNum();
}

void CLmPlaneStatusController::OpenParachuteCover()
{
    if (m_pUas)
        m_pUas->SendCommandLong(kParachuteCommand, 0, 1.0f, 0, 0, 0, 0, 0, 0, kParachuteTargetComponent);
}

bool CLmPlaneStatusController::IsWaitingForCellVoltages() const
{
    return m_pCellVoltageAck->IsWaiting();
}

void CLmPlaneStatusController::slot_tolva_status(QStringList status)
{
    const std::optional<SFixwing> texts = ReadFixwing(status);
    if (!texts)
        return;
    m_iParachuteOpenCount = texts->parachuteOpenCount;
    Q_EMIT FixwingStatusRead(*texts);
    if (m_pUas && m_bBound)
        m_pUas->RequestParachuteNum();
}

void CLmPlaneStatusController::slot_multirotor_tolva_status(QStringList status)
{
    if (const std::optional<SMultirotor> texts = ReadMultirotor(status))
        Q_EMIT MultirotorStatusRead(*texts);
}

void CLmPlaneStatusController::slotParachuteNum(int iPreParaNum)
{
    Q_EMIT RopeUseCountRead(QString::number(m_iParachuteOpenCount - iPreParaNum) + tr("times"));
}

void CLmPlaneStatusController::slotSystemStatus(qint8 remaining, quint16 capacity, quint8 failsafe, quint8 state,
                                                quint16 voltage)
{
    Q_UNUSED(failsafe)
    Q_UNUSED(state)
    Q_EMIT FixwingBatteryRead(QString::number(remaining) + QStringLiteral("%"),
                              QString::number(voltage / 1000.0, 'f', 2) + QStringLiteral("V"),
                              QString::number(capacity) + QStringLiteral("mAh"), tr("Normal"));
}

void CLmPlaneStatusController::StartBatteryRequest(CLMAckBase& ack)
{
    ack.SetUAS(m_pUas);
    ack.StartUpload(BatteryRequestRetries, BatteryRequestIntervalMs, CLMCommandLongParam());
}

void CLmPlaneStatusController::slotMultirotorBatteryInfo(QStringList info)
{
    if (m_pUas)
        StartBatteryRequest(*m_pBatteryDataAck);
    for (int k = 0; k < info.size() / kBatteryInfoFields; ++k) {
        const QStringList fields = BatteryFields(info, k, kBatteryInfoFields);
        CLmBattery* pBattery = StreamedBattery(k);
        pBattery->SetTotalVoltage(Number(fields.at(0)));
        pBattery->SetCurrent(Number(fields.at(1)));
        pBattery->SetTemperature(static_cast<int>(Number(fields.at(2)) / 100.0));
        pBattery->SetCapacityRemainingPercent(Number(fields.at(3)));
    }
}

// The stream's figures arrive every second; a battery already known keeps
// the capacity, identity and cells its answers gave it.
CLmBattery* CLmPlaneStatusController::StreamedBattery(int index)
{
    if (!m_batteryGroup.GetBattery(index))
        m_batteryGroup.AddBattery(index, new CLmBattery);
    return m_batteryGroup.GetBattery(index);
}

void CLmPlaneStatusController::slotBatteryData(QStringList data)
{
    if (m_pUas)
        StartBatteryRequest(*m_pCellVoltageAck);
    for (int k = 0; k < data.size() / kBatteryDataFields; ++k) {
        CLmBattery* pBattery = m_batteryGroup.GetBattery(k);
        if (!pBattery)
            continue;
        const QStringList fields = BatteryFields(data, k, kBatteryDataFields);
        pBattery->SetFullCapacity(Number(fields.at(0)));
        pBattery->SetLifePercent(Number(fields.at(1)));
        pBattery->SetCycleTime(Number(fields.at(2)));
        pBattery->SetBatteryID(fields.at(3));
    }
    if (data.size() < kGroupSettingFields)
        return;
    const QStringList settings = data.mid(data.size() - kGroupSettingFields);
    m_batteryGroup.SetSevereLowCapacityAlarm(Number(settings.at(0)));
    m_batteryGroup.SetLowCapacityAlarm(Number(settings.at(1)));
    m_batteryGroup.SetStartingSelfDischargeTime(Number(settings.at(2)));
}

void CLmPlaneStatusController::slotBatteryCellVoltage(QStringList data)
{
    for (int k = 0; k < data.size() / kCellFields; ++k) {
        CLmBattery* pBattery = m_batteryGroup.GetBattery(k);
        if (!pBattery)
            continue;
        const QStringList cells = BatteryFields(data, k, kCellFields);
        for (int cell = 0; cell < kCellFields; ++cell)
            pBattery->SetCellVoltage(cell, Number(cells.at(cell)));
    }
    Q_EMIT BatteriesRead(m_batteryGroup);
}

void CLmPlaneStatusController::slotSendBatteryCellTimeOut()
{
    qCInfo(lcAircraft) << "cell voltages not answered";
    m_pCellVoltageAck->DisconnectToUAS();
}

void CLmPlaneStatusController::slotSendBatteryDataTimeOut()
{
    qCInfo(lcAircraft) << "battery data not answered";
    m_pBatteryDataAck->DisconnectToUAS();
}

void CLmPlaneStatusController::slotCalibrationInfoAndFailureCode(qint8 calibration_status, qint16 calibration,
                                                                 quint8 code_num, quint32 code0, quint32 code1)
{
    Q_UNUSED(calibration_status)
    Q_UNUSED(calibration)
    m_mapStatusCodes.insert(code_num, ParseStatusCodeSum(code_num, code0, code1));
    if (m_mapStatusCodes.size() != kFailureReports)
        return;
    disconnect(m_failureCodeConnection);
    ReadFailureTexts();
}

void CLmPlaneStatusController::ReadFailureTexts()
{
    QStringList texts;
    for (const QList<int>& codes : qAsConst(m_mapStatusCodes)) {
        for (int code : codes) {
            const QString text = FailureText(code);
            if (!text.isEmpty())
                texts << text;
        }
    }
    if (!texts.isEmpty())
        Q_EMIT FailureTextsRead(texts);
}
