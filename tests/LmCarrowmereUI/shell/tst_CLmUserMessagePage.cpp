#include "CLmDeployConfig.h"
#include "CLmUserMessagePage.h"
#include "CSkyCloudProcess.h"
#include "CLmSessionStore.h"
#include "LmConstants.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QJsonDocument>
#include <QTest>

class tst_CLmUserMessagePage : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void editedProfileIsSavedAndKept();
    void logoutEndsTheSessionEvenOffline_data();
    void logoutEndsTheSessionEvenOffline();
    void messagesComeFromTheCloud();

private:
    QByteArray SignIn(const QByteArray& phone);
    CSkyCloudProcess m_cloud;
    std::unique_ptr<CLmUserMessagePage> m_pPage;
};

void tst_CLmUserMessagePage::initTestCase()
{
    QVERIFY(m_cloud.Start());
}

void tst_CLmUserMessagePage::init()
{
    qputenv("SKYCONSOLE_CLOUD_PRODUCTION_URL", m_cloud.BaseUrl());
    CLmDeployConfig::Reload();
    m_pPage = std::make_unique<CLmUserMessagePage>();
    m_pPage->show();
}

QByteArray tst_CLmUserMessagePage::SignIn(const QByteArray& phone)
{
    const QJsonObject data =
        m_cloud.Call("/user/login", "phone=" + phone + "&password=skyconsole&device_id=t").value("data").toObject();
    QSettings settings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)};
    settings.beginGroup(QLatin1String(UserInfoGroupName));
    settings.setValue(QLatin1String(UserInfoToken), data.value("token").toString());
    settings.setValue(QLatin1String(UserInfoNickName), data.value("nick_name").toString());
    settings.setValue(QLatin1String(UserInfoUserID), data.value("id").toVariant().toString());
    settings.setValue(QLatin1String(UserInfoAccount), QString::fromLatin1(phone));
    return data.value("token").toString().toUtf8();
}

void tst_CLmUserMessagePage::editedProfileIsSavedAndKept()
{
    const QByteArray token = SignIn("13800000002");
    m_pPage->ShowProfileView(QJsonDocument(m_cloud.Call("/user/profile", {}, token)).toJson());
    auto* nick = m_pPage->findChild<QLineEdit*>(QStringLiteral("m_pEditNickName"));
    QCOMPARE(nick->text(), QStringLiteral("Demo Pilot Two"));

    QSignalSpy saved(m_pPage.get(), &CLmUserMessagePage::saveUserInfoSucced);
    nick->setText(QStringLiteral("Ålesund & Co = crew"));
    m_pPage->findChild<QLineEdit*>(QStringLiteral("m_pEditCompany"))->setText(QStringLiteral("Fjord Survey"));
    m_pPage->findChild<QPushButton*>(QStringLiteral("m_pBtnSaveProfile"))->click();
    QTRY_COMPARE_WITH_TIMEOUT(saved.count(), 1, 8000);

    QCOMPARE(GetCurUserInfo().strNickName, QStringLiteral("Ålesund & Co = crew"));
    const QJsonObject profile = m_cloud.Call("/user/profile", {}, token).value("data").toObject();
    QCOMPARE(profile.value("nick_name").toString(), QStringLiteral("Ålesund & Co = crew"));
    QCOMPARE(profile.value("company").toString(), QStringLiteral("Fjord Survey"));
}

void tst_CLmUserMessagePage::logoutEndsTheSessionEvenOffline_data()
{
    QTest::addColumn<bool>("cloudReachable");
    QTest::newRow("online") << true;
    QTest::newRow("offline") << false;
}

void tst_CLmUserMessagePage::logoutEndsTheSessionEvenOffline()
{
    QFETCH(bool, cloudReachable);
    const QByteArray token = SignIn("13800000001");
    if (!cloudReachable) {
        qputenv("SKYCONSOLE_CLOUD_PRODUCTION_URL", "http://127.0.0.1:9");
        CLmDeployConfig::Reload();
    }
    QSignalSpy loggedOut(m_pPage.get(), &CLmUserMessagePage::LogoutSucced);
    m_pPage->findChild<QPushButton*>(QStringLiteral("m_pBtnLogout"))->click();
    QCOMPARE(loggedOut.count(), 1);
    QVERIFY(GetCurUserInfo().strToken.isEmpty());
    QCOMPARE(GetCurUserInfo().strAccount, QStringLiteral("13800000001"));
    if (cloudReachable) {
        int httpStatus = 0;
        QTRY_VERIFY_WITH_TIMEOUT((m_cloud.Call("/user/profile", {}, token, &httpStatus), httpStatus == 401), 8000);
    }
}

void tst_CLmUserMessagePage::messagesComeFromTheCloud()
{
    SignIn("13800000001");
    m_pPage->ShowMessageView();
    auto* list = m_pPage->findChild<QListWidget*>(QStringLiteral("m_pListMessages"));
    QTRY_VERIFY_WITH_TIMEOUT(list->count() > 0, 8000);
    QVERIFY(m_pPage->findChild<QLabel*>(QStringLiteral("m_pLabelNoMessage"))->isHidden());
}

QTEST_MAIN(tst_CLmUserMessagePage)
#include "tst_CLmUserMessagePage.moc"
