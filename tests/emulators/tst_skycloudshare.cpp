#include "CLmDataBase.h"
#include "CSkyCloudProcess.h"

#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSqlQuery>
#include <QTcpSocket>
#include <QtTest>

namespace {

const QByteArray PhoneOne = "13800000001";
const QByteArray PhoneTwo = "13800000002";
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
    QStringList ProjectIds(const QByteArray& token);
    // Rows of the documented share table, in id order.
    QList<QVariantMap> StoredShares() const;
    int MessageCount(const QByteArray& token);
    QJsonObject Share(const QByteArray& body, int* httpStatus = nullptr);
    void Subscribe(QTcpSocket& socket, const QByteArray& token);

    std::unique_ptr<CSkyCloudProcess> m_cloud;
    QByteArray m_tokenOne;
    QByteArray m_tokenTwo;
    QStringList m_idsOne;
    QStringList m_idsTwo;
};

void tst_SkyCloudShare::init()
{
    m_cloud = std::make_unique<CSkyCloudProcess>();
    QVERIFY(m_cloud->Start());
    m_tokenOne = m_cloud->SignIn(PhoneOne);
    m_tokenTwo = m_cloud->SignIn(PhoneTwo);
    m_idsOne = ProjectIds(m_tokenOne);
    m_idsTwo = ProjectIds(m_tokenTwo);
    QVERIFY(m_idsOne.size() >= 2 && !m_idsTwo.isEmpty());
}

void tst_SkyCloudShare::cleanup()
{
    m_cloud.reset();
}

QStringList tst_SkyCloudShare::ProjectIds(const QByteArray& token)
{
    QStringList ids;
    for (const QJsonValue& project : m_cloud->Call("/project/list", {}, token).value("data").toArray())
        ids.append(project.toObject().value("id").toString());
    return ids;
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
    return m_cloud->Call("/share/share", body, m_tokenOne, httpStatus);
}

void tst_SkyCloudShare::refused_data()
{
    QTest::addColumn<QString>("projects");
    QTest::addColumn<QByteArray>("phone");
    QTest::addColumn<bool>("signedIn");
    QTest::addColumn<int>("httpStatus");

    QTest::newRow("empty receiver") << "own" << QByteArray() << true << 400;
    QTest::newRow("blank receiver") << "own" << QByteArray("%20") << true << 400;
    QTest::newRow("unknown receiver") << "own" << QByteArray("13899999999") << true << 400;
    QTest::newRow("own account") << "own" << PhoneOne << true << 400;
    QTest::newRow("no project") << "" << PhoneTwo << true << 400;
    QTest::newRow("another account's project") << "other" << PhoneTwo << true << 403;
    QTest::newRow("own and another account's project") << "own,other" << PhoneTwo << true << 403;
    QTest::newRow("unknown project") << "unknown" << PhoneTwo << true << 404;
    QTest::newRow("signed out") << "own" << PhoneTwo << false << 401;
}

void tst_SkyCloudShare::refused()
{
    QFETCH(QString, projects);
    QFETCH(QByteArray, phone);
    QFETCH(bool, signedIn);
    QFETCH(int, httpStatus);

    QStringList ids;
    for (const QString& pick : projects.split(',', Qt::SkipEmptyParts))
        ids.append(pick == "own" ? m_idsOne.first() : pick == "other" ? m_idsTwo.first() : "no-such-project");
    const int receiverMessages = MessageCount(m_tokenTwo);
    int status = 0;
    const QJsonObject reply = m_cloud->Call(
        "/share/share", "id=" + ids.join(',').toUtf8() + "&phone=" + phone + "&message=Please+check",
        signedIn ? m_tokenOne : QByteArray(), &status);
    QCOMPARE(status, httpStatus);
    QCOMPARE(reply.value("status").toInt(), httpStatus);
    QVERIFY(!reply.value("message").toString().isEmpty());
    QCOMPARE(StoredShares().size(), 0);
    QCOMPARE(MessageCount(m_tokenTwo), receiverMessages);
}

void tst_SkyCloudShare::sharesOutlastRestart()
{
    const QString message = QString::fromUtf8("Bitte pr\xC3\xBC" "fen & danke, 100% fertig");
    int status = 0;
    const QJsonObject reply = Share("id=" + QUrl::toPercentEncoding(m_idsOne.at(0) + "," + m_idsOne.at(1), ",")
                                        + "&phone=" + PhoneTwo + "&message=" + QUrl::toPercentEncoding(message),
                                    &status);
    QCOMPARE(status, 200);
    QCOMPARE(reply.value("status").toInt(-1), 0);
    QCOMPARE(reply.value("message").toString(), QString("Share success"));
    QCOMPARE(reply.value("data").toArray().size(), 2);

    m_cloud->Stop();
    QVERIFY(m_cloud->Start());
    QCOMPARE(Share("id=" + m_idsOne.at(2).toUtf8() + "&phone=" + PhoneTwo, &status).value("status").toInt(-1), 0);

    const QList<QVariantMap> shares = StoredShares();
    QCOMPARE(shares.size(), 3);
    for (int i = 0; i < shares.size(); ++i) {
        const QVariantMap& share = shares.at(i);
        QCOMPARE(share.value("id").toInt(), i + 1);
        QCOMPARE(share.value("share_from_user_id").toInt(), 1);
        QCOMPARE(share.value("share_from_nickname").toString(), QString("Demo Pilot One"));
        QCOMPARE(share.value("share_to_user_id").toInt(), 2);
        QCOMPARE(share.value("share_to_phone").toString(), QString::fromLatin1(PhoneTwo));
        QCOMPARE(share.value("project_id").toString(), m_idsOne.at(i));
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

    QTcpSocket receiver;
    if (subscribedBeforeShare)
        Subscribe(receiver, m_tokenTwo);
    int status = 0;
    Share("id=" + m_idsOne.first().toUtf8() + "&phone=" + PhoneTwo + "&message=Have+a+look", &status);
    QCOMPARE(status, 200);
    if (!subscribedBeforeShare)
        Subscribe(receiver, m_tokenTwo);

    QByteArray received;
    QTRY_VERIFY_WITH_TIMEOUT((received += receiver.readAll()).contains(FrameMarker), 5000);
    const QJsonObject notice =
        QJsonDocument::fromJson(received.left(received.indexOf(FrameMarker))).object();
    QCOMPARE(notice.value("status").toInt(-1), 0);
    QCOMPARE(notice.value("action").toString(), QString("project_share"));
    QVERIFY(notice.value("message").toString().contains("Demo Pilot One"));
    const QJsonArray shares = notice.value("data").toObject().value("shares").toArray();
    QCOMPARE(shares.size(), 1);
    QCOMPARE(shares.first().toObject().value("project_id").toString(), m_idsOne.first());
    QCOMPARE(shares.first().toObject().value("message").toString(), QString("Have a look"));

    const QJsonArray messages = m_cloud->Call("/push/messageList", {}, m_tokenTwo).value("data").toArray();
    QCOMPARE(messages.first().toObject().value("action").toString(), QString("project_share"));
}

QTEST_GUILESS_MAIN(tst_SkyCloudShare)
#include "tst_skycloudshare.moc"
