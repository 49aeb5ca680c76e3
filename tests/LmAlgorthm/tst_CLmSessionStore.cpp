#include "CLmSessionStore.h"

#include <QTest>

class tst_CLmSessionStore : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void keepsASignInAcrossStores();
    void clearForgetsTheSessionButNotTheAccount();
    void maintenanceIsDoneOnce();
    void remembersEachSharedAccountOnce_data();
    void remembersEachSharedAccountOnce();
};

namespace {

SLmUserInfo PilotOne()
{
    SLmUserInfo user;
    user.strToken = QStringLiteral("tok-ü-1");
    user.strUserID = QStringLiteral("17");
    user.strAccount = QStringLiteral("13800000001");
    user.strNickName = QStringLiteral("Ålesund & Co = crew");
    user.strUserType = QStringLiteral("2");
    return user;
}

QVariant Stored(const char* key)
{
    return QSettings(QLatin1String(OrganizationName), QLatin1String(CloundApplicationName))
        .value(QLatin1String(UserInfoGroupName) + QLatin1Char('/') + QLatin1String(key));
}

}  // namespace

void tst_CLmSessionStore::init()
{
    QSettings(QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)).clear();
    QSettings(QLatin1String(CloundApplicationName)).clear();
}

void tst_CLmSessionStore::keepsASignInAcrossStores()
{
    CLmSessionStore().SaveSignIn(PilotOne(), QStringLiteral("project,share"));

    const SLmUserInfo read = GetCurUserInfo();
    QCOMPARE(read.strToken, PilotOne().strToken);
    QCOMPARE(read.strUserID, PilotOne().strUserID);
    QCOMPARE(read.strAccount, PilotOne().strAccount);
    QCOMPARE(read.strNickName, PilotOne().strNickName);
    QCOMPARE(read.strUserType, PilotOne().strUserType);
    QVERIFY(CLmSessionStore().IsSignedIn());
    QCOMPARE(Stored(UserInfoPermissions).toString(), QStringLiteral("cHJvamVjdCxzaGFyZQ=="));
    QCOMPARE(Stored(UserInfoPassword).toString(), QString());
}

void tst_CLmSessionStore::clearForgetsTheSessionButNotTheAccount()
{
    CLmSessionStore().SaveSignIn(PilotOne(), QStringLiteral("project"));
    CLmSessionStore().Clear();

    const SLmUserInfo read = GetCurUserInfo();
    QVERIFY(read.strToken.isEmpty());
    QVERIFY(read.strUserID.isEmpty());
    QVERIFY(read.strNickName.isEmpty());
    QVERIFY(!CLmSessionStore().IsSignedIn());
    QCOMPARE(read.strAccount, PilotOne().strAccount);
    QCOMPARE(read.strUserType, PilotOne().strUserType);
    QVERIFY(!Stored(UserInfoPermissions).toString().isEmpty());
    QCOMPARE(Stored(UserInfoAutoLogin).toBool(), false);
}

void tst_CLmSessionStore::maintenanceIsDoneOnce()
{
    QVERIFY(!CLmSessionStore().IsMaintenanceDone());
    CLmSessionStore().SetMaintenanceDone();
    QVERIFY(CLmSessionStore().IsMaintenanceDone());
    CLmSessionStore().Clear();
    QVERIFY2(CLmSessionStore().IsMaintenanceDone(), "signing out must not repeat the maintenance");
}

void tst_CLmSessionStore::remembersEachSharedAccountOnce_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("account");
    QTest::addColumn<QStringList>("remembered");
    QTest::addColumn<QString>("storedAfter");
    QTest::newRow("first account") << QString() << QStringLiteral("13800000002")
                                   << QStringList{QStringLiteral("13800000002")} << QStringLiteral("13800000002");
    QTest::newRow("new account appended")
        << QStringLiteral("13800000002") << QStringLiteral("13800000003")
        << QStringList{QStringLiteral("13800000002"), QStringLiteral("13800000003")}
        << QStringLiteral("13800000002,13800000003");
    QTest::newRow("known account kept once")
        << QStringLiteral("13800000002,13800000003") << QStringLiteral("13800000002")
        << QStringList{QStringLiteral("13800000002"), QStringLiteral("13800000003")}
        << QStringLiteral("13800000002,13800000003");
    QTest::newRow("empty parts dropped")
        << QStringLiteral(",13800000002,,") << QStringLiteral("13800000003")
        << QStringList{QStringLiteral("13800000002"), QStringLiteral("13800000003")}
        << QStringLiteral("13800000002,13800000003");
}

void tst_CLmSessionStore::remembersEachSharedAccountOnce()
{
    QFETCH(QString, stored);
    QFETCH(QString, account);
    QFETCH(QStringList, remembered);
    QFETCH(QString, storedAfter);
    if (!stored.isEmpty()) {
        QSettings(QLatin1String(OrganizationName), QLatin1String(CloundApplicationName))
            .setValue(QStringLiteral("UserInfo/SharedAccounts"), stored);
    }

    CLmSessionStore().RememberSharedAccount(account);

    QCOMPARE(CLmSessionStore().SharedAccounts(), remembered);
    QCOMPARE(Stored(UserInfoSharedAccounts).toString(), storedAfter);
}

QTEST_GUILESS_MAIN(tst_CLmSessionStore)
#include "tst_CLmSessionStore.moc"
