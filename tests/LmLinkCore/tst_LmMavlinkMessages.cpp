// The generated message layer: checksum seeds, wire layout and pack/unpack of
// every message the ground station sends or reads.
#include "CLmMavlinkCrc.h"
#include "CLmMavlinkEncoder.h"
#include "CLmMavlinkParser.h"
#include "LmMavlinkMessageInfo.h"
#include "LmMavlinkMessages.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cstring>
#include <functional>
#include <map>

using namespace LmMavlink;

namespace {

using RoundTrip = std::function<QByteArray(const QByteArray& payload, CLmMavlinkEncoder::EVersion version)>;

template <typename TMessage>
QByteArray packed(const TMessage& message)
{
    uint8_t wire[TMessage::MAX_LENGTH];
    message.Pack(wire);
    return QByteArray(reinterpret_cast<const char*>(wire), TMessage::MAX_LENGTH);
}

// Payload -> struct -> frame -> parser -> struct -> payload.
template <typename TMessage>
QByteArray roundTrip(const QByteArray& payload, CLmMavlinkEncoder::EVersion version)
{
    const TMessage original =
        TMessage::Unpack(reinterpret_cast<const uint8_t*>(payload.constData()), static_cast<std::size_t>(payload.size()));
    CLmMavlinkEncoder encoder(7, 42, version);
    CLmMavlinkParser parser;
    const QVector<mavlink_message_t> received = parser.Parse(encoder.Encode(original));
    if (received.size() != 1 || received.first().msgid != TMessage::MSG_ID)
        return QByteArray("no frame");
    return packed(TMessage::Unpack(received.first()));
}

template <typename... TMessages>
std::map<uint32_t, RoundTrip> roundTrips()
{
    return {{TMessages::MSG_ID, &roundTrip<TMessages>}...};
}

// Everything the ground station exchanges with aircraft and receivers.
const std::map<uint32_t, RoundTrip>& usedMessages()
{
    static const std::map<uint32_t, RoundTrip> table = roundTrips<
        SHeartbeat, SSysStatus, SAutopilotVersion, SBatteryStatus, SSmartBatteryInfo, SParamRequestList,
        SParamRequestRead, SParamValue, SParamSet, SCommandLong, SCommandAck, SLogRequestList, SLogEntry,
        SLogRequestData, SLogData, SLogRequestEnd, SLogErase, SSkyFixwingStatus, SSkyMultirotorStatus,
        SSkyPlaneInfo, SSkyRadioInfo, SSkyKeyStatus, SSkyParachuteNotice, SSkyParachuteCountRequest,
        SSkyParachuteRopeReset, SSkyParachuteRopeResetAck, SSkyFixwingBattery, SSkyCalibrationFailureCode,
        SSkyRawFolderRequestList, SSkyRawFolderEntry, SSkyRawEntryRequestList, SSkyRawEntry,
        SSkyRawEntryRequestData, SSkyRawEntryData, SSkyRawRequestEnd, SFileTransferProtocol, SSkyFirmwareManifest,
        SSkyFirmwareInstall, SSkyFirmwareVersionRequest, SSkyFirmwareStatus, SSkyLicenceRequest, SSkyLicenceWrite,
        SSkyLicenceStatus>();
    return table;
}

uint16_t bitwiseX25(const QByteArray& data)
{
    uint16_t crc = 0xFFFF;
    for (const char byte : data) {
        crc ^= static_cast<uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? static_cast<uint16_t>((crc >> 1) ^ 0x8408) : static_cast<uint16_t>(crc >> 1);
    }
    return crc;
}

QByteArray randomBytes(QRandomGenerator& random, int size)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random.bounded(256));
    return bytes;
}

const SFieldInfo* field(const SMessageInfo& info, const char* name)
{
    for (int index = 0; index < info.fieldCount; ++index)
        if (std::strcmp(info.fields[index].name, name) == 0)
            return &info.fields[index];
    return nullptr;
}

} // namespace

class TestLmMavlinkMessages : public QObject
{
    Q_OBJECT

private slots:
    void crcExtraMatchesPublishedValue_data();
    void crcExtraMatchesPublishedValue();
    void x25MatchesBitwiseDefinition_data();
    void x25MatchesBitwiseDefinition();
    void payloadLengths_data();
    void payloadLengths();
    void fieldsAreInWireOrder_data();
    void fieldsAreInWireOrder();
    void everyDialectMessageIsExercised();
    void usedMessageRoundTrips_data();
    void usedMessageRoundTrips();
    void paramValueFieldsLandAtTheirOffsets();
    void heartbeatCarriesDefinitionsVersion();
};

void TestLmMavlinkMessages::crcExtraMatchesPublishedValue_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("crcExtra");
    QTest::newRow("HEARTBEAT") << "HEARTBEAT" << 50;
    QTest::newRow("SYS_STATUS") << "SYS_STATUS" << 124;
    QTest::newRow("PARAM_VALUE") << "PARAM_VALUE" << 220;
    QTest::newRow("PARAM_SET") << "PARAM_SET" << 168;
    QTest::newRow("LOG_ENTRY") << "LOG_ENTRY" << 56;
    QTest::newRow("LOG_REQUEST_DATA") << "LOG_REQUEST_DATA" << 116;
    QTest::newRow("LOG_DATA") << "LOG_DATA" << 134;
    QTest::newRow("COMMAND_LONG") << "COMMAND_LONG" << 152;
    QTest::newRow("BATTERY_STATUS") << "BATTERY_STATUS" << 154;
    QTest::newRow("AUTOPILOT_VERSION") << "AUTOPILOT_VERSION" << 178;
}

void TestLmMavlinkMessages::crcExtraMatchesPublishedValue()
{
    QFETCH(QString, name);
    QFETCH(int, crcExtra);
    const SMessageInfo* info = FindMessageInfo(name.toLatin1().constData());
    QVERIFY(info);
    QCOMPARE(int(info->crcExtra), crcExtra);
    QCOMPARE(FindMessageInfo(info->msgid), info);
}

void TestLmMavlinkMessages::x25MatchesBitwiseDefinition_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("check string") << QByteArray("123456789");
    QRandomGenerator random(1234);
    for (int size : {0, 1, 3, 4, 5, 7, 8, 9, 97, 255, 280})
        QTest::addRow("random %d bytes", size) << randomBytes(random, size);
}

void TestLmMavlinkMessages::x25MatchesBitwiseDefinition()
{
    QFETCH(QByteArray, data);
    const auto* bytes = reinterpret_cast<const uint8_t*>(data.constData());
    QCOMPARE(CLmMavlinkCrc::Compute(bytes, static_cast<std::size_t>(data.size())), bitwiseX25(data));
    if (data == "123456789")
        QCOMPARE(CLmMavlinkCrc::Compute(bytes, 9), uint16_t(0x6F91));
    uint16_t byteWise = CLmMavlinkCrc::INITIAL;
    for (const char byte : data)
        byteWise = CLmMavlinkCrc::Accumulate(byteWise, static_cast<uint8_t>(byte));
    QCOMPARE(byteWise, bitwiseX25(data));
}

void TestLmMavlinkMessages::payloadLengths_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("minLength");
    QTest::addColumn<int>("maxLength");
    QTest::newRow("HEARTBEAT") << "HEARTBEAT" << 9 << 9;
    QTest::newRow("SYS_STATUS has extensions") << "SYS_STATUS" << 31 << 43;
    QTest::newRow("BATTERY_STATUS has extensions") << "BATTERY_STATUS" << 36 << 54;
    QTest::newRow("LOG_DATA") << "LOG_DATA" << 97 << 97;
    QTest::newRow("COMMAND_LONG") << "COMMAND_LONG" << 33 << 33;
    QTest::newRow("SKY_RAW_ENTRY_DATA") << "SKY_RAW_ENTRY_DATA" << 99 << 99;
}

void TestLmMavlinkMessages::payloadLengths()
{
    QFETCH(QString, name);
    QFETCH(int, minLength);
    QFETCH(int, maxLength);
    const SMessageInfo* info = FindMessageInfo(name.toLatin1().constData());
    QVERIFY(info);
    QCOMPARE(int(info->minLength), minLength);
    QCOMPARE(int(info->maxLength), maxLength);
}

void TestLmMavlinkMessages::fieldsAreInWireOrder_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("offset");
    QTest::addColumn<bool>("extension");
    // Larger types first, declaration order among equals, extensions last.
    QTest::newRow("heartbeat custom_mode first") << "HEARTBEAT" << "custom_mode" << 0 << false;
    QTest::newRow("heartbeat type after") << "HEARTBEAT" << "type" << 4 << false;
    QTest::newRow("heartbeat version last") << "HEARTBEAT" << "mavlink_version" << 8 << false;
    QTest::newRow("array sorted by element") << "PARAM_VALUE" << "param_id" << 8 << false;
    QTest::newRow("command after floats") << "COMMAND_LONG" << "command" << 28 << false;
    QTest::newRow("extension not sorted") << "BATTERY_STATUS" << "time_remaining" << 36 << true;
    QTest::newRow("later extension") << "BATTERY_STATUS" << "charge_state" << 40 << true;
    QTest::newRow("log data bytes") << "LOG_DATA" << "data" << 7 << false;
}

void TestLmMavlinkMessages::fieldsAreInWireOrder()
{
    QFETCH(QString, message);
    QFETCH(QString, field);
    QFETCH(int, offset);
    QFETCH(bool, extension);
    const SMessageInfo* info = FindMessageInfo(message.toLatin1().constData());
    QVERIFY(info);
    const SFieldInfo* found = ::field(*info, field.toLatin1().constData());
    QVERIFY(found);
    QCOMPARE(int(found->offset), offset);
    QCOMPARE(found->extension, extension);
}

void TestLmMavlinkMessages::everyDialectMessageIsExercised()
{
    for (std::size_t index = 0; index < MessageInfoCount(); ++index) {
        const SMessageInfo& info = MessageInfoAt(index);
        if (QByteArray(info.name).startsWith("SKY_"))
            QVERIFY2(usedMessages().count(info.msgid), info.name);
    }
}

void TestLmMavlinkMessages::usedMessageRoundTrips_data()
{
    QTest::addColumn<uint>("msgid");
    QTest::addColumn<QByteArray>("payload");
    QRandomGenerator random(42);
    for (const auto& entry : usedMessages()) {
        const SMessageInfo* info = FindMessageInfo(entry.first);
        const QByteArray full = randomBytes(random, info->maxLength);
        QTest::addRow("%s random", info->name) << entry.first << full;
        // Trailing zeros are cut off on the wire and must come back as zeros.
        QTest::addRow("%s zero tail", info->name)
            << entry.first << full.left(info->maxLength / 2) + QByteArray(info->maxLength - info->maxLength / 2, '\0');
    }
}

void TestLmMavlinkMessages::usedMessageRoundTrips()
{
    QFETCH(uint, msgid);
    QFETCH(QByteArray, payload);
    const RoundTrip& trip = usedMessages().at(msgid);
    QCOMPARE(trip(payload, CLmMavlinkEncoder::EVersion::V2), payload);
    if (msgid <= 0xFF) {
        // Version 1 frames carry no extension fields.
        const SMessageInfo* info = FindMessageInfo(msgid);
        QByteArray withoutExtensions = payload;
        withoutExtensions.fill('\0').replace(0, info->minLength, payload.left(info->minLength));
        QCOMPARE(trip(payload, CLmMavlinkEncoder::EVersion::V1), withoutExtensions);
    }
}

void TestLmMavlinkMessages::paramValueFieldsLandAtTheirOffsets()
{
    SParamValue value;
    std::memcpy(value.param_id, "GCS_TIMEOUT\0\0\0\0\0", 16);
    value.param_value = 30.0f;
    value.param_type = MAV_PARAM_TYPE_REAL32;
    value.param_count = 0x0102;
    value.param_index = 0x0304;
    const QByteArray wire = packed(value);
    float floatValue = 0;
    std::memcpy(&floatValue, wire.constData(), 4);
    QCOMPARE(floatValue, 30.0f);
    QCOMPARE(wire.mid(4, 4), QByteArray::fromHex("02010403"));
    QCOMPARE(wire.mid(8, 11), QByteArray("GCS_TIMEOUT"));
    QCOMPARE(int(wire.at(24)), int(MAV_PARAM_TYPE_REAL32));

    const SParamValue back = SParamValue::Unpack(reinterpret_cast<const uint8_t*>(wire.constData()), 25);
    QCOMPARE(QByteArray(back.param_id, 16), QByteArray(value.param_id, 16));
    QCOMPARE(back.param_index, uint16_t(0x0304));
}

void TestLmMavlinkMessages::heartbeatCarriesDefinitionsVersion()
{
    QCOMPARE(SHeartbeat().mavlink_version, MAVLINK_DEFINITIONS_VERSION);
    QCOMPARE(int(MAVLINK_DEFINITIONS_VERSION), 3);
}

QTEST_GUILESS_MAIN(TestLmMavlinkMessages)
#include "tst_LmMavlinkMessages.moc"
