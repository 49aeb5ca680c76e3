#include "CLmBaseStationLink.h"
#include "CNtripCasterProcess.h"
#include "CSkyBaseProcess.h"

#include <QDateTime>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

using LinkCall = std::function<void(CLmBaseStationLink&)>;
using ReplyCheck = std::function<void(const QList<QVariant>&)>;
Q_DECLARE_METATYPE(LinkCall)
Q_DECLARE_METATYPE(ReplyCheck)

namespace {

constexpr int kGenerousMs = 20000;  // loaded build machines

// 30 deg 30' N 114 deg 20' E, 50 m, the page's last int 6.
void SetBase(CLmBaseStationLink& link)
{
    link.SetBaseNtrip(3030.0, 11420.0, 50.0, 0, 0, 15, 1, 7, 6);
}

void SetStatic(CLmBaseStationLink& link)
{
    link.SetStaticNtrip({}, 0, {}, {}, {}, 0, 3030.0, 11420.0, 50.0, 0, 0, 15, 1, 7, 6);
}

ReplyCheck Setting(const QString& name, int code)
{
    return [name, code](const QList<QVariant>& arguments) {
        QCOMPARE(arguments.at(0).toString(), name);
        QCOMPARE(arguments.at(1).toInt(), code);
    };
}

}  // namespace

// The base-station link against the skybase emulator (and a real NTRIP
// caster, rtklib's str2str): every operation's answer, the station's own
// failures, and a connection that ends in the middle of an operation.
class tst_CLmBaseStationLink : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void operationRoundTrip_data();
    void operationRoundTrip();
    void stationFailures_data();
    void stationFailures();
    void droppedMidOperation_data();
    void droppedMidOperation();
    void noStationReportsNotConnected();
    void recordingGrowsAndLocksItsFile();
    void settingsSurviveARestart();
    void positionReportsArrive();
    void sourceTableFromCaster();
    void loginToCasterMount_data();
    void loginToCasterMount();

private:
    void StartStation(const QStringList& extra = {});
    // Calls the operation and waits for the signal; its arguments.
    QList<QVariant> Ask(const LinkCall& call, const char* signal);

    std::unique_ptr<QTemporaryDir> m_data;
    std::unique_ptr<CSkyBaseProcess> m_station;
    std::unique_ptr<CLmBaseStationLink> m_link;
};

void tst_CLmBaseStationLink::init()
{
    m_data = std::make_unique<QTemporaryDir>();
    QVERIFY(m_data->isValid());
}

void tst_CLmBaseStationLink::cleanup()
{
    m_link.reset();
    m_station.reset();
    m_data.reset();
}

void tst_CLmBaseStationLink::StartStation(const QStringList& extra)
{
    m_link.reset();
    m_station = std::make_unique<CSkyBaseProcess>();
    QVERIFY(m_station->Start(m_data->path(), extra));
    m_link = std::make_unique<CLmBaseStationLink>();
    m_link->SetStationAddress(QStringLiteral("127.0.0.1"), m_station->ControlPort());
    m_link->StartService();
    QSignalSpy connected(&CLmBaseStationLink::m_linkHelper, &CLmBaseStationLinkHelper::ConnectState);
    m_link->Connect2BaseStation();
    QTRY_COMPARE_WITH_TIMEOUT(connected.count(), 1, kGenerousMs);
    QCOMPARE(connected.at(0).at(0).toBool(), true);
}

QList<QVariant> tst_CLmBaseStationLink::Ask(const LinkCall& call, const char* signal)
{
    QSignalSpy spy(&CLmBaseStationLink::m_linkHelper, signal);
    call(*m_link);
    if (!spy.wait(kGenerousMs) && spy.isEmpty())
        return {};
    return spy.takeFirst();
}

void tst_CLmBaseStationLink::operationRoundTrip_data()
{
    QTest::addColumn<LinkCall>("call");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<ReplyCheck>("check");

    QTest::newRow("ReadMainframe") << LinkCall(&CLmBaseStationLink::ReadMainframe)
                                   << QByteArray(SIGNAL(BaseStationMainFrame(SBaseStationMainFrame)))
                                   << ReplyCheck([](const QList<QVariant>& arguments) {
                                          const auto frame = arguments.at(0).value<SBaseStationMainFrame>();
                                          QCOMPARE(frame.strSerialNumber, QStringLiteral("SKB-TEST-7"));
                                          QCOMPARE(frame.nWorkMode, int(SBaseStationMainFrame::WorkModeStatic));
                                          QCOMPARE(frame.nBattery, 64);
                                          QVERIFY(frame.nFirmwareVersion > 0);
                                      });
    QTest::newRow("ReadCaster, none set") << LinkCall(&CLmBaseStationLink::ReadCaster)
                                          << QByteArray(SIGNAL(CasterParam(SSCasterParam)))
                                          << ReplyCheck([](const QList<QVariant>& arguments) {
                                                 QCOMPARE(arguments.at(0).value<SSCasterParam>().nPort, 0);
                                             });
    QTest::newRow("ReadLoction") << LinkCall(&CLmBaseStationLink::ReadLoction)
                                 << QByteArray(SIGNAL(Loction(SBaseStationLoction)))
                                 << ReplyCheck([](const QList<QVariant>& arguments) {
                                        const auto location = arguments.at(0).value<SBaseStationLoction>();
                                        QCOMPARE(location.strDiffFormat, QStringLiteral("RTCM32"));
                                        QVERIFY(location.dLatitude > 3000 && location.dLatitude < 3100);  // 30 deg N
                                    });
    QTest::newRow("ReadStorageInfor") << LinkCall([](CLmBaseStationLink& link) { link.ReadStorageInfor(); })
                                      << QByteArray(SIGNAL(StorageInfor(quint64, quint64)))
                                      << ReplyCheck([](const QList<QVariant>& arguments) {
                                             QCOMPARE(arguments.at(0).toULongLong(), 1000000000ull);
                                             QCOMPARE(arguments.at(1).toULongLong(), 1000000000ull);
                                         });
    QTest::newRow("ReadStaticFileState, idle") << LinkCall(&CLmBaseStationLink::ReadStaticFileState)
                                               << QByteArray(SIGNAL(StaticFileState(SStaticFileState)))
                                               << ReplyCheck([](const QList<QVariant>& arguments) {
                                                      const auto state = arguments.at(0).value<SStaticFileState>();
                                                      QCOMPARE(state.nRecording, 0);
                                                      QVERIFY(state.strFileName.isEmpty());
                                                  });
    QTest::newRow("ReadStaticFileList, empty") << LinkCall([](CLmBaseStationLink& link) { link.ReadStaticFileList(); })
                                               << QByteArray(SIGNAL(ReadStaticsFileFinished())) << ReplyCheck();
    QTest::newRow("SetBaseNtrip") << LinkCall(SetBase) << QByteArray(SIGNAL(SettingRet(QString, int)))
                                  << Setting(QStringLiteral("baseNtrip"), 0);
    QTest::newRow("SetBaseNtrip, minutes 60") << LinkCall([](CLmBaseStationLink& link) {
        link.SetBaseNtrip(3060.0, 11420.0, 50.0, 0, 0, 15, 1, 7, 6);
    }) << QByteArray(SIGNAL(SettingRet(QString, int))) << Setting(QStringLiteral("baseNtrip"), 3);
    QTest::newRow("SetStaticNtrip") << LinkCall(SetStatic) << QByteArray(SIGNAL(SettingRet(QString, int)))
                                    << Setting(QStringLiteral("staticNtrip"), 0);
    QTest::newRow("StartStaticFile") << LinkCall([](CLmBaseStationLink& link) { link.StartStaticFile({}, 0, 5, 15); })
                                     << QByteArray(SIGNAL(SettingRet(QString, int)))
                                     << Setting(QStringLiteral("startStaticFile"), 0);
    QTest::newRow("StartStaticFile, name with a path")
        << LinkCall([](CLmBaseStationLink& link) { link.StartStaticFile("../station", 0, 5, 15); })
        << QByteArray(SIGNAL(SettingRet(QString, int))) << Setting(QStringLiteral("startStaticFile"), 3);
    QTest::newRow("StopStaticFile, not recording") << LinkCall(&CLmBaseStationLink::StopStaticFile)
                                                   << QByteArray(SIGNAL(SettingRet(QString, int)))
                                                   << Setting(QStringLiteral("stopStaticFile"), 1);
    QTest::newRow("DeleteStaticFiles, all of none")
        << LinkCall([](CLmBaseStationLink& link) { link.DeleteStaticFiles({}); })
        << QByteArray(SIGNAL(SettingRet(QString, int))) << Setting(QStringLiteral("deleteStaticFile"), 0);
    QTest::newRow("DeleteStaticFiles, missing file")
        << LinkCall([](CLmBaseStationLink& link) { link.DeleteStaticFiles({"nothing.GNS"}); })
        << QByteArray(SIGNAL(SettingRet(QString, int))) << Setting(QStringLiteral("deleteStaticFile"), 2);
    QTest::newRow("SetRoverNtrips, nobody listening")
        << LinkCall([](CLmBaseStationLink& link) {
               link.SetRoverNtrips("127.0.0.1", CNtripCasterProcess::FreePort(), "a", "b", "M", 0, 3030.0, 11420.0,
                                   50.0, 0, 0, 15, 1, 7, 6);
           })
        << QByteArray(SIGNAL(SettingRet(QString, int))) << Setting(QStringLiteral("roverNtrips"), 2);
    QTest::newRow("GetSourceNode, nobody listening")
        << LinkCall([](CLmBaseStationLink& link) { link.GetSourceNode("127.0.0.1", CNtripCasterProcess::FreePort()); })
        << QByteArray(SIGNAL(SrcNodeConnectState(bool))) << ReplyCheck([](const QList<QVariant>& arguments) {
               QCOMPARE(arguments.at(0).toBool(), false);
           });
}

void tst_CLmBaseStationLink::operationRoundTrip()
{
    QFETCH(LinkCall, call);
    QFETCH(QByteArray, signal);
    QFETCH(ReplyCheck, check);
    StartStation({QStringLiteral("--serial-number"), QStringLiteral("SKB-TEST-7"), QStringLiteral("--battery"),
                  QStringLiteral("64"), QStringLiteral("--storage"), QStringLiteral("1000000000")});
    QSignalSpy lost(&CLmBaseStationLink::m_linkHelper, &CLmBaseStationLinkHelper::ConnectState);
    const QList<QVariant> arguments = Ask(call, signal.constData());
    QVERIFY2(!arguments.isEmpty() || signal.contains("()"), "no answer");
    if (check)
        check(arguments);
    QVERIFY(lost.isEmpty());
    QVERIFY(m_link->IsConnected());
}

void tst_CLmBaseStationLink::stationFailures_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<LinkCall>("call");
    QTest::addColumn<QString>("setting");
    QTest::addColumn<int>("code");
    const QStringList noFix{QStringLiteral("--no-fix")};
    const QStringList full{QStringLiteral("--storage"), QStringLiteral("1000")};
    QTest::newRow("not positioning: start") << noFix << LinkCall([](CLmBaseStationLink& link) {
        link.StartStaticFile({}, 0, 1, 15);
    }) << QStringLiteral("startStaticFile") << 4;
    QTest::newRow("not positioning: static mode") << noFix << LinkCall(SetStatic) << QStringLiteral("staticNtrip") << 4;
    QTest::newRow("storage full: start") << full << LinkCall([](CLmBaseStationLink& link) {
        link.StartStaticFile({}, 0, 1, 15);
    }) << QStringLiteral("startStaticFile") << 5;
    QTest::newRow("storage full: static mode") << full << LinkCall(SetStatic) << QStringLiteral("staticNtrip") << 5;
}

void tst_CLmBaseStationLink::stationFailures()
{
    QFETCH(QStringList, options);
    QFETCH(LinkCall, call);
    QFETCH(QString, setting);
    QFETCH(int, code);
    StartStation(options);
    const QList<QVariant> arguments = Ask(call, SIGNAL(SettingRet(QString, int)));
    QVERIFY(!arguments.isEmpty());
    Setting(setting, code)(arguments);
}

void tst_CLmBaseStationLink::droppedMidOperation_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<LinkCall>("call");
    QTest::addColumn<QByteArray>("failure");
    QTest::addColumn<QVariant>("failureArgument");
    QTest::newRow("setting") << QStringLiteral("BASE") << LinkCall(SetBase)
                             << QByteArray(SIGNAL(SettingRet(QString, int))) << QVariant(-1);
    QTest::newRow("delete") << QStringLiteral("DELETE")
                            << LinkCall([](CLmBaseStationLink& link) { link.DeleteStaticFiles({}); })
                            << QByteArray(SIGNAL(SettingRet(QString, int))) << QVariant(-1);
    QTest::newRow("source table") << QStringLiteral("SOURCETABLE") << LinkCall([](CLmBaseStationLink& link) {
        link.GetSourceNode("127.0.0.1", 2101);
    }) << QByteArray(SIGNAL(SrcNodeConnectState(bool))) << QVariant(false);
    QTest::newRow("read") << QStringLiteral("MAINFRAME") << LinkCall(&CLmBaseStationLink::ReadMainframe)
                          << QByteArray(SIGNAL(ConnectState(bool))) << QVariant(false);
}

void tst_CLmBaseStationLink::droppedMidOperation()
{
    QFETCH(QString, operation);
    QFETCH(LinkCall, call);
    QFETCH(QByteArray, failure);
    QFETCH(QVariant, failureArgument);
    StartStation({QStringLiteral("--drop-on"), operation});
    QSignalSpy connection(&CLmBaseStationLink::m_linkHelper, &CLmBaseStationLinkHelper::ConnectState);
    QSignalSpy failed(&CLmBaseStationLink::m_linkHelper, failure.constData());
    call(*m_link);
    QTRY_COMPARE_WITH_TIMEOUT(connection.count(), 1, kGenerousMs);
    QCOMPARE(connection.at(0).at(0).toBool(), false);
    QCOMPARE(failed.count(), 1);
    QCOMPARE(failed.at(0).constLast(), failureArgument);
    QVERIFY(!m_link->IsConnected());
    // Nothing is sent on a closed link, and a new connect works.
    QCOMPARE(m_link->ReadStorageInfor(), -1);
    m_link->Connect2BaseStation();
    QTRY_COMPARE_WITH_TIMEOUT(connection.count(), 2, kGenerousMs);
    QCOMPARE(connection.at(1).at(0).toBool(), true);
}

void tst_CLmBaseStationLink::noStationReportsNotConnected()
{
    CLmBaseStationLink link;
    link.SetStationAddress(QStringLiteral("127.0.0.1"), CNtripCasterProcess::FreePort());
    QSignalSpy connection(&CLmBaseStationLink::m_linkHelper, &CLmBaseStationLinkHelper::ConnectState);
    link.Connect2BaseStation();
    QTRY_COMPARE_WITH_TIMEOUT(connection.count(), 1, kGenerousMs);
    QCOMPARE(connection.at(0).at(0).toBool(), false);
}

void tst_CLmBaseStationLink::recordingGrowsAndLocksItsFile()
{
    StartStation({QStringLiteral("--epoch-bytes"), QStringLiteral("1000")});
    QVERIFY(!Ask(SetStatic, SIGNAL(SettingRet(QString, int))).isEmpty());
    const auto state = Ask(&CLmBaseStationLink::ReadStaticFileState, SIGNAL(StaticFileState(SStaticFileState)))
                           .value(0).value<SStaticFileState>();
    QCOMPARE(state.nRecording, 1);
    QVERIFY(!state.strFileName.isEmpty());
    const QDateTime created = QDateTime::fromString(state.strCreateTime, Qt::ISODate);
    QVERIFY(created.isValid());
    QCOMPARE(created.timeSpec(), Qt::UTC);

    // The station refuses to change mode or delete the file it records.
    Setting(QStringLiteral("baseNtrip"), 1)(Ask(SetBase, SIGNAL(SettingRet(QString, int))));
    Setting(QStringLiteral("deleteStaticFile"), 2)(Ask([](CLmBaseStationLink& link) { link.DeleteStaticFiles({}); },
                                                       SIGNAL(SettingRet(QString, int))));
    const QString file = state.strFileName + QStringLiteral(".GNS");
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(m_data->filePath(QStringLiteral("ftp/static/") + file)).size() >= 2000,
                             kGenerousMs);
    Setting(QStringLiteral("stopStaticFile"), 0)(Ask(&CLmBaseStationLink::StopStaticFile, SIGNAL(SettingRet(QString, int))));

    QSignalSpy finished(&CLmBaseStationLink::m_linkHelper, &CLmBaseStationLinkHelper::ReadStaticsFileFinished);
    const QList<QVariant> list = Ask([](CLmBaseStationLink& link) { link.ReadStaticFileList(); },
                                     SIGNAL(StaticsFileList(QString, int)));
    QCOMPARE(list.at(1).toInt(), 1);
    const QStringList fields = list.at(0).toString().split(QLatin1Char(','));
    QCOMPARE(fields.size(), 3);
    QCOMPARE(fields.at(0), file);
    QCOMPARE(fields.at(2).toLongLong() % 1000, 0);  // whole epochs
    QCOMPARE(finished.count(), 1);

    Setting(QStringLiteral("deleteStaticFile"), 0)(Ask([file](CLmBaseStationLink& link) {
        link.DeleteStaticFiles({file.toUtf8()});
    }, SIGNAL(SettingRet(QString, int))));
    QVERIFY(!QFileInfo::exists(m_data->filePath(QStringLiteral("ftp/static/") + file)));
}

void tst_CLmBaseStationLink::settingsSurviveARestart()
{
    StartStation();
    const quint16 closedPort = CNtripCasterProcess::FreePort();
    Setting(QStringLiteral("roverNtrips"), 2)(Ask([closedPort](CLmBaseStationLink& link) {
        link.SetRoverNtrip("127.0.0.1", closedPort, "surveyor", "s3cret,*", "MOUNT_1", 0);
    }, SIGNAL(SettingRet(QString, int))));
    QVERIFY(m_station->Stop());
    StartStation();
    const auto frame = Ask(&CLmBaseStationLink::ReadMainframe, SIGNAL(BaseStationMainFrame(SBaseStationMainFrame)))
                           .value(0).value<SBaseStationMainFrame>();
    QCOMPARE(frame.nWorkMode, int(SBaseStationMainFrame::WorkModeRover));
    const auto caster = Ask(&CLmBaseStationLink::ReadCaster, SIGNAL(CasterParam(SSCasterParam)))
                            .value(0).value<SSCasterParam>();
    QCOMPARE(caster.strHost, QStringLiteral("127.0.0.1"));
    QCOMPARE(caster.nPort, int(closedPort));
    QCOMPARE(caster.strAccount, QStringLiteral("surveyor"));
    QCOMPARE(caster.strPassword, QStringLiteral("s3cret,*"));
    QCOMPARE(caster.strMountPoint, QStringLiteral("MOUNT_1"));
}

void tst_CLmBaseStationLink::positionReportsArrive()
{
    StartStation();
    QSignalSpy reports(&CLmBaseStationLink::m_linkHelper, &CLmBaseStationLinkHelper::GGAParam);
    QTRY_VERIFY_WITH_TIMEOUT(reports.count() >= 2, kGenerousMs);
    const auto gga = reports.constLast().at(0).value<SGGAParam>();
    QCOMPARE(gga.nQuality, 1);
    QCOMPARE(gga.nRate, 1);
    QVERIFY(gga.nSatellites > 4);
    QVERIFY(gga.dLongitude > 11400 && gga.dLongitude < 11500);
}

void tst_CLmBaseStationLink::sourceTableFromCaster()
{
    CNtripCasterProcess caster;
    QVERIFY(caster.Start(QStringLiteral("SKYB01"), QStringLiteral("alice"), QStringLiteral("secret")));
    StartStation();
    QSignalSpy nodes(&CLmBaseStationLink::m_linkHelper, &CLmBaseStationLinkHelper::SrcNodeList);
    const QList<QVariant> state = Ask([&caster](CLmBaseStationLink& link) {
        link.GetSourceNode("127.0.0.1", caster.Port());
    }, SIGNAL(SrcNodeConnectState(bool)));
    QCOMPARE(state.value(0).toBool(), true);
    QCOMPARE(nodes.count(), 1);
    QCOMPARE(nodes.at(0).at(0).toStringList(), QStringList{QStringLiteral("SKYB01")});
    QCOMPARE(nodes.at(0).at(1).toInt(), 1);
}

void tst_CLmBaseStationLink::loginToCasterMount_data()
{
    QTest::addColumn<QByteArray>("password");
    QTest::addColumn<QByteArray>("mount");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("quality");
    QTest::newRow("accepted: RTK fixed") << QByteArray("secret") << QByteArray("SKYB01") << 0 << 4;
    QTest::newRow("wrong password") << QByteArray("guess") << QByteArray("SKYB01") << 1 << 1;
    QTest::newRow("unknown mount") << QByteArray("secret") << QByteArray("NOPE") << 2 << 1;
}

void tst_CLmBaseStationLink::loginToCasterMount()
{
    QFETCH(QByteArray, password);
    QFETCH(QByteArray, mount);
    QFETCH(int, code);
    QFETCH(int, quality);
    CNtripCasterProcess caster;
    QVERIFY(caster.Start(QStringLiteral("SKYB01"), QStringLiteral("alice"), QStringLiteral("secret")));
    StartStation();
    Setting(QStringLiteral("roverNtrips"), code)(Ask([&](CLmBaseStationLink& link) {
        link.SetRoverNtrips("127.0.0.1", caster.Port(), "alice", password, mount, 0, 3030.0, 11420.0, 50.0, 0, 0, 15,
                            1, 7, 6);
    }, SIGNAL(SettingRet(QString, int))));
    const auto gga = Ask([](CLmBaseStationLink&) {}, SIGNAL(GGAParam(SGGAParam))).value(0).value<SGGAParam>();
    QCOMPARE(gga.nQuality, quality);
}

QTEST_GUILESS_MAIN(tst_CLmBaseStationLink)
#include "tst_CLmBaseStationLink.moc"
