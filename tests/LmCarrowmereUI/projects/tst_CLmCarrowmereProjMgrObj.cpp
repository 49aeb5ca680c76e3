#include "CFakeProjectCloud.h"
#include "CLmCarrowmereProjMgrObj.h"
#include "CLmControl.h"
#include "ProjectTestHelpers.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

using namespace ProjectTestHelpers;

namespace {

const QByteArray ListPath = "/project/list";
const QByteArray DownloadPath = "/project/downloadfile";
const QByteArray UploadPath = "/project/upload";
const QString Early = QStringLiteral("2026-03-01 10:00:00");
const QString Late = QStringLiteral("2026-03-02 09:30:00");

bool HasMessage(const QSignalSpy& spy, ESynchProMsgType type)
{
    for (const QList<QVariant>& args : spy) {
        if (args.at(0).value<ESynchProMsgType>() == type)
            return true;
    }
    return false;
}

QList<SProjInfor> Infos(const QSignalSpy& spy)
{
    QList<SProjInfor> infos;
    for (const QList<QVariant>& args : spy)
        infos.append(args.at(0).value<SProjInfor>());
    return infos;
}

}  // namespace

class tst_CLmCarrowmereProjMgrObj : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void classification_data();
    void classification();
    void localScanCountsMissionsAndSkipsBrokenFiles();
    void cloudNameEqualsLocalFolderGetsUniqueFolder();
    void nameWithTrailingBlanksAndPathCharacters_data();
    void nameWithTrailingBlanksAndPathCharacters();
    void refusedDownloadWritesNothingAndHalts_data();
    void refusedDownloadWritesNothingAndHalts();
    void badDownloadLeavesLocalFileUntouched_data();
    void badDownloadLeavesLocalFileUntouched();
    void uploadReplyStatus_data();
    void uploadReplyStatus();
    void noTokenOrNoNetworkSendsNothing_data();
    void noTokenOrNoNetworkSendsNothing();
    void singleDownloadWaitsForTheQueuedOne();

private:
    // Reads the list, so the queues hold its classification.
    void ReadList(CLmCarrowmereProjMgrObj& engine);

    std::unique_ptr<CFakeProjectCloud> m_cloud;
};

void tst_CLmCarrowmereProjMgrObj::init()
{
    ClearProjectRoot();
    m_cloud = std::make_unique<CFakeProjectCloud>();
    PointCloudAt(m_cloud->BaseUrl());
    SetSession(QStringLiteral("0123456789abcdef0123456789abcdef"), QStringLiteral("1"));
    CLmControl::GetInstance()->SetNetWorkState(true);
}

void tst_CLmCarrowmereProjMgrObj::ReadList(CLmCarrowmereProjMgrObj& engine)
{
    QSignalSpy messages(&engine, &CLmCarrowmereProjMgrObj::SynchProjMsg);
    engine.slotReadAllPrject();
    QTRY_VERIFY(HasMessage(messages, SynchProMsgListFinished) || HasMessage(messages, SynchProMsgListError));
}

void tst_CLmCarrowmereProjMgrObj::classification_data()
{
    QTest::addColumn<QString>("localTime");  // empty: not local
    QTest::addColumn<QString>("cloudTime");  // empty: not in the cloud
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("queue");
    QTest::newRow("equal") << Early << Early << int(SynchStateInStep) << "none";
    QTest::newRow("local earlier") << Early << Late << int(SynchStateNeedDownload) << "download";
    QTest::newRow("local later") << Late << Early << int(SynchStateNeedUpload) << "upload";
    QTest::newRow("same day, seconds apart") << "2026-03-01 10:00:01" << Early << int(SynchStateNeedUpload)
                                             << "upload";
    QTest::newRow("missing locally") << QString() << Early << int(SynchStateCloudOnly) << "download";
    QTest::newRow("missing in the cloud") << Early << QString() << int(SynchStateNeedUpload) << "upload";
}

void tst_CLmCarrowmereProjMgrObj::classification()
{
    QFETCH(QString, localTime);
    QFETCH(QString, cloudTime);
    QFETCH(int, state);
    QFETCH(QString, queue);
    if (!localTime.isEmpty())
        QVERIFY(!WriteLocal(Project(QStringLiteral("P1"), QStringLiteral("Field"), localTime)).isEmpty());
    QJsonArray list;
    if (!cloudTime.isEmpty())
        list.append(CloudEntry(QStringLiteral("P1"), QStringLiteral("Field"), cloudTime, 7));
    m_cloud->SetReply(ListPath, 200, ListReply(list));

    CLmCarrowmereProjMgrObj engine;
    QSignalSpy downloads(&engine, &CLmCarrowmereProjMgrObj::NeedDownloadInfo);
    QSignalSpy uploads(&engine, &CLmCarrowmereProjMgrObj::NeedUploadInfo);
    QSignalSpy updates(&engine, &CLmCarrowmereProjMgrObj::UpdateProjInfo);
    ReadList(engine);

    QCOMPARE(downloads.count(), queue == QLatin1String("download") ? 1 : 0);
    QCOMPARE(uploads.count(), queue == QLatin1String("upload") ? 1 : 0);
    QCOMPARE(updates.count(), queue == QLatin1String("none") ? 1 : 0);
    const QSignalSpy& reported = !downloads.isEmpty() ? downloads : !uploads.isEmpty() ? uploads : updates;
    const SProjInfor info = Infos(reported).first();
    QCOMPARE(info.iSynchState, state);
    QCOMPARE(info.strProjID, QStringLiteral("P1"));
    if (state != SynchStateNeedUpload)
        QCOMPARE(info.iMissionCount, 7);
    // Reading the list never transfers anything.
    QCOMPARE(m_cloud->RequestCount(DownloadPath) + m_cloud->RequestCount(UploadPath), 0);
}

void tst_CLmCarrowmereProjMgrObj::localScanCountsMissionsAndSkipsBrokenFiles()
{
    CLmProjectGenerator::SOptions options = Project(QStringLiteral("P1"), QStringLiteral("Field"), Early);
    options.iMissions = 5;
    options.iFlownMissions = 3;
    WriteLocal(options);
    WriteLocal(Project(QStringLiteral("P2"), QStringLiteral("Other user"), Early, QStringLiteral("2")));
    QDir().mkpath(ProjectRoot() + QStringLiteral("/Broken"));
    QFile broken(ProjectRoot() + QStringLiteral("/Broken/Broken.proj"));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("this is not a database");
    broken.close();
    m_cloud->SetReply(ListPath, 200, ListReply({}));

    CLmCarrowmereProjMgrObj engine;
    QSignalSpy local(&engine, &CLmCarrowmereProjMgrObj::LocalProjInfor);
    QSignalSpy cities(&engine, &CLmCarrowmereProjMgrObj::LocalBlockCity);
    QSignalSpy messages(&engine, &CLmCarrowmereProjMgrObj::SynchProjMsg);
    ReadList(engine);

    QCOMPARE(local.count(), 1);
    const SProjInfor info = Infos(local).first();
    QCOMPARE(info.strProjName, QStringLiteral("Field"));
    QCOMPARE(info.iMissionCount, 5);
    QCOMPARE(info.iFlownCount, 3);
    QCOMPARE(cities.count(), 1);
    QCOMPARE(cities.first().at(1).toStringList(), QStringList{QStringLiteral("Zurich")});
    QStringList scanProgress;
    for (const QList<QVariant>& args : messages) {
        if (args.at(0).value<ESynchProMsgType>() == SynchProMsgLocalProgress)
            scanProgress.append(args.at(1).toString());
    }
    QCOMPARE(scanProgress, (QStringList{"33", "66", "100"}));
}

void tst_CLmCarrowmereProjMgrObj::cloudNameEqualsLocalFolderGetsUniqueFolder()
{
    const QString localFile = WriteLocal(Project(QStringLiteral("L1"), QStringLiteral("Alpha"), Early));
    const QByteArray localBytes = ReadFile(localFile);
    m_cloud->SetReply(ListPath, 200,
                      ListReply({CloudEntry(QStringLiteral("L1"), QStringLiteral("Alpha"), Early),
                                 CloudEntry(QStringLiteral("C1"), QStringLiteral("Alpha"), Late)}));
    m_cloud->SetReply(DownloadPath, 200, ProjectFileBytes(Project(QStringLiteral("C1"), QStringLiteral("Alpha"), Late)));

    CLmCarrowmereProjMgrObj engine;
    QSignalSpy finished(&engine, &CLmCarrowmereProjMgrObj::ProjectDownloadFinished);
    ReadList(engine);
    engine.slotSynchAllProject();
    QTRY_COMPARE(finished.count(), 1);

    const SProjInfor info = Infos(finished).first();
    QCOMPARE(info.strState, QStringLiteral("Finished"));
    QCOMPARE(info.strProjPath, ProjectRoot() + QStringLiteral("/Alpha(1)/Alpha(1).proj"));
    QCOMPARE(info.strUpdateTime, Late);
    QVERIFY(QFileInfo::exists(info.strProjPath));
    QCOMPARE(ReadFile(localFile), localBytes);
    QCOMPARE(m_cloud->Requests().last().body, QByteArray("id=C1"));
}

void tst_CLmCarrowmereProjMgrObj::nameWithTrailingBlanksAndPathCharacters_data()
{
    QTest::addColumn<QString>("cloudName");
    QTest::addColumn<QString>("folder");
    QTest::newRow("trailing blanks") << "Beta   " << "Beta";
    QTest::newRow("climbs out of the root") << "../../outside" << "___.._outside";
    QTest::newRow("only dots") << ".." << "__";
}

void tst_CLmCarrowmereProjMgrObj::nameWithTrailingBlanksAndPathCharacters()
{
    QFETCH(QString, cloudName);
    QFETCH(QString, folder);
    m_cloud->SetReply(ListPath, 200, ListReply({CloudEntry(QStringLiteral("C1"), cloudName, Late)}));
    m_cloud->SetReply(DownloadPath, 200, ProjectFileBytes(Project(QStringLiteral("C1"), cloudName, Late)));

    CLmCarrowmereProjMgrObj engine;
    QSignalSpy finished(&engine, &CLmCarrowmereProjMgrObj::ProjectDownloadFinished);
    ReadList(engine);
    engine.slotSynchAllProject();
    QTRY_COMPARE(finished.count(), 1);

    const QString expected = ProjectRoot() + QLatin1Char('/') + folder + QLatin1Char('/') + folder + ".proj";
    QCOMPARE(Infos(finished).first().strProjPath, expected);
    QVERIFY(QFileInfo::exists(expected));
    QCOMPARE(QDir(ProjectRoot()).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList{folder});
    QVERIFY(!QFileInfo::exists(QFileInfo(ProjectRoot()).absolutePath() + QStringLiteral("/outside")));
}

void tst_CLmCarrowmereProjMgrObj::refusedDownloadWritesNothingAndHalts_data()
{
    QTest::addColumn<int>("status");
    QTest::newRow("401") << 401;
    QTest::newRow("403") << 403;
}

void tst_CLmCarrowmereProjMgrObj::refusedDownloadWritesNothingAndHalts()
{
    QFETCH(int, status);
    m_cloud->SetReply(ListPath, 200,
                      ListReply({CloudEntry(QStringLiteral("C1"), QStringLiteral("One"), Late),
                                 CloudEntry(QStringLiteral("C2"), QStringLiteral("Two"), Late)}));
    m_cloud->SetReply(DownloadPath, status,
                      QJsonDocument(QJsonObject{{"status", status}, {"message", "Invalid token"}, {"data", QJsonObject{}}})
                          .toJson());

    CLmCarrowmereProjMgrObj engine;
    QSignalSpy finished(&engine, &CLmCarrowmereProjMgrObj::ProjectDownloadFinished);
    QSignalSpy updates(&engine, &CLmCarrowmereProjMgrObj::UpdateProjInfo);
    ReadList(engine);
    engine.slotSynchAllProject();
    QTRY_COMPARE(m_cloud->RequestCount(DownloadPath), 1);
    // Give a wrongly continued chain the time to ask for the second project.
    QTest::qWait(200);

    QCOMPARE(m_cloud->RequestCount(DownloadPath), 1);
    QCOMPARE(finished.count(), 0);
    QCOMPARE(updates.count(), 0);
    QCOMPARE(QDir(ProjectRoot()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden), QStringList());
}

void tst_CLmCarrowmereProjMgrObj::badDownloadLeavesLocalFileUntouched_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("truncated database") << "truncated";
    QTest::newRow("not a database") << "text";
    QTest::newRow("empty body") << "empty";
}

void tst_CLmCarrowmereProjMgrObj::badDownloadLeavesLocalFileUntouched()
{
    QFETCH(QString, kind);
    const QString localFile = WriteLocal(Project(QStringLiteral("P1"), QStringLiteral("Field"), Early));
    const QByteArray localBytes = ReadFile(localFile);
    CLmProjectGenerator::SOptions cloudProject = Project(QStringLiteral("P1"), QStringLiteral("Field"), Late);
    cloudProject.iMissions = 400;
    QByteArray reply = ProjectFileBytes(cloudProject);
    if (kind == QLatin1String("truncated"))
        reply.truncate(reply.size() / 2);
    else if (kind == QLatin1String("text"))
        reply = "<html>proxy error</html>";
    else
        reply.clear();
    m_cloud->SetReply(ListPath, 200, ListReply({CloudEntry(QStringLiteral("P1"), QStringLiteral("Field"), Late)}));
    m_cloud->SetReply(DownloadPath, 200, reply);

    CLmCarrowmereProjMgrObj engine;
    QSignalSpy finished(&engine, &CLmCarrowmereProjMgrObj::ProjectDownloadFinished);
    ReadList(engine);
    engine.slotSynchAllProject();
    QTRY_COMPARE(finished.count(), 1);

    QCOMPARE(Infos(finished).first().strState, QStringLiteral("Failed"));
    QCOMPARE(ReadFile(localFile), localBytes);
    QCOMPARE(QDir(ProjectRoot()).entryList(QDir::Files | QDir::Hidden), QStringList());
}

void tst_CLmCarrowmereProjMgrObj::uploadReplyStatus_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<qint64>("expectedVersion");
    QTest::newRow("accepted") << 0 << qint64(7);
    QTest::newRow("refused") << 500 << qint64(0);
}

void tst_CLmCarrowmereProjMgrObj::uploadReplyStatus()
{
    QFETCH(int, status);
    QFETCH(qint64, expectedVersion);
    const QString first = WriteLocal(Project(QStringLiteral("P1"), QStringLiteral("First"), Late));
    const QString second = WriteLocal(Project(QStringLiteral("P2"), QStringLiteral("Second"), Late));
    m_cloud->SetReply(ListPath, 200, ListReply({}));
    m_cloud->SetReply(UploadPath, 200,
                      QJsonDocument(QJsonObject{{"status", status}, {"message", "m"}, {"data", QJsonObject{{"version", 7}}}})
                          .toJson());

    CLmCarrowmereProjMgrObj engine;
    QSignalSpy finished(&engine, &CLmCarrowmereProjMgrObj::ProjectUploadFinished);
    ReadList(engine);
    engine.slotSynchAllProject();
    QTRY_COMPARE(finished.count(), 2);

    for (const SProjInfor& info : Infos(finished))
        QCOMPARE(info.strState, QStringLiteral("Finished"));
    QCOMPARE(VersionOf(first), expectedVersion);
    QCOMPARE(VersionOf(second), expectedVersion);
    for (const CFakeProjectCloud::SRequest& request : m_cloud->Requests()) {
        QCOMPARE(request.token, QByteArray("0123456789abcdef0123456789abcdef"));
        if (request.path == UploadPath)
            QVERIFY(request.body.startsWith("data="));
    }
    QCOMPARE(m_cloud->RequestCount(UploadPath), 2);
}

void tst_CLmCarrowmereProjMgrObj::noTokenOrNoNetworkSendsNothing_data()
{
    QTest::addColumn<QString>("token");
    QTest::addColumn<bool>("network");
    QTest::newRow("no token") << QString() << true;
    QTest::newRow("no network") << "0123456789abcdef0123456789abcdef" << false;
}

void tst_CLmCarrowmereProjMgrObj::noTokenOrNoNetworkSendsNothing()
{
    QFETCH(QString, token);
    QFETCH(bool, network);
    SetSession(token, QStringLiteral("1"));
    CLmControl::GetInstance()->SetNetWorkState(network);
    m_cloud->SetReply(ListPath, 200, ListReply({}));

    CLmCarrowmereProjMgrObj engine;
    QSignalSpy messages(&engine, &CLmCarrowmereProjMgrObj::SynchProjMsg);
    engine.slotSynchAllProject();

    QVERIFY(HasMessage(messages, SynchProMsgListError));
    QCOMPARE(messages.last().at(1).toString(), QStringLiteral("Reading project list error."));
    QTest::qWait(100);
    QCOMPARE(m_cloud->Requests().size(), 0);
}


void tst_CLmCarrowmereProjMgrObj::singleDownloadWaitsForTheQueuedOne()
{
    m_cloud->SetReply(ListPath, 200, ListReply({CloudEntry(QStringLiteral("C1"), QStringLiteral("Queued"), Late)}));
    m_cloud->SetReply(DownloadPath, 200, ProjectFileBytes(Project(QStringLiteral("C1"), QStringLiteral("Queued"), Late)));

    CLmCarrowmereProjMgrObj engine;
    QSignalSpy finished(&engine, &CLmCarrowmereProjMgrObj::ProjectDownloadFinished);
    ReadList(engine);
    engine.slotSynchAllProject();
    // Asked for while the queued download is under way.
    engine.slotDownloadPrjectWithProjID(QStringLiteral("C1"));
    QTRY_COMPARE(finished.count(), 2);

    for (const SProjInfor& info : Infos(finished))
        QCOMPARE(info.strState, QStringLiteral("Finished"));
    QCOMPARE(m_cloud->RequestCount(DownloadPath), 2);
}

QTEST_GUILESS_MAIN(tst_CLmCarrowmereProjMgrObj)
#include "tst_CLmCarrowmereProjMgrObj.moc"
