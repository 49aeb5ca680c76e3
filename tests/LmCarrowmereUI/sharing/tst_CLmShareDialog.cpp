#include "CCannedHttpPeer.h"
#include "CLmControl.h"
#include "CLmProjectGenerator.h"
#include "CLmSessionStore.h"
#include "CLmShareDialog.h"
#include "CLmShareSender.h"
#include "ModalAnswer.h"
#include "TestSession.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTcpServer>
#include <QTest>
#include <QUrl>
#include <QUrlQuery>

namespace {

constexpr char kOwnAccount[] = "13800000001";
constexpr char kReceiver[] = "13800000002";
constexpr char kToken[] = "share-token-1";

QByteArray ShareReply(const QByteArray& statusLine, int status, const QByteArray& message)
{
    return CCannedHttpPeer::Reply(statusLine, R"({"status":)" + QByteArray::number(status) + R"(,"message":")"
                                                  + message + R"(","data":{}})");
}

// A loopback address where nobody listens.
QByteArray ClosedPortUrl()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost, 0);
    return "http://127.0.0.1:" + QByteArray::number(server.serverPort());
}

QByteArray RequestBody(const QByteArray& request)
{
    return request.mid(request.indexOf("\r\n\r\n") + 4);
}

QString FormValue(const QByteArray& body, const QString& name)
{
    return QUrlQuery(QString::fromUtf8(body)).queryItemValue(name, QUrl::FullyDecoded);
}

// A project of user 1 whose first `flown` missions have flight-log rows the
// cloud has not had yet.
CLmProjectGenerator::SOptions Missions(int flown)
{
    CLmProjectGenerator::SOptions options;
    options.strProjID = CLmProjectGenerator::NewProjectID();
    options.strProjName = QStringLiteral("Dam survey");
    options.strUserID = QStringLiteral("1");
    options.updatedAt = QDateTime::currentDateTimeUtc();
    options.iMissions = 3;
    options.iFlownMissions = flown;
    options.iLogRowsPerFlight = 4;
    return options;
}

}  // namespace

class tst_CLmShareDialog : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void refusesReceiverWithoutSending_data();
    void refusesReceiverWithoutSending();
    void sharePostsIdsReceiverAndMessage();
    void remembersReceiverAndOffersItNextTime();
    void unsharedProjectKeepsDialogOpen_data();
    void unsharedProjectKeepsDialogOpen();
    void okWaitsForTheRunningShare();
    void flightLogsUploadBeforeTheShare_data();
    void flightLogsUploadBeforeTheShare();

private:
    void Fill(CLmShareDialog& dialog, const QString& receiver, const QString& message = QString(),
              bool withFlightLog = false);
    QPushButton* AcceptButton(const CLmShareDialog& dialog);
    // Presses OK and answers the message box it leads to; returns the box's texts.
    QString AcceptAndAnswerBox(CLmShareDialog& dialog);
    void ShareWith(const QString& receiver);
};

void tst_CLmShareDialog::init()
{
    QSettings(QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)).clear();
    SLmUserInfo user;
    user.strToken = QLatin1String(kToken);
    user.strUserID = QStringLiteral("1");
    user.strAccount = QLatin1String(kOwnAccount);
    CLmSessionStore().SaveSignIn(user, QString());
    CLmControl::GetInstance()->SetNetWorkState(true);
}

void tst_CLmShareDialog::Fill(CLmShareDialog& dialog, const QString& receiver, const QString& message,
                              bool withFlightLog)
{
    dialog.findChild<QComboBox*>(QStringLiteral("m_pComboReceiver"))->setEditText(receiver);
    dialog.findChild<QPlainTextEdit*>(QStringLiteral("m_pEditMessage"))->setPlainText(message);
    dialog.findChild<QCheckBox*>(QStringLiteral("m_pCheckShareFlightLog"))->setChecked(withFlightLog);
}

QPushButton* tst_CLmShareDialog::AcceptButton(const CLmShareDialog& dialog)
{
    return dialog.findChild<QPushButton*>(QStringLiteral("m_pBtnAccept"));
}

QString tst_CLmShareDialog::AcceptAndAnswerBox(CLmShareDialog& dialog)
{
    QString seen;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &seen, 10000, "CLmMessageBox", &dialog);
    AcceptButton(dialog)->click();
    [&] { QTRY_VERIFY_WITH_TIMEOUT(!seen.isEmpty(), 10000); }();
    return seen;
}

void tst_CLmShareDialog::ShareWith(const QString& receiver)
{
    CCannedHttpPeer peer(ShareReply("200 OK", 0, "Shared"));
    TestSession::PointCloudAt(peer.BaseUrl());
    CLmShareDialog dialog({QStringLiteral("p-1")}, {QStringLiteral("Dam survey")}, {QString()});
    dialog.show();
    Fill(dialog, receiver);
    AcceptAndAnswerBox(dialog);
    QTRY_VERIFY(!dialog.isVisible());
}

void tst_CLmShareDialog::refusesReceiverWithoutSending_data()
{
    QTest::addColumn<QString>("receiver");
    QTest::addColumn<QString>("expected");
    QTest::newRow("empty") << QString() << QStringLiteral("Share account cannot be empty");
    QTest::newRow("only blanks") << QStringLiteral("   ") << QStringLiteral("Share account cannot be empty");
    QTest::newRow("own account") << QString::fromLatin1(kOwnAccount) << QStringLiteral("Can not share to their own");
    QTest::newRow("own account typed with a blank")
        << QLatin1String(kOwnAccount) + QLatin1Char(' ') << QStringLiteral("Can not share to their own");
}

void tst_CLmShareDialog::refusesReceiverWithoutSending()
{
    QFETCH(QString, receiver);
    QFETCH(QString, expected);
    CCannedHttpPeer peer(ShareReply("200 OK", 0, "Shared"));
    TestSession::PointCloudAt(peer.BaseUrl());
    CLmShareDialog dialog({QStringLiteral("p-1")}, {QStringLiteral("Dam survey")}, {QString()});
    dialog.show();
    Fill(dialog, receiver);

    const QStringList shown = AcceptAndAnswerBox(dialog).split(QLatin1Char('\n'));

    QVERIFY2(shown.contains(expected), qPrintable(shown.join(QLatin1Char('|'))));
    QVERIFY(shown.contains(QStringLiteral("Share")));
    QVERIFY(dialog.isVisible());
    QVERIFY(AcceptButton(dialog)->isEnabled());
    QCOMPARE(peer.RequestCount(), 0);
    QVERIFY(CLmSessionStore().SharedAccounts().isEmpty());
}

void tst_CLmShareDialog::sharePostsIdsReceiverAndMessage()
{
    CCannedHttpPeer peer(ShareReply("200 OK", 0, "Project shared with 13800000002"));
    TestSession::PointCloudAt(peer.BaseUrl());
    const QString message = QStringLiteral("Dam & quarry = 100% done, grüße\nsee you");
    CLmShareDialog dialog({QStringLiteral("p-1"), QStringLiteral("p-2")},
                          {QStringLiteral("Dam survey"), QStringLiteral("Quarry")}, {QString(), QString()});
    dialog.show();
    Fill(dialog, QLatin1String(kReceiver), message);

    const QString shown = AcceptAndAnswerBox(dialog);

    QVERIFY(shown.contains(QStringLiteral("Project shared with 13800000002")));
    QTRY_VERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(peer.RequestCount(), 1);
    const QByteArray request = peer.LastRequest();
    QVERIFY2(request.startsWith("POST /share/share "), request.constData());
    QVERIFY(request.contains("\r\ntoken: " + QByteArray(kToken) + "\r\n"));
    const QByteArray body = RequestBody(request);
    QCOMPARE(FormValue(body, QStringLiteral("id")), QStringLiteral("p-1,p-2"));
    QCOMPARE(FormValue(body, QStringLiteral("phone")), QLatin1String(kReceiver));
    QCOMPARE(FormValue(body, QStringLiteral("message")), message);
    QVERIFY(body.contains("&message=" + QUrl::toPercentEncoding(message)));
}

void tst_CLmShareDialog::remembersReceiverAndOffersItNextTime()
{
    QSettings(QLatin1String(OrganizationName), QLatin1String(CloundApplicationName))
        .setValue(QStringLiteral("UserInfo/SharedAccounts"), QStringLiteral(",13800000003,,"));

    ShareWith(QLatin1String(kReceiver));
    ShareWith(QLatin1String(kReceiver));

    CLmShareDialog next({QStringLiteral("p-1")}, {QStringLiteral("Dam survey")}, {QString()});
    auto* receivers = next.findChild<QComboBox*>(QStringLiteral("m_pComboReceiver"));
    QCOMPARE(receivers->count(), 2);
    QCOMPARE(receivers->itemText(0), QStringLiteral("13800000003"));
    QCOMPARE(receivers->itemText(1), QLatin1String(kReceiver));
    QVERIFY2(receivers->currentText().isEmpty(), "nobody is preselected");
    QCOMPARE(CLmSessionStore().SharedAccounts(),
             (QStringList{QStringLiteral("13800000003"), QLatin1String(kReceiver)}));
}

void tst_CLmShareDialog::unsharedProjectKeepsDialogOpen_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("expected");
    QTest::newRow("refused in the envelope") << ShareReply("200 OK", 3, "The account 13800000002 does not exist")
                                             << "The account 13800000002 does not exist";
    QTest::newRow("refused over HTTP") << ShareReply("400 Bad Request", 400, "The project is not yours")
                                       << "The project is not yours";
    QTest::newRow("no connection") << QByteArray() << "Network fault";
}

void tst_CLmShareDialog::unsharedProjectKeepsDialogOpen()
{
    QFETCH(QByteArray, answer);
    QFETCH(QString, expected);
    CCannedHttpPeer peer(answer);
    TestSession::PointCloudAt(answer.isEmpty() ? ClosedPortUrl() : peer.BaseUrl());
    CLmShareDialog dialog({QStringLiteral("p-1")}, {QStringLiteral("Dam survey")}, {QString()});
    dialog.show();
    Fill(dialog, QLatin1String(kReceiver));

    const QString shown = AcceptAndAnswerBox(dialog);

    QVERIFY2(shown.contains(expected), qPrintable(shown));
    QVERIFY(dialog.isVisible());
    QVERIFY2(AcceptButton(dialog)->isEnabled(), "the receiver can be corrected and shared again");
}

void tst_CLmShareDialog::okWaitsForTheRunningShare()
{
    CCannedHttpPeer silent({}, false);
    TestSession::PointCloudAt(silent.BaseUrl());
    CLmShareDialog dialog({QStringLiteral("p-1")}, {QStringLiteral("Dam survey")}, {QString()});
    dialog.show();
    Fill(dialog, QLatin1String(kReceiver));

    QPushButton* accept = AcceptButton(dialog);
    accept->click();
    accept->click();

    QTRY_COMPARE(silent.RequestCount(), 1);
    QVERIFY(!accept->isEnabled());
}

void tst_CLmShareDialog::flightLogsUploadBeforeTheShare_data()
{
    QTest::addColumn<int>("flownMissions");
    QTest::addColumn<bool>("localProject");
    QTest::addColumn<QStringList>("events");
    QTest::newRow("no flight log rows pending")
        << 0 << true << QStringList{QStringLiteral("uploaded"), QStringLiteral("request")};
    // The stand-in cloud refuses the flight data, which ends the upload.
    QTest::newRow("flight log rows pending")
        << 2 << true << QStringList{QStringLiteral("request"), QStringLiteral("uploaded"), QStringLiteral("request")};
    QTest::newRow("project only in the cloud") << 0 << false << QStringList{QStringLiteral("request")};
}

void tst_CLmShareDialog::flightLogsUploadBeforeTheShare()
{
    QFETCH(int, flownMissions);
    QFETCH(bool, localProject);
    QFETCH(QStringList, events);
    CCannedHttpPeer peer(ShareReply("200 OK", 0, "Shared"));
    TestSession::PointCloudAt(peer.BaseUrl());
    const QString dataDir = CLmControl::GetInstance()->GetAppDataDirectory();
    QDir(dataDir).removeRecursively();
    // Flights of the user's other missions are no part of this share.
    QVERIFY(QDir().mkpath(dataDir + QStringLiteral("/Project/1/Vireo_AirLine")));
    QVERIFY(CLmProjectGenerator::WriteMissionDatabase(dataDir + QStringLiteral("/Project/1/Vireo_AirLine/other.db"),
                                                      Missions(2)));
    QString projectFile;
    if (localProject) {
        projectFile = CLmProjectGenerator::WriteProject(CLmControl::GetInstance()->GetProjectDirPath()
                                                            + QStringLiteral("/Dam"),
                                                        Missions(flownMissions));
        QVERIFY(!projectFile.isEmpty());
    }

    CLmShareDialog dialog({QStringLiteral("p-1")}, {QStringLiteral("Dam survey")}, {projectFile});
    QStringList seen;
    connect(&peer, &QTcpServer::newConnection, &dialog, [&seen] { seen << QStringLiteral("request"); });
    connect(dialog.findChild<CLmShareSender*>(), &CLmShareSender::FlightLogUploaded, &dialog,
            [&seen] { seen << QStringLiteral("uploaded"); });
    dialog.show();
    Fill(dialog, QLatin1String(kReceiver), QString(), true);
    AcceptAndAnswerBox(dialog);

    QTRY_VERIFY(!dialog.isVisible());
    QCOMPARE(seen, events);
    QVERIFY2(peer.LastRequest().startsWith("POST /share/share "), peer.LastRequest().left(40).constData());
    if (localProject) {
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("m_pLabelStatus"))->text(),
                 QStringLiteral("Upload flight log Complete."));
    }
}

QTEST_MAIN(tst_CLmShareDialog)
#include "tst_CLmShareDialog.moc"
