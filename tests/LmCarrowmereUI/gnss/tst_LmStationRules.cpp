#include "LmBaseStationMath.h"
#include "LmStationFiles.h"
#include "LmStationRules.h"

#include <QGeoCoordinate>
#include <QtTest>

using namespace LmStationRules;
Q_DECLARE_METATYPE(LmStationRules::EStateAction)

// The decisions of the base-station page that do not need a station.
class tst_LmStationRules : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void packsDdmm_data();
    void packsDdmm();
    void checksDeviation_data();
    void checksDeviation();
    void decidesOnStateReply_data();
    void decidesOnStateReply();
    void readsSettingResult_data();
    void readsSettingResult();
    void readsFileList_data();
    void readsFileList();
    void readsEnteredAngle_data();
    void readsEnteredAngle();
    void refusesPointNames_data();
    void refusesPointNames();
    void keepsStationFilesInFolder_data();
    void keepsStationFilesInFolder();
};

void tst_LmStationRules::packsDdmm_data()
{
    QTest::addColumn<double>("degrees");
    QTest::addColumn<double>("ddmm");
    QTest::newRow("south") << -22.5 << -2230.0;
    QTest::newRow("north") << 22.5 << 2230.0;
    QTest::newRow("east three digits") << 113.25 << 11315.0;
    QTest::newRow("west under one degree") << -0.75 << -45.0;
    QTest::newRow("zero") << 0.0 << 0.0;
    QTest::newRow("whole degree") << 31.0 << 3100.0;
}

void tst_LmStationRules::packsDdmm()
{
    QFETCH(double, degrees);
    QFETCH(double, ddmm);
    QVERIFY(qAbs(LmBaseStationMath::PackDdmm(degrees) - ddmm) < 1e-9);
    QVERIFY(qAbs(LmBaseStationMath::DegreesFromDdmm(ddmm) - degrees) < 1e-9);
}

void tst_LmStationRules::checksDeviation_data()
{
    QTest::addColumn<double>("northM");
    QTest::addColumn<double>("upM");
    QTest::addColumn<bool>("acceptable");
    QTest::newRow("99.9 m away") << 99.9 << 0.0 << true;
    QTest::newRow("100.0 m away") << 100.0 << 0.0 << false;
    QTest::newRow("99.9 m above") << 0.0 << 99.9 << true;
    QTest::newRow("100.0 m below") << 0.0 << -100.0 << false;
    QTest::newRow("60 and 79.9 m") << 60.0 << 79.9 << true;
    QTest::newRow("60 and 80.01 m make over 100") << 60.0 << 80.01 << false;
    QTest::newRow("same point") << 0.0 << 0.0 << true;
}

void tst_LmStationRules::checksDeviation()
{
    QFETCH(double, northM);
    QFETCH(double, upM);
    QFETCH(bool, acceptable);
    const QGeoCoordinate station(-22.5, 113.25);
    const QGeoCoordinate entered = station.atDistanceAndAzimuth(northM, 0.0);
    const LmBaseStationMath::SGeoPoint stationPoint{station.latitude(), station.longitude(), 50.0};
    const LmBaseStationMath::SGeoPoint enteredPoint{entered.latitude(), entered.longitude(), 50.0 + upM};
    QCOMPARE(LmBaseStationMath::IsDeviationAcceptable(enteredPoint, stationPoint), acceptable);
}

void tst_LmStationRules::decidesOnStateReply_data()
{
    QTest::addColumn<bool>("recording");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("firstReply");
    QTest::addColumn<bool>("storedPoint");
    QTest::addColumn<EStateAction>("action");
    QTest::newRow("first, recording") << true << 3 << true << true << eLockOnStateTab;
    QTest::newRow("first, idle") << false << 3 << true << true << eResetToDisuse;
    QTest::newRow("first, idle, format") << false << 4 << true << true << eResetToDisuse;
    QTest::newRow("disuse, recording") << true << 0 << false << false << eAskStopRecording;
    QTest::newRow("disuse, idle") << false << 0 << false << false << eNoAction;
    QTest::newRow("ppk, idle") << false << 1 << false << false << eSendStatic;
    QTest::newRow("ppk, recording") << true << 1 << false << true << eAskStopBeforeSave;
    QTest::newRow("cors, idle") << false << 2 << false << true << eNoAction;
    QTest::newRow("cors, recording") << true << 2 << false << true << eAskStopBeforeSave;
    QTest::newRow("single, idle, stored point") << false << 3 << false << true << eSendBase;
    QTest::newRow("single, idle, manual input") << false << 3 << false << false << eNoAction;
    QTest::newRow("single, recording") << true << 3 << false << true << eAskStopBeforeSave;
    QTest::newRow("format, idle") << false << 4 << false << false << eAskFormat;
    QTest::newRow("format, recording") << true << 4 << false << false << eAskStopBeforeFormat;
    QTest::newRow("unset, idle") << false << 5 << false << false << eNoAction;
}

void tst_LmStationRules::decidesOnStateReply()
{
    QFETCH(bool, recording);
    QFETCH(int, mode);
    QFETCH(bool, firstReply);
    QFETCH(bool, storedPoint);
    QFETCH(EStateAction, action);
    QCOMPARE(StateReplyAction(recording, mode, firstReply, storedPoint), action);
}

void tst_LmStationRules::readsSettingResult_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("known");
    QTest::addColumn<bool>("success");
    QTest::addColumn<QString>("message");
    QTest::newRow("base ok") << "baseNtrip" << 0 << true << true << "Base Ntrip :Success";
    QTest::newRow("base failed") << "baseNtrip" << 1 << true << false << "Base Ntrip :Failed";
    QTest::newRow("base lost") << "baseNtrip" << -1 << true << false << "Base Ntrip :Failed";
    QTest::newRow("rover ok") << "roverNtrips" << 0 << true << true << "";
    QTest::newRow("rover failed") << "roverNtrips" << 2 << true << false << "connect to CORS station failed.";
    QTest::newRow("static ok") << "staticNtrip" << 0 << true << true << "";
    QTest::newRow("static failed") << "staticNtrip" << 1 << true << false << "Set work mode to static failed.";
    QTest::newRow("start ok") << "startStaticFile" << 0 << true << true << "Start static file:Success";
    QTest::newRow("start not static") << "startStaticFile" << 1 << true << false << "Not static mode";
    QTest::newRow("start exists") << "startStaticFile" << 2 << true << false << "File name exist";
    QTest::newRow("start parameter") << "startStaticFile" << 3 << true << false << "Parameter error";
    QTest::newRow("start no fix") << "startStaticFile" << 4 << true << false << "GPS is not positioning";
    QTest::newRow("start unknown code") << "startStaticFile" << 9 << false << false << "";
    QTest::newRow("stop ok") << "stopStaticFile" << 0 << true << true << "Stop static file:Success";
    QTest::newRow("stop failed") << "stopStaticFile" << 1 << true << false << "Stop static file:Failed";
    QTest::newRow("delete ok") << "deleteStaticFile" << 0 << true << true << "delete file(s) succeed.";
    QTest::newRow("delete not static") << "deleteStaticFile" << 1 << true << false << "Not static mode.";
    QTest::newRow("delete failed") << "deleteStaticFile" << 2 << true << false << "Delete files failed.";
    QTest::newRow("delete unknown code") << "deleteStaticFile" << 7 << false << false << "";
    QTest::newRow("unknown name") << "reboot" << 0 << false << false << "";
}

void tst_LmStationRules::readsSettingResult()
{
    QFETCH(QString, name);
    QFETCH(int, code);
    QFETCH(bool, known);
    QFETCH(bool, success);
    QFETCH(QString, message);
    const SSettingResult result = SettingResult(name, code);
    QCOMPARE(result.bKnown, known);
    QCOMPARE(result.bSuccess, success);
    QCOMPARE(result.message, message);
}

void tst_LmStationRules::readsFileList_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("sizes");
    QTest::addColumn<int>("validTimes");
    QTest::newRow("two records") << "A.GNS,2026-11-23T18:11:09Z,2048;B.GNS,2026-11-23T19:00:00Z,1023"
                                 << QStringList{"A.GNS", "B.GNS"} << QStringList{"2KB", "0KB"} << 2;
    QTest::newRow("trailing separator") << "A.GNS,2026-11-23T18:11:09Z,10240;" << QStringList{"A.GNS"}
                                        << QStringList{"10KB"} << 1;
    QTest::newRow("record without size skipped") << "A.GNS,2026-11-23T18:11:09Z;B.GNS,2026-11-23T18:11:09Z,4096"
                                                 << QStringList{"B.GNS"} << QStringList{"4KB"} << 1;
    QTest::newRow("name only skipped") << "A.GNS" << QStringList{} << QStringList{} << 0;
    QTest::newRow("empty list") << "" << QStringList{} << QStringList{} << 0;
    QTest::newRow("unreadable time kept") << "A.GNS,yesterday,5000" << QStringList{"A.GNS"} << QStringList{"4KB"}
                                          << 0;
    QTest::newRow("size not a number") << "A.GNS,2026-11-23T18:11:09Z,big" << QStringList{"A.GNS"}
                                       << QStringList{"0KB"} << 1;
    QTest::newRow("beyond 4 GB") << "A.GNS,2026-11-23T18:11:09Z,5368709120" << QStringList{"A.GNS"}
                                 << QStringList{"5242880KB"} << 1;
}

void tst_LmStationRules::readsFileList()
{
    QFETCH(QString, text);
    QFETCH(QStringList, names);
    QFETCH(QStringList, sizes);
    QFETCH(int, validTimes);
    const QList<SStaticFileRow> rows = ParseStaticFileList(text);
    QStringList readNames;
    QStringList readSizes;
    int readTimes = 0;
    for (const SStaticFileRow& row : rows) {
        readNames.append(row.name);
        readSizes.append(FileSizeText(row.sizeBytes));
        if (row.created.isValid()) {
            QCOMPARE(row.created.timeSpec(), Qt::UTC);
            ++readTimes;
        }
    }
    QCOMPARE(readNames, names);
    QCOMPARE(readSizes, sizes);
    QCOMPARE(readTimes, validTimes);
}

void tst_LmStationRules::readsEnteredAngle_data()
{
    QTest::addColumn<QString>("degrees");
    QTest::addColumn<QString>("minutes");
    QTest::addColumn<QString>("seconds");
    QTest::addColumn<double>("maxDegrees");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<double>("value");
    QTest::newRow("north") << "22" << "30" << "0" << 90.0 << true << 22.5;
    QTest::newRow("south") << "-22" << "30" << "36" << 90.0 << true << -22.51;
    QTest::newRow("south of the equator under a degree") << "-0" << "30" << "0" << 90.0 << true << -0.5;
    QTest::newRow("east") << "113" << "15" << "0.0000" << 180.0 << true << 113.25;
    QTest::newRow("minutes 60") << "22" << "60" << "0" << 90.0 << false << 0.0;
    QTest::newRow("seconds 60") << "22" << "0" << "60" << 90.0 << false << 0.0;
    QTest::newRow("beyond the pole") << "90" << "0" << "1" << 90.0 << false << 0.0;
    QTest::newRow("empty minutes") << "22" << "" << "0" << 90.0 << false << 0.0;
    QTest::newRow("not a number") << "x" << "0" << "0" << 90.0 << false << 0.0;
}

void tst_LmStationRules::readsEnteredAngle()
{
    QFETCH(QString, degrees);
    QFETCH(QString, minutes);
    QFETCH(QString, seconds);
    QFETCH(double, maxDegrees);
    QFETCH(bool, valid);
    QFETCH(double, value);
    const std::optional<double> read = ReadDms(degrees, minutes, seconds, maxDegrees);
    QCOMPARE(read.has_value(), valid);
    if (!valid)
        return;
    QVERIFY(qAbs(*read - value) < 1e-9);
    // What the fields show for a stored point reads back as the same point.
    const SDmsText text = DmsText(*read);
    QVERIFY(qAbs(*ReadDms(text.degrees, text.minutes, text.seconds, maxDegrees) - value) < 1e-7);
}

void tst_LmStationRules::refusesPointNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("problem");
    const QStringList taken{"Tower"};
    QTest::newRow("new") << "Ridge" << "";
    QTest::newRow("taken") << "Tower" << "The reference point name has been exist.";
    QTest::newRow("case differs") << "tower" << "";
    QTest::newRow("empty") << "" << "Please input reference point name.";
    QTest::newRow("32 characters") << QString(32, QLatin1Char('n')) << "";
    QTest::newRow("33 characters") << QString(33, QLatin1Char('n'))
                                   << "The reference point name can have at most 32 characters.";
}

void tst_LmStationRules::refusesPointNames()
{
    QFETCH(QString, name);
    QFETCH(QString, problem);
    QCOMPARE(ReferencePointNameProblem(name, {QStringLiteral("Tower")}), problem);
}

void tst_LmStationRules::keepsStationFilesInFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");
    QTest::newRow("plain") << "SKB_20261123.GNS" << "/data/raw/SKB_20261123.GNS";
    QTest::newRow("parent") << "../SKB.GNS" << "";
    QTest::newRow("absolute") << "/etc/passwd" << "";
    QTest::newRow("dot dot") << ".." << "";
    QTest::newRow("backslash") << "..\\SKB.GNS" << "";
    QTest::newRow("empty") << "" << "";
}

void tst_LmStationRules::keepsStationFilesInFolder()
{
    QFETCH(QString, name);
    QFETCH(QString, path);
    QCOMPARE(LmStationFiles::TargetPath(QStringLiteral("/data/raw"), name), path);
}

QTEST_GUILESS_MAIN(tst_LmStationRules)
#include "tst_LmStationRules.moc"
