#include "CFakeLogUas.h"
#include "CLmLogDownloadController.h"
#include "CLmLogUploadController.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QtTest>

// The log list, the choice and the download of one log against an aircraft
// played by the test: lost blocks, the progress steps and data that does not
// belong to the transfer.
class tst_LogDownloadController : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void logListRows();
    void nothingChosenRequestsNothing();
    void lostBlocksAreRecovered_data();
    void lostBlocksAreRecovered();
    void progressSteps_data();
    void progressSteps();
    void foreignDataIsDropped_data();
    void foreignDataIsDropped();
    void reportChecksInOrder_data();
    void reportChecksInOrder();

private:
    // Lists logs 1 and 2 of this size, chooses log 1 and starts its download.
    void StartDownloadOfLog1(quint32 size);
    // Plays the aircraft until nothing more is asked: every request is
    // answered block by block, blocks in lost are dropped once each time
    // they are listed, and a pause with nothing asked is the 700 ms silence.
    void PlayAircraft(quint32 size, QList<int> lost);
    QString RequestsText() const;

    CFakeLogUas* m_pUas = nullptr;
    CLmLogDownloadController* m_pController = nullptr;
};

namespace {

constexpr uint kLogTime = 1714558927;  // 2024-05-01 10:22:07 UTC

}  // namespace

void tst_LogDownloadController::init()
{
    m_pUas = new CFakeLogUas;
    m_pController = new CLmLogDownloadController;
    m_pController->setActiveUAS(m_pUas);
}

void tst_LogDownloadController::cleanup()
{
    delete m_pController;
    delete m_pUas;
    QDir(CLmLogDownloadController::LogFolder()).removeRecursively();
}

void tst_LogDownloadController::StartDownloadOfLog1(quint32 size)
{
    Q_EMIT m_pUas->logEntry(1, kLogTime, size, 1, 2, 2);
    Q_EMIT m_pUas->logEntry(1, kLogTime + 60, size, 2, 2, 2);
    m_pController->Model()->item(0, CLmLogDownloadController::ColumnSelection)->setCheckState(Qt::Checked);
    QVERIFY(m_pController->getSelectedLogs());
    m_pController->triggerNextDownloadRequest();
}

void tst_LogDownloadController::PlayAircraft(quint32 size, QList<int> lost)
{
    int answered = 0;
    for (int silences = 0; silences < 50;) {
        if (answered == m_pUas->m_lstData.size()) {
            ++silences;
            m_pController->processDownloadedLogData();
            if (answered == m_pUas->m_lstData.size())
                return;
            continue;
        }
        const CFakeLogUas::SDataRequest request = m_pUas->m_lstData.at(answered++);
        const quint64 end = request.nCount == CLmLogBlockTable::ToTheEnd
                                ? size
                                : qMin<quint64>(size, quint64(request.nOffset) + request.nCount);
        for (quint32 offset = request.nOffset; offset < end; offset += CLmLogBlockTable::BlockSize) {
            if (lost.removeOne(int(offset / CLmLogBlockTable::BlockSize)))
                continue;
            m_pUas->SendBlock(request.nLogId, offset, quint8(qMin<quint64>(CLmLogBlockTable::BlockSize, end - offset)));
        }
    }
}

QString tst_LogDownloadController::RequestsText() const
{
    QStringList requests;
    for (const CFakeLogUas::SDataRequest& request : qAsConst(m_pUas->m_lstData)) {
        const QString count =
            request.nCount == CLmLogBlockTable::ToTheEnd ? QStringLiteral("all") : QString::number(request.nCount);
        requests << QStringLiteral("%1+%2").arg(request.nOffset).arg(count);
    }
    return requests.join(QLatin1Char(' '));
}

void tst_LogDownloadController::logListRows()
{
    QCOMPARE(m_pUas->m_lstOther, QStringList{QStringLiteral("list 0-65535")});
    QSignalSpy button(m_pController, &CLmLogDownloadController::UploadButtonChanged);
    for (quint16 id = 1; id <= 3; ++id)
        Q_EMIT m_pUas->logEntry(1, kLogTime + id, 1000 * id, id, 3, 3);
    // The newest log's row is left out once the list is complete.
    QCOMPARE(m_pController->Model()->rowCount(), 2);
    QCOMPARE(m_pController->Model()->item(1, CLmLogDownloadController::ColumnName)->text(), QStringLiteral("LM_2"));
    QCOMPARE(m_pController->Model()->item(1, CLmLogDownloadController::ColumnSize)->text(), QStringLiteral("2000"));
    QCOMPARE(m_pController->Entries().size(), 3);
    QCOMPARE(button.count(), 1);
    QCOMPARE(button.at(0).at(1).toString(), QStringLiteral("UpLoad"));
    QCOMPARE(CLmLogDownloadController::LogFileName(3, kLogTime), QStringLiteral("LM_3_2024-05-01_10-22-07.zf"));

    Q_EMIT m_pUas->logEntry(1, 0, 0, 0, 0, 0);
    QVERIFY(m_pController->Entries().isEmpty());
    QCOMPARE(m_pController->Model()->rowCount(), 2);
}

void tst_LogDownloadController::nothingChosenRequestsNothing()
{
    Q_EMIT m_pUas->logEntry(1, kLogTime, 500, 1, 2, 2);
    Q_EMIT m_pUas->logEntry(1, kLogTime, 500, 2, 2, 2);
    QSignalSpy message(m_pController, &CLmLogDownloadController::Message);
    QVERIFY(!m_pController->getSelectedLogs());
    m_pController->triggerNextDownloadRequest();
    QCOMPARE(message.count(), 1);
    QCOMPARE(message.at(0).at(1).toString(), QStringLiteral("Please choose to upload files"));
    QVERIFY(m_pUas->m_lstData.isEmpty());
}

void tst_LogDownloadController::lostBlocksAreRecovered_data()
{
    QTest::addColumn<quint32>("size");
    QTest::addColumn<QList<int>>("lost");
    QTest::addColumn<QString>("requests");

    // 1795 bytes: blocks 0..19, the last one 85 bytes long.
    QTest::newRow("none") << 1795u << QList<int>{} << "0+all";
    QTest::newRow("one") << 1795u << QList<int>{5} << "0+all 450+90";
    QTest::newRow("the first") << 1795u << QList<int>{0} << "0+all 0+90";
    QTest::newRow("a run") << 1795u << QList<int>{5, 6, 7, 8} << "0+all 450+360";
    QTest::newRow("two runs") << 1795u << QList<int>{3, 10, 11} << "0+all 270+90 900+180";
    QTest::newRow("the tail") << 1795u << QList<int>{17, 18, 19} << "0+all 1530+all";
    QTest::newRow("the last block") << 1795u << QList<int>{19} << "0+all 1710+all";
    QTest::newRow("lost again") << 1795u << QList<int>{5, 5} << "0+all 450+90 450+90";
    QTest::newRow("run and tail") << 1800u << QList<int>{2, 3, 19} << "0+all 180+180 1710+all";
}

void tst_LogDownloadController::lostBlocksAreRecovered()
{
    QFETCH(quint32, size);
    QFETCH(QList<int>, lost);
    QFETCH(QString, requests);

    QSignalSpy finished(m_pController, &CLmLogDownloadController::LogDownloadFinished);
    StartDownloadOfLog1(size);
    PlayAircraft(size, lost);
    QCOMPARE(RequestsText(), requests);
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(m_pController->Waiting().size(), 1);

    QFile log(m_pController->Waiting().first().first);
    QCOMPARE(QFileInfo(log).fileName(), CLmLogDownloadController::LogFileName(1, kLogTime));
    QVERIFY(log.open(QIODevice::ReadOnly));
    const QByteArray bytes = log.readAll();
    QCOMPARE(bytes.size(), int(size));
    for (quint32 offset = 0; offset < size; ++offset)
        QVERIFY2(bytes.at(int(offset)) == CFakeLogUas::LogByte(1, offset), qPrintable(QString::number(offset)));
    QVERIFY(m_pUas->m_lstOther.contains(QStringLiteral("end")));
}

void tst_LogDownloadController::progressSteps_data()
{
    QTest::addColumn<int>("packetBytes");
    QTest::addColumn<int>("packets");
    QTest::addColumn<QList<int>>("shown");

    QTest::newRow("720 bytes are not enough") << 90 << 8 << QList<int>{};
    QTest::newRow("810 bytes") << 90 << 9 << QList<int>{810};
    QTest::newRow("exactly 720 more") << 90 << 17 << QList<int>{810};
    QTest::newRow("two steps") << 90 << 18 << QList<int>{810, 1620};
    QTest::newRow("short packets") << 50 << 31 << QList<int>{750, 1500};
}

void tst_LogDownloadController::progressSteps()
{
    QFETCH(int, packetBytes);
    QFETCH(int, packets);
    QFETCH(QList<int>, shown);

    StartDownloadOfLog1(100000);
    QSignalSpy progress(m_pController, &CLmLogDownloadController::ProgressShown);
    for (int packet = 0; packet < packets; ++packet)
        m_pUas->SendBlock(1, quint32(packet * 90), quint8(packetBytes));
    QList<int> values;
    for (const QList<QVariant>& update : qAsConst(progress)) {
        values << update.at(1).toInt();
        QCOMPARE(update.at(0).toString(), QStringLiteral("Reading airborne log 1/1"));
        QCOMPARE(update.at(2).toInt(), 100000);
    }
    QCOMPARE(values, shown);
}

void tst_LogDownloadController::foreignDataIsDropped_data()
{
    QTest::addColumn<bool>("downloading");
    QTest::addColumn<int>("systemId");
    QTest::addColumn<int>("logId");

    QTest::newRow("another aircraft") << true << 2 << 1;
    QTest::newRow("another log") << true << 1 << 2;
    QTest::newRow("no transfer running") << false << 1 << 1;
}

void tst_LogDownloadController::foreignDataIsDropped()
{
    QFETCH(bool, downloading);
    QFETCH(int, systemId);
    QFETCH(int, logId);

    Q_EMIT m_pUas->logEntry(1, kLogTime, 1800, 1, 2, 2);
    Q_EMIT m_pUas->logEntry(1, kLogTime, 1800, 2, 2, 2);
    if (downloading) {
        m_pController->Model()->item(0, CLmLogDownloadController::ColumnSelection)->setCheckState(Qt::Checked);
        QVERIFY(m_pController->getSelectedLogs());
        m_pController->triggerNextDownloadRequest();
    }
    QSignalSpy written(m_pController, &CLmLogDownloadController::write2File);
    QSignalSpy finished(m_pController, &CLmLogDownloadController::CurLogDownloadFinished);
    const int requestsBefore = m_pUas->m_lstData.size();
    for (quint32 offset = 0; offset < 1800; offset += 90)
        m_pUas->SendBlock(quint16(logId), offset, 90, systemId);
    m_pController->processDownloadedLogData();
    QCOMPARE(written.count(), 0);
    QCOMPARE(finished.count(), 0);
    QCOMPARE(m_pUas->m_lstData.size(), requestsBefore);
}

void tst_LogDownloadController::reportChecksInOrder_data()
{
    QTest::addColumn<QString>("software");
    QTest::addColumn<QString>("os");
    QTest::addColumn<QString>("question");
    QTest::addColumn<QString>("problem");

    QTest::newRow("all empty") << "" << "" << "" << "Software version cannot be empty.";
    QTest::newRow("software blank") << "  " << "Debian 12" << "motor 2 stops" << "Software version cannot be empty.";
    QTest::newRow("os empty") << "2.4.1" << "" << "" << "OS version cannot be empty.";
    QTest::newRow("question empty") << "2.4.1" << "Debian 12" << "" << "Question description cannot be empty.";
    QTest::newRow("complete") << "2.4.1" << "Debian 12" << "motor 2 stops" << "";
}

void tst_LogDownloadController::reportChecksInOrder()
{
    QFETCH(QString, software);
    QFETCH(QString, os);
    QFETCH(QString, question);
    QFETCH(QString, problem);

    CLmLogUploadController upload(m_pController);
    CLmLogUploadController::SReport report;
    report.strSoftwareVersion = software;
    report.strOsVersion = os;
    report.strQuestion = question;
    upload.SetReport(report);
    QCOMPARE(upload.ReportProblem(), problem);
}

QTEST_GUILESS_MAIN(tst_LogDownloadController)
#include "tst_LogDownloadController.moc"
