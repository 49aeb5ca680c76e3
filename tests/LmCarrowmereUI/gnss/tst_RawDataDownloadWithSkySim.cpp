#include "CLmRawDataDownloadController.h"
#include "CLmRtkDataDownloadObject.h"
#include "CLmRtkDataLink.h"
#include "CLmTrimbleDataWrite.h"
#include "CLmUasProvide.h"
#include "CLoopbackAircraft.h"
#include "CSkySimProcess.h"
#include "SimRawDataStore.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <ctime>
#include <memory>

// The data-download controller against the aircraft emulator's receiver
// over loopback UDP: what lands on disk, and what a cut link leaves behind.
class tst_RawDataDownloadWithSkySim : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void downloadMatchesReceiver_data();
    void downloadMatchesReceiver();
    void cutMidDownloadLeavesOnlyWholeFiles_data();
    void cutMidDownloadLeavesOnlyWholeFiles();

private:
    // Starts skysim talking to the link; false when it did not start.
    bool StartSim(CSkySimProcess& sim, const QStringList& arguments);
    bool ListFolders(int count);
    QByteArray Expected(quint16 folderId, QList<quint16> entries, quint32 size) const;
    QByteArray FileBytes(const QString& name) const;
    QStringList FilesOnDisk() const;

    std::unique_ptr<CLoopbackAircraft> m_pAircraft;
    std::unique_ptr<CLmRawDataDownloadController> m_pController;
    std::unique_ptr<QTemporaryDir> m_pTarget;
};

void tst_RawDataDownloadWithSkySim::initTestCase()
{
    qputenv("TZ", "UTC");
    tzset();
}

void tst_RawDataDownloadWithSkySim::init()
{
    m_pAircraft = std::make_unique<CLoopbackAircraft>();
    m_pController = std::make_unique<CLmRawDataDownloadController>();
    m_pTarget = std::make_unique<QTemporaryDir>();
    m_pController->SetTargetDir(m_pTarget->path());
}

void tst_RawDataDownloadWithSkySim::cleanup()
{
    m_pController.reset();
    m_pAircraft.reset();
    m_pTarget.reset();
}

bool tst_RawDataDownloadWithSkySim::StartSim(CSkySimProcess& sim, const QStringList& arguments)
{
    return sim.Start(m_pAircraft->SimArguments() + arguments);
}

bool tst_RawDataDownloadWithSkySim::ListFolders(int count)
{
    if (!m_pController->Uas())
        m_pController->SetUas(m_pAircraft->Uas());
    else
        m_pController->RefreshFolders();
    return QTest::qWaitFor([this, count] { return m_pController->Folders().size() == count; }, 15000);
}

QByteArray tst_RawDataDownloadWithSkySim::Expected(quint16 folderId, QList<quint16> entries, quint32 size) const
{
    QByteArray bytes;
    for (quint16 entry : entries) {
        QByteArray part(int(size), '\0');
        SimRawDataStore::fill(folderId, entry, 0, size, reinterpret_cast<uint8_t*>(part.data()));
        bytes += part;
    }
    return bytes;
}

QByteArray tst_RawDataDownloadWithSkySim::FileBytes(const QString& name) const
{
    QFile file(QDir(m_pTarget->path()).filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

QStringList tst_RawDataDownloadWithSkySim::FilesOnDisk() const
{
    return QDir(m_pTarget->path()).entryList(QDir::Files, QDir::Name);
}

void tst_RawDataDownloadWithSkySim::downloadMatchesReceiver_data()
{
    QTest::addColumn<int>("folders");
    QTest::addColumn<quint32>("size");
    QTest::addColumn<QStringList>("extra");
    QTest::addColumn<QString>("firstName");
    QTest::addColumn<QList<int>>("firstProgress");
    QTest::newRow("recorded at 00:00:10 on the first day of 1970")
        << 1 << 200u << QStringList{"--raw-first-time", "10"} << "1970_01_01-00_00_10" << QList<int>{0, 45, 90, 100};
    QTest::newRow("two folders over a radio losing a tenth of its packets")
        << 2 << 3000u << QStringList{"--loss", "10", "--seed", "3"} << "2024_05_01-08_00_00" << QList<int>{0, 3, 6};
}

void tst_RawDataDownloadWithSkySim::downloadMatchesReceiver()
{
    QFETCH(int, folders);
    QFETCH(quint32, size);
    QFETCH(QStringList, extra);
    QFETCH(QString, firstName);
    QFETCH(QList<int>, firstProgress);
    CSkySimProcess sim;
    QVERIFY(StartSim(sim, QStringList{"--raw-folders", QString::number(folders), "--raw-entries", "3",
                                      "--raw-entry-size", QString::number(size)} + extra));
    QVERIFY(ListFolders(folders));
    QList<quint16> ids;
    for (const STrimbleFolderInfo& folder : m_pController->Folders())
        ids << folder.folderId;
    QCOMPARE(m_pController->Folders().first().folderName, firstName);

    QSignalSpy progress(m_pController.get(), &CLmRawDataDownloadController::ProgressChanged);
    QSignalSpy finished(m_pController.get(), &CLmRawDataDownloadController::DownloadFinished);
    QVERIFY(m_pController->Download(ids));
    QVERIFY(finished.wait(60000));

    QList<int> reported;
    for (int i = 0; i < firstProgress.size(); ++i)
        reported << progress.value(i).value(0).toInt();
    QCOMPARE(reported, firstProgress);
    QStringList expectedFiles;
    for (const STrimbleFolderInfo& folder : m_pController->Folders()) {
        expectedFiles << folder.folderName + ".atom" << folder.folderName + ".pvt";
        QCOMPARE(FileBytes(folder.folderName + ".pvt"), Expected(folder.folderId, {0}, size));
        QCOMPARE(FileBytes(folder.folderName + ".atom"), Expected(folder.folderId, {1, 2}, size));
    }
    expectedFiles.sort();
    QCOMPARE(FilesOnDisk(), expectedFiles);
    QCOMPARE(finished.at(0).at(0).toStringList().size(), expectedFiles.size());
}

void tst_RawDataDownloadWithSkySim::cutMidDownloadLeavesOnlyWholeFiles_data()
{
    QTest::addColumn<bool>("bAircraftGone"); // else the receiver falls silent
    QTest::addColumn<QString>("status");
    QTest::newRow("receiver falls silent") << false << "The receiver stopped answering";
    QTest::newRow("aircraft disconnected") << true << "The aircraft disconnected";
}

// The .pvt is complete before the cut; the .atom has its first part on
// disk and its second cut off: it must not appear, not even as a partial
// copy. Afterwards the section lists
// and downloads from the next aircraft as if nothing had happened.
void tst_RawDataDownloadWithSkySim::cutMidDownloadLeavesOnlyWholeFiles()
{
    QFETCH(bool, bAircraftGone);
    QFETCH(QString, status);
    const QStringList store{"--raw-folders", "1", "--raw-entries", "3", "--raw-entry-size", "30000"};
    CSkySimProcess sim;
    QVERIFY(StartSim(sim, store + QStringList{"--link-rate", "20000"}));
    QVERIFY(ListFolders(1));
    m_pController->Link()->SetQuietMs(200);
    m_pController->Link()->SetRetries(2);
    const QString name = m_pController->Folders().first().folderName;
    QVERIFY(m_pController->Download({1}));
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(QDir(m_pTarget->path()).filePath(name + ".atom" + CLmTrimbleDataWrite::PartialSuffix)),
                             20000);
    if (bAircraftGone) {
        m_pController->SetUas(nullptr);
    } else {
        QVERIFY(sim.Stop());
    }
    QTRY_VERIFY_WITH_TIMEOUT(!m_pController->IsDownloading(), 10000);
    QVERIFY2(m_pController->StatusText().startsWith(status), qPrintable(m_pController->StatusText()));
    QTRY_COMPARE(FilesOnDisk(), QStringList{name + ".pvt"});
    QCOMPARE(FileBytes(name + ".pvt"), Expected(1, {0}, 30000));

    sim.Stop();
    CSkySimProcess next;
    QVERIFY(StartSim(next, store));
    QVERIFY(ListFolders(1));
    QSignalSpy finished(m_pController.get(), &CLmRawDataDownloadController::DownloadFinished);
    QVERIFY(m_pController->Download({1}));
    QVERIFY(finished.wait(30000));
    QCOMPARE(FileBytes(name + ".atom"), Expected(1, {1, 2}, 30000));
}

QTEST_GUILESS_MAIN(tst_RawDataDownloadWithSkySim)
#include "tst_RawDataDownloadWithSkySim.moc"
