#include "CLmFtpClientLink.h"
#include "CSkyBaseProcess.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

// Static files fetched from skybase's FTP server (pyftpdlib), byte for byte,
// and downloads that end badly.
class tst_CLmFtpClientLink : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void twoFilesOneAfterAnother();
    void failedDownloads_data();
    void failedDownloads();
    void serverGoneMidDownload();

private:
    QByteArray PutStaticFile(const QString& name, int size);
    void StartStation();

    std::unique_ptr<QTemporaryDir> m_data;
    std::unique_ptr<CSkyBaseProcess> m_station;
    std::unique_ptr<CLmFtpClientLink> m_ftp;
};

void tst_CLmFtpClientLink::init()
{
    m_data = std::make_unique<QTemporaryDir>();
    QVERIFY(m_data->isValid());
    QVERIFY(QDir(m_data->path()).mkpath(QStringLiteral("ftp/static")));
}

void tst_CLmFtpClientLink::cleanup()
{
    m_ftp.reset();
    m_station.reset();
    m_data.reset();
}

QByteArray tst_CLmFtpClientLink::PutStaticFile(const QString& name, int size)
{
    QByteArray bytes(size, '\0');
    QRandomGenerator(static_cast<quint32>(size)).fillRange(reinterpret_cast<quint32*>(bytes.data()), size / 4);
    QFile file(m_data->filePath(QStringLiteral("ftp/static/") + name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != size)
        return {};
    return bytes;
}

void tst_CLmFtpClientLink::StartStation()
{
    m_station = std::make_unique<CSkyBaseProcess>();
    QVERIFY(m_station->Start(m_data->path()));
    m_ftp = std::make_unique<CLmFtpClientLink>();
    m_ftp->SetFtpHostPort(QStringLiteral("127.0.0.1"), m_station->FtpPort());
}

void tst_CLmFtpClientLink::twoFilesOneAfterAnother()
{
    // Sizes that end mid-block and one the size of a typical socket buffer.
    const QByteArray first = PutStaticFile(QStringLiteral("SKB20261123080000.GNS"), 300001);
    const QByteArray second = PutStaticFile(QStringLiteral("SKB20261123090000.GNS"), 4 << 20);
    StartStation();
    QSignalSpy finished(m_ftp.get(), &CLmFtpClientLink::downLoadFinished);
    QSignalSpy failed(m_ftp.get(), &CLmFtpClientLink::NetWorkError);
    QSignalSpy progress(m_ftp.get(), &CLmFtpClientLink::downloadProgress);

    m_ftp->FtpGet(QStringLiteral("/static/SKB20261123080000.GNS"));
    QVERIFY(finished.wait(30000));
    QVERIFY(m_ftp->ReceivedData() == first);
    QCOMPARE(progress.constLast().at(0).toLongLong(), qint64(first.size()));
    m_ftp->ClearReceivedData();
    QVERIFY(m_ftp->ReceivedData().isEmpty());

    m_ftp->FtpGet(QStringLiteral("/static/SKB20261123090000.GNS"));
    QVERIFY(finished.wait(30000));
    QVERIFY(m_ftp->ReceivedData() == second);
    QCOMPARE(progress.constLast().at(1).toLongLong(), qint64(second.size()));
    QCOMPARE(finished.count(), 2);
    QCOMPARE(failed.count(), 0);
}

void tst_CLmFtpClientLink::failedDownloads_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("stationRunning");
    QTest::newRow("no such file") << QStringLiteral("/static/missing.GNS") << true;
    QTest::newRow("outside the static folder") << QStringLiteral("/../station.ini") << true;
    QTest::newRow("station switched off") << QStringLiteral("/static/a.GNS") << false;
    QTest::newRow("larger than can be held") << QStringLiteral("/static/huge.GNS") << true;
}

void tst_CLmFtpClientLink::failedDownloads()
{
    QFETCH(QString, path);
    QFETCH(bool, stationRunning);
    PutStaticFile(QStringLiteral("a.GNS"), 1000);
    // A sparse 3 GB file: more than one byte array holds.
    QFile huge(m_data->filePath(QStringLiteral("ftp/static/huge.GNS")));
    QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(3000000000ll));
    huge.close();
    StartStation();
    if (!stationRunning)
        m_station->Kill();
    QSignalSpy finished(m_ftp.get(), &CLmFtpClientLink::downLoadFinished);
    QSignalSpy failed(m_ftp.get(), &CLmFtpClientLink::NetWorkError);
    m_ftp->FtpGet(path);
    QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, 30000);
    QCOMPARE(finished.count(), 0);
    QVERIFY(m_ftp->ReceivedData().isEmpty());
}

// The station loses power mid-file: the FTP layer never finishes such a
// transfer, so the download has to notice that nothing arrives any more.
void tst_CLmFtpClientLink::serverGoneMidDownload()
{
    PutStaticFile(QStringLiteral("big.GNS"), 256 << 20);
    StartStation();
    QSignalSpy finished(m_ftp.get(), &CLmFtpClientLink::downLoadFinished);
    QSignalSpy failed(m_ftp.get(), &CLmFtpClientLink::NetWorkError);
    connect(m_ftp.get(), &CLmFtpClientLink::downloadProgress, this, [this](qint64 received) {
        if (received > 0)
            m_station->Kill();
    });
    m_ftp->FtpGet(QStringLiteral("/static/big.GNS"));
    QTRY_COMPARE_WITH_TIMEOUT(failed.count() + finished.count(), 1, 60000);
    QCOMPARE(failed.count(), 1);
    QVERIFY(m_ftp->ReceivedData().isEmpty());
}

QTEST_GUILESS_MAIN(tst_CLmFtpClientLink)
#include "tst_CLmFtpClientLink.moc"
