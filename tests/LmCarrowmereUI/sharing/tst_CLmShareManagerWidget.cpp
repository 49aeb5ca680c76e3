#include "CCannedHttpPeer.h"
#include "CLmControl.h"
#include "CLmShareManagerWidget.h"
#include "ModalAnswer.h"
#include "TestSession.h"

#include <QDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>
#include <QUrl>
#include <QUrlQuery>

namespace {

constexpr qint64 ShareId = 41;

QJsonObject Record(qint64 id, const QString& kind, int saveAs, int status = 0)
{
    return QJsonObject{{"id", id},
                       {"kind", kind},
                       {"project_id", "p-shared"},
                       {"project_name", "Quarry North"},
                       {"nickname", "Demo Pilot One"},
                       {"share_from_user_id", 1},
                       {"updated_at", "2026-05-04 08:00:00"},
                       {"status", status},
                       {"save_as", saveAs},
                       {"messages", QJsonArray{QJsonObject{{"user_id", 1}, {"info", "Please check the north block"}}}}};
}

QByteArray ListReply(const QJsonArray& received, const QJsonArray& sent = {})
{
    const QJsonObject envelope{{"status", 0},
                               {"message", "OK"},
                               {"data", QJsonObject{{"received", received}, {"sent", sent}}}};
    return QJsonDocument(envelope).toJson(QJsonDocument::Compact);
}

QByteArray Answer(const QByteArray& body)
{
    return CCannedHttpPeer::Reply("200 OK", body);
}

QString FormValue(const QByteArray& request, const QString& name)
{
    const QByteArray body = request.mid(request.indexOf("\r\n\r\n") + 4);
    return QUrlQuery(QString::fromUtf8(body)).queryItemValue(name, QUrl::FullyDecoded);
}

QByteArray RequestPath(const QByteArray& request)
{
    return request.split(' ').value(1);
}

void PressOkOf(QWidget* dialog)
{
    QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("m_pBtnOk")), Qt::LeftButton);
}

}  // namespace

// The share manager page against a canned cloud: what each action asks the
// user and what it sends.
class tst_CLmShareManagerWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void acceptSendsTheChosenBody_data();
    void acceptSendsTheChosenBody();
    void acceptReplyIsReadUnderState_data();
    void acceptReplyIsReadUnderState();
    void deleteAsksByRowKind_data();
    void deleteAsksByRowKind();
    void deleteCheckedRows_data();
    void deleteCheckedRows();
    void unreadableListKeepsTheRows();
    void offlineActionSaysNetworkFault();

private:
    // A page showing rows, whose requests go to peer.
    std::unique_ptr<CLmShareManagerWidget> Page(CCannedHttpPeer& peer, const QByteArray& listReply);
    QModelIndex RowIndex(CLmShareManagerWidget& page, int row) const;
    // Posts a list request and waits until the peer has it: a request an
    // action wrongly sent before it would have been counted by then.
    void FlushRequests(CLmShareManagerWidget& page, CCannedHttpPeer& peer);
};

void tst_CLmShareManagerWidget::init()
{
    TestSession::SetSession(QStringLiteral("share-token"), QStringLiteral("2"));
    CLmControl::GetInstance()->SetNetWorkState(true);
}

std::unique_ptr<CLmShareManagerWidget> tst_CLmShareManagerWidget::Page(CCannedHttpPeer& peer,
                                                                        const QByteArray& listReply)
{
    TestSession::PointCloudAt(peer.BaseUrl());
    auto page = std::make_unique<CLmShareManagerWidget>();
    page->resize(1100, 500);
    page->slotRequestReceiveShareProjectList(listReply);
    return page;
}

QModelIndex tst_CLmShareManagerWidget::RowIndex(CLmShareManagerWidget& page, int row) const
{
    auto* tree = page.findChild<QTreeWidget*>(QStringLiteral("m_pTreeShare"));
    return tree->model()->index(row, 0);
}

void tst_CLmShareManagerWidget::FlushRequests(CLmShareManagerWidget& page, CCannedHttpPeer& peer)
{
    page.RequestList();
    QTRY_VERIFY(peer.LastRequest().contains("/share/list"));
}

void tst_CLmShareManagerWidget::acceptSendsTheChosenBody_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("saveAs");
    QTest::addColumn<QString>("question");  // button of the "already exists" question; "close" closes it
    QTest::addColumn<QString>("name");      // typed into the name dialog; null cancels it
    QTest::addColumn<QString>("refusal");   // message box text; empty when none
    QTest::addColumn<QByteArray>("path");   // empty when nothing is sent
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("sentName");

    const QString forbidden =
        QStringLiteral("File name cannot contain any of the following characters:\\,/,:,*,?,\",<,>,|");
    QTest::newRow("new name") << "share" << 0 << "" << QString() << "" << QByteArray("/share/accept") << "0" << "";
    QTest::newRow("replace") << "share" << 1 << "m_pBtnReplace" << QString() << "" << QByteArray("/share/accept")
                             << "1" << "";
    QTest::newRow("save as a good name") << "share" << 1 << "m_pBtnSaveAs" << "North block & co" << ""
                                         << QByteArray("/share/accept") << "2" << "North block & co";
    QTest::newRow("save as an empty name") << "share" << 1 << "m_pBtnSaveAs" << "   "
                                           << "Project name cannot be empty" << QByteArray() << "" << "";
    QTest::newRow("save as a path") << "share" << 1 << "m_pBtnSaveAs" << "../outside" << forbidden << QByteArray()
                                    << "" << "";
    QTest::newRow("save as the parent") << "share" << 1 << "m_pBtnSaveAs" << ".." << forbidden << QByteArray() << ""
                                        << "";
    QTest::newRow("save as a forbidden character") << "share" << 1 << "m_pBtnSaveAs" << "North:block" << forbidden
                                                   << QByteArray() << "" << "";
    QTest::newRow("name dialog cancelled") << "share" << 1 << "m_pBtnSaveAs" << QString() << "" << QByteArray() << ""
                                           << "";
    QTest::newRow("question closed") << "share" << 1 << "close" << QString() << "" << QByteArray() << "" << "";
    QTest::newRow("task") << "task" << 0 << "" << QString() << "" << QByteArray("/task/acceptAssign") << "0" << "";
    QTest::newRow("task replacing") << "task" << 1 << "m_pBtnReplace" << QString() << ""
                                    << QByteArray("/task/acceptAssign") << "1" << "";
}

void tst_CLmShareManagerWidget::acceptSendsTheChosenBody()
{
    QFETCH(QString, kind);
    QFETCH(int, saveAs);
    QFETCH(QString, question);
    QFETCH(QString, name);
    QFETCH(QString, refusal);
    QFETCH(QByteArray, path);
    QFETCH(QString, type);
    QFETCH(QString, sentName);

    CCannedHttpPeer peer({}, false);
    auto page = Page(peer, ListReply({Record(ShareId, kind, saveAs)}));
    if (question == QLatin1String("close"))
        ModalAnswer::RunWhenShown("CLmProjectExistsDialog", [](QWidget* w) { static_cast<QDialog*>(w)->reject(); });
    else if (!question.isEmpty())
        ModalAnswer::PressWhenShown(question, nullptr, 5000, "CLmProjectExistsDialog");
    if (!name.isNull()) {
        ModalAnswer::RunWhenShown("CLmShareNameDialog", [name](QWidget* w) {
            w->findChild<QLineEdit*>(QStringLiteral("m_pEditName"))->setText(name);
            PressOkOf(w);
        });
    } else if (question == QLatin1String("m_pBtnSaveAs")) {
        ModalAnswer::RunWhenShown("CLmShareNameDialog", [](QWidget* w) { static_cast<QDialog*>(w)->reject(); });
    }
    QString seen;
    if (!refusal.isEmpty())
        ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &seen, 5000, "CLmMessageBox");

    page->slotAcceptBtnClicked(RowIndex(*page, 0));

    if (!refusal.isEmpty())
        QTRY_VERIFY2(seen.startsWith(refusal + QLatin1Char('\n')), qPrintable(seen));
    if (path.isEmpty()) {
        FlushRequests(*page, peer);
        QCOMPARE(peer.RequestCount(), 1);
        return;
    }
    QTRY_VERIFY(!FormValue(peer.LastRequest(), "type").isEmpty());
    QCOMPARE(RequestPath(peer.LastRequest()), path);
    QCOMPARE(FormValue(peer.LastRequest(), "id"), QString::number(ShareId));
    QCOMPARE(FormValue(peer.LastRequest(), "type"), type);
    QCOMPARE(FormValue(peer.LastRequest(), "name"), sentName);
}

void tst_CLmShareManagerWidget::acceptReplyIsReadUnderState_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("downloadId");  // empty: no download asked for
    QTest::addColumn<QString>("downloadName");
    QTest::addColumn<QString>("message");

    QTest::newRow("accepted, whatever status says")
        << QByteArray(R"({"state":0,"status":1,"message":"Accept success","data":{"id":"p-copy","name":"Copy"}})")
        << "p-copy" << "Copy" << "";
    QTest::newRow("accepted without a name")
        << QByteArray(R"({"state":0,"message":"Accept success","data":{"id":"p-copy"}})") << "p-copy"
        << "Quarry North" << "";
    QTest::newRow("refused under state, status says done")
        << QByteArray(R"({"state":404,"status":0,"message":"The shared project no longer exists","data":{}})")
        << "" << "" << "The shared project no longer exists";
    QTest::newRow("no state") << QByteArray(R"({"status":0,"message":"Odd","data":{}})") << "" << "" << "Odd";
    QTest::newRow("not JSON") << QByteArray("<html>busy</html>") << "" << ""
                              << "The cloud's answer could not be read.";
}

void tst_CLmShareManagerWidget::acceptReplyIsReadUnderState()
{
    QFETCH(QByteArray, reply);
    QFETCH(QString, downloadId);
    QFETCH(QString, downloadName);
    QFETCH(QString, message);

    CCannedHttpPeer peer(Answer(reply));
    auto page = Page(peer, ListReply({Record(ShareId, "share", 0)}));
    QSignalSpy download(page.get(), &CLmShareManagerWidget::signalDownloadProjectFile);
    QString seen;
    if (!message.isEmpty())
        ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &seen, 5000, "CLmMessageBox");

    page->slotAcceptBtnClicked(RowIndex(*page, 0));

    if (!message.isEmpty()) {
        QTRY_VERIFY2(seen.startsWith(message + QLatin1Char('\n')), qPrintable(seen));
        QCOMPARE(download.count(), 0);
        return;
    }
    QTRY_COMPARE(download.count(), 1);
    QCOMPARE(download.at(0).at(0).toString(), downloadId);
    QCOMPARE(download.at(0).at(1).toString(), downloadName);
}

void tst_CLmShareManagerWidget::deleteAsksByRowKind_data()
{
    QTest::addColumn<bool>("sent");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("question");

    QTest::newRow("received share") << false << "share"
                                    << "Are you sure to delete project Quarry North shared by Demo Pilot One?\n"
                                       "(delete this sharing record and reject the project)";
    QTest::newRow("received task") << false << "task" << "Are you sure to delete the project Quarry North sharing record?";
    QTest::newRow("sent share") << true << "share"
                                << "Are you sure to cancel of sharing project Quarry North?\n"
                                   "The recipient will not receive the project after deletion";
}

void tst_CLmShareManagerWidget::deleteAsksByRowKind()
{
    QFETCH(bool, sent);
    QFETCH(QString, kind);
    QFETCH(QString, question);

    CCannedHttpPeer peer({}, false);
    const QJsonArray rows{Record(ShareId, kind, 0)};
    auto page = Page(peer, sent ? ListReply({}, rows) : ListReply(rows));
    if (sent)
        page->findChild<QPushButton*>(QStringLiteral("m_pBtnSent"))->click();
    QString seen;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnCancel"), &seen, 5000, "CLmMessageBox");
    page->slotDeleteBtnClicked(RowIndex(*page, 0));
    QVERIFY2(seen.startsWith(question + QLatin1Char('\n')), qPrintable(seen));
    FlushRequests(*page, peer);
    QCOMPARE(peer.RequestCount(), 1);

    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), nullptr, 5000, "CLmMessageBox");
    page->slotDeleteBtnClicked(RowIndex(*page, 0));
    QTRY_COMPARE(RequestPath(peer.LastRequest()), QByteArray("/share/delete"));
    QTRY_COMPARE(FormValue(peer.LastRequest(), "id"), QString::number(ShareId));
}

void tst_CLmShareManagerWidget::deleteCheckedRows_data()
{
    QTest::addColumn<QList<int>>("checked");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("ids");

    QTest::newRow("nothing checked") << QList<int>{} << "Please select an item at least to delete." << "";
    QTest::newRow("two of three") << QList<int>{0, 2} << "Are you sure to delete these selected item(s)?" << "41,43";
}

void tst_CLmShareManagerWidget::deleteCheckedRows()
{
    QFETCH(QList<int>, checked);
    QFETCH(QString, message);
    QFETCH(QString, ids);

    CCannedHttpPeer peer({}, false);
    auto page = Page(peer, ListReply({Record(41, "share", 0), Record(42, "task", 0), Record(43, "share", 0, 2)}));
    auto* tree = page->findChild<QTreeWidget*>(QStringLiteral("m_pTreeShare"));
    for (int row : checked)
        tree->topLevelItem(row)->setCheckState(0, Qt::Checked);
    QString seen;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &seen, 5000, "CLmMessageBox");
    page->findChild<QPushButton*>(QStringLiteral("m_pBtnDeleteShare"))->click();
    QVERIFY2(seen.startsWith(message + QLatin1Char('\n')), qPrintable(seen));
    if (ids.isEmpty()) {
        FlushRequests(*page, peer);
        QCOMPARE(peer.RequestCount(), 1);
        return;
    }
    QTRY_COMPARE(FormValue(peer.LastRequest(), "id"), ids);
    QCOMPARE(RequestPath(peer.LastRequest()), QByteArray("/share/delete"));
}

void tst_CLmShareManagerWidget::unreadableListKeepsTheRows()
{
    CCannedHttpPeer peer({}, false);
    auto page = Page(peer, ListReply({Record(41, "share", 0), Record(42, "task", 0)}));
    auto* tree = page->findChild<QTreeWidget*>(QStringLiteral("m_pTreeShare"));
    QCOMPARE(tree->topLevelItemCount(), 2);
    for (const QByteArray& reply : {QByteArray("not json"), QByteArray(R"({"status":0,"data":[]})"),
                                    QByteArray(R"({"status":401,"message":"Invalid token","data":{}})")}) {
        page->slotRequestReceiveShareProjectList(reply);
        QCOMPARE(tree->topLevelItemCount(), 2);
        QVERIFY(page->findChild<QLabel*>(QStringLiteral("m_pLabelShareStatus"))->text().contains("could not be read"));
    }
}

void tst_CLmShareManagerWidget::offlineActionSaysNetworkFault()
{
    CCannedHttpPeer peer({}, false);
    auto page = Page(peer, ListReply({Record(ShareId, "share", 0)}));
    CLmControl::GetInstance()->SetNetWorkState(false);
    QString seen;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &seen, 5000, "CLmMessageBox");
    page->slotAcceptBtnClicked(RowIndex(*page, 0));
    QVERIFY2(seen.startsWith("Network fault\n"), qPrintable(seen));
    QCOMPARE(peer.RequestCount(), 0);
}

QTEST_MAIN(tst_CLmShareManagerWidget)
#include "tst_CLmShareManagerWidget.moc"
