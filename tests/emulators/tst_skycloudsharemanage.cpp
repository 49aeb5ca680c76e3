#include "CDemoAccounts.h"
#include "CSkyCloudProcess.h"

#include <QJsonArray>
#include <QtTest>

// Managing shares and task assignments on the emulated cloud: what an accept
// puts into the receiver's store, and that nobody touches a record that is
// not theirs.
class tst_SkyCloudShareManage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void accept_data();
    void accept();
    void acceptOfAProjectGoneMeanwhileChangesNothing();
    void refusedToOthers_data();
    void refusedToOthers();
    void deleteRejectsOrCancelsForTheOtherSide_data();
    void deleteRejectsOrCancelsForTheOtherSide();

private:
    // Shares account one's first project with account two; returns the share id.
    qint64 ShareOneWithTwo(const QByteArray& path = "/share/share");
    QJsonObject ListOf(const QByteArray& token);
    QJsonObject Received(const QByteArray& token, qint64 id);
    QJsonObject Sent(const QByteArray& token, qint64 id);
    QMap<QString, QString> ProjectsByName(const QByteArray& token);
    QByteArray ThirdAccountToken();

    std::unique_ptr<CSkyCloudProcess> m_cloud;
    std::unique_ptr<CDemoAccounts> m_accounts;
};

void tst_SkyCloudShareManage::init()
{
    m_cloud = std::make_unique<CSkyCloudProcess>(QStringList{"--expose-codes"});
    QVERIFY(m_cloud->Start());
    m_accounts = std::make_unique<CDemoAccounts>(*m_cloud);
    QVERIFY(m_accounts->SignIn());
}

void tst_SkyCloudShareManage::cleanup()
{
    m_accounts.reset();
    m_cloud.reset();
}

qint64 tst_SkyCloudShareManage::ShareOneWithTwo(const QByteArray& path)
{
    const QByteArray project = m_accounts->One().projectIds.first().toUtf8();
    const QByteArray body =
        path == "/task/assign"
            ? QByteArray("project_id=" + project + "&task_id=task-1&phone=13800000002&message=Fly+it")
            : QByteArray("id=" + project + "&phone=13800000002&message=Please+check");
    const QJsonValue data = m_cloud->Call(path, body, m_accounts->One().token).value("data");
    return (data.isArray() ? data.toArray().first() : data).toObject().value("id").toVariant().toLongLong();
}

QJsonObject tst_SkyCloudShareManage::ListOf(const QByteArray& token)
{
    return m_cloud->Call("/share/list", {}, token).value("data").toObject();
}

QJsonObject tst_SkyCloudShareManage::Received(const QByteArray& token, qint64 id)
{
    for (const QJsonValue& record : ListOf(token).value("received").toArray()) {
        if (record.toObject().value("id").toVariant().toLongLong() == id)
            return record.toObject();
    }
    return {};
}

QJsonObject tst_SkyCloudShareManage::Sent(const QByteArray& token, qint64 id)
{
    for (const QJsonValue& record : ListOf(token).value("sent").toArray()) {
        if (record.toObject().value("id").toVariant().toLongLong() == id)
            return record.toObject();
    }
    return {};
}

QMap<QString, QString> tst_SkyCloudShareManage::ProjectsByName(const QByteArray& token)
{
    QMap<QString, QString> projects;
    for (const QJsonValue& project : m_cloud->Call("/project/list", {}, token).value("data").toArray())
        projects.insert(project.toObject().value("project_name").toString(), project.toObject().value("id").toString());
    return projects;
}

QByteArray tst_SkyCloudShareManage::ThirdAccountToken()
{
    const QByteArray phone = "13800000003";
    const QByteArray code =
        m_cloud->Call("/user/sendvalidate", "phone=" + phone).value("data").toObject().value("validate_hint").toString().toLatin1();
    m_cloud->Call("/user/register", "phone=" + phone + "&validate=" + code + "&password=secret3&nick_name=Third");
    return m_cloud->SignIn(phone, "secret3");
}

void tst_SkyCloudShareManage::accept_data()
{
    QTest::addColumn<QByteArray>("path");  // how the record was made
    QTest::addColumn<bool>("ownSameName");  // account two has a project of the shared name
    QTest::addColumn<QByteArray>("acceptBody");  // after "id=N"
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("storedName");  // empty: nothing new stored
    QTest::addColumn<bool>("keepsOwnId");

    QTest::newRow("keep the name") << QByteArray("/share/share") << false << QByteArray("&type=0") << 0
                                   << "SHARED" << false;
    QTest::newRow("keep a name already taken") << QByteArray("/share/share") << true << QByteArray("&type=0") << 409
                                               << "" << false;
    QTest::newRow("replace the own project") << QByteArray("/share/share") << true << QByteArray("&type=1") << 0
                                             << "SHARED" << true;
    QTest::newRow("save as a new name") << QByteArray("/share/share") << true
                                        << QByteArray("&type=2&name=North+block") << 0 << "North block" << false;
    QTest::newRow("save as a path") << QByteArray("/share/share") << true << QByteArray("&type=2&name=..%2Fescape")
                                    << 400 << "" << false;
    QTest::newRow("save as the parent") << QByteArray("/share/share") << true << QByteArray("&type=2&name=..") << 400
                                        << "" << false;
    QTest::newRow("save as without a name") << QByteArray("/share/share") << true << QByteArray("&type=2") << 400
                                            << "" << false;
    QTest::newRow("unknown type") << QByteArray("/share/share") << false << QByteArray("&type=7") << 400 << ""
                                  << false;
    QTest::newRow("assigned task") << QByteArray("/task/assign") << false << QByteArray("&type=0") << 0 << "SHARED"
                                   << false;
}

void tst_SkyCloudShareManage::accept()
{
    QFETCH(QByteArray, path);
    QFETCH(bool, ownSameName);
    QFETCH(QByteArray, acceptBody);
    QFETCH(int, state);
    QFETCH(QString, storedName);
    QFETCH(bool, keepsOwnId);

    const QByteArray two = m_accounts->Two().token;
    const QByteArray acceptPath = path == "/task/assign" ? "/task/acceptAssign" : "/share/accept";
    qint64 id = ShareOneWithTwo(path);
    const QString sharedName = Received(two, id).value("project_name").toString();
    if (storedName == "SHARED")
        storedName = sharedName;
    QString ownId;
    if (ownSameName) {
        // Account two takes the project once; the next share of it meets its own copy.
        m_cloud->Call(acceptPath, "id=" + QByteArray::number(id) + "&type=0", two);
        ownId = ProjectsByName(two).value(sharedName);
        QVERIFY(!ownId.isEmpty());
        id = ShareOneWithTwo(path);
    }
    QCOMPARE(Received(two, id).value("save_as").toInt(), ownSameName ? 1 : 0);

    const QMap<QString, QString> before = ProjectsByName(two);
    const QJsonObject reply = m_cloud->Call(acceptPath, "id=" + QByteArray::number(id) + acceptBody, two);
    QCOMPARE(reply.value("state").toInt(), state);
    QVERIFY(!reply.contains("status"));
    const QMap<QString, QString> after = ProjectsByName(two);
    if (storedName.isEmpty()) {
        QCOMPARE(after, before);
        QCOMPARE(Sent(m_accounts->One().token, id).value("status").toInt(), 0);
        return;
    }
    QVERIFY(after.contains(storedName));
    QCOMPARE(after.size(), before.size() + (keepsOwnId ? 0 : 1));
    QCOMPARE(after.value(storedName) == ownId, keepsOwnId);
    QCOMPARE(reply.value("data").toObject().value("id").toString(), after.value(storedName));
    QCOMPARE(reply.value("data").toObject().value("name").toString(), storedName);
    // The copy is the receiver's own: it downloads for it.
    int status = 0;
    m_cloud->Call("/project/downloadfile", "id=" + after.value(storedName).toUtf8(), two, &status);
    QCOMPARE(status, 200);
    QCOMPARE(Sent(m_accounts->One().token, id).value("status").toInt(), 2);
}

void tst_SkyCloudShareManage::acceptOfAProjectGoneMeanwhileChangesNothing()
{
    const qint64 id = ShareOneWithTwo();
    m_cloud->Call("/project/remove", "id=" + m_accounts->One().projectIds.first().toUtf8(), m_accounts->One().token);
    const QMap<QString, QString> before = ProjectsByName(m_accounts->Two().token);
    const QJsonObject reply =
        m_cloud->Call("/share/accept", "id=" + QByteArray::number(id) + "&type=0", m_accounts->Two().token);
    QCOMPARE(reply.value("state").toInt(), 404);
    QCOMPARE(reply.value("message").toString(), QString("The shared project no longer exists"));
    QCOMPARE(ProjectsByName(m_accounts->Two().token), before);
    QCOMPARE(Received(m_accounts->Two().token, id).value("status").toInt(), 0);
}

void tst_SkyCloudShareManage::refusedToOthers_data()
{
    QTest::addColumn<QByteArray>("made");  // how the record was made
    QTest::addColumn<QString>("caller");  // "one" (sender), "two" (receiver) or "third"
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("extra");
    QTest::addColumn<int>("httpStatus");

    const QByteArray share = "/share/share";
    const QByteArray task = "/task/assign";
    QTest::newRow("third accepts") << share << "third" << QByteArray("/share/accept") << QByteArray("&type=0") << 403;
    QTest::newRow("third deletes") << share << "third" << QByteArray("/share/delete") << QByteArray() << 403;
    QTest::newRow("third answers") << share << "third" << QByteArray("/share/reply") << QByteArray("&message=x")
                                   << 403;
    QTest::newRow("third shares again") << share << "third" << QByteArray("/share/shareagain") << QByteArray() << 403;
    QTest::newRow("third accepts a task") << task << "third" << QByteArray("/task/acceptAssign")
                                          << QByteArray("&type=0") << 403;
    QTest::newRow("third answers a task") << task << "third" << QByteArray("/task/reply")
                                          << QByteArray("&message=x") << 403;
    QTest::newRow("sender accepts") << share << "one" << QByteArray("/share/accept") << QByteArray("&type=0") << 403;
    QTest::newRow("receiver shares again") << share << "two" << QByteArray("/share/shareagain") << QByteArray()
                                           << 403;
    QTest::newRow("a share through the task path") << share << "two" << QByteArray("/task/acceptAssign")
                                                   << QByteArray("&type=0") << 404;
    QTest::newRow("a task through the share path") << task << "two" << QByteArray("/share/accept")
                                                   << QByteArray("&type=0") << 404;
}

void tst_SkyCloudShareManage::refusedToOthers()
{
    QFETCH(QByteArray, made);
    QFETCH(QString, caller);
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, extra);
    QFETCH(int, httpStatus);

    const qint64 id = ShareOneWithTwo(made);
    const QByteArray token = caller == "one"   ? m_accounts->One().token
                             : caller == "two" ? m_accounts->Two().token
                                               : ThirdAccountToken();
    QVERIFY(!token.isEmpty());
    const QJsonObject receivedBefore = Received(m_accounts->Two().token, id);
    const QJsonObject sentBefore = Sent(m_accounts->One().token, id);
    const QMap<QString, QString> projectsBefore = ProjectsByName(token);
    const int sentCount = ListOf(m_accounts->One().token).value("sent").toArray().size();

    int status = 0;
    m_cloud->Call(path, "id=" + QByteArray::number(id) + extra, token, &status);
    QCOMPARE(status, httpStatus);
    QCOMPARE(Received(m_accounts->Two().token, id), receivedBefore);
    QCOMPARE(Sent(m_accounts->One().token, id), sentBefore);
    QCOMPARE(ProjectsByName(token), projectsBefore);
    QCOMPARE(ListOf(m_accounts->One().token).value("sent").toArray().size(), sentCount);
}

void tst_SkyCloudShareManage::deleteRejectsOrCancelsForTheOtherSide_data()
{
    QTest::addColumn<bool>("bySender");
    QTest::addColumn<int>("stateForOther");
    QTest::newRow("receiver refuses") << false << 3;
    QTest::newRow("sender cancels") << true << 1;
}

void tst_SkyCloudShareManage::deleteRejectsOrCancelsForTheOtherSide()
{
    QFETCH(bool, bySender);
    QFETCH(int, stateForOther);

    const qint64 id = ShareOneWithTwo();
    const QByteArray own = bySender ? m_accounts->One().token : m_accounts->Two().token;
    const QByteArray other = bySender ? m_accounts->Two().token : m_accounts->One().token;
    int status = 0;
    m_cloud->Call("/share/delete", "id=" + QByteArray::number(id), own, &status);
    QCOMPARE(status, 200);
    QVERIFY((bySender ? Sent(own, id) : Received(own, id)).isEmpty());
    QCOMPARE((bySender ? Received(other, id) : Sent(other, id)).value("status").toInt(), stateForOther);
    // A record gone from the caller's list is unknown to it from then on.
    m_cloud->Call("/share/reply", "id=" + QByteArray::number(id) + "&message=x", own, &status);
    QCOMPARE(status, 404);
}

QTEST_GUILESS_MAIN(tst_SkyCloudShareManage)
#include "tst_skycloudsharemanage.moc"
