#include "CDemoAccounts.h"
#include "CLmDataBase.h"
#include "CSkyCloudProcess.h"

#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSqlQuery>
#include <QTcpSocket>
#include <QtTest>

namespace {

const QByteArray FrameMarker = "SWOOLE_SOCKET_FINISH";

}  // namespace

// Sharing projects on the emulated cloud: who may share what with whom, the
// share records kept across restarts, and the push to the receiver.
class tst_SkyCloudShare : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void refused_data();
    void refused();
    void sharesOutlastRestart();
    void receiverIsPushed_data();
    void receiverIsPushed();

private:
    // Rows of the documented share table, in id order.
    QList<QVariantMap> StoredShares() const;
    int MessageCount(const QByteArray& token);
    QJsonObject Share(const QByteArray& body, int* httpStatus = nullptr);
    void Subscribe(QTcpSocket& socket, const QByteArray& token);

    std::unique_ptr<CSkyCloudProcess> m_cloud;
    std::unique_ptr<CDemoAccounts> m_accounts;
};

void tst_SkyCloudShare::init()
{
    m_cloud = std::make_unique<CSkyCloudProcess>();
    QVERIFY(m_cloud->Start());
    m_accounts = std::make_unique<CDemoAccounts>(*m_cloud);
    QVERIFY(m_accounts->SignIn());
    QVERIFY(m_accounts->One().projectIds.size() >= 3 && !m_accounts->Two().projectIds.isEmpty());
}

void tst_SkyCloudShare::cleanup()
{
    m_accounts.reset();
    m_cloud.reset();
}

QList<QVariantMap> tst_SkyCloudShare::StoredShares() const
{
    QList<QVariantMap> rows;
    CLmDataBase db(m_cloud->DataDir() + "/shares.db");
    QSqlQuery query(db.Database());
    if (!db.Open(true) || !db.Exec("SELECT * FROM shares ORDER BY id", {}, &query))
        return rows;
    while (query.next()) {
        QVariantMap row;
        for (const char* column : {"id", "share_from_user_id", "share_from_nickname", "share_to_user_id",
                                   "share_to_phone", "project_id", "project_name", "message", "status", "created_at"})
            row.insert(column, query.value(column));
        rows.append(row);
    }
    return rows;
}

int tst_SkyCloudShare::MessageCount(const QByteArray& token)
{
    return m_cloud->Call("/push/messageList", {}, token).value("data").toArray().size();
}

QJsonObject tst_SkyCloudShare::Share(const QByteArray& body, int* httpStatus)
{
    return m_cloud->Call("/share/share", body, m_accounts->One().token, httpStatus);
}

void tst_SkyCloudShare::refused_data()
{
    QTest::addColumn<QString>("projects");
    QTest::addColumn<QByteArray>("phone");  // "one" and "two" stand for the demo accounts' phones
    QTest::addColumn<bool>("signedIn");
    QTest::addColumn<int>("httpStatus");

    QTest::newRow("empty receiver") << "own" << QByteArray() << true << 400;
    QTest::newRow("blank receiver") << "own" << QByteArray("%20") << true << 400;
    QTest::newRow("unknown receiver") << "own" << QByteArray("13899999999") << true << 400;
    QTest::newRow("own account") << "own" << QByteArray("one") << true << 400;
    QTest::newRow("no project") << "" << QByteArray("two") << true << 400;
    QTest::newRow("another account's project") << "other" << QByteArray("two") << true << 403;
    QTest::newRow("own and another account's project") << "own,other" << QByteArray("two") << true << 403;
    QTest::newRow("unknown project") << "unknown" << QByteArray("two") << true << 404;
    QTest::newRow("signed out") << "own" << QByteArray("two") << false << 401;
}

void tst_SkyCloudShare::refused()
{
    QFETCH(QString, projects);
    QFETCH(QByteArray, phone);
    QFETCH(bool, signedIn);
    QFETCH(int, httpStatus);

    const CDemoAccounts::SAccount& one = m_accounts->One();
    const CDemoAccounts::SAccount& two = m_accounts->Two();
    if (phone == "one" || phone == "two")
        phone = (phone == "one" ? one : two).phone;
    QStringList ids;
    for (const QString& pick : projects.split(',', Qt::SkipEmptyParts)) {
        if (pick == "own" || pick == "other")
            ids.append((pick == "own" ? one : two).projectIds.first());
        else
            ids.append("no-such-project");
    }
    const int receiverMessages = MessageCount(two.token);
    int status = 0;
    const QJsonObject reply =
        m_cloud->Call("/share/share", "id=" + ids.join(',').toUtf8() + "&phone=" + phone + "&message=Please+check",
                      signedIn ? one.token : QByteArray(), &status);
    QCOMPARE(status, httpStatus);
    QCOMPARE(reply.value("status").toInt(), httpStatus);
    QVERIFY(!reply.value("message").toString().isEmpty());
    QCOMPARE(StoredShares().size(), 0);
    QCOMPARE(MessageCount(two.token), receiverMessages);
}

void tst_SkyCloudShare::sharesOutlastRestart()
{
    const CDemoAccounts::SAccount& one = m_accounts->One();
    const CDemoAccounts::SAccount& two = m_accounts->Two();
    const QString message = QString::fromUtf8("Bitte pr\xC3\xBC" "fen & danke, 100% fertig");
    int status = 0;
    const QByteArray ids = QUrl::toPercentEncoding(one.projectIds.at(0) + "," + one.projectIds.at(1), ",");
    const QJsonObject reply =
        Share("id=" + ids + "&phone=" + two.phone + "&message=" + QUrl::toPercentEncoding(message), &status);
    QCOMPARE(status, 200);
    QCOMPARE(reply.value("status").toInt(-1), 0);
    QCOMPARE(reply.value("message").toString(), QString("Share success"));
    QCOMPARE(reply.value("data").toArray().size(), 2);

    m_cloud->Stop();
    QVERIFY(m_cloud->Start());
    Share("id=" + one.projectIds.at(2).toUtf8() + "&phone=" + two.phone, &status);
    QCOMPARE(status, 200);

    const QList<QVariantMap> shares = StoredShares();
    QCOMPARE(shares.size(), 3);
    for (int i = 0; i < shares.size(); ++i) {
        const QVariantMap& share = shares.at(i);
        QCOMPARE(share.value("id").toInt(), i + 1);
        QCOMPARE(share.value("share_from_user_id").toLongLong(), one.iID);
        QCOMPARE(share.value("share_from_nickname").toString(), QString("Demo Pilot One"));
        QCOMPARE(share.value("share_to_user_id").toLongLong(), two.iID);
        QCOMPARE(share.value("share_to_phone").toString(), QString::fromLatin1(two.phone));
        QCOMPARE(share.value("project_id").toString(), one.projectIds.at(i));
        QVERIFY(!share.value("project_name").toString().isEmpty());
        QCOMPARE(share.value("message").toString(), i < 2 ? message : QString());
        QCOMPARE(share.value("status").toInt(), 0);
        QVERIFY(QDateTime::fromString(share.value("created_at").toString(), "yyyy-MM-dd HH:mm:ss").isValid());
    }
}

void tst_SkyCloudShare::Subscribe(QTcpSocket& socket, const QByteArray& token)
{
    socket.connectToHost(QHostAddress::LocalHost, m_cloud->PushPort());
    QVERIFY(socket.waitForConnected(5000));
    socket.write("SUBSCRIBE " + token + "\n");
    QVERIFY(socket.waitForBytesWritten(5000));
}

void tst_SkyCloudShare::receiverIsPushed_data()
{
    QTest::addColumn<bool>("subscribedBeforeShare");
    QTest::newRow("receiver online") << true;
    QTest::newRow("receiver comes online later") << false;
}

void tst_SkyCloudShare::receiverIsPushed()
{
    QFETCH(bool, subscribedBeforeShare);

    const QString projectId = m_accounts->One().projectIds.first();
    const CDemoAccounts::SAccount& two = m_accounts->Two();
    QTcpSocket receiver;
    if (subscribedBeforeShare)
        Subscribe(receiver, two.token);
    int status = 0;
    Share("id=" + projectId.toUtf8() + "&phone=" + two.phone + "&message=Have+a+look", &status);
    QCOMPARE(status, 200);
    if (!subscribedBeforeShare)
        Subscribe(receiver, two.token);

    QByteArray received;
    QTRY_VERIFY_WITH_TIMEOUT((received += receiver.readAll()).contains(FrameMarker), 5000);
    const QJsonObject notice = QJsonDocument::fromJson(received.left(received.indexOf(FrameMarker))).object();
    QCOMPARE(notice.value("status").toInt(-1), 0);
    QCOMPARE(notice.value("action").toString(), QString("project_share"));
    QVERIFY(notice.value("message").toString().contains("Demo Pilot One"));
    const QJsonArray shares = notice.value("data").toObject().value("shares").toArray();
    QCOMPARE(shares.size(), 1);
    QCOMPARE(shares.first().toObject().value("project_id").toString(), projectId);
    QCOMPARE(shares.first().toObject().value("message").toString(), QString("Have a look"));

    const QJsonArray messages = m_cloud->Call("/push/messageList", {}, two.token).value("data").toArray();
    QCOMPARE(messages.first().toObject().value("action").toString(), QString("project_share"));
}

QTEST_GUILESS_MAIN(tst_SkyCloudShare)
#include "tst_skycloudshare.moc"
