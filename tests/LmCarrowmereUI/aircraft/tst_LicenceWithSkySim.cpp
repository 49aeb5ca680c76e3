#include "CLmLicenceController.h"
#include "CLmLicenceLink.h"
#include "CLmUasProvide.h"
#include "CCannedHttpPeer.h"
#include "CLoopbackAircraft.h"
#include "CSkyCloudProcess.h"
#include "CSkySimProcess.h"
#include "LmLicenceState.h"
#include "LmMavlinkMessages.h"
#include "TestSession.h"

#include <QDateTime>
#include <QJsonObject>
#include <QtTest>

#include <memory>

#include <sodium.h>

using LmLicenceState::EState;
Q_DECLARE_METATYPE(EState)
Q_DECLARE_METATYPE(SLmLicenceInfo::EResult)

namespace {

// The fixed-wing emulator with system id 1 reports this serial number.
const QString kSimSerial = QStringLiteral("SKF240001");

struct SKeyPair {
    QByteArray publicKey = QByteArray(crypto_sign_PUBLICKEYBYTES, '\0');
    QByteArray secretKey = QByteArray(crypto_sign_SECRETKEYBYTES, '\0');
    SKeyPair()
    {
        crypto_sign_keypair(reinterpret_cast<unsigned char*>(publicKey.data()),
                            reinterpret_cast<unsigned char*>(secretKey.data()));
    }
    QByteArray Sign(const QByteArray& text) const
    {
        QByteArray signedText(int(crypto_sign_BYTES) + text.size(), '\0');
        crypto_sign(reinterpret_cast<unsigned char*>(signedText.data()), nullptr,
                    reinterpret_cast<const unsigned char*>(text.constData()), quint64(text.size()),
                    reinterpret_cast<const unsigned char*>(secretKey.constData()));
        return signedText;
    }
};

// The cloud's key pair of the test run.
const SKeyPair& CloudKey()
{
    static const SKeyPair key;
    return key;
}

QByteArray LicenceText(const QString& serial, const QString& expires, const QString& features = "survey,rtk")
{
    return QStringLiteral("serial=%1\nexpires=%2\nfeatures=%3\nissued=2026-01-01T00:00:00Z\n")
        .arg(serial, expires, features)
        .toLatin1();
}

}  // namespace

// The licence state of a day, what the aircraft emulator keeps of licences
// it is given, and a refresh from the cloud emulator to the aircraft.
class tst_LicenceWithSkySim : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void stateOnDay_data();
    void stateOnDay();
    void aircraftKeepsOnlyVerifiedOwnLicences_data();
    void aircraftKeepsOnlyVerifiedOwnLicences();
    void refreshFromCloud_data();
    void refreshFromCloud();
    void refreshWithUnusableReply_data();
    void refreshWithUnusableReply();

private:
    // Starts skysim talking to the link and waits for its first frame.
    bool StartSim(CSkySimProcess& sim, const QStringList& arguments);
    SLmLicenceInfo Exchange(CLmLicenceLink& link, const QByteArray& signedLicence);

    std::unique_ptr<CLoopbackAircraft> m_pAircraft;
};

void tst_LicenceWithSkySim::initTestCase()
{
    QVERIFY(sodium_init() >= 0);
}

void tst_LicenceWithSkySim::init()
{
    m_pAircraft = std::make_unique<CLoopbackAircraft>();
}

void tst_LicenceWithSkySim::cleanup()
{
    m_pAircraft.reset();
}

bool tst_LicenceWithSkySim::StartSim(CSkySimProcess& sim, const QStringList& arguments)
{
    QSignalSpy heard(m_pAircraft->Uas(), &CLmUasProvide::messageReceived);
    return sim.Start(m_pAircraft->SimArguments() + arguments)
        && (!heard.isEmpty() || heard.wait(10000));
}

// Writes the licence (or reads, when empty) and returns the aircraft's answer.
SLmLicenceInfo tst_LicenceWithSkySim::Exchange(CLmLicenceLink& link, const QByteArray& signedLicence)
{
    QSignalSpy reported(&link, &CLmLicenceLink::LicenceReported);
    if (signedLicence.isEmpty())
        link.ReadLicence();
    else
        link.WriteLicence(signedLicence);
    if (!reported.wait(10000))
        return {};
    return reported.first().first().value<SLmLicenceInfo>();
}

void tst_LicenceWithSkySim::stateOnDay_data()
{
    QTest::addColumn<bool>("held");
    QTest::addColumn<QDate>("lastValidDay");
    QTest::addColumn<EState>("state");
    const QDate today(2026, 6, 15);
    QTest::newRow("no licence") << false << QDate() << EState::Missing;
    QTest::newRow("held but its date unreadable") << true << QDate() << EState::Missing;
    QTest::newRow("a year left") << true << today.addYears(1) << EState::Valid;
    QTest::newRow("31 days left") << true << today.addDays(31) << EState::Valid;
    QTest::newRow("30 days left") << true << today.addDays(30) << EState::Expiring;
    QTest::newRow("its last day") << true << today << EState::Expiring;
    QTest::newRow("ended yesterday") << true << today.addDays(-1) << EState::Expired;
    QTest::newRow("ended years ago") << true << QDate(2001, 1, 1) << EState::Expired;
}

void tst_LicenceWithSkySim::stateOnDay()
{
    QFETCH(bool, held);
    QFETCH(QDate, lastValidDay);
    QFETCH(EState, state);
    QCOMPARE(LmLicenceState::StateOn(held, lastValidDay, QDate(2026, 6, 15)), state);
}

void tst_LicenceWithSkySim::aircraftKeepsOnlyVerifiedOwnLicences_data()
{
    QTest::addColumn<QByteArray>("offered");
    QTest::addColumn<SLmLicenceInfo::EResult>("verdict");
    QTest::addColumn<QString>("heldExpiry");
    const QByteArray good = CloudKey().Sign(LicenceText(kSimSerial, "2031-05-01"));
    QByteArray badSignature = good;
    badSignature[5] = char(badSignature[5] ^ 0x01);
    QByteArray extended = good;
    extended.replace("2031-05-01", "2039-05-01");
    static const SKeyPair stranger;

    QTest::newRow("signed by the cloud for this aircraft") << good << SLmLicenceInfo::Accepted << "2031-05-01";
    QTest::newRow("longer than one piece")
        << CloudKey().Sign(LicenceText(kSimSerial, "2032-01-01", QString(300, 'f') + ",rtk"))
        << SLmLicenceInfo::Accepted << "2032-01-01";
    QTest::newRow("a signature bit flipped") << badSignature << SLmLicenceInfo::BadSignature << "2030-01-01";
    QTest::newRow("expiry edited after signing") << extended << SLmLicenceInfo::BadSignature << "2030-01-01";
    QTest::newRow("signed by another key")
        << stranger.Sign(LicenceText(kSimSerial, "2031-05-01")) << SLmLicenceInfo::BadSignature << "2030-01-01";
    QTest::newRow("shorter than a signature") << QByteArray(20, 'x') << SLmLicenceInfo::BadSignature << "2030-01-01";
    QTest::newRow("bound to another aircraft")
        << CloudKey().Sign(LicenceText("SKF240002", "2031-05-01")) << SLmLicenceInfo::ForeignSerial << "2030-01-01";
    QTest::newRow("signed but without a serial")
        << CloudKey().Sign("expires=2031-05-01\n") << SLmLicenceInfo::Malformed << "2030-01-01";
}

// The aircraft first holds a licence until 2030; a refused licence must
// leave exactly that one in place.
void tst_LicenceWithSkySim::aircraftKeepsOnlyVerifiedOwnLicences()
{
    QFETCH(QByteArray, offered);
    QFETCH(SLmLicenceInfo::EResult, verdict);
    QFETCH(QString, heldExpiry);
    CSkySimProcess sim;
    QVERIFY(StartSim(sim, {"--licence-key", QString::fromLatin1(CloudKey().publicKey.toHex())}));
    CLmLicenceLink link(m_pAircraft->Uas());
    QCOMPARE(Exchange(link, CloudKey().Sign(LicenceText(kSimSerial, "2030-01-01"))).eResult, SLmLicenceInfo::Accepted);

    const SLmLicenceInfo answer = Exchange(link, offered);
    QCOMPARE(answer.eResult, verdict);
    const SLmLicenceInfo held = Exchange(link, {});
    QCOMPARE(held.eResult, SLmLicenceInfo::Report);
    QVERIFY(held.bHasLicence);
    QCOMPARE(held.strLicenceSerial, kSimSerial);
    QCOMPARE(held.dateExpires.toString(Qt::ISODate), heldExpiry);
}

void tst_LicenceWithSkySim::refreshFromCloud_data()
{
    QTest::addColumn<bool>("signedIn");
    QTest::addColumn<bool>("trustsCloud"); // skysim fetched the cloud's key
    QTest::addColumn<int>("expiryInDays"); // set by the administrator; 0: the account's default terms
    QTest::addColumn<EState>("state");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("keyStatus");
    QTest::newRow("default terms")
        << true << true << 0 << EState::Valid << "Licence refreshed." << "Welcome, licence valid until";
    QTest::newRow("expiry set 10 days ahead")
        << true << true << 10 << EState::Expiring << "Licence refreshed." << "Welcome, licence valid until";
    QTest::newRow("expiry set to yesterday")
        << true << true << -1 << EState::Expired << "Licence refreshed." << "Licence expired on";
    QTest::newRow("not signed in")
        << false << true << 0 << EState::Missing << "The cloud did not issue a licence: Missing token" << "No licence";
    QTest::newRow("aircraft without the cloud's key")
        << true << false << 0 << EState::Missing << "The aircraft cannot check licences; it kept none."
        << "Welcome, licence key valid";
}

void tst_LicenceWithSkySim::refreshFromCloud()
{
    QFETCH(bool, signedIn);
    QFETCH(bool, trustsCloud);
    QFETCH(int, expiryInDays);
    QFETCH(EState, state);
    QFETCH(QString, status);
    QFETCH(QString, keyStatus);
    CSkyCloudProcess cloud;
    QVERIFY(cloud.Start());
    TestSession::PointCloudAt(cloud.BaseUrl());
    if (expiryInDays != 0) {
        const QByteArray admin = cloud.Call("/admin/login", "username=admin&password=skyconsole")
                                     .value("data").toObject().value("token").toString().toLatin1();
        const QDate expiry = QDateTime::currentDateTimeUtc().date().addDays(expiryInDays);
        const QJsonObject set = cloud.CallWithHeader(
            "/licence/setexpiry", "phone=13800000001&expires=" + expiry.toString(Qt::ISODate).toLatin1(),
            "admin-token", admin);
        QCOMPARE(set.value("status").toInt(-1), 0);
    }
    TestSession::SetSession(signedIn ? QString::fromLatin1(cloud.SignIn("13800000001")) : QString(), "1");
    CSkySimProcess sim;
    QVERIFY(StartSim(sim, trustsCloud ? QStringList{"--licence-cloud", QString::fromLatin1(cloud.BaseUrl())}
                                      : QStringList()));
    QString lastKeyStatus;
    connect(m_pAircraft->Uas(), &CLmUasProvide::KeyStatusString, this, [&](const QString& text) { lastKeyStatus = text; });

    CLmLicenceController controller;
    controller.SetCurrentUas(m_pAircraft->Uas());
    QTRY_VERIFY_WITH_TIMEOUT(!controller.IsBusy(), 10000);
    QCOMPARE(controller.State(), EState::Missing);
    QVERIFY(controller.Refresh());
    QTRY_VERIFY_WITH_TIMEOUT(!controller.IsBusy(), 20000);

    QCOMPARE(controller.StatusText(), status);
    QCOMPARE(controller.State(), state);
    QCOMPARE(controller.Licence().strAircraftSerial, kSimSerial);
    QCOMPARE(controller.Licence().strLicenceSerial, state == EState::Missing ? QString() : kSimSerial);
    m_pAircraft->Uas()->RequestMessage(LmMavlink::MSG_ID_SKY_KEY_STATUS);
    QTRY_VERIFY2_WITH_TIMEOUT(lastKeyStatus.startsWith(keyStatus), qPrintable(lastKeyStatus), 10000);
}

void tst_LicenceWithSkySim::refreshWithUnusableReply_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("why");
    QTest::newRow("not JSON") << QByteArray("<html>busy</html>") << "its reply could not be read";
    QTest::newRow("refused in the envelope")
        << QByteArray(R"({"status":400,"message":"Not an aircraft serial number","data":{}})")
        << "Not an aircraft serial number";
    QTest::newRow("no licence in the data") << QByteArray(R"({"status":0,"message":"OK","data":{}})")
                                            << "its reply holds no licence";
    QTest::newRow("licence not in base64")
        << QByteArray(R"({"status":0,"message":"OK","data":{"licence":"**not base64**"}})")
        << "its reply holds no licence";
}

// Nothing reaches the aircraft; the section can refresh again.
void tst_LicenceWithSkySim::refreshWithUnusableReply()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, why);
    CCannedHttpPeer cloud(CCannedHttpPeer::Reply("200 OK", body));
    TestSession::PointCloudAt(cloud.BaseUrl());
    TestSession::SetSession(QStringLiteral("token-1"), QStringLiteral("1"));
    CSkySimProcess sim;
    QVERIFY(StartSim(sim, {"--licence-key", QString::fromLatin1(CloudKey().publicKey.toHex())}));
    CLmLicenceController controller;
    controller.SetCurrentUas(m_pAircraft->Uas());
    QTRY_VERIFY_WITH_TIMEOUT(!controller.IsBusy(), 10000);

    QVERIFY(controller.Refresh());
    QTRY_VERIFY_WITH_TIMEOUT(!controller.IsBusy(), 10000);
    QCOMPARE(controller.StatusText(), QStringLiteral("The cloud did not issue a licence: %1").arg(why));
    QCOMPARE(controller.State(), EState::Missing);
    QVERIFY(controller.Refresh());
}

QTEST_GUILESS_MAIN(tst_LicenceWithSkySim)
#include "tst_LicenceWithSkySim.moc"
