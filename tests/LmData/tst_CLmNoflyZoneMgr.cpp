#include "CLmDataBase.h"
#include "CLmDeployConfig.h"
#include "CLmNoflyZoneMgr.h"
#include "LmNoflyCipher.h"
#include "LmNoflyZoneSchema.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

using namespace LmNoflyZoneSchema;

namespace {

QJsonObject ZoneRecord(const QString& localId, const QString& name, const QString& updatedAt)
{
    QJsonObject zone;
    for (const QString& field : ZoneFields())
        zone.insert(field, QJsonValue::Null);
    zone.insert(QStringLiteral("local_id"), localId);
    zone.insert(QStringLiteral("name"), name);
    zone.insert(QStringLiteral("updated_at"), updatedAt);
    zone.insert(QStringLiteral("area"), QStringLiteral("{\"type\":\"circle\",\"lat\":47.4,\"lng\":8.5,\"radius\":5000}"));
    return zone;
}

// The cloud's reply to a check for changed zones.
QByteArray ZoneReply(const QJsonArray& records, int liftCount = 0)
{
    return QJsonDocument(QJsonObject{{"status", 0}, {"message", "OK"}, {"data", records}, {"lift_count", liftCount}})
        .toJson(QJsonDocument::Compact);
}

QByteArray LiftReply(const QJsonArray& lifts)
{
    return QJsonDocument(QJsonObject{{"status", 0}, {"message", "OK"}, {"data", QJsonObject{{"lift", lifts}}}})
        .toJson(QJsonDocument::Compact);
}

QJsonObject Without(QJsonObject record, const QString& field)
{
    record.remove(field);
    return record;
}

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteAll(const QString& path, const QByteArray& data)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(data), qint64(data.size()));
}

// A zone database as the cloud serves it, changed by extraSql.
QByteArray ZoneDatabase(const QString& folder, const QStringList& extraSql)
{
    const QString path = folder + QStringLiteral("/served.db");
    QFile::remove(path);
    {
        CLmDataBase db(path);
        if (!db.Open() || !CreateTables(db))
            return {};
        db.Exec(UpsertSql(ZoneTable, ZoneFields(), ZoneKey),
                [] {
                    QVariantList values;
                    const QJsonObject zone =
                        ZoneRecord(QStringLiteral("CH-A00001"), QStringLiteral("Zurich Airport"),
                                   QStringLiteral("2025-03-01 10:00:00"));
                    for (const QString& field : ZoneFields())
                        values.append(zone.value(field).toVariant());
                    return values;
                }());
        for (const QString& sql : extraSql)
            db.Exec(sql);
    }
    return ReadAll(path);
}

QString ZoneName(const QString& workFile, const QString& localId)
{
    CLmDataBase db(workFile);
    return db.Open(true) ? db.SelectValue(QStringLiteral("SELECT name FROM no_fly_zone WHERE local_id = ?"), {localId})
                               .toString()
                         : QString();
}

}  // namespace

class tst_CLmNoflyZoneMgr : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void savedOnlyWhenZoneDatabase_data();
    void savedOnlyWhenZoneDatabase();
    void recordsUpserted_data();
    void recordsUpserted();
    void valueStoredAsSent_data();
    void valueStoredAsSent();
    void publishedFileReadsBack();
    void tamperedFileRefused_data();
    void tamperedFileRefused();

private:
    QString WorkFile() const { return m_dir.filePath(QStringLiteral("TmpData/NoflyZone.dat")); }

    QTemporaryDir m_dir;
};

void tst_CLmNoflyZoneMgr::init()
{
    QVERIFY(m_dir.isValid());
    QFile::remove(WorkFile());
}

void tst_CLmNoflyZoneMgr::savedOnlyWhenZoneDatabase_data()
{
    QTest::addColumn<QStringList>("change");  // SQL run on the served file, or one of the byte faults
    QTest::addColumn<bool>("saved");

    QTest::newRow("zone database") << QStringList() << true;
    QTest::newRow("without the lift table") << QStringList{"DROP TABLE lift_no_fly_zone"} << true;
    QTest::newRow("json reply instead of a file") << QStringList{"#json"} << false;
    QTest::newRow("cut short") << QStringList{"#truncate"} << false;
    QTest::newRow("empty") << QStringList{"#empty"} << false;
    QTest::newRow("with a trigger")
        << QStringList{"CREATE TRIGGER t AFTER INSERT ON no_fly_zone BEGIN DELETE FROM no_fly_zone; END"} << false;
    QTest::newRow("with a view") << QStringList{"CREATE VIEW v AS SELECT * FROM no_fly_zone"} << false;
    QTest::newRow("zone table lacks a field") << QStringList{"ALTER TABLE no_fly_zone DROP COLUMN gps_code"} << false;
    QTest::newRow("other tables only") << QStringList{"DROP TABLE no_fly_zone", "CREATE TABLE x (a)"} << false;
}

void tst_CLmNoflyZoneMgr::savedOnlyWhenZoneDatabase()
{
    QFETCH(QStringList, change);
    QFETCH(bool, saved);

    // A work copy from an earlier download, which a refused file must leave alone.
    CLmNoflyZoneMgr manager(WorkFile());
    QVERIFY(manager.SaveNoflyFile(ZoneDatabase(m_dir.path(), {})));
    QVERIFY(manager.ApplyZoneReply(ZoneReply({ZoneRecord("DE-A00009", "Old", "2025-09-09 09:09:09")})).result.bOk);
    manager.CloseDataBase();
    const QByteArray before = ReadAll(WorkFile());

    QByteArray served = ZoneDatabase(m_dir.path(), change.filter(QRegularExpression("^[^#]")));
    if (change.contains("#json"))
        served = R"({"status":0,"data":{"url":"http://127.0.0.1/zone.db"}})";
    else if (change.contains("#truncate"))
        served.chop(served.size() / 2);
    else if (change.contains("#empty"))
        served.clear();

    QCOMPARE(manager.SaveNoflyFile(served), saved);
    if (saved) {
        QCOMPARE(manager.CheckExistNoflyFile(), QStringLiteral("2025-03-01 10:00:00"));
    } else {
        QCOMPARE(ReadAll(WorkFile()), before);
        QCOMPARE(manager.CheckExistNoflyFile(), QStringLiteral("2025-09-09 09:09:09"));
    }
    manager.CloseDataBase();
    QCOMPARE(QDir(m_dir.filePath("TmpData")).entryList(QDir::Files | QDir::Hidden), QStringList{"NoflyZone.dat"});
}

void tst_CLmNoflyZoneMgr::recordsUpserted_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<int>("applied");
    QTest::addColumn<int>("skipped");
    QTest::addColumn<int>("zoneRows");
    QTest::addColumn<QString>("nameOfA1");

    const QJsonObject a1 = ZoneRecord("CH-A00001", "Zurich Airport", "2025-03-01 10:00:00");
    const QJsonObject changed = ZoneRecord("CH-A00001", "Zurich Airport (runway 28 closed)", "2025-11-02 07:00:00");
    const QJsonObject b2 = ZoneRecord("CH-R00002", "Bern Restricted Area", "2025-11-02 08:00:00");
    QJsonObject numericKey = ZoneRecord("0", "Numbered zone", "2025-11-02 09:00:00");
    numericKey.insert("local_id", 77);
    QJsonObject textKey = numericKey;
    textKey.insert("local_id", "77");
    textKey.insert("name", "Numbered zone renamed");
    const QString newName = changed["name"].toString();

    QTest::newRow("nothing changed") << ZoneReply({}) << true << 0 << 0 << 1 << "Zurich Airport";
    QTest::newRow("changed zone replaces its row") << ZoneReply({changed}) << true << 1 << 0 << 1 << newName;
    QTest::newRow("new zone added") << ZoneReply({b2}) << true << 1 << 0 << 2 << "Zurich Airport";
    QTest::newRow("record without area skipped")
        << ZoneReply({Without(b2, "area"), changed}) << true << 1 << 1 << 1 << newName;
    QTest::newRow("record with empty key skipped")
        << ZoneReply({ZoneRecord("", "Nameless", "2025-11-02 08:00:00"), b2}) << true << 1 << 1 << 2 << "Zurich Airport";
    QTest::newRow("record without time skipped")
        << ZoneReply({Without(changed, "updated_at")}) << true << 0 << 1 << 1 << "Zurich Airport";
    QTest::newRow("record that is no object skipped") << ZoneReply({42, b2}) << true << 1 << 1 << 2 << "Zurich Airport";
    QTest::newRow("numeric key is the same key as its text")
        << ZoneReply({numericKey, textKey}) << true << 2 << 0 << 2 << "Zurich Airport";

    // Replies that change nothing, even where their records came before the fault.
    QTest::newRow("reply cut short") << ZoneReply({changed, b2}).chopped(40) << false << 0 << 0 << 1 << "Zurich Airport";
    QTest::newRow("reply refused")
        << QByteArray(R"({"data":[)" + QJsonDocument(changed).toJson(QJsonDocument::Compact) + R"(],"status":1})")
        << false << 0 << 0 << 1 << "Zurich Airport";
    QTest::newRow("status as text") << ZoneReply({changed}).replace("\"status\":0", "\"status\":\"0\"") << false << 0 << 0
                                    << 1 << "Zurich Airport";
    QTest::newRow("records not a list")
        << QByteArray(R"({"status":0,"data":{"local_id":"CH-A00001"}})") << false << 0 << 0 << 1 << "Zurich Airport";
    QTest::newRow("not json") << QByteArray("<html>busy</html>") << false << 0 << 0 << 1 << "Zurich Airport";
}

void tst_CLmNoflyZoneMgr::recordsUpserted()
{
    QFETCH(QByteArray, reply);
    QFETCH(bool, ok);
    QFETCH(int, applied);
    QFETCH(int, skipped);
    QFETCH(int, zoneRows);
    QFETCH(QString, nameOfA1);

    CLmNoflyZoneMgr manager(WorkFile());
    QVERIFY(manager.SaveNoflyFile(ZoneDatabase(m_dir.path(), {})));
    const CLmNoflyZoneMgr::SApplyResult result = manager.ApplyZoneReply(reply).result;
    QCOMPARE(result.bOk, ok);
    QCOMPARE(result.iApplied, applied);
    QCOMPARE(result.iSkipped, skipped);
    manager.CloseDataBase();

    CLmDataBase db(WorkFile());
    QVERIFY(db.Open(true));
    QCOMPARE(db.SelectValue("SELECT count(*) FROM no_fly_zone").toInt(), zoneRows);
    QCOMPARE(ZoneName(WorkFile(), "CH-A00001"), nameOfA1);
}

void tst_CLmNoflyZoneMgr::valueStoredAsSent_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("stored");  // as SQL's quote() shows it

    QTest::newRow("text") << "name" << QByteArray(R"("Zurich")") << "'Zurich'";
    QTest::newRow("escaped text") << "name" << QByteArray(R"("Z\u00fcrich \"Nord\"")") << QString::fromUtf8("'Zürich \"Nord\"'");
    QTest::newRow("integer past a double's precision") << "csv_id" << QByteArray("9007199254740993")
                                                       << "9007199254740993";
    QTest::newRow("decimal") << "elevation" << QByteArray("1234.5") << "1234.5";
    QTest::newRow("true") << "enable" << QByteArray("true") << "1";
    QTest::newRow("null") << "notes" << QByteArray("null") << "NULL";
    QTest::newRow("object") << "area" << QByteArray(R"({"type":"polygon", "points":[[47.1,8.5],[47.2,8.6]]})")
                            << R"('{"type":"polygon","points":[[47.1,8.5],[47.2,8.6]]}')";
    QTest::newRow("numeric key") << "local_id" << QByteArray("77") << "'77'";
}

void tst_CLmNoflyZoneMgr::valueStoredAsSent()
{
    QFETCH(QString, field);
    QFETCH(QByteArray, json);
    QFETCH(QString, stored);

    // Every other field holds its own name; the fields come in reverse column order.
    QByteArrayList members;
    for (const QString& name : ZoneFields()) {
        const QByteArray value = name == field ? json : '"' + name.toUtf8() + '"';
        members.prepend('"' + name.toUtf8() + "\":" + value);
    }
    const QByteArray reply = R"({"status":0,"data":[{)" + members.join(',') + "}]}";

    CLmNoflyZoneMgr manager(WorkFile());
    QVERIFY(manager.SaveNoflyFile(ZoneDatabase(m_dir.path(), {})));
    QCOMPARE(manager.ApplyZoneReply(reply).result.iApplied, 1);
    manager.CloseDataBase();

    CLmDataBase db(WorkFile());
    QVERIFY(db.Open(true));
    const QString row = field == "local_id" ? "77" : "local_id";
    for (const QString& name : ZoneFields()) {
        const QString value = db.SelectValue(QStringLiteral("SELECT quote(\"%1\") FROM no_fly_zone WHERE updated_at = "
                                                            "'updated_at' AND local_id = ?")
                                                 .arg(name),
                                             {row})
                                  .toString();
        QCOMPARE(value, name == field ? stored : QStringLiteral("'%1'").arg(name));
    }
}

void tst_CLmNoflyZoneMgr::publishedFileReadsBack()
{
    CLmNoflyZoneMgr manager(WorkFile());
    QVERIFY(manager.SaveNoflyFile(ZoneDatabase(m_dir.path(), {})));
    QJsonObject lift{{"id", "LIFT-1"}, {"name", "Permit"}, {"user_id", 1}, {"area", "{}"}, {"begin_at", "2025-01-01"},
                     {"expired_at", "2030-01-01"}, {"status", 1}, {"Notes", ""}, {"local_ids", "CH-A00001"},
                     {"explain", ""}};
    QVERIFY(manager.ApplyLiftReply(LiftReply({lift})).bOk);
    lift.insert("status", 0);
    QCOMPARE(manager.ApplyLiftReply(LiftReply({lift, Without(lift, "explain")})).iApplied, 1);
    QVERIFY(manager.EncryptionNoflyFile(WorkFile(), WorkFile()));
    QVERIFY(LmNoflyCipher::IsEnciphered(WorkFile()));

    // The next start deciphers the work copy and goes on from its newest zone.
    QCOMPARE(manager.CheckExistNoflyFile(), QStringLiteral("2025-03-01 10:00:00"));
    manager.CloseDataBase();
    CLmDataBase db(WorkFile());
    QVERIFY(db.Open(true));
    QCOMPARE(db.SelectValue("SELECT group_concat(id || ':' || status) FROM lift_no_fly_zone").toString(),
             QStringLiteral("LIFT-1:0"));
}

void tst_CLmNoflyZoneMgr::tamperedFileRefused_data()
{
    QTest::addColumn<int>("plainBytes");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("deciphered");

    for (int size : {0, 1, 65536, 65537, 200000}) {
        const QByteArray name = QByteArray::number(size) + " bytes";
        QTest::newRow(QByteArray(name + ", intact").constData()) << size << "none" << true;
        QTest::newRow(QByteArray(name + ", a byte changed").constData()) << size << "flip" << false;
        QTest::newRow(QByteArray(name + ", last chunk cut off").constData()) << size << "cut" << false;
        QTest::newRow(QByteArray(name + ", bytes appended").constData()) << size << "append" << false;
        QTest::newRow(QByteArray(name + ", another key").constData()) << size << "key" << false;
    }
    QTest::newRow("plain file") << 1000 << "plain" << false;
}

void tst_CLmNoflyZoneMgr::tamperedFileRefused()
{
    QFETCH(int, plainBytes);
    QFETCH(QString, fault);
    QFETCH(bool, deciphered);

    QByteArray plain(plainBytes, Qt::Uninitialized);
    QRandomGenerator(plainBytes).fillRange(reinterpret_cast<quint32*>(plain.data()), plainBytes / 4);
    const QString source = m_dir.filePath("plain.bin");
    const QString sealed = m_dir.filePath("sealed.bin");
    const QString target = m_dir.filePath("opened.bin");
    WriteAll(source, plain);
    WriteAll(target, "untouched");
    const QByteArray key(LmNoflyCipher::KeyBytes, '\x5a');
    QVERIFY(LmNoflyCipher::Encipher(source, sealed, key));

    QByteArray bytes = ReadAll(sealed);
    QByteArray openKey = key;
    if (fault == "flip")
        bytes[bytes.size() / 2 + 20] = bytes.at(bytes.size() / 2 + 20) ^ 0x01;
    else if (fault == "cut")
        bytes.chop(qMin(bytes.size() - 32, 17 + plainBytes % 65536 + 1));
    else if (fault == "append")
        bytes.append(QByteArray(17, '\0'));
    else if (fault == "key")
        openKey[0] = '\x5b';
    else if (fault == "plain")
        bytes = plain;
    WriteAll(sealed, bytes);

    QCOMPARE(LmNoflyCipher::Decipher(sealed, target, openKey), deciphered);
    QCOMPARE(ReadAll(target), deciphered ? plain : QByteArray("untouched"));
}

QTEST_GUILESS_MAIN(tst_CLmNoflyZoneMgr)
#include "tst_CLmNoflyZoneMgr.moc"
