#include "CLmCarrowmereProjMgrObj.h"
#include "CLmControl.h"
#include "CSkyCloudProcess.h"
#include "ProjectTestHelpers.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

using namespace ProjectTestHelpers;

namespace {

const QString RoundTripId = QStringLiteral("5d0c6a8e-2f0b-4d7e-9a51-2b7d3c1e9f00");

// The engine as the project page runs it: in its own thread, reached only
// through queued signals.
class CEngineHost : public QObject
{
    Q_OBJECT
public:
    CEngineHost()
    {
        m_pEngine = new CLmCarrowmereProjMgrObj;
        m_pEngine->moveToThread(&m_thread);
        connect(&m_thread, &QThread::finished, m_pEngine, &QObject::deleteLater);
        connect(this, &CEngineHost::ReadAllProject, m_pEngine, &CLmCarrowmereProjMgrObj::slotReadAllPrject,
                Qt::QueuedConnection);
        connect(this, &CEngineHost::SynchAllProj, m_pEngine, &CLmCarrowmereProjMgrObj::slotSynchAllProject,
                Qt::QueuedConnection);
        m_thread.start(QThread::InheritPriority);
    }
    ~CEngineHost() override
    {
        m_thread.quit();
        m_thread.wait();
    }
    CLmCarrowmereProjMgrObj* Engine() const { return m_pEngine; }

Q_SIGNALS:
    void ReadAllProject();
    void SynchAllProj();

private:
    QThread m_thread;
    CLmCarrowmereProjMgrObj* m_pEngine;
};

bool HasMessage(const QSignalSpy& spy, ESynchProMsgType type)
{
    for (const QList<QVariant>& args : spy) {
        if (args.at(0).value<ESynchProMsgType>() == type)
            return true;
    }
    return false;
}

QList<SProjInfor> ForProject(const QSignalSpy& spy, const QString& id)
{
    QList<SProjInfor> infos;
    for (const QList<QVariant>& args : spy) {
        const SProjInfor info = args.at(0).value<SProjInfor>();
        if (info.strProjID == id)
            infos.append(info);
    }
    return infos;
}

}  // namespace

class tst_ProjectSynchRoundTrip : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void twoComputersTwoAccounts();

private:
    QByteArray Login(const QByteArray& phone, QString* userId);
    void UseComputer(const QTemporaryDir& home);
    // Reads the list, then synchronises; returns when the list reply of the
    // synchronisation has been classified.
    void Synchronise(CEngineHost& host);

    CSkyCloudProcess m_cloud;
};

void tst_ProjectSynchRoundTrip::initTestCase()
{
    QVERIFY(m_cloud.Start());
    PointCloudAt(m_cloud.BaseUrl());
    CLmControl::GetInstance()->SetNetWorkState(true);
}

QByteArray tst_ProjectSynchRoundTrip::Login(const QByteArray& phone, QString* userId)
{
    const QJsonObject reply = m_cloud.Call("/user/login", "phone=" + phone + "&password=skyconsole&device_id=");
    const QJsonObject data = reply.value(QStringLiteral("data")).toObject();
    *userId = QString::number(data.value(QStringLiteral("id")).toInt());
    return data.value(QStringLiteral("token")).toString().toUtf8();
}

void tst_ProjectSynchRoundTrip::UseComputer(const QTemporaryDir& home)
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.path()));
}

void tst_ProjectSynchRoundTrip::Synchronise(CEngineHost& host)
{
    QSignalSpy messages(host.Engine(), &CLmCarrowmereProjMgrObj::SynchProjMsg);
    Q_EMIT host.ReadAllProject();
    QTRY_VERIFY(HasMessage(messages, SynchProMsgListFinished));
    messages.clear();
    Q_EMIT host.SynchAllProj();
    QTRY_VERIFY(HasMessage(messages, SynchProMsgListFinished));
}

void tst_ProjectSynchRoundTrip::twoComputersTwoAccounts()
{
    QString pilotOne;
    QString pilotTwo;
    const QByteArray tokenOne = Login("13800000001", &pilotOne);
    const QByteArray tokenTwo = Login("13800000002", &pilotTwo);
    QVERIFY(!tokenOne.isEmpty() && !tokenTwo.isEmpty());
    QTemporaryDir computerA;
    QTemporaryDir computerB;

    // Computer A: a new local project goes up.
    UseComputer(computerA);
    SetSession(QString::fromUtf8(tokenOne), pilotOne);
    const QString fileA =
        WriteLocal(Project(RoundTripId, QStringLiteral("Round Trip"), QStringLiteral("2026-05-04 08:00:00"), pilotOne));
    QVERIFY(!fileA.isEmpty());
    {
        CEngineHost host;
        QSignalSpy uploaded(host.Engine(), &CLmCarrowmereProjMgrObj::ProjectUploadFinished);
        Synchronise(host);
        QTRY_COMPARE(ForProject(uploaded, RoundTripId).size(), 1);
        QCOMPARE(ForProject(uploaded, RoundTripId).first().strState, QStringLiteral("Finished"));
    }
    QCOMPARE(VersionOf(fileA), qint64(1));

    // Computer B, same account: cloud only, then downloaded into its own folder.
    UseComputer(computerB);
    {
        CEngineHost host;
        QSignalSpy needDownload(host.Engine(), &CLmCarrowmereProjMgrObj::NeedDownloadInfo);
        QSignalSpy downloaded(host.Engine(), &CLmCarrowmereProjMgrObj::ProjectDownloadFinished);
        Synchronise(host);
        QCOMPARE(ForProject(needDownload, RoundTripId).first().iSynchState, int(SynchStateCloudOnly));
        QTRY_COMPARE(ForProject(downloaded, RoundTripId).size(), 1);
        QCOMPARE(ForProject(downloaded, RoundTripId).first().strState, QStringLiteral("Finished"));
    }
    const QString fileB = ProjectRoot() + QStringLiteral("/Round Trip/Round Trip.proj");
    QVERIFY(fileB.startsWith(computerB.path()));
    QVERIFY(QFileInfo::exists(fileB));
    QCOMPARE(VersionOf(fileB), qint64(1));

    // Both computers now report the project in step and transfer nothing.
    for (const QTemporaryDir* computer : {&computerA, &computerB}) {
        UseComputer(*computer);
        CEngineHost host;
        QSignalSpy updates(host.Engine(), &CLmCarrowmereProjMgrObj::UpdateProjInfo);
        QSignalSpy uploads(host.Engine(), &CLmCarrowmereProjMgrObj::NeedUploadInfo);
        QSignalSpy downloads(host.Engine(), &CLmCarrowmereProjMgrObj::NeedDownloadInfo);
        QSignalSpy messages(host.Engine(), &CLmCarrowmereProjMgrObj::SynchProjMsg);
        Q_EMIT host.ReadAllProject();
        QTRY_VERIFY(HasMessage(messages, SynchProMsgListFinished));
        QCOMPARE(ForProject(updates, RoundTripId).size(), 1);
        QCOMPARE(ForProject(updates, RoundTripId).first().iSynchState, int(SynchStateInStep));
        QVERIFY(ForProject(uploads, RoundTripId).isEmpty());
        QVERIFY(ForProject(downloads, RoundTripId).isEmpty());
    }

    // The second account neither sees nor fetches the first one's project.
    const QJsonArray listTwo = m_cloud.Call("/project/list", {}, tokenTwo).value(QStringLiteral("data")).toArray();
    for (const QJsonValue& project : listTwo)
        QVERIFY(project.toObject().value(QStringLiteral("id")).toString() != RoundTripId);
    int httpStatus = 0;
    m_cloud.Call("/project/downloadfile", "id=" + RoundTripId.toUtf8(), tokenTwo, &httpStatus);
    QCOMPARE(httpStatus, 403);
}

QTEST_GUILESS_MAIN(tst_ProjectSynchRoundTrip)
#include "tst_ProjectSynchRoundTrip.moc"
