#include "CLMAckBase.h"
#include "CLmMavlinkEncoder.h"
#include "CLmRequestBatteryCellVoltageAck.h"
#include "CLmRequestBatteryDataAck.h"
#include "CLmUasProvide.h"
#include "LinkTestDoubles.h"
#include "LmMavlinkMessages.h"

#include <QSignalSpy>
#include <QtTest>

#include <cstring>

using namespace LmMavlink;

namespace {

// The aircraft's side of the conversation, as frames the handle reads.
class Aircraft
{
public:
    template <typename TMessage>
    mavlink_message_t Frame(const TMessage& message)
    {
        return m_encoder.Pack(message);
    }

    mavlink_message_t Ack(int command, int result)
    {
        SCommandAck ack;
        ack.command = static_cast<uint16_t>(command);
        ack.result = static_cast<uint8_t>(result);
        ack.target_system = CLmUasProvide::GroundSystemId;
        return Frame(ack);
    }

    mavlink_message_t Heartbeat() { return Frame(SHeartbeat()); }

private:
    CLmMavlinkEncoder m_encoder{1, 1};
};

constexpr int kCommand = MAV_CMD_DO_PARACHUTE;
constexpr int kRetries = 3;
constexpr int kIntervalMs = 700;

} // namespace

class TestCLMAckBase : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void resendsUntilAcknowledged_data();
    void resendsUntilAcknowledged();
    void refusalGivesUpAtOnce();
    void batteryDataListLayout();
    void cellVoltageListLayout();
    void repliesWithoutAckStopTheRetries();

private:
    CCapturingLink* m_pLink = nullptr;
    CLmUasProvide* m_pUas = nullptr;
    Aircraft m_aircraft;
};

void TestCLMAckBase::init()
{
    m_pLink = new CCapturingLink;
    m_pUas = new CLmUasProvide(m_pLink, 1, 1);
}

void TestCLMAckBase::cleanup()
{
    delete m_pUas;
    delete m_pLink;
}

void TestCLMAckBase::resendsUntilAcknowledged_data()
{
    QTest::addColumn<int>("ackedCopy"); // 0-based copy the aircraft answers, -1 for none
    QTest::addColumn<int>("expectedCopies");
    QTest::addColumn<int>("expectedTimeOuts");

    QTest::newRow("ack on the first copy") << 0 << 1 << 0;
    QTest::newRow("ack on the first retry") << 1 << 2 << 0;
    QTest::newRow("ack on the last retry") << kRetries << kRetries + 1 << 0;
    QTest::newRow("never acknowledged") << -1 << kRetries + 1 << 1;
}

void TestCLMAckBase::resendsUntilAcknowledged()
{
    QFETCH(int, ackedCopy);
    QFETCH(int, expectedCopies);
    QFETCH(int, expectedTimeOuts);

    auto* pClock = new CFakeClock;
    CLMAckBase ack(nullptr, pClock);
    QSignalSpy timeOuts(&ack, &CLMAckBase::UploadTimeOut);
    ack.SetUAS(m_pUas);
    CLMCommandLongParam param;
    param.command = kCommand;
    ack.StartUpload(kRetries, kIntervalMs, param);

    for (int copy = 0; copy <= kRetries + 2; ++copy) {
        if (copy == ackedCopy)
            m_pUas->HandleMessage(m_aircraft.Ack(kCommand, MAV_RESULT_ACCEPTED));
        pClock->Advance(kIntervalMs);
    }

    QCOMPARE(m_pLink->Sent<SCommandLong>().size(), expectedCopies);
    for (int i = 0; i < m_pLink->Sent<SCommandLong>().size(); ++i) {
        QCOMPARE(int(m_pLink->Sent<SCommandLong>().at(i).command), kCommand);
        QCOMPARE(int(m_pLink->Sent<SCommandLong>().at(i).confirmation), i);
    }
    QCOMPARE(timeOuts.count(), expectedTimeOuts);
    QVERIFY(!ack.IsWaiting());
}

void TestCLMAckBase::refusalGivesUpAtOnce()
{
    auto* pClock = new CFakeClock;
    CLMAckBase ack(nullptr, pClock);
    QSignalSpy timeOuts(&ack, &CLMAckBase::UploadTimeOut);
    ack.SetUAS(m_pUas);
    CLMCommandLongParam param;
    param.command = kCommand;
    ack.StartUpload(kRetries, kIntervalMs, param);

    m_pUas->HandleMessage(m_aircraft.Ack(kCommand + 1, MAV_RESULT_DENIED)); // another command's answer
    QCOMPARE(timeOuts.count(), 0);
    m_pUas->HandleMessage(m_aircraft.Ack(kCommand, MAV_RESULT_UNSUPPORTED));
    QCOMPARE(timeOuts.count(), 1);
    pClock->Advance(kIntervalMs * (kRetries + 1));
    QCOMPARE(m_pLink->Sent<SCommandLong>().size(), 1);
    QCOMPARE(timeOuts.count(), 1);
}

void TestCLMAckBase::batteryDataListLayout()
{
    CLmRequestBatteryDataAck ack(nullptr, new CFakeClock);
    QSignalSpy data(&ack, &CLmRequestBatteryDataAck::BatteryData);
    ack.SetUAS(m_pUas);
    ack.StartUpload(kRetries, kIntervalMs, CLMCommandLongParam());
    QCOMPARE(int(m_pLink->Sent<SCommandLong>().value(0).command), int(MAV_CMD_REQUEST_MESSAGE));
    QCOMPARE(m_pLink->Sent<SCommandLong>().value(0).param1, float(MSG_ID_SMART_BATTERY_INFO));

    // Arrive out of order; the list is in battery order.
    for (uint8_t id : {uint8_t(1), uint8_t(0)}) {
        SSmartBatteryInfo info;
        info.id = id;
        info.capacity_full_specification = 22000;
        info.capacity_full = id == 0 ? 19800 : 11000;
        info.cycle_count = static_cast<uint16_t>(40 + id);
        std::memcpy(info.serial_number, id == 0 ? "BAT-A" : "BAT-B", 5);
        m_pUas->HandleMessage(m_aircraft.Frame(info));
    }
    QCOMPARE(data.count(), 0);
    m_pUas->HandleMessage(m_aircraft.Heartbeat());

    QCOMPARE(data.count(), 1);
    const QStringList expected{"19800", "90", "40", "BAT-A", "11000", "50", "41", "BAT-B", "0", "0", "0"};
    QCOMPARE(data.at(0).at(0).toStringList(), expected);
    m_pUas->HandleMessage(m_aircraft.Heartbeat());
    QCOMPARE(data.count(), 1);
}

void TestCLMAckBase::cellVoltageListLayout()
{
    CLmRequestBatteryCellVoltageAck ack(nullptr, new CFakeClock);
    QSignalSpy data(&ack, &CLmRequestBatteryCellVoltageAck::BatteryCellVoltage);
    ack.SetUAS(m_pUas);
    ack.StartUpload(kRetries, kIntervalMs, CLMCommandLongParam());

    SBatteryStatus status;
    status.id = 0;
    std::fill(std::begin(status.voltages), std::end(status.voltages), UINT16_MAX);
    for (int cell = 0; cell < 6; ++cell)
        status.voltages[cell] = static_cast<uint16_t>(4100 + cell);
    m_pUas->HandleMessage(m_aircraft.Frame(status));
    m_pUas->HandleMessage(m_aircraft.Ack(MAV_CMD_REQUEST_MESSAGE, MAV_RESULT_ACCEPTED));

    QCOMPARE(data.count(), 1);
    const QStringList expected{"4100", "4101", "4102", "4103", "4104", "4105", "0", "0"};
    QCOMPARE(data.at(0).at(0).toStringList(), expected);
}

void TestCLMAckBase::repliesWithoutAckStopTheRetries()
{
    auto* pClock = new CFakeClock;
    CLmRequestBatteryCellVoltageAck ack(nullptr, pClock);
    QSignalSpy timeOuts(&ack, &CLMAckBase::UploadTimeOut);
    ack.SetUAS(m_pUas);
    ack.StartUpload(kRetries, kIntervalMs, CLMCommandLongParam());
    m_pUas->HandleMessage(m_aircraft.Frame(SBatteryStatus()));
    pClock->Advance(kIntervalMs * (kRetries + 1));
    QCOMPARE(m_pLink->Sent<SCommandLong>().size(), 1);
    QCOMPARE(timeOuts.count(), 0);
}

QTEST_GUILESS_MAIN(TestCLMAckBase)
#include "tst_CLMAckBase.moc"
