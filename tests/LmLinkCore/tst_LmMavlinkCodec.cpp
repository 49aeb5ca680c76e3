// Framing: what goes on the wire and how a noisy byte stream is read back.
#include "CLmMavlinkEncoder.h"
#include "CLmMavlinkParser.h"
#include "LmMavlinkMessages.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cstring>

using namespace LmMavlink;

namespace {

// HEARTBEAT from system 1, component 1, sequence 0: quadrotor (2), autopilot
// 3, base mode 0x51, custom mode 4, state 4, version 3; checksum worked out
// by hand from the wire format with CRC_EXTRA 50.
const QByteArray KNOWN_HEARTBEAT_V2 = QByteArray::fromHex("fd090000000101000000" "040000000203510403" "7bae");
const QByteArray KNOWN_HEARTBEAT_V1 = QByteArray::fromHex("fe0900010100" "040000000203510403" "e16d");

uint16_t bitwiseX25(const QByteArray& data, uint16_t crc = 0xFFFF)
{
    for (const char byte : data) {
        crc ^= static_cast<uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? static_cast<uint16_t>((crc >> 1) ^ 0x8408) : static_cast<uint16_t>(crc >> 1);
    }
    return crc;
}

// A version 2 frame built without the codec under test.
QByteArray handMadeFrameV2(uint32_t msgid, const QByteArray& payload, uint8_t crcExtra, uint8_t incompatFlags = 0,
                           const QByteArray& signature = QByteArray())
{
    QByteArray frame;
    frame.append(char(0xFD)).append(char(payload.size())).append(char(incompatFlags)).append('\0');
    frame.append(char(9)).append(char(1)).append(char(1));
    frame.append(char(msgid & 0xFF)).append(char((msgid >> 8) & 0xFF)).append(char((msgid >> 16) & 0xFF));
    frame.append(payload);
    const uint16_t crc = bitwiseX25(QByteArray(1, char(crcExtra)), bitwiseX25(frame.mid(1)));
    frame.append(char(crc & 0xFF)).append(char(crc >> 8));
    return frame + signature;
}

SHeartbeat knownHeartbeat()
{
    SHeartbeat heartbeat;
    heartbeat.type = MAV_TYPE_QUADROTOR;
    heartbeat.autopilot = 3;
    heartbeat.base_mode = 0x51;
    heartbeat.custom_mode = 4;
    heartbeat.system_status = MAV_STATE_ACTIVE;
    return heartbeat;
}

SParamValue paramValue(const char* name, float value)
{
    SParamValue param;
    std::strncpy(param.param_id, name, sizeof param.param_id);
    param.param_value = value;
    param.param_type = MAV_PARAM_TYPE_REAL32;
    param.param_count = 300;
    param.param_index = 12;
    return param;
}

SLogData logData(uint32_t offset)
{
    SLogData data;
    data.id = 3;
    data.ofs = offset;
    data.count = 90;
    for (int index = 0; index < 90; ++index)
        data.data[index] = static_cast<uint8_t>(offset + index);
    return data;
}

// A mixed stream: version 1 and 2 frames from two senders.
QByteArray mixedStream(QVector<uint32_t>& msgids)
{
    CLmMavlinkEncoder aircraftV2(1, 1);
    CLmMavlinkEncoder radioV1(1, 68, CLmMavlinkEncoder::EVersion::V1);
    QByteArray stream;
    for (uint32_t round = 0; round < 20; ++round) {
        stream += aircraftV2.Encode(knownHeartbeat());
        stream += radioV1.Encode(knownHeartbeat());
        stream += aircraftV2.Encode(paramValue("GCS_TIMEOUT", float(round)));
        stream += radioV1.Encode(logData(round * 90));
        stream += aircraftV2.Encode(logData(round * 90));
        msgids << MSG_ID_HEARTBEAT << MSG_ID_HEARTBEAT << MSG_ID_PARAM_VALUE << MSG_ID_LOG_DATA << MSG_ID_LOG_DATA;
    }
    return stream;
}

QVector<uint32_t> idsOf(const QVector<mavlink_message_t>& messages)
{
    QVector<uint32_t> ids;
    for (const mavlink_message_t& message : messages)
        ids << message.msgid;
    return ids;
}

} // namespace

class TestLmMavlinkCodec : public QObject
{
    Q_OBJECT

private slots:
    void knownFrameDecodes_data();
    void knownFrameDecodes();
    void encoderMatchesKnownFrame();
    void version2DropsTrailingZeros();
    void version1LeavesOutExtensions();
    void sequenceCountsPerSender();
    void frameSurvivesBadBytesBefore_data();
    void frameSurvivesBadBytesBefore();
    void cutOffFrameAtEndOfInputGivesWay();
    void unknownMessageIsSkippedWhole();
    void versionsMix();
    void signedFrameParses();
    void reusedMessageIsZeroExtended();
    void chunkedDeliveryGivesSameMessages_data();
    void chunkedDeliveryGivesSameMessages();
    void parsedFrameSerialisesToSameBytes_data();
    void parsedFrameSerialisesToSameBytes();
};

void TestLmMavlinkCodec::knownFrameDecodes_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("version 2") << KNOWN_HEARTBEAT_V2;
    QTest::newRow("version 1") << KNOWN_HEARTBEAT_V1;
}

void TestLmMavlinkCodec::knownFrameDecodes()
{
    QFETCH(QByteArray, frame);
    CLmMavlinkParser parser;
    const QVector<mavlink_message_t> messages = parser.Parse(frame);
    QCOMPARE(messages.size(), 1);
    const mavlink_message_t& message = messages.first();
    QCOMPARE(message.msgid, MSG_ID_HEARTBEAT);
    QCOMPARE(int(message.sysid), 1);
    QCOMPARE(int(message.compid), 1);
    QCOMPARE(int(message.seq), 0);
    const SHeartbeat heartbeat = SHeartbeat::Unpack(message);
    QCOMPARE(int(heartbeat.type), int(MAV_TYPE_QUADROTOR));
    QCOMPARE(int(heartbeat.autopilot), 3);
    QCOMPARE(int(heartbeat.base_mode), 0x51);
    QCOMPARE(heartbeat.custom_mode, 4u);
    QCOMPARE(int(heartbeat.system_status), int(MAV_STATE_ACTIVE));
    QCOMPARE(int(heartbeat.mavlink_version), 3);
    QCOMPARE(parser.Stats().droppedBytes, uint64_t(0));
}

void TestLmMavlinkCodec::encoderMatchesKnownFrame()
{
    CLmMavlinkEncoder encoderV2(1, 1);
    QCOMPARE(encoderV2.Encode(knownHeartbeat()), KNOWN_HEARTBEAT_V2);
    CLmMavlinkEncoder encoderV1(1, 1, CLmMavlinkEncoder::EVersion::V1);
    QCOMPARE(encoderV1.Encode(knownHeartbeat()), KNOWN_HEARTBEAT_V1);
}

void TestLmMavlinkCodec::version2DropsTrailingZeros()
{
    CLmMavlinkEncoder encoder(1, 1);
    SBatteryStatus battery;
    battery.current_consumed = 1200; // only the first 4 payload bytes are non-zero
    const mavlink_message_t packed = encoder.Pack(battery);
    QCOMPARE(int(packed.len), 2);

    const mavlink_message_t empty = encoder.Pack(SBatteryStatus());
    QCOMPARE(int(empty.len), 1); // the first byte always stays

    CLmMavlinkParser parser;
    const QVector<mavlink_message_t> messages =
        parser.Parse(CLmMavlinkEncoder::Serialize(packed) + CLmMavlinkEncoder::Serialize(empty));
    QCOMPARE(messages.size(), 2);
    QCOMPARE(SBatteryStatus::Unpack(messages.at(0)).current_consumed, 1200);
    QCOMPARE(SBatteryStatus::Unpack(messages.at(1)).current_consumed, 0);
}

void TestLmMavlinkCodec::version1LeavesOutExtensions()
{
    CLmMavlinkEncoder encoder(1, 1, CLmMavlinkEncoder::EVersion::V1);
    SBatteryStatus battery;
    battery.battery_remaining = 80;
    battery.time_remaining = 600; // extension
    const mavlink_message_t packed = encoder.Pack(battery);
    QVERIFY(packed.IsVersion1());
    QCOMPARE(int(packed.len), int(SBatteryStatus::MIN_LENGTH));

    CLmMavlinkParser parser;
    const QVector<mavlink_message_t> messages = parser.Parse(CLmMavlinkEncoder::Serialize(packed));
    QCOMPARE(messages.size(), 1);
    QCOMPARE(int(SBatteryStatus::Unpack(messages.first()).battery_remaining), 80);
    QCOMPARE(SBatteryStatus::Unpack(messages.first()).time_remaining, 0);

    // Ids beyond one byte cannot be carried by version 1.
    QCOMPARE(encoder.Pack(SSkyKeyStatus()).magic, mavlink_message_t::MAGIC_V2);
}

void TestLmMavlinkCodec::sequenceCountsPerSender()
{
    CLmMavlinkEncoder ground(255, 190);
    CLmMavlinkEncoder other(255, 191);
    for (int index = 0; index < 255; ++index)
        QCOMPARE(int(ground.Pack(SHeartbeat()).seq), index);
    QCOMPARE(int(ground.Pack(SHeartbeat()).seq), 255);
    QCOMPARE(int(ground.Pack(SHeartbeat()).seq), 0);
    QCOMPARE(int(other.Pack(SHeartbeat()).seq), 0);
}

void TestLmMavlinkCodec::frameSurvivesBadBytesBefore_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<bool>("checksumError");

    CLmMavlinkEncoder encoder(1, 1);
    const QByteArray param = encoder.Encode(paramValue("RTL_ALT", 120.0f));
    QByteArray corruptedChecksum = param;
    corruptedChecksum[corruptedChecksum.size() - 1] = char(corruptedChecksum.at(corruptedChecksum.size() - 1) ^ 0x5A);
    QByteArray corruptedPayload = param;
    corruptedPayload[14] = char(corruptedPayload.at(14) ^ 0x01);
    QByteArray longClaim = param;
    longClaim[1] = char(0xFF); // a length byte hit by noise swallows what follows

    QTest::newRow("garbage") << QByteArray::fromHex("00112233445566778899aabbccddeeff") << false;
    QTest::newRow("stray frame starts") << QByteArray::fromHex("fdfefd00fe") << false;
    QTest::newRow("frame cut off") << param.left(15) << true;
    QTest::newRow("header cut off") << param.left(5) << true;
    QTest::newRow("corrupted checksum") << corruptedChecksum << true;
    QTest::newRow("corrupted payload") << corruptedPayload << true;
    QTest::newRow("corrupted length") << longClaim << false;
    QTest::newRow("unknown incompat flags") << QByteArray::fromHex("fd0904") << false;
}

void TestLmMavlinkCodec::frameSurvivesBadBytesBefore()
{
    QFETCH(QByteArray, before);
    QFETCH(bool, checksumError);
    CLmMavlinkEncoder encoder(1, 1);
    const QByteArray first = encoder.Encode(knownHeartbeat());
    const QByteArray second = encoder.Encode(paramValue("GCS_TIMEOUT", 30.0f));
    const QByteArray third = encoder.Encode(logData(0));

    CLmMavlinkParser parser;
    parser.Feed(before + first + second + third);
    parser.Finish();
    mavlink_message_t message;
    QVector<mavlink_message_t> messages;
    while (parser.Next(message))
        messages << message;

    QCOMPARE(idsOf(messages), (QVector<uint32_t>{MSG_ID_HEARTBEAT, MSG_ID_PARAM_VALUE, MSG_ID_LOG_DATA}));
    QCOMPARE(int(messages.first().seq), 0);
    QCOMPARE(QByteArray(SParamValue::Unpack(messages.at(1)).param_id), QByteArray("GCS_TIMEOUT"));
    QVERIFY(parser.Stats().droppedBytes > 0);
    if (checksumError)
        QVERIFY(parser.Stats().crcErrors > 0);
    QCOMPARE(parser.Stats().messages, uint64_t(3));
}

void TestLmMavlinkCodec::cutOffFrameAtEndOfInputGivesWay()
{
    CLmMavlinkEncoder encoder(1, 1);
    const QByteArray cutOff = encoder.Encode(logData(0)).left(20);
    CLmMavlinkParser parser;
    // The cut-off frame claims more bytes than follow, so the parser waits...
    QVERIFY(parser.Parse(cutOff + KNOWN_HEARTBEAT_V2).isEmpty());
    // ...until the input is declared finished.
    parser.Finish();
    mavlink_message_t message;
    QVERIFY(parser.Next(message));
    QCOMPARE(message.msgid, MSG_ID_HEARTBEAT);
    QVERIFY(!parser.Next(message));
    QCOMPARE(parser.BufferedBytes(), std::size_t(0));
}

void TestLmMavlinkCodec::unknownMessageIsSkippedWhole()
{
    // Payload full of frame-start bytes: skipping byte by byte would find them.
    const QByteArray unknown = handMadeFrameV2(0xABCDE, QByteArray::fromHex("fdfefd09000000"), 0);
    CLmMavlinkParser parser;
    const QVector<mavlink_message_t> messages = parser.Parse(unknown + KNOWN_HEARTBEAT_V2);
    QCOMPARE(idsOf(messages), QVector<uint32_t>{MSG_ID_HEARTBEAT});
    QCOMPARE(parser.Stats().unknownMessages, uint64_t(1));
    QCOMPARE(parser.Stats().droppedBytes, uint64_t(0));
    QCOMPARE(parser.Stats().crcErrors, uint64_t(0));
}

void TestLmMavlinkCodec::versionsMix()
{
    QVector<uint32_t> expected;
    const QByteArray stream = mixedStream(expected);
    CLmMavlinkParser parser;
    const QVector<mavlink_message_t> messages = parser.Parse(stream);
    QCOMPARE(idsOf(messages), expected);
    QCOMPARE(messages.at(1).magic, mavlink_message_t::MAGIC_V1);
    QCOMPARE(int(messages.at(1).compid), 68);
    QCOMPARE(SLogData::Unpack(messages.at(8)).ofs, 90u);
    QCOMPARE(parser.Stats().droppedBytes + parser.Stats().crcErrors, uint64_t(0));
}

void TestLmMavlinkCodec::signedFrameParses()
{
    const QByteArray signature = QByteArray::fromHex("07" "010203040506" "a1a2a3a4a5a6");
    uint8_t payload[SHeartbeat::MAX_LENGTH];
    knownHeartbeat().Pack(payload);
    const QByteArray frame =
        handMadeFrameV2(MSG_ID_HEARTBEAT, QByteArray(reinterpret_cast<const char*>(payload), sizeof payload),
                        SHeartbeat::CRC_EXTRA, mavlink_message_t::INCOMPAT_FLAG_SIGNED, signature);

    CLmMavlinkParser parser;
    const QVector<mavlink_message_t> messages = parser.Parse(frame + KNOWN_HEARTBEAT_V2);
    QCOMPARE(messages.size(), 2);
    QVERIFY(messages.first().IsSigned());
    QVERIFY(!messages.last().IsSigned());
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(messages.first().signature), 13), signature);
    QCOMPARE(SHeartbeat::Unpack(messages.first()).custom_mode, 4u);
    QCOMPARE(parser.Stats().droppedBytes, uint64_t(0));
    QCOMPARE(CLmMavlinkEncoder::Serialize(messages.first()), frame);
}

void TestLmMavlinkCodec::reusedMessageIsZeroExtended()
{
    CLmMavlinkEncoder encoder(1, 1);
    SBatteryStatus full;
    std::memset(&full.voltages, 0xFF, sizeof full.voltages);
    full.fault_bitmask = 0xFFFFFFFF;
    SBatteryStatus sparse;
    sparse.current_consumed = 5; // first wire field: one payload byte

    CLmMavlinkParser parser;
    parser.Feed(encoder.Encode(full) + encoder.Encode(sparse));
    mavlink_message_t message;
    QVERIFY(parser.Next(message));
    QVERIFY(parser.Next(message)); // same object, shorter payload
    QCOMPARE(int(message.len), 1);
    for (int index = message.len; index < SBatteryStatus::MAX_LENGTH; ++index)
        QCOMPARE(int(message.payload[index]), 0);
    QCOMPARE(SBatteryStatus::Unpack(message).fault_bitmask, 0u);
}

void TestLmMavlinkCodec::chunkedDeliveryGivesSameMessages_data()
{
    QTest::addColumn<int>("maxChunk");
    QTest::newRow("one byte at a time") << 1;
    QTest::newRow("up to 7 bytes") << 7;
    QTest::newRow("up to 300 bytes") << 300;
}

void TestLmMavlinkCodec::chunkedDeliveryGivesSameMessages()
{
    QFETCH(int, maxChunk);
    QVector<uint32_t> expected;
    const QByteArray stream = QByteArray::fromHex("0102fd03") + mixedStream(expected);

    CLmMavlinkParser whole;
    const QVector<mavlink_message_t> reference = whole.Parse(stream);
    QCOMPARE(idsOf(reference), expected);

    CLmMavlinkParser chunked;
    QVector<mavlink_message_t> received;
    QRandomGenerator random(7);
    for (int position = 0; position < stream.size();) {
        const int size = 1 + int(random.bounded(maxChunk));
        received += chunked.Parse(stream.mid(position, size));
        position += size;
    }
    QCOMPARE(received.size(), reference.size());
    for (int index = 0; index < received.size(); ++index)
        QCOMPARE(CLmMavlinkEncoder::Serialize(received.at(index)), CLmMavlinkEncoder::Serialize(reference.at(index)));
}

void TestLmMavlinkCodec::parsedFrameSerialisesToSameBytes_data()
{
    QTest::addColumn<QByteArray>("frame");
    CLmMavlinkEncoder encoder(3, 4);
    QTest::newRow("known v2") << KNOWN_HEARTBEAT_V2;
    QTest::newRow("known v1") << KNOWN_HEARTBEAT_V1;
    QTest::newRow("log data") << encoder.Encode(logData(900));
    QTest::newRow("dialect message") << encoder.Encode(SSkyParachuteNotice{81, 3, 78});
}

void TestLmMavlinkCodec::parsedFrameSerialisesToSameBytes()
{
    QFETCH(QByteArray, frame);
    CLmMavlinkParser parser;
    const QVector<mavlink_message_t> messages = parser.Parse(frame);
    QCOMPARE(messages.size(), 1);
    QCOMPARE(CLmMavlinkEncoder::Serialize(messages.first()), frame);
    QCOMPARE(int(messages.first().FrameLength()), frame.size());
}

QTEST_GUILESS_MAIN(TestLmMavlinkCodec)
#include "tst_LmMavlinkCodec.moc"
