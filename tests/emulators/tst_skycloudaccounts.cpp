#include "CSkyCloudProcess.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QtTest>

// Account flows of the emulated cloud service over real HTTP.
class tst_SkyCloudAccounts : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void login_data();
    void login();
    void demoAccountsAreDistinct();
    void adminLogin_data();
    void adminLogin();
    void profileNeedsValidToken_data();
    void profileNeedsValidToken();
    void logoutEndsOnlyThatSession();
    void editProfilePersistsAcrossRestart();
    void passwordResetRoundTrip();
    void registerThenChangePhone();
    void codesStayHiddenWithoutExposeFlag();
    void messageListIsNewestFirst();

private:
    QString IssueCode(const QByteArray& path, const QByteArray& phone);

    std::unique_ptr<CSkyCloudProcess> m_cloud;
};

void tst_SkyCloudAccounts::init()
{
    m_cloud = std::make_unique<CSkyCloudProcess>(QStringList{"--expose-codes"});
    QVERIFY(m_cloud->Start());
}

void tst_SkyCloudAccounts::cleanup()
{
    m_cloud.reset();
}

QString tst_SkyCloudAccounts::IssueCode(const QByteArray& path, const QByteArray& phone)
{
    return m_cloud->Call(path, "phone=" + phone).value("data").toObject().value("validate_hint").toString();
}

void tst_SkyCloudAccounts::login_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("httpStatus");
    QTest::addColumn<QString>("nickName");

    QTest::newRow("account one") << QByteArray("phone=13800000001&password=skyconsole&device_id=00:11:22:33:44:55")
                                 << 200 << "Demo Pilot One";
    QTest::newRow("account two") << QByteArray("phone=13800000002&password=skyconsole&device_id=") << 200
                                 << "Demo Pilot Two";
    QTest::newRow("wrong password") << QByteArray("phone=13800000001&password=skyconsolE&device_id=x") << 403 << "";
    QTest::newRow("unknown phone") << QByteArray("phone=13899999999&password=skyconsole&device_id=x") << 403 << "";
    QTest::newRow("missing password") << QByteArray("phone=13800000001&device_id=x") << 400 << "";
    QTest::newRow("missing phone") << QByteArray("password=skyconsole&device_id=x") << 400 << "";
}

void tst_SkyCloudAccounts::login()
{
    QFETCH(QByteArray, body);
    QFETCH(int, httpStatus);
    QFETCH(QString, nickName);

    int status = 0;
    const QJsonObject reply = m_cloud->Call("/user/login", body, {}, &status);
    QCOMPARE(status, httpStatus);
    if (httpStatus != 200) {
        QVERIFY(reply.value("status").toInt() != 0);
        QVERIFY(!reply.value("message").toString().isEmpty());
        QVERIFY(!reply.value("data").toObject().contains("token"));
        return;
    }
    QCOMPARE(reply.value("status").toInt(-1), 0);
    const QJsonObject data = reply.value("data").toObject();
    QVERIFY(QRegularExpression("^[0-9a-f]{32}$").match(data.value("token").toString()).hasMatch());
    QCOMPARE(data.value("nick_name").toString(), nickName);
    QVERIFY(data.value("id").toInt() > 0);
    QVERIFY(!data.value("type").toString().isEmpty());
    QVERIFY(!data.value("permission").toString().isEmpty());
    QVERIFY(body.contains("phone=" + data.value("phone").toString().toLatin1()));
}

void tst_SkyCloudAccounts::demoAccountsAreDistinct()
{
    const QByteArray tokenOne = m_cloud->SignIn("13800000001");
    const QByteArray tokenTwo = m_cloud->SignIn("13800000002");
    const QJsonObject one = m_cloud->Call("/user/profile", {}, tokenOne).value("data").toObject();
    const QJsonObject two = m_cloud->Call("/user/profile", {}, tokenTwo).value("data").toObject();
    QVERIFY(one.value("id").toInt() != two.value("id").toInt());
    QVERIFY(one.value("type").toString() != two.value("type").toString());
    QVERIFY(one.value("permission").toString() != two.value("permission").toString());
    QVERIFY(m_cloud->SignIn("13800000001") != m_cloud->SignIn("13800000001"));
}

void tst_SkyCloudAccounts::adminLogin_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("httpStatus");

    QTest::newRow("right password") << QByteArray("username=admin&password=skyconsole") << 200;
    QTest::newRow("wrong password") << QByteArray("username=admin&password=nope") << 403;
    QTest::newRow("user account is no admin") << QByteArray("username=13800000001&password=skyconsole") << 403;
}

void tst_SkyCloudAccounts::adminLogin()
{
    QFETCH(QByteArray, body);
    QFETCH(int, httpStatus);

    int status = 0;
    const QJsonObject data = m_cloud->Call("/admin/login", body, {}, &status).value("data").toObject();
    QCOMPARE(status, httpStatus);
    QCOMPARE(data.value("username").toString(), httpStatus == 200 ? QString("admin") : QString());
    QCOMPARE(data.value("token").toString().size(), httpStatus == 200 ? 32 : 0);
}

void tst_SkyCloudAccounts::profileNeedsValidToken_data()
{
    QTest::addColumn<QString>("tokenKind");
    QTest::addColumn<int>("httpStatus");

    QTest::newRow("valid") << "valid" << 200;
    QTest::newRow("missing") << "missing" << 401;
    QTest::newRow("bogus") << "bogus" << 401;
    QTest::newRow("after logout") << "logged out" << 401;
}

void tst_SkyCloudAccounts::profileNeedsValidToken()
{
    QFETCH(QString, tokenKind);
    QFETCH(int, httpStatus);

    QByteArray token = m_cloud->SignIn("13800000002");
    if (tokenKind == "missing")
        token.clear();
    else if (tokenKind == "bogus")
        token = QByteArray(32, 'f');
    else if (tokenKind == "logged out")
        QCOMPARE(m_cloud->Call("/user/logout", {}, token).value("status").toInt(-1), 0);

    for (const QByteArray& body : {QByteArray(), QByteArray("x=1")}) {
        int status = 0;
        const QJsonObject reply = m_cloud->Call("/user/profile", body, token, &status);
        QCOMPARE(status, httpStatus);
        if (httpStatus == 200) {
            const QJsonObject data = reply.value("data").toObject();
            for (const char* key : {"id", "phone", "nick_name", "email", "company", "type", "permission", "avatar",
                                    "created_at"})
                QVERIFY2(data.contains(key), key);
            QCOMPARE(data.value("phone").toString(), QString("13800000002"));
        } else {
            QVERIFY(reply.value("status").toInt() != 0);
            QVERIFY(!reply.value("message").toString().isEmpty());
        }
    }
}

void tst_SkyCloudAccounts::logoutEndsOnlyThatSession()
{
    const QByteArray desktop = m_cloud->SignIn("13800000001");
    const QByteArray laptop = m_cloud->SignIn("13800000001");
    QCOMPARE(m_cloud->Call("/user/logout", {}, desktop).value("status").toInt(-1), 0);

    int status = 0;
    m_cloud->Call("/user/profile", {}, laptop, &status);
    QCOMPARE(status, 200);
    m_cloud->Call("/user/logout", {}, desktop, &status);
    QCOMPARE(status, 401);
}

void tst_SkyCloudAccounts::editProfilePersistsAcrossRestart()
{
    const QByteArray token = m_cloud->SignIn("13800000001");
    const QJsonObject edited =
        m_cloud->Call("/user/editprofile", "nick_name=Chief+Pilot%20%C3%85sa&company=Survey+Works", token)
            .value("data")
            .toObject();
    QCOMPARE(edited.value("nick_name").toString(), QString::fromUtf8("Chief Pilot \xC3\x85sa"));
    QCOMPARE(edited.value("company").toString(), QString("Survey Works"));
    QCOMPARE(edited.value("email").toString(), QString());

    int status = 0;
    m_cloud->Call("/user/editprofile", "nick_name=", token, &status);
    QCOMPARE(status, 400);

    m_cloud->Stop();
    QVERIFY(m_cloud->Start());

    const QJsonObject profile = m_cloud->Call("/user/profile", {}, token, &status).value("data").toObject();
    QCOMPARE(status, 200);
    QCOMPARE(profile, edited);
    QCOMPARE(m_cloud->Call("/user/login", "phone=13800000001&password=skyconsole&device_id=")
                 .value("data")
                 .toObject()
                 .value("id"),
             edited.value("id"));
}

void tst_SkyCloudAccounts::passwordResetRoundTrip()
{
    const QByteArray oldToken = m_cloud->SignIn("13800000002");
    const QString code = IssueCode("/user/resetpasswordsendsms", "13800000002");
    QVERIFY2(QRegularExpression("^[0-9]{6}$").match(code).hasMatch(), qPrintable(code));
    const QByteArray wrongCode = code == "000000" ? "111111" : "000000";

    int status = 0;
    m_cloud->Call("/user/resetpassword",
                  "phone=13800000002&validate=" + wrongCode + "&password=newpass1&repeat_password=newpass1", {},
                  &status);
    QCOMPARE(status, 403);
    m_cloud->Call("/user/resetpassword",
                  "phone=13800000002&validate=" + code.toLatin1() + "&password=newpass1&repeat_password=newpass2", {},
                  &status);
    QCOMPARE(status, 400);
    const QByteArray rightBody =
        "phone=13800000002&validate=" + code.toLatin1() + "&password=newpass1&repeat_password=newpass1";
    QCOMPARE(m_cloud->Call("/user/resetpassword", rightBody, {}, &status).value("status").toInt(-1), 0);
    QCOMPARE(status, 200);

    m_cloud->Call("/user/resetpassword", rightBody, {}, &status);
    QCOMPARE(status, 403);
    m_cloud->Call("/user/profile", {}, oldToken, &status);
    QCOMPARE(status, 401);
    QVERIFY(m_cloud->SignIn("13800000002").isEmpty());
    QVERIFY(!m_cloud->SignIn("13800000002", "newpass1").isEmpty());

    m_cloud->Call("/user/resetpasswordsendsms", "phone=13899999999", {}, &status);
    QCOMPARE(status, 400);
}

void tst_SkyCloudAccounts::registerThenChangePhone()
{
    int status = 0;
    m_cloud->Call("/user/sendvalidate", "phone=13800000001", {}, &status);
    QCOMPARE(status, 409);

    const QString code = IssueCode("/user/sendvalidate", "13911112222");
    QVERIFY(!code.isEmpty());
    const QJsonObject created = m_cloud
                                    ->Call("/user/register",
                                           "phone=13911112222&validate=" + code.toLatin1()
                                               + "&password=secret1&nick_name=New+Pilot",
                                           {}, &status)
                                    .value("data")
                                    .toObject();
    QCOMPARE(status, 200);
    QCOMPARE(created.value("nick_name").toString(), QString("New Pilot"));
    const QByteArray token = m_cloud->SignIn("13911112222", "secret1");
    QVERIFY(!token.isEmpty());

    const QString phoneCode = IssueCode("/user/sendvalidate", "13933334444");
    m_cloud->Call("/user/changephone", "phone=13933334444&validate=" + phoneCode.toLatin1(), {}, &status);
    QCOMPARE(status, 401);
    const QJsonObject changed =
        m_cloud->Call("/user/changephone", "phone=13933334444&validate=" + phoneCode.toLatin1(), token, &status)
            .value("data")
            .toObject();
    QCOMPARE(status, 200);
    QCOMPARE(changed.value("phone").toString(), QString("13933334444"));
    QCOMPARE(changed.value("id"), created.value("id"));
    QVERIFY(!m_cloud->SignIn("13933334444", "secret1").isEmpty());
    QVERIFY(m_cloud->SignIn("13911112222", "secret1").isEmpty());
}

void tst_SkyCloudAccounts::codesStayHiddenWithoutExposeFlag()
{
    CSkyCloudProcess quiet;
    QVERIFY(quiet.Start());
    int status = 0;
    const QJsonObject reply = quiet.Call("/user/resetpasswordsendsms", "phone=13800000001", {}, &status);
    QCOMPARE(status, 200);
    QVERIFY(!reply.value("data").toObject().contains("validate_hint"));
}

void tst_SkyCloudAccounts::messageListIsNewestFirst()
{
    int status = 0;
    m_cloud->Call("/push/messageList", {}, {}, &status);
    QCOMPARE(status, 401);

    const QJsonArray messages =
        m_cloud->Call("/push/messageList", {}, m_cloud->SignIn("13800000001"), &status).value("data").toArray();
    QCOMPARE(status, 200);
    QVERIFY(!messages.isEmpty());
    qint64 previousId = std::numeric_limits<qint64>::max();
    for (const QJsonValue& value : messages) {
        const QJsonObject message = value.toObject();
        for (const char* key : {"id", "action", "message", "created_at", "data"})
            QVERIFY2(message.contains(key), key);
        QVERIFY(message.value("id").toVariant().toLongLong() < previousId);
        previousId = message.value("id").toVariant().toLongLong();
    }
}

QTEST_GUILESS_MAIN(tst_SkyCloudAccounts)
#include "tst_skycloudaccounts.moc"
