#include "CLmDeviceChangeFilter.h"

#include <QtTest>

Q_DECLARE_METATYPE(CLmDeviceChangeFilter::EAction)

namespace {

const unsigned int PowerBroadcastMessage = 0x0218;
const quintptr QueryRemove = 0x8001;
const quintptr RemovePending = 0x8003;
const quint32 PortDeviceType = 3;
const quint32 InterfaceDeviceType = 5;
const quint32 MediaFlag = 0x1;
const quint32 NetworkFlag = 0x2;
const unsigned long Untouched = 0xDEADUL;

} // namespace

class TestCLmDeviceChangeFilter : public QObject
{
    Q_OBJECT

private slots:
    void decode_data();
    void decode();
    void nullMaskPointerIsAccepted();
};

void TestCLmDeviceChangeFilter::decode_data()
{
    QTest::addColumn<unsigned int>("message");
    QTest::addColumn<quintptr>("eventCode");
    QTest::addColumn<bool>("hasRecord");
    QTest::addColumn<quint32>("deviceType");
    QTest::addColumn<quint32>("flags");
    QTest::addColumn<quint32>("unitMask");
    QTest::addColumn<CLmDeviceChangeFilter::EAction>("action");
    QTest::addColumn<unsigned long>("driveMask");

    const unsigned int change = 537;
    const quintptr arrival = 0x8000;
    const quintptr removed = 0x8004;
    const quint32 volume = 2;
    using F = CLmDeviceChangeFilter;

    QTest::newRow("volume arrival") << change << arrival << true << volume << 0u << 0x10u << F::DiskArrival << 0x10UL;
    QTest::newRow("volume removal complete")
        << change << removed << true << volume << 0u << 0x10u << F::DiskRemoval << 0x10UL;
    QTest::newRow("two letters arrive") << change << arrival << true << volume << 0u << 0x30u << F::DiskArrival << 0x30UL;
    QTest::newRow("query remove") << change << QueryRemove << true << volume << 0u << 0x10u << F::NoAction << Untouched;
    QTest::newRow("remove pending") << change << RemovePending << true << volume << 0u << 0x10u << F::NoAction << Untouched;
    QTest::newRow("other message") << PowerBroadcastMessage << arrival << true << volume << 0u << 0x10u << F::NoAction
                                   << Untouched;
    QTest::newRow("port record") << change << arrival << true << PortDeviceType << 0u << 0x10u << F::NoAction << Untouched;
    QTest::newRow("interface record")
        << change << removed << true << InterfaceDeviceType << 0u << 0x10u << F::NoAction << Untouched;
    QTest::newRow("media in drive") << change << arrival << true << volume << MediaFlag << 0x10u << F::NoAction << Untouched;
    QTest::newRow("network volume")
        << change << removed << true << volume << NetworkFlag << 0x10u << F::NoAction << Untouched;
    QTest::newRow("no record") << change << arrival << false << volume << 0u << 0x10u << F::NoAction << Untouched;
}

void TestCLmDeviceChangeFilter::decode()
{
    QFETCH(unsigned int, message);
    QFETCH(quintptr, eventCode);
    QFETCH(bool, hasRecord);
    QFETCH(quint32, deviceType);
    QFETCH(quint32, flags);
    QFETCH(quint32, unitMask);
    QFETCH(CLmDeviceChangeFilter::EAction, action);
    QFETCH(unsigned long, driveMask);

    SLmDevBroadcastVolume record{};
    record.dbcv_size = sizeof(record);
    record.dbcv_devicetype = deviceType;
    record.dbcv_unitmask = unitMask;
    record.dbcv_flags = static_cast<decltype(record.dbcv_flags)>(flags);
    const void* lParam = hasRecord ? &record : nullptr;
    unsigned long mask = Untouched;

    QCOMPARE(CLmDeviceChangeFilter::Decode(message, eventCode, lParam, &mask), action);
    QCOMPARE(mask, driveMask);
}

void TestCLmDeviceChangeFilter::nullMaskPointerIsAccepted()
{
    SLmDevBroadcastVolume record{};
    record.dbcv_size = sizeof(record);
    record.dbcv_devicetype = CLmDeviceChangeFilter::VolumeDeviceType;
    record.dbcv_unitmask = 0x4;

    QCOMPARE(CLmDeviceChangeFilter::Decode(CLmDeviceChangeFilter::DeviceChangeMessage,
                                           CLmDeviceChangeFilter::DeviceArrival, &record, nullptr),
             CLmDeviceChangeFilter::DiskArrival);
}

QTEST_GUILESS_MAIN(TestCLmDeviceChangeFilter)
#include "tst_CLmDeviceChangeFilter.moc"
