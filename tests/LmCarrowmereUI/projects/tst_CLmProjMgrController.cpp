#include "CFakeProjectCloud.h"
#include "CLmControl.h"
#include "CLmDataBase.h"
#include "CLmProjMgrController.h"
#include "CSkyCloudProcess.h"
#include "ProjectTestHelpers.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QtTest>

using namespace ProjectTestHelpers;
using Ctl = CLmProjMgrController;

namespace {

const QString Token = QStringLiteral("0123456789abcdef0123456789abcdef");
const QByteArray RemovePath = "/project/remove";
const QByteArray RemoveMultiPath = "/project/removemulti";

SProjInfor Info(const QString& id, const QString& name, const QString& time, const QString& path = QString())
{
    SProjInfor info;
    info.strProjID = id;
    info.strProjName = name;
    info.strUpdateTime = time;
    info.strProjPath = path;
    return info;
}

// A project of pilot one in the local store, listed by the controller.
QString AddLocal(Ctl& controller, const QString& id, const QString& name)
{
    const QString time = QStringLiteral("2026-05-04 08:00:00");
    const QString file = WriteLocal(Project(id, name, time));
    controller.AddProject(Info(id, name, time, file));
    return file;
}

QByteArray Envelope(int status, const QString& message = QStringLiteral("OK"))
{
    return QJsonDocument(QJsonObject{{"status", status}, {"message", message}, {"data", QJsonObject()}}).toJson();
}

Ctl::EDeleteOutcome AwaitOutcome(QSignalSpy& finished)
{
    if (finished.isEmpty() && !finished.wait(10000))
        return Ctl::DeleteNetworkFault;
    return finished.first().at(1).value<Ctl::EDeleteOutcome>();
}

}  // namespace

// The project page's state without widgets: rows, filter, transfer lists,
// footer figures and the delete flows against the cloud.
class tst_CLmProjMgrController : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();

    void flightLog_data();
    void flightLog();
    void filter_data();
    void filter();
    void stateFollowsTheClassification();

    void refusedStartSendsNothing_data();
    void refusedStartSendsNothing();
    void replyRule_data();
    void replyRule();
    void deleteAgainstTheCloud_data();
    void deleteAgainstTheCloud();

    void transferStates_data();
    void transferStates();
    void storageSizeOfTheStore();

private:
    std::unique_ptr<CFakeProjectCloud> m_fake;
};

void tst_CLmProjMgrController::init()
{
    ClearProjectRoot();
    m_fake = std::make_unique<CFakeProjectCloud>();
    PointCloudAt(m_fake->BaseUrl());
    SetSession(Token, QStringLiteral("1"));
    CLmControl::GetInstance()->SetNetWorkState(true);
}

void tst_CLmProjMgrController::flightLog_data()
{
    QTest::addColumn<int>("missions");
    QTest::addColumn<int>("flown");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("state");
    QTest::newRow("some flown") << 5 << 3 << "3/5" << int(Ctl::FlightLogSomeFlown);
    QTest::newRow("none flown") << 4 << 0 << "0/4" << int(Ctl::FlightLogSomeFlown);
    QTest::newRow("all flown") << 5 << 5 << "5/5" << int(Ctl::FlightLogAllFlown);
    QTest::newRow("more flown than counted") << 2 << 3 << "3/2" << int(Ctl::FlightLogNone);
    QTest::newRow("no missions") << 0 << 0 << "------" << int(Ctl::FlightLogNone);
    QTest::newRow("flown without missions") << 0 << 2 << "------" << int(Ctl::FlightLogNone);
}

void tst_CLmProjMgrController::flightLog()
{
    QFETCH(int, missions);
    QFETCH(int, flown);
    QFETCH(QString, text);
    QFETCH(int, state);
    const Ctl::SFlightLog log = Ctl::FlightLog(missions, flown);
    QCOMPARE(log.strText, text);
    QCOMPARE(int(log.eState), state);
}

void tst_CLmProjMgrController::filter_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("city");
    QTest::addColumn<QString>("dates");
    QTest::addColumn<QString>("visible");  // letters of the rows shown

    QTest::newRow("no filter") << "" << "" << "" << "ABCDE";
    QTest::newRow("name in other case") << "QUARRY" << "" << "" << "AD";
    QTest::newRow("name fragment inside") << "side" << "" << "" << "B";
    QTest::newRow("name with blanks around") << "  harbour " << "" << "" << "C";
    QTest::newRow("name nobody has") << "xyz" << "" << "" << "";
    QTest::newRow("city") << "" << "Zurich" << "" << "AB";
    QTest::newRow("city all") << "" << "all" << "" << "ABCDE";
    QTest::newRow("city placeholder") << "" << "City" << "" << "ABCDE";
    QTest::newRow("city placeholder lower case") << "" << "city" << "" << "ABCDE";
    QTest::newRow("city nobody has") << "" << "Geneva" << "" << "";
    QTest::newRow("one day, first and last second") << "" << "" << "2026-05-04 to 2026-05-04" << "AB";
    QTest::newRow("range ends belong to it") << "" << "" << "2026-05-03 to 2026-05-05" << "ABCD";
    QTest::newRow("range ends swapped") << "" << "" << "2026-05-05 to 2026-05-04" << "ABC";
    QTest::newRow("range before every row") << "" << "" << "2026-01-01 to 2026-05-02" << "";
    QTest::newRow("date placeholder") << "" << "" << "Date" << "ABCDE";
    QTest::newRow("unreadable dates") << "" << "" << "yesterday to today" << "ABCDE";
    QTest::newRow("one date only") << "" << "" << "2026-05-04" << "ABCDE";
    QTest::newRow("impossible day") << "" << "" << "2026-02-30 to 2026-05-04" << "ABCDE";
    QTest::newRow("every part") << "quarry" << "Zurich" << "2026-05-04 to 2026-05-04" << "A";
}

void tst_CLmProjMgrController::filter()
{
    QFETCH(QString, name);
    QFETCH(QString, city);
    QFETCH(QString, dates);
    QFETCH(QString, visible);

    Ctl controller;
    controller.AddProject(Info("A", "Quarry North", "2026-05-04 00:00:00"));
    controller.AddProject(Info("B", "Riverside Farm", "2026-05-04 23:59:59"));
    controller.AddProject(Info("C", "Harbour Survey", "2026-05-05 08:00:00"));
    controller.AddProject(Info("D", "quarry south", "2026-05-03 23:59:59"));
    // A row without a readable time shows only while no dates are chosen.
    controller.AddProject(Info("E", "Old Import", "unknown"));
    controller.SetCities("A", {"Zurich"});
    controller.SetCities("B", {"Basel", "Zurich"});
    controller.SetCities("D", {"Bern"});

    CLmProjFilter filter;
    filter.SetName(name);
    filter.SetCity(city);
    filter.SetDateRange(dates);
    controller.SetFilter(filter);
    QString shown;
    for (const QString id : {"A", "B", "C", "D", "E"})
        shown += controller.IsVisible(id) ? id : QString();
    QCOMPARE(shown, visible);
}

void tst_CLmProjMgrController::stateFollowsTheClassification()
{
    Ctl controller;
    QSignalSpy changed(&controller, &Ctl::RowChanged);
    SProjInfor info = Info("P1", "Field", "2026-05-04 08:00:00", "/nowhere/Field/Field.proj");
    controller.AddProject(info);
    info.iSynchState = SynchStateNeedDownload;
    controller.AddDownload(info);
    QCOMPARE(controller.Row("P1").iSynchState, int(SynchStateNeedDownload));
    QCOMPARE(changed.count(), 1);

    // A download brings the project in step and points the row at its file.
    info.iSynchState = SynchStateInStep;
    info.strState = QStringLiteral("Finished");
    info.strUpdateTime = QStringLiteral("2026-05-06 10:00:00");
    controller.FinishDownload(info);
    controller.UpdateProject(info);
    QCOMPARE(controller.Row("P1").iSynchState, int(SynchStateInStep));
    QCOMPARE(controller.Row("P1").strUpdateTime, info.strUpdateTime);

    // Updates of projects the list does not hold add nothing.
    controller.UpdateProject(Info("P2", "Other", "2026-05-04 08:00:00"));
    QVERIFY(!controller.HasRow("P2"));
    QCOMPARE(controller.ProjectCount(), 1);
}

void tst_CLmProjMgrController::refusedStartSendsNothing_data()
{
    QTest::addColumn<bool>("online");
    QTest::addColumn<bool>("several");
    QTest::addColumn<bool>("check");
    QTest::addColumn<int>("start");
    QTest::newRow("one, offline") << false << false << true << int(Ctl::ActionOffline);
    QTest::newRow("checked, offline") << false << true << true << int(Ctl::ActionOffline);
    QTest::newRow("checked, none checked") << true << true << false << int(Ctl::ActionNothingChosen);
}

void tst_CLmProjMgrController::refusedStartSendsNothing()
{
    QFETCH(bool, online);
    QFETCH(bool, several);
    QFETCH(bool, check);
    QFETCH(int, start);
    m_fake->SetReply(RemovePath, 200, Envelope(0));
    Ctl controller;
    const QString kept = AddLocal(controller, "P1", "Kept");
    AddLocal(controller, "P2", "Probe");
    controller.SetChecked("P1", check);

    CLmControl::GetInstance()->SetNetWorkState(online);
    QCOMPARE(int(several ? controller.DeleteChecked() : controller.DeleteProject("P1")), start);

    // A delete that goes ahead afterwards is the only request the cloud sees.
    CLmControl::GetInstance()->SetNetWorkState(true);
    QSignalSpy finished(&controller, &Ctl::DeleteFinished);
    QCOMPARE(controller.DeleteProject("P2"), Ctl::ActionReady);
    QCOMPARE(AwaitOutcome(finished), Ctl::DeleteRemoved);
    QCOMPARE(m_fake->RequestCount(RemovePath) + m_fake->RequestCount(RemoveMultiPath), 1);
    QVERIFY(QFileInfo::exists(kept));
    QVERIFY(controller.HasRow("P1"));
}

void tst_CLmProjMgrController::replyRule_data()
{
    QTest::addColumn<int>("httpStatus");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("outcome");
    QTest::addColumn<QString>("message");
    QTest::newRow("status 0") << 200 << Envelope(0) << int(Ctl::DeleteRemoved) << "";
    QTest::newRow("status 2") << 200 << Envelope(2) << int(Ctl::DeleteRemoved) << "";
    QTest::newRow("status 3") << 200 << Envelope(3, "Project is locked") << int(Ctl::DeleteCloudRefused)
                              << "Project is locked";
    QTest::newRow("refused by http status") << 403 << Envelope(403, "Not your project")
                                            << int(Ctl::DeleteCloudRefused) << "Not your project";
    QTest::newRow("not json") << 200 << QByteArray("<html>gateway</html>") << int(Ctl::DeleteUnreadableReply) << "";
    QTest::newRow("empty") << 200 << QByteArray() << int(Ctl::DeleteUnreadableReply) << "";
    QTest::newRow("no status") << 200 << QByteArray("{\"message\":\"OK\"}") << int(Ctl::DeleteUnreadableReply)
                               << "";
}

void tst_CLmProjMgrController::replyRule()
{
    QFETCH(int, httpStatus);
    QFETCH(QByteArray, body);
    QFETCH(int, outcome);
    QFETCH(QString, message);
    m_fake->SetReply(RemovePath, httpStatus, body);
    Ctl controller;
    const QString file = AddLocal(controller, "P1", "Field");
    QSignalSpy finished(&controller, &Ctl::DeleteFinished);
    QSignalSpy removed(&controller, &Ctl::RowsRemoved);

    QCOMPARE(controller.DeleteProject("P1"), Ctl::ActionReady);
    QCOMPARE(int(AwaitOutcome(finished)), outcome);
    QCOMPARE(finished.first().at(0).value<Ctl::EDeleteKind>(), Ctl::DeleteOne);
    QCOMPARE(finished.first().at(2).toString(), message);
    const bool gone = outcome == Ctl::DeleteRemoved;
    QCOMPARE(QFileInfo::exists(QFileInfo(file).absolutePath()), !gone);
    QCOMPARE(controller.HasRow("P1"), !gone);
    QCOMPARE(removed.count(), gone ? 1 : 0);

    const CFakeProjectCloud::SRequest sent = m_fake->Requests().constLast();
    QCOMPARE(sent.body, QByteArray("id=P1"));
    QCOMPARE(sent.token, Token.toLatin1());
}

void tst_CLmProjMgrController::deleteAgainstTheCloud_data()
{
    QTest::addColumn<bool>("several");
    QTest::addColumn<QStringList>("picks");  // "own:N" or "other:N": a project of pilot one or two
    QTest::addColumn<QString>("held");       // a pick whose database another program holds
    QTest::addColumn<int>("outcome");
    QTest::addColumn<QStringList>("gone");  // picks no longer listed, here or in the cloud

    QTest::newRow("one") << false << QStringList{"own:0"} << "" << int(Ctl::DeleteRemoved)
                         << QStringList{"own:0"};
    QTest::newRow("checked") << true << QStringList{"own:0", "own:2"} << "" << int(Ctl::DeleteRemoved)
                             << QStringList{"own:0", "own:2"};
    QTest::newRow("one, held by another program") << false << QStringList{"own:1"} << "own:1"
                                                  << int(Ctl::DeleteLocalInUse) << QStringList{};
    QTest::newRow("checked, one held") << true << QStringList{"own:0", "own:1"} << "own:0"
                                       << int(Ctl::DeleteLocalInUse) << QStringList{"own:1"};
    QTest::newRow("one of another account") << false << QStringList{"other:0"} << ""
                                            << int(Ctl::DeleteCloudRefused) << QStringList{};
    QTest::newRow("checked with another account's") << true << QStringList{"own:0", "other:1"} << ""
                                                    << int(Ctl::DeleteCloudRefused) << QStringList{};
}

void tst_CLmProjMgrController::deleteAgainstTheCloud()
{
    QFETCH(bool, several);
    QFETCH(QStringList, picks);
    QFETCH(QString, held);
    QFETCH(int, outcome);
    QFETCH(QStringList, gone);

    CSkyCloudProcess cloud;
    QVERIFY(cloud.Start());
    PointCloudAt(cloud.BaseUrl());
    const QByteArray tokenOne = cloud.SignIn("13800000001");
    const QByteArray tokenTwo = cloud.SignIn("13800000002");
    SetSession(QString::fromLatin1(tokenOne), QStringLiteral("1"));
    const auto cloudProjects = [&cloud](const QByteArray& token) {
        QMap<QString, QString> projects;  // id, name
        for (const QJsonValue& value : cloud.Call("/project/list", {}, token).value("data").toArray())
            projects.insert(value["id"].toString(), value["project_name"].toString());
        return projects;
    };
    const QMap<QString, QString> own = cloudProjects(tokenOne);
    const QMap<QString, QString> other = cloudProjects(tokenTwo);
    const auto idOf = [&](const QString& pick) {
        const int index = pick.section(':', 1).toInt();
        return (pick.startsWith("own") ? own.keys() : other.keys()).value(index);
    };

    // Pilot one's computer lists every pick, another account's project too
    // (received, say, and copied in by hand).
    Ctl controller;
    QMap<QString, QString> files;
    for (const QString& pick : picks) {
        const QString id = idOf(pick);
        files.insert(pick, AddLocal(controller, id, own.value(id, other.value(id))));
        controller.SetChecked(id, true);
    }
    CLmDataBase holder(files.value(held));
    if (!held.isEmpty()) {
        QVERIFY(holder.Open());
        QVERIFY(holder.Exec(QStringLiteral("BEGIN IMMEDIATE")));
    }

    QSignalSpy finished(&controller, &Ctl::DeleteFinished);
    QCOMPARE(several ? controller.DeleteChecked() : controller.DeleteProject(idOf(picks.first())),
             Ctl::ActionReady);
    QCOMPARE(int(AwaitOutcome(finished)), outcome);
    QCOMPARE(finished.first().at(0).value<Ctl::EDeleteKind>(), several ? Ctl::DeleteSelected : Ctl::DeleteOne);

    const QMap<QString, QString> ownAfter = cloudProjects(tokenOne);
    for (const QString& pick : picks) {
        const QString id = idOf(pick);
        const bool isGone = gone.contains(pick);
        QVERIFY2(controller.HasRow(id) != isGone, qPrintable(pick));
        QVERIFY2(QFileInfo::exists(QFileInfo(files.value(pick)).absolutePath()) != isGone, qPrintable(pick));
        // A held project is gone from the cloud all the same: the cloud was asked first.
        const bool removedInCloud = isGone || pick == held;
        if (pick.startsWith("own"))
            QVERIFY2(ownAfter.contains(id) != removedInCloud, qPrintable(pick));
    }
    QCOMPARE(cloudProjects(tokenTwo), other);
}

void tst_CLmProjMgrController::transferStates_data()
{
    QTest::addColumn<bool>("upload");
    QTest::addColumn<QString>("outcome");  // the engine's state text
    QTest::addColumn<bool>("fromRow");
    QTest::addColumn<QString>("finishedText");
    QTest::addColumn<int>("rowFailures");
    QTest::newRow("download") << false << "Finished" << false << "Download Finished" << 0;
    QTest::newRow("download fails") << false << "Failed" << false << "Download Failed" << 0;
    QTest::newRow("row download fails") << false << "Failed" << true << "Download Failed" << 1;
    QTest::newRow("row download") << false << "Finished" << true << "Download Finished" << 0;
    QTest::newRow("upload") << true << "Finished" << false << "Uploading Finished" << 0;
    QTest::newRow("upload fails") << true << "Failed" << false << "Upload Failed" << 0;
}

void tst_CLmProjMgrController::transferStates()
{
    QFETCH(bool, upload);
    QFETCH(QString, outcome);
    QFETCH(bool, fromRow);
    QFETCH(QString, finishedText);
    QFETCH(int, rowFailures);
    const Ctl::ETransferList running = upload ? Ctl::UploadingList : Ctl::DownloadingList;
    Ctl controller;
    QSignalSpy rowFailed(&controller, &Ctl::RowDownloadFailed);
    SProjInfor info = Info("P1", "Field", "2026-05-04 08:00:00");
    controller.AddProject(info);
    if (fromRow)
        QCOMPARE(controller.StartRowDownload("P1"), Ctl::ActionReady);

    upload ? controller.AddUpload(info) : controller.AddDownload(info);
    QCOMPARE(controller.Transfer(running, "P1").strState, QStringLiteral("Waiting..."));

    info.strProgress = QStringLiteral("45%");
    upload ? controller.UpdateUpload(info) : controller.UpdateDownload(info);
    const Ctl::STransfer moving = controller.Transfer(running, "P1");
    QCOMPARE(moving.strState, upload ? QStringLiteral("Uploading...") : QStringLiteral("Downloading..."));
    QCOMPARE(moving.strProgress, QStringLiteral("45%"));

    info.strState = outcome;
    upload ? controller.FinishUpload(info) : controller.FinishDownload(info);
    QVERIFY(controller.Transfers(running).isEmpty());
    const Ctl::STransfer done = controller.Transfer(Ctl::FinishedList, "P1");
    QCOMPARE(done.strState, finishedText);
    QCOMPARE(done.bFinished, outcome == QLatin1String("Finished"));
    QCOMPARE(rowFailed.count(), rowFailures);

    // The next list read refills the queues; only entries under way stay.
    controller.AddDownload(Info("P2", "Waiting", "2026-05-04 08:00:00"));
    controller.UpdateUpload(info);
    controller.ForgetWaitingTransfers();
    QVERIFY(controller.Transfers(Ctl::DownloadingList).isEmpty());
    QCOMPARE(controller.Transfers(Ctl::UploadingList).size(), 1);
    QCOMPARE(controller.Transfers(Ctl::FinishedList).size(), 1);
}

void tst_CLmProjMgrController::storageSizeOfTheStore()
{
    Ctl controller;
    AddLocal(controller, "P1", "First");
    AddLocal(controller, "P2", "Second");
    qint64 expected = 0;
    for (const QString folder : {"First", "Second"}) {
        for (const QFileInfo& file : QDir(ProjectRoot() + '/' + folder).entryInfoList(QDir::Files))
            expected += file.size();
    }
    QVERIFY(expected > 0);

    QSignalSpy sized(&controller, &Ctl::StorageSizeReady);
    controller.RefreshStorageSize();
    QTRY_COMPARE(sized.count(), 1);
    QCOMPARE(sized.first().at(0).toLongLong(), expected);
}

QTEST_GUILESS_MAIN(tst_CLmProjMgrController)
#include "tst_CLmProjMgrController.moc"
