#include "CLmLauncher.h"

#include "CLmControl.h"
#include "CLmLinkManager.h"
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

// Qt's own warnings about an address the desktop cannot open (no browser, a
// platform without one) quote it whole, and the monitor's query carries the
// session token. While the desktop is asked, the query is masked in whatever
// is logged.
QStringList g_listMaskedQueries;
QtMessageHandler g_pUnmaskedHandler = nullptr;

void MaskQueries(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    QString masked = message;
    for (const QString& query : qAsConst(g_listMaskedQueries))
        masked.replace(query, QStringLiteral("..."));
    g_pUnmaskedHandler(type, context, masked);
}

bool OpenUrlWithQueryMasked(const QUrl& url)
{
    if (!url.hasQuery())
        return QDesktopServices::openUrl(url);
    g_listMaskedQueries = QStringList{url.query(QUrl::FullyEncoded), url.query(QUrl::FullyDecoded)};
    g_pUnmaskedHandler = qInstallMessageHandler(MaskQueries);
    const bool opened = QDesktopServices::openUrl(url);
    qInstallMessageHandler(g_pUnmaskedHandler);
    g_listMaskedQueries.clear();
    return opened;
}

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

CLmLauncher::CLmLauncher(QProcess& process, QThread& uploadThread, CLmLinkManager* pLinkManager,
                         QWidget* pWindow)
    : QObject(pWindow)
    , m_process(process)
    , m_uploadThread(uploadThread)
    , m_pLinkManager(pLinkManager)
    , m_pWindow(pWindow)
{
    connect(&m_process, &QProcess::errorOccurred, this, &CLmLauncher::ReportFailedStart);
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
    OpenInBrowser(QUrl(QString::fromLatin1(url), QUrl::TolerantMode));
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
    OpenInBrowser(QUrl(GetHelpUrl(), QUrl::TolerantMode));
}

// The query may carry the session token, so the log names the address only.
void CLmLauncher::OpenInBrowser(const QUrl& url)
{
    const QUrl address = url.adjusted(QUrl::RemoveQuery);
    qCInfo(lcLauncher) << "opening" << address.toString();
    if (!OpenUrlWithQueryMasked(url))
        qCWarning(lcLauncher) << "no browser could open" << address.toString();
}

void CLmLauncher::ReportFailedStart(QProcess::ProcessError error)
{
    if (error == QProcess::FailedToStart)
        qCWarning(lcLauncher) << "could not start" << m_process.program() << m_process.errorString();
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
    // The UAV worker stops opening serial radios on this signal.
    Q_EMIT freeSerialPort();
    ReleaseLinks();
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
    RestoreLinks();
    m_pWindow->show();
    if (IsFlying() && !m_uploadThread.isRunning())
        m_uploadThread.start(QThread::InheritPriority);
}

void CLmLauncher::ReleaseLinks()
{
    m_listHandedOverLinkIds = m_pLinkManager->ConnectedDeviceLinkIds();
    qCInfo(lcLauncher) << "handing over links" << m_listHandedOverLinkIds;
    for (int linkId : qAsConst(m_listHandedOverLinkIds))
        m_pLinkManager->DisconnectLink(linkId);
}

void CLmLauncher::RestoreLinks()
{
    qCInfo(lcLauncher) << "taking back links" << m_listHandedOverLinkIds;
    for (int linkId : qAsConst(m_listHandedOverLinkIds))
        m_pLinkManager->ConnectLink(linkId);
    m_listHandedOverLinkIds.clear();
}

// Flight-data upload pauses while the flying application runs.
bool CLmLauncher::IsFlying() const
{
    return m_process.arguments().value(0) == QLatin1String("VireoFly");
}
