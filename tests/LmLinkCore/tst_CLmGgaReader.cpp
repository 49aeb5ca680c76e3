#include "CLmBaseStationProtocol.h"
#include "CLmGgaReader.h"
#include "CLmNmeaLineReader.h"
#include "CLmNmeaSentence.h"

#include <QtTest>

// Position reports and control sentences as they come off the wire: framing
// and checksum, the GGA fields, and text fields that carry separators.
class tst_CLmGgaReader : public QObject
{
    Q_OBJECT

private slots:
    void framingAndChecksum_data();
    void framingAndChecksum();
    void ggaFields_data();
    void ggaFields();
    void writtenReportsReadBack_data();
    void writtenReportsReadBack();
    void streamCutAnywhereGivesTheSameSentences();
    void controlTextsSurviveSeparators_data();
    void controlTextsSurviveSeparators();
    void malformedControlSentencesAreRefused_data();
    void malformedControlSentencesAreRefused();
};

void tst_CLmGgaReader::framingAndChecksum_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("accepted");
    const QByteArray body = "GPGGA,092750.000,5321.6802,N,00630.3372,W,1,8,1.03,61.7,M,55.2,M,,";
    QTest::newRow("good, CR LF") << "$" + body + "*76\r\n" << true;
    QTest::newRow("good, bare") << "$" + body + "*76" << true;
    QTest::newRow("lower-case hex") << QByteArray("$GNGGA,001043.00,4404.14036,N,12118.85961,W,4,12,0.98,1113.0,M,"
                                                  "-21.3,M,1.0,0000*6d\r\n")
                                    << true;
    QTest::newRow("one digit changed in transit") << "$" + QByteArray(body).replace("5321", "5331") + "*76\r\n"
                                                  << false;
    QTest::newRow("checksum off by one") << "$" + body + "*77\r\n" << false;
    QTest::newRow("no checksum") << "$" + body + "\r\n" << false;
    QTest::newRow("one checksum digit") << "$" + body + "*7\r\n" << false;
    QTest::newRow("checksum not hex") << "$" + body + "*7G\r\n" << false;
    QTest::newRow("no dollar") << body + "*76\r\n" << false;
    QTest::newRow("two sentences glued") << "$" + body + "$" + body + "*00\r\n" << false;
}

void tst_CLmGgaReader::framingAndChecksum()
{
    QFETCH(QByteArray, line);
    QFETCH(bool, accepted);
    QByteArray body;
    QCOMPARE(CLmNmeaSentence::Unframe(line, body), accepted);
    if (accepted)
        QCOMPARE(CLmNmeaSentence::Frame(body).toUpper(), (line.trimmed() + "\r\n").toUpper());
}

void tst_CLmGgaReader::ggaFields_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("read");
    QTest::addColumn<double>("latitude");
    QTest::addColumn<double>("longitude");
    QTest::addColumn<int>("quality");
    QTest::addColumn<int>("satellites");
    QTest::addColumn<double>("altitude");

    QTest::newRow("north-west, standalone")
        << QByteArray("GPGGA,092750.000,5321.6802,N,00630.3372,W,1,8,1.03,61.7,M,55.2,M,,") << true << 5321.6802
        << -630.3372 << 1 << 8 << 61.7;
    QTest::newRow("south-east, RTK float, no decimals in time")
        << QByteArray("GPGGA,123519,4807.038,S,01131.000,E,5,08,0.9,545.4,M,46.9,M,,") << true << -4807.038 << 1131.0
        << 5 << 8 << 545.4;
    QTest::newRow("GNSS talker, RTK fixed")
        << QByteArray("GNGGA,001043.00,4404.14036,N,12118.85961,W,4,12,0.98,1113.0,M,-21.3,M,1.0,0000") << true
        << 4404.14036 << -12118.85961 << 4 << 12 << 1113.0;
    QTest::newRow("no fix: empty position") << QByteArray("GPGGA,235959.50,,,,,0,00,99.9,,M,,M,,") << true << 0.0
                                            << 0.0 << 0 << 0 << 0.0;
    QTest::newRow("minutes 60") << QByteArray("GPGGA,123519,4860.000,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,")
                                << false << 0.0 << 0.0 << 0 << 0 << 0.0;
    QTest::newRow("latitude over 90") << QByteArray("GPGGA,123519,9107.038,N,01131.000,E,1,08,0.9,545.4,M,,M,,")
                                      << false << 0.0 << 0.0 << 0 << 0 << 0.0;
    QTest::newRow("hemisphere X") << QByteArray("GPGGA,123519,4807.038,X,01131.000,E,1,08,0.9,545.4,M,,M,,") << false
                                  << 0.0 << 0.0 << 0 << 0 << 0.0;
    QTest::newRow("position without hemisphere")
        << QByteArray("GPGGA,123519,4807.038,,01131.000,E,1,08,0.9,545.4,M,,M,,") << false << 0.0 << 0.0 << 0 << 0
        << 0.0;
    QTest::newRow("quality not a number") << QByteArray("GPGGA,123519,4807.038,N,01131.000,E,A,08,0.9,545.4,M,,M,,")
                                          << false << 0.0 << 0.0 << 0 << 0 << 0.0;
    QTest::newRow("hour 24") << QByteArray("GPGGA,243519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,,M,,") << false
                             << 0.0 << 0.0 << 0 << 0 << 0.0;
    QTest::newRow("cut after the quality") << QByteArray("GPGGA,123519,4807.038,N,01131.000,E,1") << false << 0.0
                                           << 0.0 << 0 << 0 << 0.0;
    QTest::newRow("another sentence") << QByteArray("GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,,")
                                      << false << 0.0 << 0.0 << 0 << 0 << 0.0;
    QTest::newRow("proprietary look-alike") << QByteArray("PSGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,,M,,")
                                            << false << 0.0 << 0.0 << 0 << 0 << 0.0;
}

void tst_CLmGgaReader::ggaFields()
{
    QFETCH(QByteArray, body);
    QFETCH(bool, read);
    SLmGgaFix fix;
    fix.nQuality = -1;
    QCOMPARE(CLmGgaReader::Read(body, fix), read);
    if (!read) {
        QCOMPARE(fix.nQuality, -1);  // untouched
        return;
    }
    QTEST(fix.dLatitude, "latitude");
    QTEST(fix.dLongitude, "longitude");
    QTEST(fix.nQuality, "quality");
    QTEST(fix.nSatellites, "satellites");
    QTEST(fix.dAltitude, "altitude");
}

void tst_CLmGgaReader::writtenReportsReadBack_data()
{
    QTest::addColumn<double>("latitude");
    QTest::addColumn<double>("longitude");
    QTest::addColumn<int>("quality");
    QTest::addColumn<double>("seconds");
    QTest::newRow("north-east") << 3031.627325 << 11421.3674 << 4 << 66119.84;
    QTest::newRow("south-west, small degrees") << -105.5 << -7.25 << 1 << 0.0;
    QTest::newRow("just before midnight") << 8959.999999 << -17959.999999 << 5 << 86399.99;
    QTest::newRow("no fix") << 0.0 << 0.0 << 0 << 43200.5;
}

void tst_CLmGgaReader::writtenReportsReadBack()
{
    QFETCH(double, latitude);
    QFETCH(double, longitude);
    QFETCH(int, quality);
    QFETCH(double, seconds);
    SLmGgaFix written;
    written.dLatitude = latitude;
    written.dLongitude = longitude;
    written.nQuality = quality;
    written.dUtcSeconds = seconds;
    written.nSatellites = 9;
    written.dHdop = 1.2;
    written.dAltitude = quality ? 45.125 : 0.0;
    QByteArray body;
    QVERIFY(CLmNmeaSentence::Unframe(CLmNmeaSentence::Frame(CLmGgaReader::Write(written)), body));
    SLmGgaFix read;
    QVERIFY2(CLmGgaReader::Read(body, read), body.constData());
    QCOMPARE(read.dLatitude, latitude);
    QCOMPARE(read.dLongitude, longitude);
    QCOMPARE(read.nQuality, quality);
    QCOMPARE(read.dUtcSeconds, seconds);
    QCOMPARE(read.dAltitude, written.dAltitude);
}

void tst_CLmGgaReader::streamCutAnywhereGivesTheSameSentences()
{
    const QByteArray stream = "noise before\r\n$GPGGA,123519,4807.038,S,01131.000,E,5,08,0.9,545.4,M,46.9,M,,*5E\r\n"
                              "$GPGGA,123519,4807.038,S,01131.000,E,5,08,0.9,545.4,M,46.9,M,,*00\r\n"
                              + CLmBaseStationProtocol::ReplyLine("STORAGE", 0, {"100", "50"});
    for (int cut = 0; cut <= stream.size(); ++cut) {
        CLmNmeaLineReader reader;
        reader.Feed(stream.left(cut));
        QList<QByteArray> bodies;
        QByteArray body;
        while (reader.Next(body))
            bodies.append(body);
        reader.Feed(stream.mid(cut));
        while (reader.Next(body))
            bodies.append(body);
        QCOMPARE(bodies.size(), 2);
        QVERIFY(bodies.at(0).startsWith("GPGGA"));
        QCOMPARE(bodies.at(1), QByteArray("PSKBR,STORAGE,0,100,50"));
        QCOMPARE(reader.RejectedLines(), 2);
    }
}

void tst_CLmGgaReader::controlTextsSurviveSeparators_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("file list") << QStringLiteral("a.GNS,2026-11-23T18:21:59Z,3600;b.GNS,2026-11-23T18:30:00Z,12");
    QTest::newRow("password with sentence characters") << QStringLiteral("p*$s,w%d\r\n");
    QTest::newRow("non-ASCII mount") << QStringLiteral("Zürich_01");
    QTest::newRow("empty") << QString();
}

void tst_CLmGgaReader::controlTextsSurviveSeparators()
{
    QFETCH(QString, text);
    const QByteArray line = CLmBaseStationProtocol::RequestLine("CASTER", {CLmBaseStationProtocol::Text(text), "7"});
    QCOMPARE(line.count('\n'), 1);
    QByteArray body;
    QVERIFY(CLmNmeaSentence::Unframe(line, body));
    CLmBaseStationProtocol::SSentence sentence;
    QVERIFY(CLmBaseStationProtocol::Parse(body, sentence));
    QCOMPARE(sentence.eKind, CLmBaseStationProtocol::Request);
    QCOMPARE(sentence.lstFields.size(), 2);
    QCOMPARE(CLmBaseStationProtocol::ToText(sentence.lstFields.at(0)), text);
}

void tst_CLmGgaReader::malformedControlSentencesAreRefused_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("reply without code") << QByteArray("PSKBR,STORAGE");
    QTest::newRow("reply code not a number") << QByteArray("PSKBR,STORAGE,x,1,2");
    QTest::newRow("lower-case operation") << QByteArray("PSKBQ,storage");
    QTest::newRow("empty operation") << QByteArray("PSKBQ,");
    QTest::newRow("other maker") << QByteArray("PXYZQ,STORAGE");
}

void tst_CLmGgaReader::malformedControlSentencesAreRefused()
{
    QFETCH(QByteArray, body);
    CLmBaseStationProtocol::SSentence sentence;
    QVERIFY(!CLmBaseStationProtocol::Parse(body, sentence));
}

QTEST_GUILESS_MAIN(tst_CLmGgaReader)
#include "tst_CLmGgaReader.moc"
