// Drives the skysim emulator the way a ground station does, over loopback UDP
// (and once over a pty pair), with the MAVLink codec.
#include "CSimGroundStation.h"
#include "CSkySimProcess.h"
#include "LmMavlinkMessages.h"
#include "SimLogStore.h"
#include "SimText.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QtTest>

#include <memory>

using namespace LmMavlink;

namespace {

constexpr int kReplyTimeoutMs = 5000;

struct SAircraft {
    CSkySimProcess process;
    CSimGroundStation ground;
};

SCommandLong Command(uint16_t command, float param1 = 0, float param2 = 0, uint8_t confirmation = 0)
{
    SCommandLong message;
    message.target_system = 1;
    message.target_component = 1;
    message.command = command;
    message.confirmation = confirmation;
    message.param1 = param1;
    message.param2 = param2;
    return message;
}

SParamRequestRead ReadParameter(const QByteArray& name)
{
    SParamRequestRead request;
    request.target_system = 1;
    setFieldText(request.param_id, name);
    request.param_index = -1;
    return request;
}

SParamSet SetGcsTimeout(uint8_t targetComponent, float seconds)
{
    SParamSet set;
    set.target_system = 1;
    set.target_component = targetComponent;
    setFieldText(set.param_id, QByteArrayLiteral("GCS_TIMEOUT"));
    set.param_value = seconds;
    set.param_type = MAV_PARAM_TYPE_UINT16;
    return set;
}

QByteArray ExpectedLog(uint16_t id, uint32_t size)
{
    QByteArray bytes(static_cast<int>(size), '\0');
    SimLogStore::fill(id, 0, size, reinterpret_cast<uint8_t*>(bytes.data()));
    return bytes;
}

} // namespace

class TestSkySim : public QObject
{
    Q_OBJECT

private slots:
    void heartbeatAndStatusListPerAirframe_data();
    void heartbeatAndStatusListPerAirframe();
    void commandResults_data();
    void commandResults();
    void parameterSetIsReadBack();
    void parameterTableAndReadByIndex_data();
    void parameterTableAndReadByIndex();
    void parametersOfAnotherComponentAreIgnored();
    void batterySwitches_data();
    void batterySwitches();
    void failureCodesOnDemand_data();
    void failureCodesOnDemand();
    void logListAndFullDownloadMatchByteForByte_data();
    void logListAndFullDownloadMatchByteForByte();
    void logEraseEmptiesTheList();
    void batteryRequestCarriesExtensionCells();
    void parachuteCountAndRopeReset();
    void ackOnRetryAnswersOnlyTheSecondCopy();
    void noAckCarriesOutWithoutAnswering();
    void fullLossSendsNothing();
    void heartbeatsStopAfterSilence();
    void serialLineOverPtyPair();

private:
    // Starts skysim talking to a fresh ground station; null (and a failed check) on error.
    std::unique_ptr<SAircraft> StartAircraft(const QStringList& extraArguments);
    // Sends a parameter read and waits for its answer: every frame the aircraft
    // sent for earlier requests has arrived by then.
    bool RoundTrip(CSimGroundStation& ground);
};

std::unique_ptr<SAircraft> TestSkySim::StartAircraft(const QStringList& extraArguments)
{
    auto aircraft = std::make_unique<SAircraft>();
    if (!aircraft->ground.BindUdp())
        return nullptr;
    const QStringList arguments = QStringList{QStringLiteral("--udp"), aircraft->ground.UdpAddress()} + extraArguments;
    if (!aircraft->process.Start(arguments) || aircraft->process.UdpPort() == 0)
        return nullptr;
    aircraft->ground.SetAircraftPort(aircraft->process.UdpPort());
    return aircraft;
}

bool TestSkySim::RoundTrip(CSimGroundStation& ground)
{
    const int before = ground.CountOf(MSG_ID_PARAM_VALUE);
    ground.Send(ReadParameter("SYSID_THISMAV"));
    QDeadlineTimer deadline(kReplyTimeoutMs);
    while (ground.CountOf(MSG_ID_PARAM_VALUE) == before && !deadline.hasExpired())
        QTest::qWait(10);
    return ground.CountOf(MSG_ID_PARAM_VALUE) > before;
}

void TestSkySim::heartbeatAndStatusListPerAirframe_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("mavType");
    QTest::addColumn<int>("statusId");
    QTest::newRow("fixedwing") << "fixedwing" << int(MAV_TYPE_FIXED_WING) << int(MSG_ID_SKY_FIXWING_STATUS);
    QTest::newRow("multirotor") << "multirotor" << int(MAV_TYPE_QUADROTOR) << int(MSG_ID_SKY_MULTIROTOR_STATUS);
}

void TestSkySim::heartbeatAndStatusListPerAirframe()
{
    QFETCH(QString, type);
    QFETCH(int, mavType);
    QFETCH(int, statusId);
    const auto aircraft = StartAircraft({QStringLiteral("--type"), type, QStringLiteral("--sysid"), QStringLiteral("7")});
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_HEARTBEAT) >= 1, kReplyTimeoutMs);
    const mavlink_message_t frame = ground.ReceivedOf(MSG_ID_HEARTBEAT).first();
    QVERIFY(!frame.IsVersion1());
    QCOMPARE(frame.sysid, uint8_t(7));
    QCOMPARE(frame.compid, uint8_t(1));
    const SHeartbeat heartbeat = SHeartbeat::Unpack(frame);
    QCOMPARE(int(heartbeat.type), mavType);
    QCOMPARE(int(heartbeat.autopilot), int(MAV_AUTOPILOT_GENERIC));
    QCOMPARE(ground.CountOf(uint32_t(statusId)), 0);

    SCommandLong start = Command(MAV_CMD_SET_MESSAGE_INTERVAL, float(statusId), 100000.0f);
    start.target_system = 7;
    ground.Send(start);
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(uint32_t(statusId)) >= 3, kReplyTimeoutMs);
    QVERIFY(aircraft->process.Stop());
}

void TestSkySim::commandResults_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<float>("param1");
    QTest::addColumn<int>("result");
    QTest::newRow("unknown command") << 31000 << 0.0f << int(MAV_RESULT_UNSUPPORTED);
    QTest::newRow("request autopilot version")
        << int(MAV_CMD_REQUEST_MESSAGE) << float(MSG_ID_AUTOPILOT_VERSION) << int(MAV_RESULT_ACCEPTED);
    QTest::newRow("request unavailable message")
        << int(MAV_CMD_REQUEST_MESSAGE) << float(MSG_ID_GPS_RAW_INT) << int(MAV_RESULT_DENIED);
    QTest::newRow("stream of the other airframe")
        << int(MAV_CMD_SET_MESSAGE_INTERVAL) << float(MSG_ID_SKY_MULTIROTOR_STATUS) << int(MAV_RESULT_DENIED);
    QTest::newRow("parachute cover check") << int(MAV_CMD_DO_PARACHUTE) << 1.0f << int(MAV_RESULT_ACCEPTED);
}

void TestSkySim::commandResults()
{
    QFETCH(int, command);
    QFETCH(float, param1);
    QFETCH(int, result);
    const auto aircraft = StartAircraft({QStringLiteral("--type"), QStringLiteral("fixedwing")});
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    ground.Send(Command(uint16_t(command), param1));
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_COMMAND_ACK) == 1, kReplyTimeoutMs);
    const SCommandAck ack = SCommandAck::Unpack(ground.ReceivedOf(MSG_ID_COMMAND_ACK).first());
    QCOMPARE(int(ack.command), command);
    QCOMPARE(int(ack.result), result);
    QCOMPARE(ack.target_system, CSimGroundStation::SYSTEM_ID);
}

void TestSkySim::parameterSetIsReadBack()
{
    const auto aircraft = StartAircraft({});
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    ground.Send(SetGcsTimeout(126, 45.0f));
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_PARAM_VALUE) == 1, kReplyTimeoutMs);
    QCOMPARE(SParamValue::Unpack(ground.ReceivedOf(MSG_ID_PARAM_VALUE).first()).param_value, 45.0f);

    ground.Clear();
    ground.Send(ReadParameter("GCS_TIMEOUT"));
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_PARAM_VALUE) == 1, kReplyTimeoutMs);
    const SParamValue value = SParamValue::Unpack(ground.ReceivedOf(MSG_ID_PARAM_VALUE).first());
    QCOMPARE(fieldText(value.param_id), QStringLiteral("GCS_TIMEOUT"));
    QCOMPARE(value.param_value, 45.0f);

    ground.Clear();
    SParamRequestList list;
    list.target_system = 1;
    ground.Send(list);
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_PARAM_VALUE) == int(value.param_count), kReplyTimeoutMs);
    QVERIFY(value.param_count >= 5);
}

void TestSkySim::parameterTableAndReadByIndex_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("minimumCount");
    QTest::newRow("fixed-wing") << QStringList{"--type", "fixedwing"} << 300;
    QTest::newRow("multirotor") << QStringList{"--type", "multirotor"} << 300;
    QTest::newRow("filled to 1000") << QStringList{"--params", "1000"} << 1000;
}

void TestSkySim::parameterTableAndReadByIndex()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, minimumCount);
    const auto aircraft = StartAircraft(arguments);
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    SParamRequestList list;
    list.target_system = 1;
    ground.Send(list);
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_PARAM_VALUE) >= minimumCount, kReplyTimeoutMs);
    QVERIFY(RoundTrip(ground));
    QVector<mavlink_message_t> values = ground.ReceivedOf(MSG_ID_PARAM_VALUE);
    values.removeLast();
    const int count = SParamValue::Unpack(values.first()).param_count;
    QCOMPARE(values.size(), count);
    QSet<QString> names;
    QSet<int> types;
    for (int index = 0; index < count; ++index) {
        const SParamValue value = SParamValue::Unpack(values.at(index));
        QCOMPARE(int(value.param_index), index);
        names.insert(fieldText(value.param_id));
        types.insert(value.param_type == MAV_PARAM_TYPE_REAL32 ? 0 : 1);
    }
    QCOMPARE(names.size(), count);
    QVERIFY(names.contains(QStringLiteral("GCS_TIMEOUT")));
    QCOMPARE(types.size(), 2);

    ground.Clear();
    SParamRequestRead read = ReadParameter(QByteArray());
    read.param_index = int16_t(count - 1);
    ground.Send(read);
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_PARAM_VALUE) == 1, kReplyTimeoutMs);
    QCOMPARE(int(SParamValue::Unpack(ground.ReceivedOf(MSG_ID_PARAM_VALUE).first()).param_index), count - 1);
}

void TestSkySim::parametersOfAnotherComponentAreIgnored()
{
    const auto aircraft = StartAircraft({});
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    ground.Send(SetGcsTimeout(50, 45.0f));
    QVERIFY(RoundTrip(ground));
    ground.Clear();
    ground.Send(ReadParameter("GCS_TIMEOUT"));
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_PARAM_VALUE) == 1, kReplyTimeoutMs);
    QCOMPARE(SParamValue::Unpack(ground.ReceivedOf(MSG_ID_PARAM_VALUE).first()).param_value, 60.0f);
}

void TestSkySim::batterySwitches_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QList<int>>("ids");
    QTest::addColumn<QList<int>>("cellCounts");
    QTest::addColumn<int>("lowBattery");
    QTest::addColumn<int>("lowCell");

    QTest::newRow("three batteries, six cells")
        << QStringList{"--batteries", "3", "--cells", "6"} << QList<int>{0, 1, 2} << QList<int>{6, 6, 6} << -1 << -1;
    QTest::newRow("cells per battery, one low")
        << QStringList{"--batteries", "3", "--cells", "6,8,12", "--low-cell", "1:7:3310"} << QList<int>{0, 1, 2}
        << QList<int>{6, 8, 12} << 1 << 7;
    QTest::newRow("middle battery missing")
        << QStringList{"--batteries", "3", "--missing-battery", "1"} << QList<int>{0, 2} << QList<int>{12, 12} << -1
        << -1;
}

void TestSkySim::batterySwitches()
{
    QFETCH(QStringList, arguments);
    QFETCH(QList<int>, ids);
    QFETCH(QList<int>, cellCounts);
    QFETCH(int, lowBattery);
    QFETCH(int, lowCell);
    const auto aircraft = StartAircraft(QStringList{"--type", "multirotor"} + arguments);
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    ground.Send(Command(MAV_CMD_REQUEST_MESSAGE, float(MSG_ID_BATTERY_STATUS)));
    ground.Send(Command(MAV_CMD_REQUEST_MESSAGE, float(MSG_ID_SMART_BATTERY_INFO)));
    QVERIFY(RoundTrip(ground));
    const QVector<mavlink_message_t> statuses = ground.ReceivedOf(MSG_ID_BATTERY_STATUS);
    const QVector<mavlink_message_t> infos = ground.ReceivedOf(MSG_ID_SMART_BATTERY_INFO);
    QCOMPARE(statuses.size(), ids.size());
    QCOMPARE(infos.size(), ids.size());
    for (int k = 0; k < ids.size(); ++k) {
        const SBatteryStatus status = SBatteryStatus::Unpack(statuses.at(k));
        const SSmartBatteryInfo info = SSmartBatteryInfo::Unpack(infos.at(k));
        QCOMPARE(int(status.id), ids.at(k));
        QCOMPARE(int(info.id), ids.at(k));
        QCOMPARE(int(info.cells_in_series), cellCounts.at(k));
        int cells = 0;
        for (int cell = 0; cell < 10; ++cell) {
            if (status.voltages[cell] == UINT16_MAX)
                break;
            ++cells;
            const bool low = status.id == lowBattery && cell == lowCell;
            QCOMPARE(status.voltages[cell] == 3310, low);
        }
        for (uint16_t extension : status.voltages_ext)
            cells += extension != 0 ? 1 : 0;
        QCOMPARE(cells, cellCounts.at(k));
    }
}

void TestSkySim::failureCodesOnDemand_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("console");
    QTest::addColumn<QList<quint32>>("words"); // code0, code1 of report 0, then of report 1

    QTest::newRow("healthy") << QStringList() << QByteArray() << QList<quint32>{0, 0, 0, 0};
    QTest::newRow("switch") << QStringList{"--failure-codes", "7,45,46,64"} << QByteArray()
                            << QList<quint32>{1u << 7, (1u << 13) | (1u << 14), 1u, 0};
    QTest::newRow("console") << QStringList{"--failure-codes", "7"} << QByteArray("failure-codes 127,46")
                             << QList<quint32>{0, 1u << 14, 0, 1u << 31};
    QTest::newRow("console clears") << QStringList{"--failure-codes", "7"} << QByteArray("failure-codes none")
                                    << QList<quint32>{0, 0, 0, 0};
}

void TestSkySim::failureCodesOnDemand()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, console);
    QFETCH(QList<quint32>, words);
    const auto aircraft = StartAircraft(QStringList{"--type", "multirotor"} + arguments);
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    if (console.isEmpty())
        ground.Send(Command(MAV_CMD_REQUEST_MESSAGE, float(MSG_ID_SKY_CALIBRATION_FAILURE_CODE)));
    else
        aircraft->process.WriteCommand(console);
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_SKY_CALIBRATION_FAILURE_CODE) == 2, kReplyTimeoutMs);
    const QVector<mavlink_message_t> reports = ground.ReceivedOf(MSG_ID_SKY_CALIBRATION_FAILURE_CODE);
    QList<quint32> received;
    for (int number = 0; number < 2; ++number) {
        const SSkyCalibrationFailureCode report = SSkyCalibrationFailureCode::Unpack(reports.at(number));
        QCOMPARE(int(report.code_num), number);
        received << report.code0 << report.code1;
    }
    QCOMPARE(received, words);
}

void TestSkySim::logListAndFullDownloadMatchByteForByte_data()
{
    QTest::addColumn<QString>("linkRate");
    QTest::newRow("paced link") << "200000";
    QTest::newRow("unlimited link") << "0";
}

void TestSkySim::logListAndFullDownloadMatchByteForByte()
{
    QFETCH(QString, linkRate);
    constexpr uint32_t kSize = 200000; // not a multiple of 90: the last packet is short
    const auto aircraft = StartAircraft({QStringLiteral("--logs"), QStringLiteral("2"), QStringLiteral("--log-size"),
                                         QString::number(kSize), QStringLiteral("--link-rate"), linkRate});
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    SLogRequestList list;
    list.target_system = 1;
    list.end = 0xFFFF;
    ground.Send(list);
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_LOG_ENTRY) == 2, kReplyTimeoutMs);
    const SLogEntry last = SLogEntry::Unpack(ground.ReceivedOf(MSG_ID_LOG_ENTRY).last());
    QCOMPARE(last.id, uint16_t(2));
    QCOMPARE(last.num_logs, uint16_t(2));
    QCOMPARE(last.last_log_num, uint16_t(2));
    QCOMPARE(last.size, kSize);

    SLogRequestData request;
    request.target_system = 1;
    request.id = 2;
    request.count = 0xFFFFFFFF;
    ground.Send(request);
    const int packets = int((kSize + 89) / 90);
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_LOG_DATA) >= packets, 10000);

    QByteArray downloaded(int(kSize), '\0');
    for (const mavlink_message_t& frame : ground.ReceivedOf(MSG_ID_LOG_DATA)) {
        const SLogData data = SLogData::Unpack(frame);
        QCOMPARE(data.id, uint16_t(2));
        QVERIFY(data.ofs + data.count <= kSize);
        std::copy(data.data, data.data + data.count, downloaded.begin() + int(data.ofs));
    }
    const SLogData lastPacket = SLogData::Unpack(ground.ReceivedOf(MSG_ID_LOG_DATA).last());
    QCOMPARE(lastPacket.ofs + lastPacket.count, kSize);
    QVERIFY(downloaded == ExpectedLog(2, kSize));
    QVERIFY(downloaded != ExpectedLog(1, kSize));
}

void TestSkySim::logEraseEmptiesTheList()
{
    const auto aircraft = StartAircraft({QStringLiteral("--logs"), QStringLiteral("3")});
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    SLogErase erase;
    erase.target_system = 1;
    ground.Send(erase);
    SLogRequestList list;
    list.target_system = 1;
    list.end = 0xFFFF;
    ground.Send(list);
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_LOG_ENTRY) == 1, kReplyTimeoutMs);
    const SLogEntry entry = SLogEntry::Unpack(ground.ReceivedOf(MSG_ID_LOG_ENTRY).first());
    QCOMPARE(entry.num_logs, uint16_t(0));
    QCOMPARE(entry.last_log_num, uint16_t(0));
}

void TestSkySim::batteryRequestCarriesExtensionCells()
{
    const auto aircraft = StartAircraft({QStringLiteral("--type"), QStringLiteral("multirotor")});
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    ground.Send(Command(MAV_CMD_REQUEST_MESSAGE, float(MSG_ID_BATTERY_STATUS)));
    ground.Send(Command(MAV_CMD_REQUEST_MESSAGE, float(MSG_ID_SMART_BATTERY_INFO)));
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_SMART_BATTERY_INFO) >= 2, kReplyTimeoutMs);
    const QVector<mavlink_message_t> batteries = ground.ReceivedOf(MSG_ID_BATTERY_STATUS);
    QCOMPARE(batteries.size(), 2);
    const SBatteryStatus second = SBatteryStatus::Unpack(batteries.at(1));
    QCOMPARE(second.id, uint8_t(1));
    QVERIFY(second.voltages[9] > 3000 && second.voltages[9] < 4400);
    QVERIFY(second.voltages_ext[0] > 3000 && second.voltages_ext[1] > 3000);
    QCOMPARE(second.voltages_ext[2], uint16_t(0));
    const SSmartBatteryInfo info = SSmartBatteryInfo::Unpack(ground.ReceivedOf(MSG_ID_SMART_BATTERY_INFO).first());
    QVERIFY(info.capacity_full > 0 && info.capacity_full <= info.capacity_full_specification);
    QVERIFY(!fieldText(info.serial_number).isEmpty());
}

void TestSkySim::parachuteCountAndRopeReset()
{
    const auto aircraft = StartAircraft({QStringLiteral("--parachute-count"), QStringLiteral("85")});
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    SSkyParachuteCountRequest count;
    count.target_system = 1;
    ground.Send(count);
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_SKY_PARACHUTE_NOTICE) == 1, kReplyTimeoutMs);
    SSkyParachuteNotice notice = SSkyParachuteNotice::Unpack(ground.ReceivedOf(MSG_ID_SKY_PARACHUTE_NOTICE).last());
    QCOMPARE(notice.open_count, 85u);
    QCOMPARE(notice.rope_use_count, uint16_t(85));

    SSkyParachuteRopeReset reset;
    reset.target_system = 1;
    ground.Send(reset);
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_SKY_PARACHUTE_NOTICE) == 2, kReplyTimeoutMs);
    const SSkyParachuteRopeResetAck ack =
        SSkyParachuteRopeResetAck::Unpack(ground.ReceivedOf(MSG_ID_SKY_PARACHUTE_ROPE_RESET_ACK).first());
    QCOMPARE(int(ack.result), int(MAV_RESULT_ACCEPTED));
    QCOMPARE(ack.open_count_at_rope_reset, 85u);
    notice = SSkyParachuteNotice::Unpack(ground.ReceivedOf(MSG_ID_SKY_PARACHUTE_NOTICE).last());
    QCOMPARE(notice.open_count, 85u);
    QCOMPARE(notice.rope_use_count, uint16_t(0));
}

void TestSkySim::ackOnRetryAnswersOnlyTheSecondCopy()
{
    const auto aircraft = StartAircraft({QStringLiteral("--ack-on-retry"), QStringLiteral("--firmware"),
                                         QStringLiteral("3.1.4")});
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    const SCommandLong request = Command(MAV_CMD_REQUEST_AUTOPILOT_CAPABILITIES, 1.0f);
    ground.Send(request);
    QVERIFY(RoundTrip(ground));
    QCOMPARE(ground.CountOf(MSG_ID_COMMAND_ACK), 0);
    QCOMPARE(ground.CountOf(MSG_ID_AUTOPILOT_VERSION), 0);

    ground.Send(request);
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_AUTOPILOT_VERSION) == 1, kReplyTimeoutMs);
    QCOMPARE(ground.CountOf(MSG_ID_COMMAND_ACK), 1);
    QVERIFY(ground.IndexOf(MSG_ID_COMMAND_ACK) < ground.IndexOf(MSG_ID_AUTOPILOT_VERSION));
    const SAutopilotVersion version = SAutopilotVersion::Unpack(ground.ReceivedOf(MSG_ID_AUTOPILOT_VERSION).first());
    QCOMPARE(version.flight_sw_version, (3u << 24) | (1u << 16) | (4u << 8) | FIRMWARE_VERSION_TYPE_OFFICIAL);

    // The next command starts over: its first copy is ignored again.
    ground.Send(Command(MAV_CMD_DO_PARACHUTE, 1.0f));
    QVERIFY(RoundTrip(ground));
    QCOMPARE(ground.CountOf(MSG_ID_COMMAND_ACK), 1);
}

void TestSkySim::noAckCarriesOutWithoutAnswering()
{
    const auto aircraft = StartAircraft({QStringLiteral("--no-ack")});
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    ground.Send(Command(MAV_CMD_REQUEST_MESSAGE, float(MSG_ID_AUTOPILOT_VERSION)));
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_AUTOPILOT_VERSION) == 1, kReplyTimeoutMs);
    QVERIFY(RoundTrip(ground));
    QCOMPARE(ground.CountOf(MSG_ID_COMMAND_ACK), 0);
}

void TestSkySim::fullLossSendsNothing()
{
    const auto aircraft = StartAircraft({QStringLiteral("--loss"), QStringLiteral("100")});
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    ground.Send(ReadParameter("GCS_TIMEOUT"));
    ground.Send(Command(MAV_CMD_REQUEST_MESSAGE, float(MSG_ID_AUTOPILOT_VERSION)));
    // Absence can only be shown by waiting: long enough for two heartbeats.
    QTest::qWait(2500);
    QVERIFY(ground.Received().isEmpty());
}

void TestSkySim::heartbeatsStopAfterSilence()
{
    const auto aircraft = StartAircraft({QStringLiteral("--silent-after"), QStringLiteral("1.5")});
    QVERIFY(aircraft);
    CSimGroundStation& ground = aircraft->ground;

    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_SYS_STATUS) >= 3, kReplyTimeoutMs);
    const int heartbeats = ground.CountOf(MSG_ID_HEARTBEAT);
    QVERIFY(heartbeats >= 1);
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_SYS_STATUS) >= 5, kReplyTimeoutMs);
    QCOMPARE(ground.CountOf(MSG_ID_HEARTBEAT), heartbeats);
}

void TestSkySim::serialLineOverPtyPair()
{
    const QString socatPath = QStandardPaths::findExecutable(QStringLiteral("socat"));
    if (socatPath.isEmpty())
        QSKIP("socat is not installed");
    QProcess socat;
    socat.setReadChannel(QProcess::StandardError);
    socat.start(socatPath, {QStringLiteral("-d"), QStringLiteral("-d"), QStringLiteral("pty,raw,echo=0"),
                            QStringLiteral("pty,raw,echo=0")});
    QStringList ptys;
    const QRegularExpression ptyLine(QStringLiteral("PTY is (\\S+)"));
    QByteArray stderrText;
    QDeadlineTimer deadline(kReplyTimeoutMs);
    // socat names both ends on stderr once it has made them, which a busy
    // machine may delay: wait for both lines until the deadline.
    while (ptys.size() < 2 && !deadline.hasExpired()) {
        socat.waitForReadyRead(100);
        stderrText += socat.readAllStandardError();
        ptys.clear();
        for (auto it = ptyLine.globalMatch(QString::fromUtf8(stderrText)); it.hasNext();)
            ptys << it.next().captured(1);
    }
    QCOMPARE(ptys.size(), 2);

    CSkySimProcess process;
    QVERIFY(process.Start({QStringLiteral("--type"), QStringLiteral("multirotor"), QStringLiteral("--serial"),
                           ptys.at(0), QStringLiteral("--baud"), QStringLiteral("115200")}));
    QCOMPARE(process.ReadyWhere(), QStringLiteral("serial ") + ptys.at(0));
    CSimGroundStation ground;
    QVERIFY(ground.OpenSerial(ptys.at(1)));
    QTRY_VERIFY_WITH_TIMEOUT(ground.CountOf(MSG_ID_HEARTBEAT) >= 1, kReplyTimeoutMs);
    QCOMPARE(int(SHeartbeat::Unpack(ground.ReceivedOf(MSG_ID_HEARTBEAT).first()).type), int(MAV_TYPE_QUADROTOR));
    QVERIFY(RoundTrip(ground));
    QVERIFY(process.Stop());
    socat.terminate();
    socat.waitForFinished(2000);
}

QTEST_GUILESS_MAIN(TestSkySim)
#include "tst_skysim.moc"
