#include "CLmControl.h"
#include "CLmProjMgrWgt.h"
#include "CLmShareManagerWidget.h"
#include "CSkyCloudProcess.h"
#include "TestSession.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QPushButton>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTest>
#include <QTreeWidget>

namespace {

constexpr int TransferTimeoutMs = 20000;

// A push subscription of one account, as a hub holds it.
class CPushListener
{
public:
    CPushListener(quint16 port, const QByteArray& token)
    {
        m_socket.connectToHost(QHostAddress::LocalHost, port);
        m_socket.waitForConnected(5000);
        m_socket.write("SUBSCRIBE " + token + "\n");
        m_socket.flush();
    }
    // Everything pushed so far.
    QByteArray Received()
    {
        m_received += m_socket.readAll();
        return m_received;
    }

private:
    QTcpSocket m_socket;
    QByteArray m_received;
};

}  // namespace

// Two accounts on one emulated cloud: account one shares a project, account
// two's hub lists it, accepts it into its store and answers; account one sees
// the answer pushed and its share accepted.
class tst_ShareRoundTrip : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void shareAcceptAnswer();

private:
    CSkyCloudProcess m_cloud;
};

void tst_ShareRoundTrip::initTestCase()
{
    QVERIFY(m_cloud.Start());
    TestSession::PointCloudAt(m_cloud.BaseUrl());
    CLmControl::GetInstance()->SetNetWorkState(true);
}

void tst_ShareRoundTrip::shareAcceptAnswer()
{
    const QByteArray one = m_cloud.SignIn("13800000001");
    const QByteArray two = m_cloud.SignIn("13800000002");
    QVERIFY(!one.isEmpty() && !two.isEmpty());
    TestSession::SetSession(QString::fromLatin1(two), QStringLiteral("2"));
    CPushListener pushToOne(m_cloud.PushPort(), one);
    CPushListener pushToTwo(m_cloud.PushPort(), two);

    CLmProjMgrWgt page;
    page.resize(1280, 744);
    page.show();
    page.findChild<QPushButton*>(QStringLiteral("m_pBtnShare"))->click();
    auto* shareMgr = page.findChild<CLmShareManagerWidget*>();
    auto* shareTree = page.findChild<QTreeWidget*>(QStringLiteral("m_pTreeShare"));
    QVERIFY(shareMgr && shareMgr->isVisible());

    // Account one shares a project of its own.
    const QJsonObject project = m_cloud.Call("/project/list", {}, one).value("data").toArray().first().toObject();
    const QString projectName = project.value("project_name").toString();
    const QJsonObject shared = m_cloud.Call("/share/share",
                                            "id=" + project.value("id").toString().toUtf8()
                                                + "&phone=13800000002&message=Please+check+the+north+block",
                                            one);
    QCOMPARE(shared.value("status").toInt(), 0);
    QTRY_VERIFY(pushToTwo.Received().contains("\"action\":\"project_share\""));

    // The hub hears of it as the main window tells it: the shown page reads the list.
    QSignalSpy badge(&page, &CLmProjMgrWgt::NewShareReceived);
    page.slotShareNoticeArrived();
    QTRY_COMPARE(shareTree->topLevelItemCount(), 1);
    QCOMPARE(badge.count(), 0);
    const QTreeWidgetItem* row = shareTree->topLevelItem(0);
    QCOMPARE(row->text(0), projectName);
    QCOMPARE(row->text(1), QString("Demo Pilot One"));
    QCOMPARE(row->text(5), QString("Please check the north block"));

    // Accepting downloads the project into this account's store.
    shareMgr->slotAcceptBtnClicked(shareTree->model()->index(0, 0));
    const QString projectFile = CLmControl::GetInstance()->GetProjectDirPath() + '/' + projectName + '/' + projectName
                                + ".proj";
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(projectFile), TransferTimeoutMs);
    auto* projectTree = page.findChild<QTreeWidget*>(QStringLiteral("m_pTreeProject"));
    QTRY_VERIFY_WITH_TIMEOUT(!projectTree->findItems(projectName, Qt::MatchExactly).isEmpty(), TransferTimeoutMs);

    // The answer reaches account one at once, and its sent list shows it.
    const qint64 shareId = shared.value("data").toArray().first().toObject().value("id").toVariant().toLongLong();
    shareMgr->slotReplyMessage(static_cast<int>(shareId), QStringLiteral("Looks good"));
    QTRY_VERIFY(pushToOne.Received().contains("\"action\":\"project_share_message\""));
    const QJsonObject sent =
        m_cloud.Call("/share/list", {}, one).value("data").toObject().value("sent").toArray().first().toObject();
    QCOMPARE(sent.value("status").toInt(), 2);
    QCOMPARE(sent.value("messages").toArray().last().toObject().value("info").toString(), QString("Looks good"));
    QCOMPARE(sent.value("nickname").toString(), QString("Demo Pilot Two"));

    // Hidden, the page lights the badge instead of reading.
    page.hide();
    page.slotShareNoticeArrived();
    QCOMPARE(badge.count(), 1);
}

QTEST_MAIN(tst_ShareRoundTrip)
#include "tst_ShareRoundTrip.moc"
