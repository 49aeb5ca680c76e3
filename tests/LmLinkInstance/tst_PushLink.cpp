#include "CLmDeployConfig.h"
#include "CLmLinkManager.h"
#include "CLmLinkProvide.h"
#include "CSkyCloudProcess.h"
#include "CLmSessionStore.h"
#include "LmConstants.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSettings>
#include <QtTest>

// The push link of the link manager against the emulated cloud's push channel.
class tst_PushLink : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void onlyClientTypeMakesALink_data();
    void onlyClientTypeMakesALink();
    void notificationArrivesAsAFrame();
    void notificationSentWhileOfflineArrivesOnSubscribe();
    void reconnectsAfterTheCloudRestarts();

private:
    void SignIn();
    QJsonObject SendNotification(const QByteArray& message);
    QJsonObject FrameObject(const QByteArray& bytes) const;

    std::unique_ptr<CSkyCloudProcess> m_cloud;
    std::unique_ptr<CLmLinkManager> m_manager;
    QByteArray m_adminToken;
};

void tst_PushLink::init()
{
    m_cloud = std::make_unique<CSkyCloudProcess>();
    QVERIFY(m_cloud->Start());
    qputenv("SKYCONSOLE_CLOUD_PUSH_ADDRESS", "127.0.0.1:" + QByteArray::number(m_cloud->PushPort()));
    CLmDeployConfig::Reload();
    m_manager = std::make_unique<CLmLinkManager>(nullptr);
    m_adminToken = m_cloud->Call("/admin/login", "username=admin&password=skyconsole")
                       .value("data").toObject().value("token").toString().toLatin1();
    QVERIFY(!m_adminToken.isEmpty());
}

void tst_PushLink::cleanup()
{
    m_manager.reset();
    m_cloud.reset();
    QSettings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)}.clear();
}

void tst_PushLink::SignIn()
{
    const QJsonObject reply = m_cloud->Call("/user/login", "phone=13800000001&password=skyconsole&device_id=");
    QSettings settings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)};
    settings.beginGroup(QLatin1String(UserInfoGroupName));
    settings.setValue(QLatin1String(UserInfoToken), reply.value("data").toObject().value("token").toString());
}

QJsonObject tst_PushLink::SendNotification(const QByteArray& message)
{
    const QByteArray body = "phone=13800000001&action=news&status=0&message=" + message + "&data=%7B%22n%22%3A1%7D";
    return m_cloud->CallWithHeader("/push/send", body, "admin-token", m_adminToken).value("data").toObject();
}

QJsonObject tst_PushLink::FrameObject(const QByteArray& bytes) const
{
    const QByteArray marker = "SWOOLE_SOCKET_FINISH";
    if (!bytes.endsWith(marker))
        return {};
    return QJsonDocument::fromJson(bytes.left(bytes.size() - marker.size())).object();
}

void tst_PushLink::onlyClientTypeMakesALink_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("made");
    QTest::newRow("serial") << int(LINK_TYPE_SERIAL) << false;
    QTest::newRow("tcp client") << int(LINK_TYPE_TCP_CLIENT) << true;
    QTest::newRow("udp") << int(LINK_TYPE_UDP) << false;
}

void tst_PushLink::onlyClientTypeMakesALink()
{
    QFETCH(int, type);
    QFETCH(bool, made);
    QObject owner;
    if (!made)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("not a client link type"));
    CLmLinkProvide* link = m_manager->AddTcpClientLink(&owner, static_cast<LINK_TYPE>(type));
    QCOMPARE(link != nullptr, made);
    if (link) {
        QCOMPARE(link->parent(), &owner);
        QCOMPARE(m_manager->GetLink(link->GetLinkId()), link);
    }
}

void tst_PushLink::notificationArrivesAsAFrame()
{
    SignIn();
    QObject owner;
    QSignalSpy received(m_manager.get(), &CLmLinkManager::bytesReceived);
    QSignalSpy connected(m_manager.get(), &CLmLinkManager::linkConnected);
    CLmLinkProvide* link = m_manager->AddTcpClientLink(&owner, LINK_TYPE_TCP_CLIENT);
    QTRY_COMPARE(connected.count(), 1);

    SendNotification("Hello");
    QTRY_COMPARE(received.count(), 1);
    QCOMPARE(received.at(0).at(0).value<CLmLinkProvide*>(), link);
    const QJsonObject frame = FrameObject(received.at(0).at(1).toByteArray());
    QCOMPARE(frame.value("action").toString(), QStringLiteral("news"));
    QCOMPARE(frame.value("message").toString(), QStringLiteral("Hello"));
    QCOMPARE(frame.value("data").toObject().value("n").toInt(), 1);

    const QJsonArray stored = m_cloud->Call("/push/messageList", {}, GetCurUserInfo().strToken.toLatin1())
                                  .value("data").toArray();
    QCOMPARE(stored.first().toObject().value("message").toString(), QStringLiteral("Hello"));
}

void tst_PushLink::notificationSentWhileOfflineArrivesOnSubscribe()
{
    SignIn();
    QCOMPARE(SendNotification("Waiting").value("delivered").toInt(-1), 0);
    QObject owner;
    QSignalSpy received(m_manager.get(), &CLmLinkManager::bytesReceived);
    m_manager->AddTcpClientLink(&owner, LINK_TYPE_TCP_CLIENT);
    QTRY_COMPARE(received.count(), 1);
    QCOMPARE(FrameObject(received.at(0).at(1).toByteArray()).value("message").toString(), QStringLiteral("Waiting"));
}

void tst_PushLink::reconnectsAfterTheCloudRestarts()
{
    SignIn();
    QObject owner;
    QSignalSpy received(m_manager.get(), &CLmLinkManager::bytesReceived);
    QSignalSpy connected(m_manager.get(), &CLmLinkManager::linkConnected);
    QSignalSpy disconnected(m_manager.get(), &CLmLinkManager::linkDisconnected);
    m_manager->AddTcpClientLink(&owner, LINK_TYPE_TCP_CLIENT);
    QTRY_COMPARE(connected.count(), 1);

    const quint16 pushPort = m_cloud->PushPort();
    m_cloud->Stop();
    QTRY_COMPARE(disconnected.count(), 1);
    m_cloud->SetPushPort(pushPort);
    QVERIFY(m_cloud->Start());
    QCOMPARE(m_cloud->PushPort(), pushPort);
    QTRY_COMPARE_WITH_TIMEOUT(connected.count(), 2, 10000);

    SendNotification("Again");
    QTRY_COMPARE(received.count(), 1);
    QCOMPARE(FrameObject(received.at(0).at(1).toByteArray()).value("message").toString(), QStringLiteral("Again"));
}

QTEST_GUILESS_MAIN(tst_PushLink)
#include "tst_PushLink.moc"
