#include "CSkyCloudProcess.h"

#include <QDir>
#include <QJsonArray>
#include <QtTest>

namespace {

// The demo accounts and their ids in a new data folder.
const QByteArray PhoneOne = "13800000001";
const QByteArray PhoneTwo = "13800000002";
constexpr qint64 AccountOne = 1;
constexpr qint64 AccountTwo = 2;

}  // namespace

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
    QStringList ProjectIds(const QByteArray& token);
    int StoredFiles(qint64 accountId) const;
    // "own:N" and "other:N" stand for the N-th project of account one or two.
    QByteArray IdsText(const QStringList& picks) const;

    std::unique_ptr<CSkyCloudProcess> m_cloud;
    QByteArray m_tokenOne;
    QByteArray m_tokenTwo;
    QStringList m_idsOne;
    QStringList m_idsTwo;
};

void tst_SkyCloudProjects::init()
{
    m_cloud = std::make_unique<CSkyCloudProcess>();
    QVERIFY(m_cloud->Start());
    m_tokenOne = m_cloud->SignIn(PhoneOne);
    m_tokenTwo = m_cloud->SignIn(PhoneTwo);
    m_idsOne = ProjectIds(m_tokenOne);
    m_idsTwo = ProjectIds(m_tokenTwo);
    QCOMPARE(m_idsOne.size(), 3);
    QCOMPARE(m_idsTwo.size(), 2);
}

void tst_SkyCloudProjects::cleanup()
{
    m_cloud.reset();
}

QStringList tst_SkyCloudProjects::ProjectIds(const QByteArray& token)
{
    QStringList ids;
    for (const QJsonValue& project : m_cloud->Call("/project/list", {}, token).value("data").toArray())
        ids.append(project.toObject().value("id").toString());
    ids.sort();
    return ids;
}

int tst_SkyCloudProjects::StoredFiles(qint64 accountId) const
{
    return QDir(m_cloud->DataDir() + "/projects/" + QString::number(accountId)).entryList({"*.proj"}, QDir::Files).size();
}

QByteArray tst_SkyCloudProjects::IdsText(const QStringList& picks) const
{
    QStringList ids;
    for (const QString& pick : picks) {
        const int index = pick.section(':', 1).toInt();
        if (pick.startsWith("own:"))
            ids.append(m_idsOne.at(index));
        else if (pick.startsWith("other:"))
            ids.append(m_idsTwo.at(index));
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

    const int filesOne = StoredFiles(AccountOne);
    const int filesTwo = StoredFiles(AccountTwo);
    int status = 0;
    const QJsonObject reply = m_cloud->Call(path, field + "=" + IdsText(picks), m_tokenOne, &status);
    QCOMPARE(status, httpStatus);
    QCOMPARE(reply.value("status").toInt(-1), httpStatus == 200 ? 0 : httpStatus);
    QVERIFY(!reply.value("message").toString().isEmpty());

    QStringList expectedOne = m_idsOne;
    for (const QByteArray& id : IdsText(removed).split(','))
        expectedOne.removeAll(QString::fromLatin1(id));
    QCOMPARE(ProjectIds(m_tokenOne), expectedOne);
    QCOMPARE(ProjectIds(m_tokenTwo), m_idsTwo);
    QCOMPARE(StoredFiles(AccountOne), filesOne - removed.size());
    QCOMPARE(StoredFiles(AccountTwo), filesTwo);
    for (const QString& id : m_idsOne) {
        m_cloud->Call("/project/downloadfile", "id=" + id.toLatin1(), m_tokenOne, &status);
        QCOMPARE(status, expectedOne.contains(id) ? 200 : 404);
    }
}

void tst_SkyCloudProjects::removalOutlastsRestart()
{
    int status = 0;
    m_cloud->Call("/project/removemulti", "ids=" + IdsText({"own:0", "own:1", "own:2"}), m_tokenOne, &status);
    QCOMPARE(status, 200);

    m_cloud->Stop();
    QVERIFY(m_cloud->Start());
    QCOMPARE(ProjectIds(m_tokenOne), QStringList{});
    QCOMPARE(ProjectIds(m_tokenTwo), m_idsTwo);
}

QTEST_GUILESS_MAIN(tst_SkyCloudProjects)
#include "tst_skycloudprojects.moc"
