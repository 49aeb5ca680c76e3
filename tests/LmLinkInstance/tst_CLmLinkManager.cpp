#include "CLmLinkManager.h"
#include "CLmLinkProvide.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

namespace {

class FakeLink : public CLmLinkProvide
{
public:
    using CLmLinkProvide::CLmLinkProvide;

    void Connect() override { ++m_nConnectCalls; }
    void Disconnect() override { ++m_nDisconnectCalls; }

    int m_nConnectCalls = 0;
    int m_nDisconnectCalls = 0;
};

} // namespace

class TestCLmLinkManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void operationReachesOnlyItsLink_data();
    void operationReachesOnlyItsLink();
    void duplicateIdIsRefused();
    void linkSignalsCarryTheLink();
    void destroyedLinkIsForgotten();

private:
    CLmLinkManager* m_pManager = nullptr;
    FakeLink* m_pSerial = nullptr;
    FakeLink* m_pPush = nullptr;
};

void TestCLmLinkManager::init()
{
    m_pManager = new CLmLinkManager(nullptr);
    m_pSerial = new FakeLink(1);
    m_pPush = new FakeLink(7);
    QVERIFY(m_pManager->AddLink(m_pSerial));
    QVERIFY(m_pManager->AddLink(m_pPush));
}

void TestCLmLinkManager::cleanup()
{
    delete m_pManager;
}

void TestCLmLinkManager::operationReachesOnlyItsLink_data()
{
    QTest::addColumn<bool>("connectCall");
    QTest::addColumn<int>("linkId");
    QTest::addColumn<int>("serialConnects");
    QTest::addColumn<int>("serialDisconnects");
    QTest::addColumn<int>("pushConnects");
    QTest::addColumn<int>("pushDisconnects");

    QTest::newRow("connect serial") << true << 1 << 1 << 0 << 0 << 0;
    QTest::newRow("disconnect serial") << false << 1 << 0 << 1 << 0 << 0;
    QTest::newRow("connect push") << true << 7 << 0 << 0 << 1 << 0;
    QTest::newRow("disconnect push") << false << 7 << 0 << 0 << 0 << 1;
    QTest::newRow("connect unknown id") << true << 3 << 0 << 0 << 0 << 0;
    QTest::newRow("disconnect unknown id") << false << 3 << 0 << 0 << 0 << 0;
}

void TestCLmLinkManager::operationReachesOnlyItsLink()
{
    QFETCH(bool, connectCall);
    QFETCH(int, linkId);
    if (!m_pManager->GetLink(linkId))
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no link with id " + QString::number(linkId)));

    connectCall ? m_pManager->ConnectLink(linkId) : m_pManager->DisconnectLink(linkId);

    QTEST(m_pSerial->m_nConnectCalls, "serialConnects");
    QTEST(m_pSerial->m_nDisconnectCalls, "serialDisconnects");
    QTEST(m_pPush->m_nConnectCalls, "pushConnects");
    QTEST(m_pPush->m_nDisconnectCalls, "pushDisconnects");
}

void TestCLmLinkManager::duplicateIdIsRefused()
{
    FakeLink second(1);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("link id already in use: 1"));

    QVERIFY(!m_pManager->AddLink(&second));

    QCOMPARE(m_pManager->GetLink(1), m_pSerial);
    QCOMPARE(second.parent(), nullptr);
    m_pManager->ConnectLink(1);
    QCOMPARE(second.m_nConnectCalls, 0);
}

void TestCLmLinkManager::linkSignalsCarryTheLink()
{
    QSignalSpy bytes(m_pManager, &CLmLinkManager::bytesReceived);
    QSignalSpy connected(m_pManager, &CLmLinkManager::linkConnected);
    QSignalSpy disconnected(m_pManager, &CLmLinkManager::linkDisconnected);

    emit m_pPush->connected();
    emit m_pPush->bytesReceived("{\"a\":1}");
    emit m_pSerial->disconnected();

    QCOMPARE(connected.count(), 1);
    QCOMPARE(connected.first().first().value<CLmLinkProvide*>(), m_pPush);
    QCOMPARE(bytes.count(), 1);
    QCOMPARE(bytes.first().at(0).value<CLmLinkProvide*>(), m_pPush);
    QCOMPARE(bytes.first().at(1).toByteArray(), QByteArray("{\"a\":1}"));
    QCOMPARE(disconnected.count(), 1);
    QCOMPARE(disconnected.first().first().value<CLmLinkProvide*>(), m_pSerial);
}

void TestCLmLinkManager::destroyedLinkIsForgotten()
{
    QPointer<FakeLink> guard(m_pSerial);
    delete m_pSerial;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no link with id 1"));

    m_pManager->ConnectLink(1);

    QCOMPARE(m_pManager->GetLink(1), nullptr);
    QCOMPARE(m_pManager->GetLink(7), m_pPush);
    QVERIFY(guard.isNull());
}

QTEST_GUILESS_MAIN(TestCLmLinkManager)
#include "tst_CLmLinkManager.moc"
