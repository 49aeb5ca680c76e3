#include "CLmControl.h"
#include "CLmDeployConfig.h"
#include "CLmFaultDiagnosisSection.h"
#include "CLmLogDownloadController.h"
#include "CLmUAVConnectObj.h"
#include "CLmUasProvide.h"
#include "CSkyCloudProcess.h"
#include "CSkySimProcess.h"
#include "LogDownloadDialog.h"
#include "ModalAnswer.h"
#include "SimLogStore.h"
#include "TestSession.h"

#include <QComboBox>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QStandardItemModel>
#include <QThread>
#include <QtTest>

// The fault-diagnosis section end to end: the logs of skysim listed,
// downloaded over a lossy link, uploaded to skycloud's storage with their
// reports and removed; the stored logs equal the aircraft's byte for byte.
class tst_FaultDiagnosisWithSkySim : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void logsReachTheCloud_data();
    void logsReachTheCloud();

private:
    CLmUasProvide* StartAircraft(const QStringList& options);

    QThread m_uavThread;
    QPointer<CLmUAVConnectObj> m_pUavWorker;
    CSkySimProcess* m_pAircraft = nullptr;
    CSkyCloudProcess* m_pCloud = nullptr;
};

namespace {

constexpr int kLogCount = 3;
constexpr uint32_t kLogSize = 40000;

QList<QJsonObject> Reports(const QString& cloudDataDir)
{
    QFile file(cloudDataDir + QStringLiteral("/bugreports.jsonl"));
    QList<QJsonObject> reports;
    if (file.open(QIODevice::ReadOnly)) {
        while (!file.atEnd())
            reports << QJsonDocument::fromJson(file.readLine()).object();
    }
    return reports;
}

}  // namespace

void tst_FaultDiagnosisWithSkySim::init()
{
    qputenv("SKYCONSOLE_AIRCRAFT_UDP_LISTEN_PORT", "0");
    qputenv("SKYCONSOLE_AIRCRAFT_SERIAL_PORTS", "none");
    m_pCloud = new CSkyCloudProcess;
    QVERIFY(m_pCloud->Start());
    TestSession::PointCloudAt(m_pCloud->BaseUrl());
    TestSession::SetSession(QString::fromLatin1(m_pCloud->SignIn("13800000001")), QStringLiteral("1"));
    CLmControl::GetInstance()->SetNetWorkState(true);
    m_pUavWorker = new CLmUAVConnectObj(nullptr, nullptr);
    m_pUavWorker->moveToThread(&m_uavThread);
    connect(&m_uavThread, &QThread::started, m_pUavWorker, &CLmUAVConnectObj::slotConnectUAVStart);
    connect(&m_uavThread, &QThread::finished, m_pUavWorker, &QObject::deleteLater);
    m_uavThread.start();
    m_pAircraft = new CSkySimProcess;
}

void tst_FaultDiagnosisWithSkySim::cleanup()
{
    delete m_pAircraft;
    m_uavThread.quit();
    m_uavThread.wait();
    delete m_pCloud;
    QDir(CLmLogDownloadController::LogFolder()).removeRecursively();
}

CLmUasProvide* tst_FaultDiagnosisWithSkySim::StartAircraft(const QStringList& options)
{
    QPointer<CLmUasProvide> pHeld;
    connect(m_pUavWorker, &CLmUAVConnectObj::UAV_connected, this, [&pHeld](CLmUasProvide* pUas) { pHeld = pUas; });
    const bool bListening = QTest::qWaitFor([this] { return m_pUavWorker->GetUdpListenPort() != 0; }, 5000);
    const QStringList link{QStringLiteral("--udp"), QStringLiteral("127.0.0.1:%1").arg(m_pUavWorker->GetUdpListenPort())};
    const bool bHeld = bListening && m_pAircraft->Start(link + options)
                       && QTest::qWaitFor([&pHeld] { return !pHeld.isNull(); }, 10000);
    disconnect(m_pUavWorker, &CLmUAVConnectObj::UAV_connected, this, nullptr);
    return bHeld ? pHeld.data() : nullptr;
}

void tst_FaultDiagnosisWithSkySim::logsReachTheCloud_data()
{
    QTest::addColumn<QString>("loss");
    QTest::newRow("clean link") << "0";
    QTest::newRow("5 % of packets lost") << "5";
}

void tst_FaultDiagnosisWithSkySim::logsReachTheCloud()
{
    QFETCH(QString, loss);
    CLmUasProvide* pUas = StartAircraft({"--logs", QString::number(kLogCount), "--log-size", QString::number(kLogSize),
                                         "--loss", loss, "--seed", "7"});
    QVERIFY(pUas);

    CLmFaultDiagnosisSection section;
    section.show();
    section.SetCurrentUas(pUas);
    auto* upload = section.findChild<QPushButton*>(QStringLiteral("m_pBtnUpload"));
    QStandardItemModel* table = section.LogDialog()->Download()->Model();
    QTRY_COMPARE_WITH_TIMEOUT(upload->text(), QStringLiteral("UpLoad"), 10000);
    QCOMPARE(table->rowCount(), kLogCount - 1);
    QCOMPARE(section.LogDialog()->windowTitle(), QStringLiteral("Log Download from MAV  1"));

    section.findChild<QLineEdit*>(QStringLiteral("m_pEditSoftwareVersion"))->setText(QStringLiteral("2.4.1"));
    section.findChild<QPlainTextEdit*>(QStringLiteral("m_pEditQuestion"))->setPlainText(QStringLiteral("Yaw drift"));
    QVERIFY(!section.findChild<QLineEdit*>(QStringLiteral("m_pEditOsVersion"))->text().isEmpty());
    section.findChild<QComboBox*>(QStringLiteral("m_pComboLevel"))->setCurrentIndex(2);
    for (int row = 0; row < table->rowCount(); ++row)
        table->item(row, CLmLogDownloadController::ColumnSelection)->setCheckState(Qt::Checked);

    QString answer;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &answer, 90000, "CLmMessageBox", &section);
    upload->click();
    QTRY_COMPARE_WITH_TIMEOUT(upload->text(), QStringLiteral("Continue to upload"), 90000);
    QVERIFY2(answer.contains(QStringLiteral("report has been received")), qPrintable(answer));

    const QList<QJsonObject> reports = Reports(m_pCloud->DataDir());
    QCOMPARE(reports.size(), kLogCount - 1);
    const QDir storage(m_pCloud->DataDir() + QStringLiteral("/storage/airlog"));
    for (int log = 1; log < kLogCount; ++log) {
        const QJsonObject& report = reports.at(log - 1);
        QCOMPARE(report.value(QStringLiteral("level")).toInt(), 3);
        QCOMPARE(report.value(QStringLiteral("data")).toString(), QStringLiteral("Yaw drift"));
        const QString url = report.value(QStringLiteral("log_url")).toString();
        QVERIFY2(url.contains(QStringLiteral("LM_%1_").arg(log)), qPrintable(url));
        QFile stored(storage.filePath(QUrl::fromPercentEncoding(url.section(QLatin1Char('/'), -1).toUtf8())));
        QVERIFY2(stored.open(QIODevice::ReadOnly), qPrintable(stored.fileName()));
        QByteArray expected(int(kLogSize), Qt::Uninitialized);
        SimLogStore::fill(uint16_t(log), 0, kLogSize, reinterpret_cast<uint8_t*>(expected.data()));
        QVERIFY(stored.readAll() == expected);
    }
    QVERIFY(QDir(CLmLogDownloadController::LogFolder()).entryList({QStringLiteral("*.zf")}).isEmpty());
    QCOMPARE(table->item(0, CLmLogDownloadController::ColumnSelection)->checkState(), Qt::Unchecked);
}

QTEST_MAIN(tst_FaultDiagnosisWithSkySim)
#include "tst_FaultDiagnosisWithSkySim.moc"
