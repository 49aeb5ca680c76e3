#include "CLmRtkDataDownloadObject.h"
#include "CLmRtkDataLink.h"
#include "CLmTrimbleDataWrite.h"
#include "CLmUasProvide.h"
#include "LinkTestDoubles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <ctime>

using namespace LmMavlink;

// The receiver raw-data downloader fed as the link feeds it: folder names,
// the split of a folder into its .pvt and .atom files, progress, and what it
// must ignore.
class tst_CLmRtkDataDownloadObject : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void folderNamedByLocalTime_data();
    void folderNamedByLocalTime();
    void progressPerChunk_data();
    void progressPerChunk();
    void folderSplitsIntoPvtAndAtom();
    void receiverLabelNeverReachesThePath();
    void strayListingsAndDataAreIgnored_data();
    void strayListingsAndDataAreIgnored();

private:
    void AddFolder(quint16 folderId, quint32 timeUtc, const QString& text = QString());
    // Lists the folder's entries 0..count-1 of the given size.
    void ListEntries(quint16 folderId, int count, quint32 size);
    void Feed(quint16 folderId, quint16 entryId, const QByteArray& bytes, quint32 offset);

    CCapturingLink* m_pWire = nullptr;
    CLmUasProvide* m_pUas = nullptr;
    CLmRtkDataLink* m_pLink = nullptr;
    CLmRtkDataDownloadObject* m_pDownload = nullptr;
    QTemporaryDir* m_pTarget = nullptr;
    QByteArray m_baTz;
};

void tst_CLmRtkDataDownloadObject::init()
{
    m_baTz = qgetenv("TZ");
    m_pWire = new CCapturingLink;
    m_pUas = new CLmUasProvide(m_pWire, 1, 1);
    m_pLink = new CLmRtkDataLink(m_pUas, nullptr, new CFakeClock);
    m_pDownload = new CLmRtkDataDownloadObject(m_pLink);
    m_pTarget = new QTemporaryDir;
    m_pDownload->SetTargetDir(m_pTarget->path());
}

void tst_CLmRtkDataDownloadObject::cleanup()
{
    delete m_pDownload;
    delete m_pLink;
    delete m_pUas;
    delete m_pWire;
    delete m_pTarget;
    qputenv("TZ", m_baTz);
    tzset();
}

void tst_CLmRtkDataDownloadObject::AddFolder(quint16 folderId, quint32 timeUtc, const QString& text)
{
    m_pDownload->slotTrimbleFolderEntry(folderId, 0, folderId, 3, timeUtc, text);
}

void tst_CLmRtkDataDownloadObject::ListEntries(quint16 folderId, int count, quint32 size)
{
    for (int entry = 0; entry < count; ++entry)
        m_pDownload->slotTrimbleEntry(folderId, quint16(entry), quint16(count - 1), quint16(count), size, 0);
}

void tst_CLmRtkDataDownloadObject::Feed(quint16 folderId, quint16 entryId, const QByteArray& bytes, quint32 offset)
{
    m_pDownload->slotTrimbleData(folderId, entryId, quint8(bytes.size()), bytes, offset);
}

void tst_CLmRtkDataDownloadObject::folderNamedByLocalTime_data()
{
    QTest::addColumn<QByteArray>("tz");
    QTest::addColumn<QString>("name");
    QTest::newRow("UTC") << QByteArray("UTC") << "1970_01_01-00_00_10";
    QTest::newRow("east of Greenwich") << QByteArray("Asia/Shanghai") << "1970_01_01-08_00_10";
    QTest::newRow("west of Greenwich, day before") << QByteArray("America/New_York") << "1969_12_31-19_00_10";
}

void tst_CLmRtkDataDownloadObject::folderNamedByLocalTime()
{
    QFETCH(QByteArray, tz);
    QFETCH(QString, name);
    qputenv("TZ", tz);
    tzset();
    QSignalSpy info(m_pDownload, &CLmTrimbleDataDownloadObject::TrimbleFolderInfo);
    AddFolder(4, 10);
    QCOMPARE(info.count(), 1);
    QCOMPARE(m_pDownload->Folders().value(0).folderName, name);
    m_pDownload->SetDownloadFolders({4});
    m_pDownload->StartDownload();
    ListEntries(4, 2, 1);
    QSignalSpy received(m_pDownload, &CLmTrimbleDataDownloadObject::RecivedData);
    Feed(4, 0, "p", 0);
    Feed(4, 1, "a", 0);
    QCOMPARE(received.count(), 2);
    QCOMPARE(received.at(0).at(1).toString(), QDir(m_pTarget->path()).filePath(name + ".pvt"));
    QCOMPARE(received.at(1).at(1).toString(), QDir(m_pTarget->path()).filePath(name + ".atom"));
}

void tst_CLmRtkDataDownloadObject::progressPerChunk_data()
{
    QTest::addColumn<quint32>("size");
    QTest::addColumn<QList<quint32>>("offsets");
    QTest::addColumn<QList<int>>("progress");
    QTest::newRow("200 bytes in 90-byte chunks") << 200u << QList<quint32>{0, 90, 180} << QList<int>{0, 45, 90, 100};
    QTest::newRow("one short chunk") << 20u << QList<quint32>{0} << QList<int>{0, 100};
    QTest::newRow("never backwards, never twice")
        << 300u << QList<quint32>{0, 90, 180, 270} << QList<int>{0, 30, 60, 90, 100};
}

void tst_CLmRtkDataDownloadObject::progressPerChunk()
{
    QFETCH(quint32, size);
    QFETCH(QList<quint32>, offsets);
    QFETCH(QList<int>, progress);
    AddFolder(1, 1000);
    m_pDownload->SetDownloadFolders({1});
    QSignalSpy bar(m_pDownload, &CLmTrimbleDataDownloadObject::RefreshDownloadProgressBar);
    QSignalSpy text(m_pDownload, &CLmTrimbleDataDownloadObject::RefreshDownloadText);
    QSignalSpy done(m_pDownload, &CLmTrimbleDataDownloadObject::AllDownloadCompleted);
    m_pDownload->StartDownload();
    ListEntries(1, 1, size);
    for (quint32 offset : offsets)
        Feed(1, 0, QByteArray(int(std::min<quint32>(90, size - offset)), 'x'), offset);
    QList<int> reported;
    for (const QList<QVariant>& signal : bar)
        reported << signal.at(0).toInt();
    QCOMPARE(reported, progress);
    QCOMPARE(text.value(0).value(0).toString(), QStringLiteral("Download GPS_1"));
    QCOMPARE(done.count(), 1);
}

// Entry 0 is the position file; entries 1 and 2 are both observation
// parts and land one after the other in the one .atom file, which appears
// under its name only once both are in.
void tst_CLmRtkDataDownloadObject::folderSplitsIntoPvtAndAtom()
{
    AddFolder(2, 10);
    const QString base = m_pDownload->Folders().value(0).folderName;
    const QDir target(m_pTarget->path());
    m_pDownload->SetDownloadFolders({2});
    m_pDownload->StartDownload();
    ListEntries(2, 3, 3);
    QSignalSpy received(m_pDownload, &CLmTrimbleDataDownloadObject::RecivedData);
    QSignalSpy written(m_pDownload->Writer(), &CLmTrimbleDataWrite::FileWritten);
    Feed(2, 0, "PVT", 0);
    Feed(2, 1, "ab1", 0);
    QTRY_COMPARE(written.count(), 1);
    QVERIFY(!target.exists(base + ".atom"));
    Feed(2, 2, "cd2", 0);
    QTRY_COMPARE(written.count(), 2);

    QStringList paths;
    for (const QList<QVariant>& signal : received)
        paths << QFileInfo(signal.at(1).toString()).fileName();
    QCOMPARE(paths, (QStringList{base + ".pvt", base + ".atom", base + ".atom"}));
    QFile pvt(target.filePath(base + ".pvt"));
    QFile atom(target.filePath(base + ".atom"));
    QVERIFY(pvt.open(QIODevice::ReadOnly) && atom.open(QIODevice::ReadOnly));
    QCOMPARE(pvt.readAll(), QByteArray("PVT"));
    QCOMPARE(atom.readAll(), QByteArray("ab1cd2"));
    QCOMPARE(target.entryList(QDir::Files).size(), 2);
}

void tst_CLmRtkDataDownloadObject::receiverLabelNeverReachesThePath()
{
    AddFolder(3, 10, QStringLiteral("../../../tmp/evil"));
    m_pDownload->SetDownloadFolders({3});
    m_pDownload->StartDownload();
    ListEntries(3, 1, 2);
    QSignalSpy received(m_pDownload, &CLmTrimbleDataDownloadObject::RecivedData);
    Feed(3, 0, "ok", 0);
    QCOMPARE(received.count(), 1);
    const QFileInfo file(received.at(0).at(1).toString());
    QCOMPARE(file.absolutePath(), QDir(m_pTarget->path()).absolutePath());
    QVERIFY(!file.fileName().contains("evil"));
}

void tst_CLmRtkDataDownloadObject::strayListingsAndDataAreIgnored_data()
{
    QTest::addColumn<QString>("stray");
    QTest::newRow("data of another folder") << "folder";
    QTest::newRow("data of another entry") << "entry";
    QTest::newRow("entries of a folder not being listed") << "listing";
    QTest::newRow("a receiver without folders") << "empty";
}

void tst_CLmRtkDataDownloadObject::strayListingsAndDataAreIgnored()
{
    QFETCH(QString, stray);
    AddFolder(1, 100);
    AddFolder(2, 200);
    m_pDownload->SetDownloadFolders({1});
    m_pDownload->StartDownload();
    QSignalSpy received(m_pDownload, &CLmTrimbleDataDownloadObject::RecivedData);
    QSignalSpy info(m_pDownload, &CLmTrimbleDataDownloadObject::TrimbleFolderInfo);
    if (stray == "listing") {
        ListEntries(2, 1, 4);
        QVERIFY(m_pWire->Sent<SSkyRawEntryRequestData>().isEmpty());
        return;
    }
    if (stray == "empty") {
        m_pDownload->slotTrimbleFolderEntry(0, 0, 0, 0, 0, QString());
        QCOMPARE(info.count(), 0);
        QCOMPARE(m_pDownload->Folders().size(), 2);
        return;
    }
    ListEntries(1, 2, 4);
    Feed(stray == "folder" ? 2 : 1, stray == "folder" ? 0 : 1, "zzzz", 0);
    QCOMPARE(received.count(), 0);
    Feed(1, 0, "good", 0);
    QCOMPARE(received.count(), 1);
    QCOMPARE(received.at(0).at(0).toByteArray(), QByteArray("good"));
}

QTEST_GUILESS_MAIN(tst_CLmRtkDataDownloadObject)
#include "tst_CLmRtkDataDownloadObject.moc"
