#include "CLmCarrowmereMainWindow.h"
#include "CLmControl.h"
#include "CLmDeployConfig.h"
#include "CLmSessionStore.h"
#include "LmConstants.h"
#include "ModalAnswer.h"

#include <QApplication>
#include <QDir>
#include <QLoggingCategory>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>

namespace {

std::atomic<int> g_uploadChecks{0};

void CountUploadChecks(QtMsgType, const QMessageLogContext& context, const QString& message)
{
    if (qstrcmp(context.category, "sky.projectdb.flightdata") == 0 && message.startsWith(QLatin1String("checking")))
        ++g_uploadChecks;
}

}  // namespace

// The launcher starts the suite's programs from a folder beside the hub.
// Stand-in programs record their arguments and working folder, so the test
// sees exactly what a sibling application would be given.
class tst_Launcher : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void detachedProgramsNeedNoSignIn_data();
    void detachedProgramsNeedNoSignIn();
    void signedOutUserIsAskedFirst_data();
    void signedOutUserIsAskedFirst();
    void attachedProgramTakesOverTheRadio();
    void flyingPausesTheUploadThread_data();
    void flyingPausesTheUploadThread();
    void missingViewerIsReported_data();
    void missingViewerIsReported();

private:
    void WriteStandIn(const QString& path, int exitAfterMs);
    QStringList Recorded(const QString& program) const;
    void SignIn();
    QPushButton* Button(const char* name) const;

    QTemporaryDir m_root;  // P: parent of the application directory
    QString m_appDir;      // A
    QPointer<CLmCarrowmereMainWindow> m_pWindow;
};

void tst_Launcher::WriteStandIn(const QString& path, int exitAfterMs)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile script(path);
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\n{ pwd; for a in \"$@\"; do echo \"$a\"; done; } > \"$0.args\"\n");
    script.write(QByteArray("sleep ") + QByteArray::number(exitAfterMs / 1000.0) + "\n");
    script.close();
    QVERIFY(script.setPermissions(script.permissions() | QFileDevice::ExeOwner));
}

QStringList tst_Launcher::Recorded(const QString& program) const
{
    QFile record(program + QStringLiteral(".args"));
    if (!record.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(record.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void tst_Launcher::SignIn()
{
    QSettings settings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)};
    settings.setValue(QLatin1String(UserInfoGroupName) + QLatin1Char('/') + QLatin1String(UserInfoToken),
                      QStringLiteral("tok-123"));
}

QPushButton* tst_Launcher::Button(const char* name) const
{
    return m_pWindow->findChild<QPushButton*>(QLatin1String(name));
}

void tst_Launcher::initTestCase()
{
    QVERIFY(m_root.isValid());
    m_appDir = m_root.filePath(QStringLiteral("hub"));
    QDir().mkpath(m_appDir);
    qputenv("SKYCONSOLE_LAUNCHER_APPLICATION_DIR", m_appDir.toUtf8());
    qputenv("SKYCONSOLE_LAUNCHER_LAUNCH_KEY", "{launch-key}");
    qputenv("SKYCONSOLE_CLOUD_PRODUCTION_URL", "http://127.0.0.1:9");
    CLmDeployConfig::Reload();
}

void tst_Launcher::init()
{
    QSettings{QLatin1String(OrganizationName), QLatin1String(CloundApplicationName)}.clear();
    CLmControl::GetInstance()->SetNetWorkState(false);
    m_pWindow = new CLmCarrowmereMainWindow(nullptr);
    m_pWindow->show();
}

void tst_Launcher::cleanup()
{
    delete m_pWindow;
}

void tst_Launcher::detachedProgramsNeedNoSignIn_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("program");
    QTest::newRow("map") << QByteArray("m_pBtnMainWndVireoMap") << "Vireo_Map.exe";
    QTest::newRow("process") << QByteArray("m_pBtnMainWndVireoProcess") << "Vireo_Process.exe";
}

void tst_Launcher::detachedProgramsNeedNoSignIn()
{
    QFETCH(QByteArray, button);
    QFETCH(QString, program);
    const QString path = m_root.filePath(QStringLiteral("vireo_map/") + program);
    WriteStandIn(path, 0);
    Button(button.constData())->click();
    QTRY_COMPARE_WITH_TIMEOUT(Recorded(path),
                              (QStringList{QDir(m_root.filePath(QStringLiteral("vireo_map"))).canonicalPath(),
                                           QStringLiteral("{launch-key}")}),
                              5000);
}

void tst_Launcher::signedOutUserIsAskedFirst_data()
{
    QTest::addColumn<bool>("online");
    QTest::addColumn<QString>("dialogClass");
    QTest::addColumn<QString>("button");
    QTest::newRow("offline: network fault") << false << "CLmMessageBox" << "m_pBtnOk";
    QTest::newRow("online: login dialog") << true << "CLmCarrowmereLoginDialog" << "m_pBtnClose";
}

void tst_Launcher::signedOutUserIsAskedFirst()
{
    QFETCH(bool, online);
    QFETCH(QString, dialogClass);
    QFETCH(QString, button);
    const QString plan = m_appDir + QStringLiteral("/VireoPlan");
    WriteStandIn(plan, 0);
    CLmControl::GetInstance()->SetNetWorkState(online);

    QString shown;
    const QByteArray className = dialogClass.toLatin1();
    ModalAnswer::PressWhenShown(button, &shown, 5000, className.constData());
    Button("m_pBtnMainWndVireoPlan")->click();
    QVERIFY(!shown.isEmpty());
    if (!online)
        QVERIFY(shown.contains(QLatin1String("Network fault")));
    QTest::qWait(300);
    QVERIFY(Recorded(plan).isEmpty());
}

void tst_Launcher::attachedProgramTakesOverTheRadio()
{
    SignIn();
    const QString plan = m_appDir + QStringLiteral("/VireoPlan");
    WriteStandIn(plan, 700);
    QSignalSpy freed(m_pWindow.data(), &CLmCarrowmereMainWindow::freeSerialPort);
    QSignalSpy reconnect(m_pWindow.data(), &CLmCarrowmereMainWindow::connectSerialPort);

    Button("m_pBtnMainWndVireoPlan")->click();
    QTRY_COMPARE_WITH_TIMEOUT(freed.count(), 1, 5000);
    QVERIFY(!m_pWindow->isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(reconnect.count(), 1, 5000);
    QVERIFY(m_pWindow->isVisible());
    QCOMPARE(Recorded(plan).mid(1), (QStringList{"VireoPlan", "{launch-key}", "http://127.0.0.1:9"}));
}

void tst_Launcher::flyingPausesTheUploadThread_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("program");
    QTest::addColumn<int>("uploadStartsAfterwards");
    QTest::newRow("fly pauses and resumes the upload") << QByteArray("m_pBtnMainWndVireoFly") << "VireoFly" << 1;
    QTest::newRow("plan leaves the upload running") << QByteArray("m_pBtnMainWndVireoPlan") << "VireoPlan" << 0;
}

void tst_Launcher::flyingPausesTheUploadThread()
{
    QFETCH(QByteArray, button);
    QFETCH(QString, program);
    QFETCH(int, uploadStartsAfterwards);
    SignIn();
    WriteStandIn(m_appDir + QLatin1Char('/') + program, 500);
    // Every start of the upload thread makes the uploader look for new
    // flight data, which it logs.
    g_uploadChecks = 0;
    QLoggingCategory::setFilterRules(QStringLiteral("sky.projectdb.flightdata.debug=true"));
    const QtMessageHandler previous = qInstallMessageHandler(CountUploadChecks);
    m_pWindow->ConnectUploadData();
    QTRY_COMPARE(int(g_uploadChecks), 1);

    QSignalSpy reconnect(m_pWindow.data(), &CLmCarrowmereMainWindow::connectSerialPort);
    Button(button.constData())->click();
    QTRY_COMPARE_WITH_TIMEOUT(reconnect.count(), 1, 5000);
    QTest::qWait(200);
    qInstallMessageHandler(previous);
    QCOMPARE(int(g_uploadChecks), 1 + uploadStartsAfterwards);
}

void tst_Launcher::missingViewerIsReported_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("program");
    QTest::newRow("3D viewer") << QByteArray("m_pBtn3DViewer") << "Carrowmere/vireo_3dviewer.exe";
    QTest::newRow("image viewer") << QByteArray("m_pBtnVireoViewer") << "vireo_map/vireo_viewer.exe";
}

void tst_Launcher::missingViewerIsReported()
{
    QFETCH(QByteArray, button);
    QFETCH(QString, program);
    QFile::remove(m_root.filePath(program));
    QString shown;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &shown);
    Button(button.constData())->click();
    QVERIFY(shown.contains(QLatin1String("Not found an executable program.")));

    const QString path = m_root.filePath(program);
    WriteStandIn(path, 0);
    Button(button.constData())->click();
    QTRY_VERIFY_WITH_TIMEOUT(!Recorded(path).isEmpty(), 5000);
    QCOMPARE(Recorded(path).first(), QFileInfo(path).absoluteDir().canonicalPath());
}

QTEST_MAIN(tst_Launcher)
#include "tst_Launcher.moc"
