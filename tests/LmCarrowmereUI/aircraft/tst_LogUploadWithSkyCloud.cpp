#include "CCannedHttpPeer.h"
#include "CFakeLogUas.h"
#include "CLmControl.h"
#include "CLmDeployConfig.h"
#include "CLmLogDownloadController.h"
#include "CLmLogUploadController.h"
#include "CSkyCloudProcess.h"
#include "LmLogMultipart.h"
#include "TestSession.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QtTest>

// The upload of downloaded logs through the storage slices of skycloud, with
// the fault report: a new file, a file the storage already holds, a session
// the storage resumes, the service going away in the middle and a storage
// answer that does not parse.
class tst_LogUploadWithSkyCloud : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void slicesReachTheStorage_data();
    void slicesReachTheStorage();
    void storageKeepsOnlyTheAnnouncedBytes_data();
    void storageKeepsOnlyTheAnnouncedBytes();
    void serviceGoneDuringSlicesResumesLater();
    void faultyStorageKeepsTheLog_data();
    void faultyStorageKeepsTheLog();
    void offlineAsksBeforeSending();

private:
    void SignIn();
    // Downloads log 1 of this size from the played aircraft; its path.
    QString DownloadLog(quint32 size);
    QByteArray ExpectedLog(quint32 size) const;
    // The stored copies in the storage of skycloud.
    QStringList StoredLogs() const;
    int ReportCount() const;
    // Posts a storage start (and a first slice of sliceBytes when not 0) the
    // way an earlier, interrupted upload would have.
    void PrepareStorage(const QByteArray& log, int sliceBytes);
    // Posts a multipart body to the storage path of name, under a fresh
    // authorisation; the storage's answer.
    QJsonObject PostToStorage(const QByteArray& name, const QByteArray& body);
    QJsonObject PostSlice(const QByteArray& name, const QString& session, const QByteArray& log, int offset);

    CSkyCloudProcess* m_pCloud = nullptr;
    CFakeLogUas* m_pUas = nullptr;
    CLmLogDownloadController* m_pDownload = nullptr;
    CLmLogUploadController* m_pUpload = nullptr;
    QByteArray m_token;
};

namespace {

constexpr int kSliceSize = 1048576;
constexpr quint32 kLogSize = 2500000;  // three slices of the storage

QJsonObject DataOf(const QJsonObject& answer)
{
    return answer.value(QStringLiteral("data")).toObject();
}

}  // namespace

void tst_LogUploadWithSkyCloud::init()
{
    m_pCloud = new CSkyCloudProcess({QStringLiteral("--slice-size"), QString::number(kSliceSize)});
    QVERIFY(m_pCloud->Start());
    SignIn();
    CLmControl::GetInstance()->SetNetWorkState(true);
    m_pUas = new CFakeLogUas;
    m_pDownload = new CLmLogDownloadController;
    m_pUpload = new CLmLogUploadController(m_pDownload);
    CLmLogUploadController::SReport report;
    report.strSoftwareVersion = QStringLiteral("2.4.1");
    report.strOsVersion = QStringLiteral("Debian GNU/Linux 12");
    report.strQuestion = QStringLiteral("Motor 2 stopped in flight & restarted");
    report.nLevel = 3;
    m_pUpload->SetReport(report);
}

void tst_LogUploadWithSkyCloud::cleanup()
{
    delete m_pUpload;
    delete m_pDownload;
    delete m_pUas;
    delete m_pCloud;
    qunsetenv("SKYCONSOLE_STORAGE_BASE_URL");
    CLmDeployConfig::Reload();
    QDir(CLmLogDownloadController::LogFolder()).removeRecursively();
}

void tst_LogUploadWithSkyCloud::SignIn()
{
    TestSession::PointCloudAt(m_pCloud->BaseUrl());
    m_token = m_pCloud->SignIn("13800000001");
    QVERIFY(!m_token.isEmpty());
    TestSession::SetSession(QString::fromLatin1(m_token), QStringLiteral("1"));
}

QString tst_LogUploadWithSkyCloud::DownloadLog(quint32 size)
{
    QSignalSpy finished(m_pDownload, &CLmLogDownloadController::LogDownloadFinished);
    m_pDownload->setActiveUAS(m_pUas);
    m_pUas->AnswerAsLogsOf(size);
    Q_EMIT m_pUas->logEntry(1, 1714558927, size, 1, 2, 2);
    Q_EMIT m_pUas->logEntry(1, 1714558990, size, 2, 2, 2);
    m_pDownload->Model()->item(0, CLmLogDownloadController::ColumnSelection)->setCheckState(Qt::Checked);
    if (!m_pDownload->getSelectedLogs() || !finished.wait(20000) || m_pDownload->Waiting().size() != 1)
        return {};
    return m_pDownload->Waiting().first().first;
}

QByteArray tst_LogUploadWithSkyCloud::ExpectedLog(quint32 size) const
{
    QByteArray log(int(size), Qt::Uninitialized);
    for (quint32 offset = 0; offset < size; ++offset)
        log[int(offset)] = CFakeLogUas::LogByte(1, offset);
    return log;
}

QStringList tst_LogUploadWithSkyCloud::StoredLogs() const
{
    return QDir(m_pCloud->DataDir() + QStringLiteral("/storage/airlog")).entryList(QDir::Files);
}

int tst_LogUploadWithSkyCloud::ReportCount() const
{
    QFile reports(m_pCloud->DataDir() + QStringLiteral("/bugreports.jsonl"));
    return reports.open(QIODevice::ReadOnly) ? reports.readAll().count('\n') : 0;
}

QJsonObject tst_LogUploadWithSkyCloud::PostToStorage(const QByteArray& name, const QByteArray& body)
{
    QNetworkAccessManager network;
    QNetworkRequest authorization(QUrl(QString::fromLatin1(m_pCloud->BaseUrl() + "/file/authorization")));
    authorization.setRawHeader("token", m_token);
    QNetworkReply* reply = network.get(authorization);
    if (!QSignalSpy(reply, &QNetworkReply::finished).wait(5000))
        return {};
    const QByteArray grant =
        QJsonDocument::fromJson(reply->readAll())["data"]["Authorization"].toString().toLatin1();
    delete reply;

    QNetworkRequest storage(
        QUrl(QString::fromLatin1(m_pCloud->BaseUrl() + CLmLogUploadController::StoragePath + name)));
    storage.setRawHeader("Authorization", grant);
    storage.setRawHeader("Content-Type", LmLogMultipart::ContentType());
    reply = network.post(storage, body);
    if (!QSignalSpy(reply, &QNetworkReply::finished).wait(10000))
        return {};
    const QJsonObject answer = QJsonDocument::fromJson(reply->readAll()).object();
    delete reply;
    return answer;
}

QJsonObject tst_LogUploadWithSkyCloud::PostSlice(const QByteArray& name, const QString& session,
                                                 const QByteArray& log, int offset)
{
    return PostToStorage(name, LmLogMultipart::SliceHead(offset, session, QString::fromLatin1(name))
                                   + log.mid(offset, kSliceSize) + LmLogMultipart::SliceTail());
}

void tst_LogUploadWithSkyCloud::PrepareStorage(const QByteArray& log, int sliceBytes)
{
    const QByteArray name = "earlier_" + QByteArray::number(sliceBytes);
    const QByteArray sha = QCryptographicHash::hash(log, QCryptographicHash::Sha1).toHex();
    const QJsonObject started = PostToStorage(name, LmLogMultipart::StartBody(log.size(), sha));
    QCOMPARE(started["code"].toInt(-1), 0);
    if (sliceBytes == 0)
        return;
    const QJsonObject answer =
        PostToStorage(name, LmLogMultipart::SliceHead(0, started["data"]["session"].toString(), QString::fromLatin1(name))
                                + log.left(sliceBytes) + LmLogMultipart::SliceTail());
    QCOMPARE(answer["code"].toInt(-1), 0);
}

void tst_LogUploadWithSkyCloud::slicesReachTheStorage_data()
{
    QTest::addColumn<QString>("held");
    QTest::addColumn<int>("firstSliceFrom");

    // held: what the storage has of the log before the upload; firstSliceFrom:
    // where the first slice starts, -1 for no slice at all.
    QTest::newRow("new file") << "nothing" << 0;
    QTest::newRow("file already held") << "whole" << -1;
    QTest::newRow("resumed session") << "first slice" << kSliceSize;
}

void tst_LogUploadWithSkyCloud::slicesReachTheStorage()
{
    QFETCH(QString, held);
    QFETCH(int, firstSliceFrom);

    const QByteArray log = ExpectedLog(kLogSize);
    if (held == QLatin1String("whole"))
        PrepareStorage(log, log.size());
    else if (held == QLatin1String("first slice"))
        PrepareStorage(log, kSliceSize);
    const QString path = DownloadLog(kLogSize);
    QVERIFY(!path.isEmpty());

    QSignalSpy progress(m_pUpload, &CLmLogUploadController::ProgressShown);
    QSignalSpy completed(m_pUpload, &CLmLogUploadController::UploadCompleted);
    QSignalSpy messages(m_pUpload, &CLmLogUploadController::Message);
    m_pUpload->slotUploadToCloud();
    QVERIFY(completed.wait(30000));
    QCOMPARE(messages.count(), 0);

    if (firstSliceFrom < 0) {
        QCOMPARE(progress.count(), 0);
    } else {
        QVERIFY(!progress.isEmpty());
        const int firstValue = progress.first().at(1).toInt();
        QVERIFY2(firstValue > firstSliceFrom && firstValue <= firstSliceFrom + kSliceSize + 1024,
                 qPrintable(QString::number(firstValue)));
        QCOMPARE(progress.last().at(1).toInt(), int(kLogSize));
    }
    const QStringList stored = StoredLogs();
    QCOMPARE(stored.size(), 1);
    QFile copy(m_pCloud->DataDir() + QStringLiteral("/storage/airlog/") + stored.first());
    QVERIFY(copy.open(QIODevice::ReadOnly));
    QVERIFY(copy.readAll() == log);
    QCOMPARE(ReportCount(), 1);
    QVERIFY(!QFile::exists(path));
    QVERIFY(m_pDownload->Waiting().isEmpty());
}

void tst_LogUploadWithSkyCloud::storageKeepsOnlyTheAnnouncedBytes_data()
{
    QTest::addColumn<bool>("repeatFirstSlice");
    QTest::addColumn<bool>("restartAfterFirstSlice");
    QTest::addColumn<int>("changedByte");  // -1: the bytes sent are the announced ones

    QTest::newRow("slices in order") << false << false << -1;
    QTest::newRow("first slice sent twice") << true << false << -1;
    QTest::newRow("service restarted between slices") << false << true << -1;
    QTest::newRow("a byte changed in the first slice") << false << false << 17;
    QTest::newRow("a byte changed in the last slice") << false << false << int(kLogSize) - 1;
}

// The storage's own side of the slices: the announced SHA-1 is checked over
// the bytes as they come, across repeated slices and restarts of the service.
void tst_LogUploadWithSkyCloud::storageKeepsOnlyTheAnnouncedBytes()
{
    QFETCH(bool, repeatFirstSlice);
    QFETCH(bool, restartAfterFirstSlice);
    QFETCH(int, changedByte);

    const QByteArray log = ExpectedLog(kLogSize);
    const QByteArray startBody =
        LmLogMultipart::StartBody(log.size(), QCryptographicHash::hash(log, QCryptographicHash::Sha1).toHex());
    QByteArray sent = log;
    if (changedByte >= 0)
        sent[changedByte] = char(sent[changedByte] ^ 0x5a);

    const QByteArray name = "direct.zf";
    QJsonObject answer = PostToStorage(name, startBody);
    const QString session = DataOf(answer)["session"].toString();
    QVERIFY(!session.isEmpty());
    answer = PostSlice(name, session, sent, 0);
    if (repeatFirstSlice)
        answer = PostSlice(name, session, sent, 0);
    if (restartAfterFirstSlice) {
        m_pCloud->Stop();
        QVERIFY(m_pCloud->Start());
        SignIn();
        answer = PostToStorage(name, startBody);
    }
    QCOMPARE(answer.value("code").toInt(-1), 0);
    QCOMPARE(DataOf(answer)["offset"].toInt(), kSliceSize);
    while (answer.value("code").toInt(-1) == 0 && DataOf(answer)["access_url"].toString().isEmpty())
        answer = PostSlice(name, session, sent, DataOf(answer)["offset"].toInt());

    if (changedByte >= 0) {
        QVERIFY(answer.value("code").toInt(0) != 0);
        QVERIFY(StoredLogs().isEmpty());
        QCOMPARE(DataOf(PostToStorage(name, startBody))["offset"].toInt(-1), 0);
        return;
    }
    QVERIFY(!DataOf(answer)["access_url"].toString().isEmpty());
    QCOMPARE(StoredLogs(), QStringList{QString::fromLatin1(name)});
    QFile copy(m_pCloud->DataDir() + QStringLiteral("/storage/airlog/") + QString::fromLatin1(name));
    QVERIFY(copy.open(QIODevice::ReadOnly));
    QVERIFY(copy.readAll() == log);
}

void tst_LogUploadWithSkyCloud::serviceGoneDuringSlicesResumesLater()
{
    const QString path = DownloadLog(kLogSize);
    QVERIFY(!path.isEmpty());
    QSignalSpy messages(m_pUpload, &CLmLogUploadController::Message);
    QSignalSpy button(m_pUpload, &CLmLogUploadController::UploadButtonChanged);
    connect(m_pUpload, &CLmLogUploadController::ProgressShown, this, [this] { m_pCloud->Stop(); });
    m_pUpload->slotUploadToCloud();
    QVERIFY(messages.wait(30000));
    disconnect(m_pUpload, &CLmLogUploadController::ProgressShown, this, nullptr);
    QCOMPARE(messages.first().at(1).toString(), QStringLiteral("Upload failed, please re-upload"));
    QCOMPARE(button.last().at(1).toString(), QStringLiteral("Re-upload"));
    QVERIFY(QFile::exists(path));
    QCOMPARE(m_pDownload->Waiting().size(), 1);

    QVERIFY(m_pCloud->Start());
    SignIn();
    QSignalSpy completed(m_pUpload, &CLmLogUploadController::UploadCompleted);
    m_pUpload->slotUploadToCloud();
    QVERIFY(completed.wait(30000));
    QCOMPARE(StoredLogs().size(), 1);
    QFile copy(m_pCloud->DataDir() + QStringLiteral("/storage/airlog/") + StoredLogs().first());
    QVERIFY(copy.open(QIODevice::ReadOnly));
    QVERIFY(copy.readAll() == ExpectedLog(kLogSize));
    QVERIFY(!QFile::exists(path));
}

void tst_LogUploadWithSkyCloud::faultyStorageKeepsTheLog_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("requests");
    QTest::newRow("reply that does not parse") << QByteArray("<html>gateway</html>") << 1;
    // The start and three copies of the first slice, then the upload ends.
    QTest::newRow("same slice asked for again and again")
        << QByteArray(R"({"code":0,"message":"","data":{"session":"s1","offset":0,"slice_size":1000}})") << 4;
}

void tst_LogUploadWithSkyCloud::faultyStorageKeepsTheLog()
{
    QFETCH(QByteArray, answer);
    QFETCH(int, requests);
    CCannedHttpPeer storage(CCannedHttpPeer::Reply("200 OK", answer));
    qputenv("SKYCONSOLE_STORAGE_BASE_URL", storage.BaseUrl());
    CLmDeployConfig::Reload();
    const QString path = DownloadLog(3000);
    QVERIFY(!path.isEmpty());
    QSignalSpy messages(m_pUpload, &CLmLogUploadController::Message);
    m_pUpload->slotUploadToCloud();
    QVERIFY(messages.wait(10000));
    QCOMPARE(messages.first().at(1).toString(), QStringLiteral("Upload failed, please re-upload"));
    QCOMPARE(storage.RequestCount(), requests);
    QVERIFY(QFile::exists(path));
    QCOMPARE(ReportCount(), 0);
}

void tst_LogUploadWithSkyCloud::offlineAsksBeforeSending()
{
    const QString path = DownloadLog(3000);
    QVERIFY(!path.isEmpty());
    CLmControl::GetInstance()->SetNetWorkState(false);
    QSignalSpy question(m_pUpload, &CLmLogUploadController::NetworkQuestion);
    QSignalSpy buttons(m_pUpload, &CLmLogUploadController::ButtonsEnabled);
    m_pUpload->slotUploadToCloud();
    QCOMPARE(question.count(), 1);
    QCOMPARE(buttons.count(), 0);

    // "Retry" once the network is back goes on with the upload.
    CLmControl::GetInstance()->SetNetWorkState(true);
    QSignalSpy completed(m_pUpload, &CLmLogUploadController::UploadCompleted);
    m_pUpload->slotUploadToCloud();
    QVERIFY(completed.wait(10000));
    QCOMPARE(ReportCount(), 1);
}

QTEST_GUILESS_MAIN(tst_LogUploadWithSkyCloud)
#include "tst_LogUploadWithSkyCloud.moc"
