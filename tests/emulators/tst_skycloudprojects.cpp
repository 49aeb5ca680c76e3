#include "CDemoAccounts.h"
#include "CSkyCloudProcess.h"

#include <QDir>
#include <QJsonArray>
#include <QtTest>

// Removing projects from the emulated cloud: only the caller's own go, and a
// request naming any other project removes nothing at all.
class tst_SkyCloudProjects : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void removal_data();
    void removal();
    void removalOutlastsRestart();

private:
    int StoredFiles(qint64 accountId) const;
    // "own:N" and "other:N" stand for the N-th project of account one or two.
    QByteArray IdsText(const QStringList& picks) const;

    std::unique_ptr<CSkyCloudProcess> m_cloud;
    std::unique_ptr<CDemoAccounts> m_accounts;
};

void tst_SkyCloudProjects::init()
{
    m_cloud = std::make_unique<CSkyCloudProcess>();
    QVERIFY(m_cloud->Start());
    m_accounts = std::make_unique<CDemoAccounts>(*m_cloud);
    QVERIFY(m_accounts->SignIn());
    QCOMPARE(m_accounts->One().projectIds.size(), 3);
    QCOMPARE(m_accounts->Two().projectIds.size(), 2);
}

void tst_SkyCloudProjects::cleanup()
{
    m_accounts.reset();
    m_cloud.reset();
}

int tst_SkyCloudProjects::StoredFiles(qint64 accountId) const
{
    const QDir folder(m_cloud->DataDir() + "/projects/" + QString::number(accountId));
    return folder.entryList({"*.proj"}, QDir::Files).size();
}

QByteArray tst_SkyCloudProjects::IdsText(const QStringList& picks) const
{
    QStringList ids;
    for (const QString& pick : picks) {
        const int index = pick.section(':', 1).toInt();
        if (pick.startsWith("own:"))
            ids.append(m_accounts->One().projectIds.at(index));
        else if (pick.startsWith("other:"))
            ids.append(m_accounts->Two().projectIds.at(index));
        else
            ids.append(pick);
    }
    return QUrl::toPercentEncoding(ids.join(','), ",");
}

void tst_SkyCloudProjects::removal_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QStringList>("picks");
    QTest::addColumn<int>("httpStatus");
    QTest::addColumn<QStringList>("removed");

    QTest::newRow("one own") << QByteArray("/project/remove") << QByteArray("id") << QStringList{"own:1"} << 200
                             << QStringList{"own:1"};
    QTest::newRow("one of another account") << QByteArray("/project/remove") << QByteArray("id")
                                            << QStringList{"other:0"} << 403 << QStringList{};
    QTest::newRow("one unknown") << QByteArray("/project/remove") << QByteArray("id")
                                 << QStringList{"8d3c5a8e-0000-4000-8000-000000000000"} << 404 << QStringList{};
    QTest::newRow("one without id") << QByteArray("/project/remove") << QByteArray("id") << QStringList{} << 400
                                    << QStringList{};
    QTest::newRow("several own") << QByteArray("/project/removemulti") << QByteArray("ids")
                                 << QStringList{"own:0", "own:2"} << 200 << QStringList{"own:0", "own:2"};
    QTest::newRow("every own") << QByteArray("/project/removemulti") << QByteArray("ids")
                               << QStringList{"own:0", "own:1", "own:2"} << 200
                               << QStringList{"own:0", "own:1", "own:2"};
    QTest::newRow("own and another account's") << QByteArray("/project/removemulti") << QByteArray("ids")
                                               << QStringList{"own:0", "other:1", "own:1"} << 403 << QStringList{};
    QTest::newRow("own and unknown") << QByteArray("/project/removemulti") << QByteArray("ids")
                                     << QStringList{"own:0", "no-such-project"} << 404 << QStringList{};
    QTest::newRow("repeats and empty parts") << QByteArray("/project/removemulti") << QByteArray("ids")
                                             << QStringList{"own:2", "", "own:2", ""} << 200
                                             << QStringList{"own:2"};
    QTest::newRow("only separators") << QByteArray("/project/removemulti") << QByteArray("ids")
                                     << QStringList{"", ""} << 400 << QStringList{};
}

void tst_SkyCloudProjects::removal()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, field);
    QFETCH(QStringList, picks);
    QFETCH(int, httpStatus);
    QFETCH(QStringList, removed);

    const CDemoAccounts::SAccount& one = m_accounts->One();
    const CDemoAccounts::SAccount& two = m_accounts->Two();
    const int filesOne = StoredFiles(one.iID);
    const int filesTwo = StoredFiles(two.iID);
    int status = 0;
    const QJsonObject reply = m_cloud->Call(path, field + "=" + IdsText(picks), one.token, &status);
    QCOMPARE(status, httpStatus);
    QCOMPARE(reply.value("status").toInt(-1), httpStatus == 200 ? 0 : httpStatus);
    QVERIFY(!reply.value("message").toString().isEmpty());

    QStringList expectedOne = one.projectIds;
    for (const QByteArray& id : IdsText(removed).split(','))
        expectedOne.removeAll(QString::fromLatin1(id));
    QCOMPARE(m_accounts->ProjectIds(one.token), expectedOne);
    QCOMPARE(m_accounts->ProjectIds(two.token), two.projectIds);
    QCOMPARE(StoredFiles(one.iID), filesOne - removed.size());
    QCOMPARE(StoredFiles(two.iID), filesTwo);
    for (const QString& id : one.projectIds) {
        m_cloud->Call("/project/downloadfile", "id=" + id.toLatin1(), one.token, &status);
        QCOMPARE(status, expectedOne.contains(id) ? 200 : 404);
    }
}

void tst_SkyCloudProjects::removalOutlastsRestart()
{
    const CDemoAccounts::SAccount& one = m_accounts->One();
    int status = 0;
    m_cloud->Call("/project/removemulti", "ids=" + IdsText({"own:0", "own:1", "own:2"}), one.token, &status);
    QCOMPARE(status, 200);

    m_cloud->Stop();
    QVERIFY(m_cloud->Start());
    QCOMPARE(m_accounts->ProjectIds(one.token), QStringList{});
    QCOMPARE(m_accounts->ProjectIds(m_accounts->Two().token), m_accounts->Two().projectIds);
}

QTEST_GUILESS_MAIN(tst_SkyCloudProjects)
#include "tst_skycloudprojects.moc"
