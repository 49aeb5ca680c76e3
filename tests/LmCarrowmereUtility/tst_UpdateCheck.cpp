#include "CLmCheckUpdateRet.h"
#include "CLmDeployConfig.h"
#include "CLmPackageDownload.h"
#include "CLmSureUpgrade.h"
#include "CLmUpdateFolders.h"
#include "CLmUpdateQuery.h"
#include "CSkyCloudProcess.h"
#include "LmVersion.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QtTest>

// The update checks and the verified download against the emulated cloud.
class tst_UpdateCheck : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void queryComparesVersionsNumerically_data();
    void queryComparesVersionsNumerically();
    void startUpCheckFetchesFirmwareOnceAndReportsLauncher();
    void versionCheckOffersTheNewerApplication();
    void downloadIsVerifiedBeforeItReplacesTheTarget_data();
    void downloadIsVerifiedBeforeItReplacesTheTarget();

private:
    QString ServedPackage(const QString& product) const;
    QJsonObject Manifest(const QString& product) const;

    std::unique_ptr<CSkyCloudProcess> m_cloud;
};

namespace {

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteAll(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

}  // namespace

void tst_UpdateCheck::init()
{
    m_cloud = std::make_unique<CSkyCloudProcess>(QStringList{QStringLiteral("--offer-updates")});
    QVERIFY(m_cloud->Start());
    qputenv("SKYCONSOLE_CLOUD_PRODUCTION_URL", m_cloud->BaseUrl());
    CLmDeployConfig::Reload();
}

void tst_UpdateCheck::cleanup()
{
    m_cloud.reset();
    QDir(CLmUpdateFolders::Firmware()).removeRecursively();
    QDir(CLmUpdateFolders::Installers()).removeRecursively();
}

QJsonObject tst_UpdateCheck::Manifest(const QString& product) const
{
    return QJsonDocument::fromJson(ReadAll(m_cloud->DataDir() + "/updates/" + product + ".json")).object();
}

QString tst_UpdateCheck::ServedPackage(const QString& product) const
{
    return m_cloud->DataDir() + "/updates/files/" + Manifest(product).value("file").toString();
}

void tst_UpdateCheck::queryComparesVersionsNumerically_data()
{
    QTest::addColumn<QString>("product");
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("outcome");

    QTest::newRow("firmware, nothing held") << "firmware" << "0" << "newer";
    QTest::newRow("firmware 2.1 held") << "firmware" << "2.1" << "up to date";
    QTest::newRow("firmware 2.10 held") << "firmware" << "2.10.0" << "up to date";
    QTest::newRow("firmware 2.0.9 held") << "firmware" << "2.0.9" << "newer";
    QTest::newRow("this application") << "skyconsole" << LmVersion::Current() << "newer";
    QTest::newRow("application far ahead") << "skyconsole" << "99.0" << "up to date";
    QTest::newRow("unknown product") << "toaster" << "1.0" << "failed";
}

void tst_UpdateCheck::queryComparesVersionsNumerically()
{
    QFETCH(QString, product);
    QFETCH(QString, version);
    QFETCH(QString, outcome);

    CLmUpdateQuery query;
    QSignalSpy newer(&query, &CLmUpdateQuery::NewerRelease);
    QSignalSpy upToDate(&query, &CLmUpdateQuery::UpToDate);
    QSignalSpy failed(&query, &CLmUpdateQuery::Failed);
    query.Query(product, version);
    QTRY_COMPARE(newer.count() + upToDate.count() + failed.count(), 1);
    const QString seen = newer.count() ? "newer" : upToDate.count() ? "up to date" : "failed";
    QCOMPARE(seen, outcome);
}

void tst_UpdateCheck::startUpCheckFetchesFirmwareOnceAndReportsLauncher()
{
    CLmCheckUpdateRet check;
    QSignalSpy downloaded(&check, &CLmCheckUpdateRet::DownLoadFinished);
    QSignalSpy launcher(&check, &CLmCheckUpdateRet::LauncherUpgradeInfor);
    check.CheckUpdate();
    QTRY_COMPARE(downloaded.count(), 1);
    QTRY_COMPARE(launcher.count(), 1);

    const QString path = downloaded.at(0).at(0).toString();
    QVERIFY(path.startsWith(CLmUpdateFolders::Firmware()));
    QCOMPARE(ReadAll(path), ReadAll(ServedPackage("firmware")));
    QCOMPARE(CLmCheckUpdateRet::HeldFirmwareVersion(), Manifest("firmware").value("version").toString());

    // The held package is current now: a second check downloads nothing.
    check.CheckUpdate();
    QTRY_COMPARE(launcher.count(), 2);
    QTest::qWait(200);
    QCOMPARE(downloaded.count(), 1);
}

void tst_UpdateCheck::versionCheckOffersTheNewerApplication()
{
    CLmSureUpgrade check;
    QSignalSpy need(&check, &CLmSureUpgrade::NeedDownLoad);
    check.CheckUpdate();
    QTRY_COMPARE(need.count(), 1);
    const QJsonObject release = need.at(0).at(0).toJsonObject();
    const QJsonObject manifest = Manifest("skyconsole");
    QCOMPARE(release.value("version"), manifest.value("version"));
    QCOMPARE(release.value("sha256"), manifest.value("sha256"));
    QCOMPARE(release.value("size").toInt(), manifest.value("size").toInt());
    QVERIFY(release.value("url").toString().startsWith(QString::fromLatin1(m_cloud->BaseUrl())));
    QVERIFY(!release.value("notes").toString().isEmpty());
}

void tst_UpdateCheck::downloadIsVerifiedBeforeItReplacesTheTarget_data()
{
    QTest::addColumn<QString>("damage");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("intact") << "none" << true;
    QTest::newRow("flipped byte") << "flip" << false;
    QTest::newRow("cut short") << "truncate" << false;
    QTest::newRow("longer") << "append" << false;
}

void tst_UpdateCheck::downloadIsVerifiedBeforeItReplacesTheTarget()
{
    QFETCH(QString, damage);
    QFETCH(bool, accepted);

    const QString served = ServedPackage("skyconsole");
    const QByteArray original = ReadAll(served);
    QByteArray bytes = original;
    if (damage == "flip")
        bytes[bytes.size() / 2] = static_cast<char>(bytes.at(bytes.size() / 2) ^ 0x20);
    else if (damage == "truncate")
        bytes.chop(100);
    else if (damage == "append")
        bytes += "x";
    WriteAll(served, bytes);

    QTemporaryDir folder;
    QJsonObject release = Manifest("skyconsole");
    release.insert("url", QString(QString::fromLatin1(m_cloud->BaseUrl() + "/app/download/")
                                  + release.value("file").toString()));
    const QString target = folder.filePath(release.value("file").toString());
    WriteAll(target, "the package held before");

    CLmPackageDownload download;
    QSignalSpy finished(&download, &CLmPackageDownload::Finished);
    QSignalSpy failed(&download, &CLmPackageDownload::Failed);
    download.Start(release, folder.path());
    QTRY_COMPARE(finished.count() + failed.count(), 1);

    QCOMPARE(finished.count(), accepted ? 1 : 0);
    QCOMPARE(ReadAll(target), accepted ? original : QByteArray("the package held before"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{release.value("file").toString()});
}

QTEST_GUILESS_MAIN(tst_UpdateCheck)
#include "tst_UpdateCheck.moc"
