#include "CCannedHttpPeer.h"
#include "CLmControl.h"
#include "CLmDataBase.h"
#include "CLmDeployConfig.h"
#include "CLmNoFlyZoneUpgrade.h"
#include "CLmNoflyZoneMgr.h"
#include "CSkyCloudProcess.h"
#include "LmNoflyZoneSchema.h"
#include "ModalAnswer.h"
#include "TestSession.h"

#include <QJsonArray>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int kUpdateTimeoutMs = 60000;

QByteArray Json200(const QByteArray& body)
{
    return CCannedHttpPeer::Reply("200 OK", body);
}

// The zones of a work copy, one line each; empty without a work copy.
QString ZoneRows(const QString& workFile)
{
    CLmDataBase db(workFile);
    if (!db.Open(true))
        return {};
    return db.SelectValue("SELECT group_concat(local_id || ' ' || name || ' ' || updated_at, '\n') FROM no_fly_zone")
        .toString();
}

}  // namespace

class tst_CLmNoFlyZoneUpgrade : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void zoneUpdates_data();
    void zoneUpdates();
    void repliesChangeNothing_data();
    void repliesChangeNothing();
    void zoneFileThatIsNoDatabase_data();
    void zoneFileThatIsNoDatabase();
    void nothingSent_data();
    void nothingSent();

private:
    // Runs one update to its end; its result (published or not).
    bool RunUpdate();
    void SignIn(const QByteArray& phone);
    void WriteWorkCopy();
    int CloudZoneCount();
    // The published file deciphered: its zone count, a zone's name and the lift count.
    void ReadPublished(int* zones, const QString& localId, QString* name, int* lifts);

    QString WorkFile() const { return CLmNoflyZoneMgr().WorkFilePath(); }
    QString PublishedFile() const { return m_appDir.filePath(QStringLiteral("NoflyZone.dat")); }

    CSkyCloudProcess m_cloud;
    QTemporaryDir m_appDir;
    QByteArray m_userToken;
    QByteArray m_adminToken;
};

void tst_CLmNoFlyZoneUpgrade::initTestCase()
{
    QVERIFY(m_cloud.Start());
    qputenv("SKYCONSOLE_LAUNCHER_APPLICATION_DIR", m_appDir.path().toUtf8());
    m_adminToken = m_cloud.Call("/admin/login", "username=admin&password=skyconsole")["data"]
                       .toObject()["token"].toString().toLatin1();
    QVERIFY(!m_adminToken.isEmpty());
}

void tst_CLmNoFlyZoneUpgrade::init()
{
    TestSession::PointCloudAt(m_cloud.BaseUrl());
    CLmControl::GetInstance()->SetNetWorkState(true);
    QFile::remove(PublishedFile());
}

bool tst_CLmNoFlyZoneUpgrade::RunUpdate()
{
    CLmNoFlyZoneUpgrade upgrade;
    QSignalSpy ended(&upgrade, &CLmNoFlyZoneUpgrade::UpdateEnded);
    upgrade.Start();
    if (ended.isEmpty() && !ended.wait(kUpdateTimeoutMs))
        return false;
    return ended.first().first().toBool();
}

void tst_CLmNoFlyZoneUpgrade::SignIn(const QByteArray& phone)
{
    m_userToken = m_cloud.SignIn(phone);
    QVERIFY(!m_userToken.isEmpty());
    const QJsonObject profile = m_cloud.Call("/user/profile", {}, m_userToken)["data"].toObject();
    TestSession::SetSession(QString::fromLatin1(m_userToken), QString::number(profile["id"].toInt()));
}

void tst_CLmNoFlyZoneUpgrade::WriteWorkCopy()
{
    QFile::remove(WorkFile());
    QDir().mkpath(QFileInfo(WorkFile()).absolutePath());
    CLmDataBase db(WorkFile());
    QVERIFY(db.Open() && LmNoflyZoneSchema::CreateTables(db));
    QVariantList values;
    for (const QString& field : LmNoflyZoneSchema::ZoneFields())
        values.append(field == "updated_at" ? QVariant("2025-05-05 05:05:05") : QVariant(field + "-of-zone"));
    using namespace LmNoflyZoneSchema;
    QVERIFY(db.Exec(UpsertSql(ZoneTable, ZoneFields(), ZoneKey), values));
}

int tst_CLmNoFlyZoneUpgrade::CloudZoneCount()
{
    return m_cloud.Call("/noflyzone/checkupdate", "updated_at=0", m_userToken)["data"].toArray().size();
}

void tst_CLmNoFlyZoneUpgrade::ReadPublished(int* zones, const QString& localId, QString* name, int* lifts)
{
    QTemporaryDir dir;
    const QString plain = dir.filePath("plain.db");
    QVERIFY(CLmNoflyZoneMgr(plain).DecryptionNoflyFile(PublishedFile(), plain));
    CLmDataBase db(plain);
    QVERIFY(db.Open(true));
    *zones = db.SelectValue("SELECT count(*) FROM no_fly_zone").toInt();
    *name = db.SelectValue("SELECT name FROM no_fly_zone WHERE local_id = ?", {localId}).toString();
    *lifts = db.SelectValue("SELECT count(*) FROM lift_no_fly_zone").toInt();
}

void tst_CLmNoFlyZoneUpgrade::zoneUpdates_data()
{
    QTest::addColumn<QByteArray>("phone");
    QTest::addColumn<bool>("fetchedBefore");
    QTest::addColumn<QByteArray>("adminPath");
    QTest::addColumn<QByteArray>("adminForm");
    QTest::addColumn<QString>("localId");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("lifts");

    // The rows run in order against one cloud, each on what the one before left.
    QTest::newRow("first download") << QByteArray("13800000001") << false << QByteArray() << QByteArray()
                                    << "AE-A00002" << "Dubai Airport" << 1;
    QTest::newRow("changed zone") << QByteArray("13800000001") << true << QByteArray("/noflyzone/admin/zone")
                                  << QByteArray("local_id=AE-A00002&name=Dubai%20Airport%20(closed)") << "AE-A00002"
                                  << "Dubai Airport (closed)" << 1;
    QTest::newRow("new zone") << QByteArray("13800000001") << true << QByteArray("/noflyzone/admin/zone")
                              << QByteArray("local_id=CH-T09001&name=Lake%20festival&type=3&area=%7B%7D")
                              << "CH-T09001" << "Lake festival" << 1;
    QTest::newRow("new lift") << QByteArray("13800000001") << true << QByteArray("/noflyzone/admin/lift")
                              << QByteArray("phone=13800000001&id=LIFT-T1&name=Permit&local_ids=AE-A00001")
                              << "AE-A00001" << "Ras al-Khaimah Airport" << 2;
    QTest::newRow("account without lifts") << QByteArray("13800000002") << true << QByteArray() << QByteArray()
                                           << "CH-T09001" << "Lake festival" << 0;
}

void tst_CLmNoFlyZoneUpgrade::zoneUpdates()
{
    QFETCH(QByteArray, phone);
    QFETCH(bool, fetchedBefore);
    QFETCH(QByteArray, adminPath);
    QFETCH(QByteArray, adminForm);
    QFETCH(QString, localId);
    QFETCH(QString, name);
    QFETCH(int, lifts);

    SignIn(phone);
    if (!fetchedBefore)
        QFile::remove(WorkFile());
    if (!adminPath.isEmpty()) {
        int status = 0;
        m_cloud.CallWithHeader(adminPath, adminForm, "admin-token", m_adminToken, &status);
        QCOMPARE(status, 200);
    }
    // The first download shows its progress, which closes by itself.
    QVERIFY(RunUpdate());

    int publishedZones = 0;
    QString publishedName;
    int publishedLifts = 0;
    ReadPublished(&publishedZones, localId, &publishedName, &publishedLifts);
    QCOMPARE(publishedZones, CloudZoneCount());
    QVERIFY(publishedZones > 1000);
    QCOMPARE(publishedName, name);
    QCOMPARE(publishedLifts, lifts);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void tst_CLmNoFlyZoneUpgrade::repliesChangeNothing_data()
{
    QTest::addColumn<bool>("withWorkCopy");
    QTest::addColumn<QByteArray>("answer");

    QTest::newRow("check update refused")
        << true << Json200(R"({"status":401,"message":"Invalid token","data":{}})");
    QTest::newRow("check update not json") << true << Json200("<html>busy</html>");
    QTest::newRow("check update server error")
        << true << CCannedHttpPeer::Reply("500 Internal Server Error", "oops");
    QTest::newRow("check update records not a list")
        << true << Json200(R"({"status":0,"data":{"name":"x"},"lift_count":0})");
    QTest::newRow("download names no file") << false << Json200(R"({"status":0,"message":"OK","data":{}})");
    QTest::newRow("download names a local file")
        << false << Json200(R"({"status":0,"message":"OK","data":{"url":"file:///etc/passwd"}})");
    QTest::newRow("download refused") << false << Json200(R"({"status":1,"message":"busy","data":{}})");
}

void tst_CLmNoFlyZoneUpgrade::repliesChangeNothing()
{
    QFETCH(bool, withWorkCopy);
    QFETCH(QByteArray, answer);

    CCannedHttpPeer peer(answer);
    TestSession::PointCloudAt(peer.BaseUrl());
    TestSession::SetSession(QStringLiteral("0123456789abcdef0123456789abcdef"), QStringLiteral("1"));
    if (withWorkCopy)
        WriteWorkCopy();
    else
        QFile::remove(WorkFile());
    const QString workCopy = ZoneRows(WorkFile());

    QVERIFY(!RunUpdate());
    QVERIFY(peer.RequestCount() > 0);
    QVERIFY(!QFile::exists(PublishedFile()));
    QCOMPARE(ZoneRows(WorkFile()), workCopy);
}

void tst_CLmNoFlyZoneUpgrade::zoneFileThatIsNoDatabase_data()
{
    QTest::addColumn<int>("retries");

    QTest::newRow("cancelled") << 0;
    QTest::newRow("retried, then cancelled") << 2;
}

void tst_CLmNoFlyZoneUpgrade::zoneFileThatIsNoDatabase()
{
    QFETCH(int, retries);

    CCannedHttpPeer file(Json200(R"({"status":0,"message":"OK","data":{"url":"http://127.0.0.1/zone.db"}})"));
    CCannedHttpPeer naming(Json200(R"({"status":0,"data":{"url":")" + file.BaseUrl() + R"(/NoflyZone.db"}})"));
    TestSession::PointCloudAt(naming.BaseUrl());
    QFile::remove(WorkFile());

    // The user answers each failure as it shows: Retry starts over (the
    // dialog stays, its buttons hidden again), Cancel closes it.
    QStringList seen;
    ModalAnswer::RunWhenShown(
        "CLmProgressWgt",
        [&seen, &file, retries](QWidget* dialog) {
            auto* cancel = dialog->findChild<QPushButton*>("m_pBtnCancel");
            for (int attempt = 0; attempt <= retries; ++attempt) {
                // The failure of this attempt's file is shown.
                QTRY_VERIFY_WITH_TIMEOUT(file.RequestCount() == attempt + 1 && cancel->isVisible(), kUpdateTimeoutMs);
                seen.append(ModalAnswer::VisibleTexts(dialog));
                if (attempt < retries)
                    dialog->findChild<QPushButton*>("m_pBtnRetry")->click();
            }
            cancel->click();
        },
        kUpdateTimeoutMs, this);
    QVERIFY(!RunUpdate());
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(seen.size(), retries + 1);
    QCOMPARE(seen.filter(QStringLiteral("Download File Failed.")), seen);
    QCOMPARE(seen.filter(QStringLiteral("Downloading NoFlyZone File...")), seen);
    QCOMPARE(naming.RequestCount(), retries + 1);
    QCOMPARE(file.RequestCount(), retries + 1);
    QVERIFY(!QFile::exists(WorkFile()));
    QVERIFY(!QFile::exists(PublishedFile()));
}

void tst_CLmNoFlyZoneUpgrade::nothingSent_data()
{
    QTest::addColumn<bool>("online");
    QTest::addColumn<QString>("token");
    QTest::addColumn<bool>("withWorkCopy");

    const QString token = QStringLiteral("0123456789abcdef0123456789abcdef");
    QTest::newRow("offline without zone file") << false << token << false;
    QTest::newRow("offline with zone file") << false << token << true;
    QTest::newRow("signed out with zone file") << true << QString() << true;
}

void tst_CLmNoFlyZoneUpgrade::nothingSent()
{
    QFETCH(bool, online);
    QFETCH(QString, token);
    QFETCH(bool, withWorkCopy);

    CCannedHttpPeer peer(Json200(R"({"status":0,"data":[],"lift_count":0})"));
    TestSession::PointCloudAt(peer.BaseUrl());
    TestSession::SetSession(token, QStringLiteral("1"));
    CLmControl::GetInstance()->SetNetWorkState(online);
    if (withWorkCopy)
        WriteWorkCopy();
    else
        QFile::remove(WorkFile());

    QVERIFY(!RunUpdate());
    QCOMPARE(peer.RequestCount(), 0);
    QVERIFY(!QFile::exists(PublishedFile()));
}

QTEST_MAIN(tst_CLmNoFlyZoneUpgrade)
#include "tst_CLmNoFlyZoneUpgrade.moc"
