#include "CLmCarrowmereMainWindow.h"
#include "CLmControl.h"
#include "CLmLinkProvide.h"
#include "CLmTipPushButton.h"
#include "ModalAnswer.h"

#include <QDir>
#include <QPointer>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>

namespace {

void Touch(const QString& path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot create %s", qPrintable(path));
}

}  // namespace

class tst_CLmCarrowmereMainWindow : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void countsMissionDatabases_data();
    void countsMissionDatabases();
    void pushNotifications_data();
    void pushNotifications();
    void liftCheckAsksTheUser();
    void systemMessageClickNeedsText();
    void exitAsksForConfirmation_data();
    void exitAsksForConfirmation();

private:
    void Push(const QByteArray& text);
    template <typename T>
    T* Child(const char* name) const
    {
        return m_pWindow->findChild<T*>(QLatin1String(name));
    }

    QPointer<CLmCarrowmereMainWindow> m_pWindow;
};

void tst_CLmCarrowmereMainWindow::init()
{
    QDir(CLmControl::GetInstance()->GetAppDataDirectory()).removeRecursively();
    m_pWindow = new CLmCarrowmereMainWindow(nullptr);
    m_pWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pWindow));
}

void tst_CLmCarrowmereMainWindow::cleanup()
{
    delete m_pWindow;
}

void tst_CLmCarrowmereMainWindow::Push(const QByteArray& text)
{
    QVERIFY(QMetaObject::invokeMethod(m_pWindow, "slotBytesReceived", Q_ARG(CLmLinkProvide*, nullptr),
                                      Q_ARG(QByteArray, text)));
}

void tst_CLmCarrowmereMainWindow::countsMissionDatabases_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<int>("count");

    QTest::newRow("no project folder") << QStringList() << 0;
    QTest::newRow("only the flight mission database")
        << QStringList{"Project/7/Vireo_AirLine/Flight_Mission.db"} << 0;
    QTest::newRow("missions of two users")
        << QStringList{"Project/7/Vireo_AirLine/a.db", "Project/7/Vireo_AirLine/b.db",
                       "Project/7/Vireo_AirLine/Flight_Mission.db", "Project/9/Vireo_AirLine/c.db"}
        << 3;
    QTest::newRow("other files and folders ignored")
        << QStringList{"Project/7/Vireo_AirLine/a.db", "Project/7/Vireo_AirLine/a.db-journal",
                       "Project/7/Vireo_AirLine/notes.txt", "Project/7/Other/x.db", "Project/loose.db"}
        << 1;
    QTest::newRow("user without mission folder") << QStringList{"Project/7/readme.txt"} << 0;
}

void tst_CLmCarrowmereMainWindow::countsMissionDatabases()
{
    QFETCH(QStringList, files);
    QFETCH(int, count);
    const QString root = CLmControl::GetInstance()->GetAppDataDirectory() + QLatin1Char('/');
    for (const QString& file : files)
        Touch(root + file);
    QCOMPARE(m_pWindow->ComputeDBFileCount(), count);
}

void tst_CLmCarrowmereMainWindow::pushNotifications_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("badge");
    QTest::addColumn<bool>("newMessageIcon");
    QTest::addColumn<QString>("news");

    QTest::newRow("project shared") << QByteArray(R"({"status":0,"action":"project_share"})") << true << false
                                    << QString();
    QTest::newRow("status 1 is ignored") << QByteArray(R"({"status":1,"action":"project_share"})") << false << false
                                         << QString();
    QTest::newRow("status as text is ignored") << QByteArray(R"({"status":"0","action":"project_share"})") << false
                                               << false << QString();
    QTest::newRow("status 2 is acted on") << QByteArray(R"({"status":2,"action":"pc_assign","message":"m"})") << true
                                          << false << QString();
    QTest::newRow("share message lights the envelope")
        << QByteArray(R"({"status":0,"action":"project_share_message"})") << false << true << QString();
    QTest::newRow("access request lights the envelope") << QByteArray(R"({"status":0,"action":"apply_ios"})") << false
                                                        << true << QString();
    QTest::newRow("news text") << QByteArray(R"({"status":0,"action":"news","message":"Firmware 2.4 is out"})")
                               << false << false << QStringLiteral("Firmware 2.4 is out");
    QTest::newRow("news text beyond Latin-1, escaped")
        << QByteArray(R"({"status":0,"action":"news","message":"Vol \u00e0 Z\u00fcrich \u2013 \u6d4b\u7ed8"})")
        << false << false << QStringLiteral("Vol \u00e0 Z\u00fcrich \u2013 \u6d4b\u7ed8");
    QTest::newRow("NUL byte spoils only its own notification")
        << QByteArray(R"({"status":0,"action":"news","message":"a)") + QByteArray(1, '\0')
               + R"("}SWOOLE_SOCKET_FINISH{"status":0,"action":"news","message":"after"})"
        << false << false << QStringLiteral("after");
    QTest::newRow("unknown action") << QByteArray(R"({"status":0,"action":"reboot"})") << false << false << QString();
    QTest::newRow("object, marker, array of two handled in order")
        << QByteArray(R"({"status":0,"action":"news","message":"first"})SWOOLE_SOCKET_FINISH)"
                      R"([{"status":0,"action":"project_share"},{"status":0,"action":"news","message":"last"}])")
        << true << false << QStringLiteral("last");
    QTest::newRow("trailing marker and garbage do nothing")
        << QByteArray(R"(not json SWOOLE_SOCKET_FINISH)") << false << false << QString();
}

void tst_CLmCarrowmereMainWindow::pushNotifications()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, badge);
    QFETCH(bool, newMessageIcon);
    QFETCH(QString, news);

    Push(text);
    QCOMPARE(Child<CLmTipPushButton>("m_pBtnProjManager")->IsTipVisible(), badge);
    const QString envelopeStyle = Child<QPushButton>("m_pBtnMessage")->styleSheet();
    QCOMPARE(envelopeStyle.contains(QLatin1String("Mymessage_news_ic")), newMessageIcon);
    QCOMPARE(envelopeStyle.contains(QLatin1String("Mymessage_Nonews_ic")), !newMessageIcon);
    auto* sysMessage = Child<QPushButton>("m_pBtnSysMessage");
    QCOMPARE(sysMessage->text(), news);
    QCOMPARE(sysMessage->testAttribute(Qt::WA_TransparentForMouseEvents), news.isEmpty());
}

void tst_CLmCarrowmereMainWindow::liftCheckAsksTheUser()
{
    QString shown;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &shown);
    Push(R"({"status":0,"action":"lift_check","message":"Zone CTR-7 is released for you","data":{}})");
    QVERIFY2(shown.contains(QLatin1String("Zone CTR-7 is released for you")), qPrintable(shown));
    QVERIFY(shown.contains(QLatin1String("System Information")));
}

void tst_CLmCarrowmereMainWindow::systemMessageClickNeedsText()
{
    auto* mainStack = Child<QStackedWidget>("m_pMainStackedWidget");
    QWidget* home = mainStack->currentWidget();
    auto* sysMessage = Child<QPushButton>("m_pBtnSysMessage");
    sysMessage->click();
    QCOMPARE(mainStack->currentWidget(), home);

    Push(R"({"status":0,"action":"news","message":"Maintenance tonight"})");
    QTest::mouseClick(sysMessage, Qt::LeftButton);
    QCOMPARE(mainStack->currentWidget()->objectName(), QStringLiteral("CLmUserMessagePage"));
}

void tst_CLmCarrowmereMainWindow::exitAsksForConfirmation_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("closes");
    QTest::newRow("confirmed") << "m_pBtnOk" << true;
    QTest::newRow("cancelled") << "m_pBtnCancel" << false;
    QTest::newRow("box closed") << "m_pBtnClose" << false;
}

void tst_CLmCarrowmereMainWindow::exitAsksForConfirmation()
{
    QFETCH(QString, button);
    QFETCH(bool, closes);
    QString shown;
    ModalAnswer::PressWhenShown(button, &shown);
    QTest::mouseClick(Child<QPushButton>("m_pBtnMainWndClose"), Qt::LeftButton);
    QVERIFY(shown.contains(QLatin1String("Do you want to exit the application?")));
    if (closes) {
        QTRY_VERIFY(m_pWindow.isNull());
        // The window ended the application's event loop; a fresh exec()
        // clears that, as the next start of the application would.
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QApplication::exec();
    } else
        QVERIFY(!m_pWindow.isNull() && m_pWindow->isVisible());
}

QTEST_MAIN(tst_CLmCarrowmereMainWindow)
#include "tst_CLmCarrowmereMainWindow.moc"
