#include "CLmDeployConfig.h"
#include "CLmRequestBatteryCellVoltageAck.h"
#include "CLmRequestBatteryDataAck.h"
#include "CSkySimProcess.h"
#include "CLmUAVConnectObj.h"
#include "CLmUasProvide.h"
#include "SimLogStore.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QSerialPort>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <memory>

namespace {

constexpr int kHeartbeatTimeoutMs = 1500;
// Two heartbeats at 1 Hz and some slack for a loaded machine.
constexpr int kTwoHeartbeatsMs = 2500;

// Runs the worker on its own thread, as the main window does, and records
// what it announces on the test's thread.
class WorkerRun : public QObject
{
    Q_OBJECT
public:
    explicit WorkerRun(const QString& serialPorts)
    {
        qputenv("SKYCONSOLE_AIRCRAFT_UDP_LISTEN_PORT", "0");
        qputenv("SKYCONSOLE_AIRCRAFT_SERIAL_PORTS", serialPorts.toUtf8());
        qputenv("SKYCONSOLE_AIRCRAFT_HEARTBEAT_TIMEOUT_MS", QByteArray::number(kHeartbeatTimeoutMs));
        CLmDeployConfig::Reload();
        m_pWorker = new CLmUAVConnectObj(nullptr, nullptr);
        connect(m_pWorker, &CLmUAVConnectObj::UAV_connected, this, [this](CLmUasProvide* pUas) { m_connected << pUas; });
        connect(m_pWorker, &CLmUAVConnectObj::UAV_disconnected, this,
                [this](CLmUasProvide* pUas) { m_disconnected << pUas; });
        connect(m_pWorker, &CLmUAVConnectObj::planeInfo, this, [this](const QStringList& info) { m_planeInfo = info; });
        connect(m_pWorker, &CLmUAVConnectObj::multirotor_planeInfo, this,
                [this](const QStringList& info) { m_planeInfo = info; });
        connect(m_pWorker, &CLmUAVConnectObj::KeyStatusString, this, [this](const QString& text) { m_keyStatus = text; });
        m_pWorker->moveToThread(&m_thread);
        connect(&m_thread, &QThread::started, m_pWorker, &CLmUAVConnectObj::slotConnectUAVStart);
        connect(&m_thread, &QThread::finished, m_pWorker, &QObject::deleteLater);
        m_thread.start();
    }

    ~WorkerRun() override
    {
        m_thread.quit();
        m_thread.wait();
    }

    QString UdpAddress() const { return QStringLiteral("127.0.0.1:%1").arg(m_pWorker->GetUdpListenPort()); }
    void Invoke(const char* slot) { QMetaObject::invokeMethod(m_pWorker, slot, Qt::QueuedConnection); }

    CLmUAVConnectObj* m_pWorker;
    QThread m_thread;
    QList<CLmUasProvide*> m_connected;
    QList<CLmUasProvide*> m_disconnected;
    QStringList m_planeInfo;
    QString m_keyStatus;
};

} // namespace

class TestCLmUAVConnectObj : public QObject
{
    Q_OBJECT

private slots:
    void connectsWithinTwoHeartbeats_data();
    void connectsWithinTwoHeartbeats();
    void gcsTimeoutIsReadAndWritten();
    void parametersDownloadAndConfirmedSet_data();
    void parametersDownloadAndConfirmedSet();
    void logDownloadMatchesTheAircraft();
    void batteriesThroughTheAcknowledgers_data();
    void batteriesThroughTheAcknowledgers();
    void heartbeatTimeoutDisconnectsAndReturnReconnects();
    void serialPortIsReleasedAndTakenBack();

private:
    // Starts the worker, then skysim sending to it; waits for the handle.
    CLmUasProvide* ConnectOverUdp(WorkerRun& run, CSkySimProcess& sim, const QStringList& simArguments);
};

CLmUasProvide* TestCLmUAVConnectObj::ConnectOverUdp(WorkerRun& run, CSkySimProcess& sim,
                                                    const QStringList& simArguments)
{
    if (!QTest::qWaitFor([&run] { return run.m_pWorker->GetUdpListenPort() != 0; }, 5000))
        return nullptr;
    if (!sim.Start(QStringList{"--udp", run.UdpAddress()} + simArguments))
        return nullptr;
    QElapsedTimer sinceStart;
    sinceStart.start();
    if (!QTest::qWaitFor([&run] { return !run.m_connected.isEmpty(); }, kTwoHeartbeatsMs)
        || sinceStart.elapsed() > kTwoHeartbeatsMs)
        return nullptr;
    return run.m_connected.first();
}

void TestCLmUAVConnectObj::connectsWithinTwoHeartbeats_data()
{
    QTest::addColumn<QString>("personality");
    QTest::addColumn<bool>("fixwing");
    QTest::addColumn<QString>("firmware");
    QTest::addColumn<int>("planeType");
    QTest::addColumn<int>("statusItems");

    QTest::newRow("fixed-wing") << "fixedwing" << true << "FW_2.4.1" << int(ePlaneTypeFixwing) << 12;
    QTest::newRow("multirotor") << "multirotor" << false << "MR_2.4.1" << int(ePlaneTypeMultirotor) << 21;
}

void TestCLmUAVConnectObj::connectsWithinTwoHeartbeats()
{
    QFETCH(QString, personality);
    QFETCH(bool, fixwing);
    QFETCH(QString, firmware);
    QFETCH(int, planeType);
    QFETCH(int, statusItems);

    WorkerRun run(QStringLiteral("none"));
    CSkySimProcess sim;
    CLmUasProvide* pUas = ConnectOverUdp(run, sim, {"--type", personality});
    QVERIFY(pUas);

    QCOMPARE(pUas->GetUasID(), 1);
    QCOMPARE(pUas->IsFixwing(), fixwing);
    QTRY_COMPARE(pUas->GetPlaneType(), firmware);
    QCOMPARE(int(GetPlaneTypeByFirmware(pUas->GetPlaneType())), planeType);
    QTRY_COMPARE(run.m_keyStatus, QStringLiteral("Welcome, licence key valid"));

    pUas->StartStatusStream();
    QTRY_COMPARE(run.m_planeInfo.size(), statusItems);
    QCOMPARE(run.m_planeInfo.at(fixwing ? 1 : 3), QStringLiteral("2.4.1"));
    QCOMPARE(run.m_connected.size(), 1);
}

void TestCLmUAVConnectObj::gcsTimeoutIsReadAndWritten()
{
    WorkerRun run(QStringLiteral("none"));
    CSkySimProcess sim;
    CLmUasProvide* pUas = ConnectOverUdp(run, sim, {});
    QVERIFY(pUas);
    QVariantMap values;
    QList<float> confirmed;
    // Answers still queued when the test ends go to this receiver, which is
    // gone by then, never to the test's ended locals.
    QObject receiver;
    connect(pUas, &CLmUasProvide::parameterChanged, &receiver,
            [&values](int, int, const QString& name, const QVariant& value) { values.insert(name, value); });
    connect(pUas, &CLmUasProvide::signalParamSet, &receiver, [&confirmed](const QString& name, float value) {
        if (name == QLatin1String("GCS_TIMEOUT"))
            confirmed << value;
    });

    pUas->RequestParameter(QStringLiteral("GCS_TIMEOUT"));
    QTRY_COMPARE(values.value("GCS_TIMEOUT").toInt(), 60);

    pUas->WriteParameter(126, QStringLiteral("GCS_TIMEOUT"), 45);
    QTRY_COMPARE(confirmed, QList<float>{45.0f});
    values.clear();
    pUas->RequestParameterList();
    QTRY_COMPARE(values.value("GCS_TIMEOUT").toInt(), 45);
}

void TestCLmUAVConnectObj::parametersDownloadAndConfirmedSet_data()
{
    QTest::addColumn<QString>("loss");
    QTest::newRow("no loss") << "0";
    QTest::newRow("5 % loss") << "5";
}

void TestCLmUAVConnectObj::parametersDownloadAndConfirmedSet()
{
    QFETCH(QString, loss);
    WorkerRun run(QStringLiteral("none"));
    CSkySimProcess sim;
    CLmUasProvide* pUas = ConnectOverUdp(run, sim, {"--loss", loss, "--seed", "7"});
    QVERIFY(pUas);
    QList<SLmParameter> parameters;
    QList<QList<int>> failures;
    QStringList confirmed;
    QStringList notConfirmed;
    QObject receiver;
    connect(pUas, &CLmUasProvide::ParametersLoaded, &receiver,
            [&parameters](const QList<SLmParameter>& loaded) { parameters = loaded; });
    connect(pUas, &CLmUasProvide::ParameterDownloadFailed, &receiver,
            [&failures](const QList<int>& missing) { failures << missing; });
    connect(pUas, &CLmUasProvide::ParameterSetConfirmed, &receiver,
            [&confirmed](const QString& name, const QVariant& value) { confirmed << name + "=" + value.toString(); });
    connect(pUas, &CLmUasProvide::ParameterSetFailed, &receiver,
            [&notConfirmed](const QString& name) { notConfirmed << name; });

    pUas->DownloadParameters();
    QTRY_VERIFY_WITH_TIMEOUT(!parameters.isEmpty() || !failures.isEmpty(), 20000);
    QVERIFY(failures.isEmpty());
    QVERIFY(parameters.size() >= 300);
    const auto gcsTimeout = std::find_if(parameters.cbegin(), parameters.cend(), [](const SLmParameter& parameter) {
        return parameter.name == QLatin1String("GCS_TIMEOUT");
    });
    QVERIFY(gcsTimeout != parameters.cend());
    QCOMPARE(gcsTimeout->value, QVariant(60));
    QCOMPARE(gcsTimeout->TypeName(), QStringLiteral("UInt"));

    pUas->SetParameter(126, QStringLiteral("GCS_TIMEOUT"), 30);
    QTRY_VERIFY_WITH_TIMEOUT(!confirmed.isEmpty() || !notConfirmed.isEmpty(), 10000);
    QCOMPARE(confirmed, QStringList{"GCS_TIMEOUT=30"});
    QVERIFY(notConfirmed.isEmpty());

    // An integer parameter: the aircraft stores 31 and echoes that.
    pUas->SetParameter(126, QStringLiteral("GCS_TIMEOUT"), 30.5);
    QTRY_VERIFY_WITH_TIMEOUT(!notConfirmed.isEmpty(), 10000);
    QCOMPARE(notConfirmed, QStringList{"GCS_TIMEOUT"});
    QCOMPARE(confirmed.size(), 1);
}

void TestCLmUAVConnectObj::logDownloadMatchesTheAircraft()
{
    constexpr uint32_t kLogSize = 20000;
    WorkerRun run(QStringLiteral("none"));
    CSkySimProcess sim;
    CLmUasProvide* pUas = ConnectOverUdp(run, sim, {"--logs", "2", "--log-size", QString::number(kLogSize)});
    QVERIFY(pUas);

    QList<QPair<quint16, quint32>> entries;
    QObject receiver;
    connect(pUas, &CLmUasProvide::logEntry, &receiver,
            [&entries](int, quint32, quint32 size, quint16 id, quint16, quint16) { entries << qMakePair(id, size); });
    pUas->RequestLogList(0, 0xFFFF);
    QTRY_COMPARE(entries.size(), 2);
    QCOMPARE(entries.at(1), qMakePair(quint16(2), kLogSize));

    QByteArray content(int(kLogSize), '\0');
    quint32 received = 0;
    connect(pUas, &CLmUasProvide::logData, this,
            [&](quint32, quint32 ofs, quint16 id, quint8 count, const QByteArray& data) {
                if (id != 2 || ofs + count > kLogSize)
                    return;
                content.replace(int(ofs), count, data);
                received += count;
            });
    pUas->RequestLogData(2, 0, 0xFFFFFFFF);
    QTRY_COMPARE(received, kLogSize);
    pUas->RequestLogEnd();

    for (uint32_t k = 0; k < kLogSize; ++k) {
        if (uint8_t(content.at(int(k))) != SimLogStore::contentByte(2, k))
            QFAIL(qPrintable(QStringLiteral("byte %1 differs").arg(k)));
    }
}

void TestCLmUAVConnectObj::batteriesThroughTheAcknowledgers_data()
{
    QTest::addColumn<QString>("ackMode");

    QTest::newRow("acked") << QString();
    QTest::newRow("acked on retry") << "--ack-on-retry";
    QTest::newRow("never acked") << "--no-ack";
}

void TestCLmUAVConnectObj::batteriesThroughTheAcknowledgers()
{
    QFETCH(QString, ackMode);
    WorkerRun run(QStringLiteral("none"));
    CSkySimProcess sim;
    QStringList arguments{"--type", "multirotor"};
    if (!ackMode.isEmpty())
        arguments << ackMode;
    CLmUasProvide* pUas = ConnectOverUdp(run, sim, arguments);
    QVERIFY(pUas);

    CLmRequestBatteryDataAck dataAck;
    CLmRequestBatteryCellVoltageAck cellAck;
    QSignalSpy data(&dataAck, &CLmRequestBatteryDataAck::BatteryData);
    QSignalSpy cells(&cellAck, &CLmRequestBatteryCellVoltageAck::BatteryCellVoltage);
    QSignalSpy timeOuts(&dataAck, &CLMAckBase::UploadTimeOut);
    dataAck.SetUAS(pUas);
    cellAck.SetUAS(pUas);
    dataAck.StartUpload(3, 700, CLMCommandLongParam());
    cellAck.StartUpload(3, 700, CLMCommandLongParam());

    QTRY_COMPARE_WITH_TIMEOUT(data.count(), 1, 5000);
    QCOMPARE(data.at(0).at(0).toStringList().size(), 2 * 4 + 3);
    QTRY_COMPARE_WITH_TIMEOUT(cells.count(), 1, 5000);
    const QStringList cellList = cells.at(0).at(0).toStringList();
    QCOMPARE(cellList.size(), 2 * CLmRequestBatteryCellVoltageAck::CellsPerBattery);
    QCOMPARE(cellList.first(), QStringLiteral("4150"));
    QCOMPARE(timeOuts.count(), 0);
}

void TestCLmUAVConnectObj::heartbeatTimeoutDisconnectsAndReturnReconnects()
{
    WorkerRun run(QStringLiteral("none"));
    CSkySimProcess sim;
    CLmUasProvide* pUas = ConnectOverUdp(run, sim, {"--silent-after", "1", "--silent-for", "4"});
    QVERIFY(pUas);

    QTRY_COMPARE_WITH_TIMEOUT(run.m_disconnected.size(), 1, 5000);
    QCOMPARE(run.m_disconnected.first(), pUas);
    QCOMPARE(run.m_connected.size(), 1);
    QTRY_COMPARE_WITH_TIMEOUT(run.m_connected.size(), 2, 8000);
    QCOMPARE(run.m_connected.last(), pUas);
}

void TestCLmUAVConnectObj::serialPortIsReleasedAndTakenBack()
{
    const QString socat = QStandardPaths::findExecutable(QStringLiteral("socat"));
    if (socat.isEmpty())
        QSKIP("socat is not installed");
    QTemporaryDir dir;
    const QString aircraftEnd = dir.filePath(QStringLiteral("aircraft"));
    const QString groundEnd = dir.filePath(QStringLiteral("ground"));
    QProcess pair;
    pair.start(socat, {QStringLiteral("pty,raw,echo=0,link=") + aircraftEnd,
                       QStringLiteral("pty,raw,echo=0,link=") + groundEnd});
    QTRY_VERIFY(QFile::exists(aircraftEnd) && QFile::exists(groundEnd));

    CSkySimProcess sim;
    QVERIFY(sim.Start({"--serial", aircraftEnd}));
    WorkerRun run(groundEnd);
    QTRY_COMPARE_WITH_TIMEOUT(run.m_connected.size(), 1, 5000);
    CLmUasProvide* pUas = run.m_connected.first();

    QSerialPort other;
    other.setPortName(groundEnd);
    QVERIFY(!other.open(QIODevice::ReadWrite));

    run.Invoke("slotFreeSerialPort");
    QTRY_COMPARE(run.m_disconnected.size(), 1);
    QTRY_VERIFY(other.isOpen() || other.open(QIODevice::ReadWrite));
    other.close();

    run.Invoke("slotConnectSerialPort");
    QTRY_COMPARE_WITH_TIMEOUT(run.m_connected.size(), 2, 5000);
    QCOMPARE(run.m_connected.last(), pUas);

    pair.terminate();
    pair.waitForFinished();
}

QTEST_GUILESS_MAIN(TestCLmUAVConnectObj)
#include "tst_CLmUAVConnectObj.moc"
