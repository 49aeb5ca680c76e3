#include "CLmLauncher.h"

#include "CLmControl.h"
#include "CLmMessageBox.h"
#include "CLmSessionStore.h"
#include "LmCarrowmereUILog.h"
#include "LmConstants.h"

#include <QDesktopServices>
#include <QDir>
#include <QThread>
#include <QUrl>
#include <QWidget>

namespace {

const char kIconNotFound[] = ":/images/Normal/Home/HomeFile_share_no_ic.png";

QString ParentOfApplicationDirectory()
{
    QDir appDir(CLmControl::GetInstance()->GetApplicationDirectory());
    appDir.cdUp();
    return appDir.absolutePath();
}

// The image programs run on their own and need nobody signed in.
bool RunsBesideMap(const QString& key)
{
    return key == QLatin1String("Vireo_Process") || key == QLatin1String("Vireo_Map");
}

}  // namespace

CLmLauncher::CLmLauncher(QProcess& process, QThread& uploadThread, QWidget* pWindow)
    : QObject(pWindow)
    , m_process(process)
    , m_uploadThread(uploadThread)
    , m_pWindow(pWindow)
{
}

void CLmLauncher::Launch(const QString& key)
{
    if (RunsBesideMap(key)) {
        StartBesideMap(key);
        return;
    }
    const QString token = CLmSessionStore().Token();
    if (token.isEmpty()) {
        Q_EMIT SignInNeeded();
        return;
    }
    if (key == QLatin1String("Vireo_Monitor"))
        OpenMonitor(token);
    else
        StartAttached(key);
}

void CLmLauncher::StartAttached(const QString& key)
{
    // The program name of the attached applications is their key, beside this one.
    const QString program = CLmControl::GetInstance()->GetApplicationDirectory() + QLatin1Char('/') + key;
    m_process.start(program, {key, GetLaunchKey(), QString::fromUtf8(GetServerIP())}, QIODevice::ReadWrite);
}

void CLmLauncher::StartBesideMap(const QString& key)
{
    const QString folder = ParentOfApplicationDirectory() + QStringLiteral("/vireo_map/");
    StartDetached(folder + key + QStringLiteral(".exe"), {GetLaunchKey()}, folder);
}

void CLmLauncher::OpenMonitor(const QString& token)
{
    const QByteArray url = GetMonitorIP() + "/monitor/monitor4new?token=" + token.toLatin1();
    QDesktopServices::openUrl(QUrl(QString::fromLatin1(url), QUrl::TolerantMode));
}

void CLmLauncher::Open3DViewer()
{
    StartViewer(QStringLiteral("/Carrowmere/vireo_3dviewer.exe"));
}

void CLmLauncher::OpenImageViewer()
{
    StartViewer(QStringLiteral("/vireo_map/vireo_viewer.exe"));
}

void CLmLauncher::OpenHelp()
{
    QDesktopServices::openUrl(QUrl(GetHelpUrl(), QUrl::TolerantMode));
}

void CLmLauncher::StartViewer(const QString& relativeProgram)
{
    const QString program = ParentOfApplicationDirectory() + relativeProgram;
    if (!QFileInfo::exists(program)) {
        CLmMessageBox box(tr("Not found an executable program."), QLatin1String(kIconNotFound), tr("SkyConsole"),
                          CLmMessageBox::BtnOk, m_pWindow);
        box.exec();
        return;
    }
    StartDetached(program, {}, QFileInfo(program).absolutePath() + QLatin1Char('/'));
}

void CLmLauncher::StartDetached(const QString& program, const QStringList& arguments, const QString& workingFolder)
{
    if (!QProcess::startDetached(program, arguments, workingFolder))
        qCWarning(lcLauncher) << "could not start" << program;
}

void CLmLauncher::HandOver()
{
    // The UAV worker owns the aircraft links and lets them go on this signal.
    Q_EMIT freeSerialPort();
    m_pWindow->hide();
    if (IsFlying() && m_uploadThread.isRunning()) {
        m_uploadThread.quit();
        m_uploadThread.wait();
    }
}

void CLmLauncher::TakeBack(int exitCode, QProcess::ExitStatus exitStatus)
{
    qCDebug(lcLauncher) << "application ended" << exitCode << exitStatus;
    Q_EMIT connectSerialPort();
    m_pWindow->show();
    if (IsFlying() && !m_uploadThread.isRunning())
        m_uploadThread.start(QThread::InheritPriority);
}

// Flight-data upload pauses while the flying application runs.
bool CLmLauncher::IsFlying() const
{
    return m_process.arguments().value(0) == QLatin1String("VireoFly");
}
