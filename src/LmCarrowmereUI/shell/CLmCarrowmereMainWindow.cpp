#include "CLmCarrowmereMainWindow.h"

#include "ui_CLmCarrowmereWgt.h"

#include "CLmAccountSession.h"
#include "CLmCarrowmereMaintainPage.h"
#include "CLmControl.h"
#include "CLmDeviceHub.h"
#include "CLmHardwareCheck.h"
#include "CLmLauncher.h"
#include "CLmLinkManager.h"
#include "CLmLinkProvide.h"
#include "CLmMessageBox.h"
#include "CLmNoFlyZoneUpgrade.h"
#include "CLmNoticeCenter.h"
#include "CLmProjMgrWgt.h"
#include "CLmSessionStore.h"
#include "CLmShareNotifier.h"
#include "CLmUasProvide.h"
#include "CLmUsbDeviceLink.h"
#include "CLmUserMessagePage.h"
#include "LmCloudPaths.h"
#include "LmConstants.h"
#include "LmPushText.h"
#include "mavlink_message_t.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QMouseEvent>
#include <QTimer>
#include <QUrl>

namespace {

const char kIconShareOk[] = ":/images/Normal/Home/HomeFile_share_ok_ic.png";
const char kIconExit[] = ":/images/Normal/Home/HomeFilebut_receive_ic.png";

// The title bar's icons are images named in their buttons' style sheets.
void SwapStyleImage(QWidget* pButton, const QString& from, const QString& to)
{
    QString style = pButton->styleSheet();
    style.replace(from, to, Qt::CaseSensitive);
    pButton->setStyleSheet(style);
}

}  // namespace

CLmCarrowmereMainWindow::CLmCarrowmereMainWindow(QWidget* parent)
    : CLmBaseWidget(parent)
    , m_pNoFlyZoneUpgrade(std::make_unique<CLmNoFlyZoneUpgrade>())
{
    qRegisterMetaType<mavlink_message_t>("mavlink_message_t");
    connect(CLmShareNotifier::Instance(), &CLmShareNotifier::ShareMessageArrived, this,
            &CLmCarrowmereMainWindow::slotShowShareMessage);
    CheckShortcut();
    SetupForm();
    CreatePages();
    m_pLinkManager = new CLmLinkManager(this);
    m_pNoticeCenter = new CLmNoticeCenter(this, m_pUi->m_pOnlineView);
    ConnectNotices();
    m_pAccountSession = new CLmAccountSession(
        this, m_pUi->m_pLabelUserName,
        {m_pUi->m_pBtnProjManager, m_pUi->m_pBtnMainWndMaintain, m_pUi->m_pBtnMainWndVireoMoniter});
    ConnectAccountSession();
    m_pLauncher = new CLmLauncher(m_process, m_threadUpload, m_pLinkManager, this);
    ConnectLauncher();
    m_pDeviceHub = std::make_unique<CLmDeviceHub>(m_threadUAV, m_threadUpload, m_threadNetWork, m_pLinkManager,
                                                  m_pMaintainPage, std::make_unique<CLmUsbDeviceLink>(nullptr));
    ConnectDeviceHub();

    SetupConnectInfo();
    InitSystemInfo();
    // The window paints first; the machine's facts and the disks follow.
    QTimer::singleShot(0, this, &CLmCarrowmereMainWindow::ReadMachineState);
    setWindowTitle(tr("SkyConsole"));
}

CLmCarrowmereMainWindow::~CLmCarrowmereMainWindow()
{
    for (QThread* thread : {&m_threadNetWork, &m_threadUAV, &m_threadUpload}) {
        if (thread->isRunning()) {
            thread->quit();
            thread->wait();
        }
    }
    // The hub's workers belong to threads that have ended now.
    m_pDeviceHub.reset();
}

void CLmCarrowmereMainWindow::SetupForm()
{
    m_pUi = std::make_unique<Ui::CLmCarrowmereWgt>();
    m_pUi->setupUi(this);
    m_pUi->m_pBtnProjManager->SetTipMargin(5, 5);
    m_pUi->m_pBtnProjManager->SetTipSize(QSize(8, 8));
    m_pUi->m_pBtnSysMessage->setAttribute(Qt::WA_TransparentForMouseEvents, true);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("SkyConsole"));

    m_listAppBtns = {m_pUi->m_pBtnMainWndVireoPlan,    m_pUi->m_pBtnMainWndVireoFly,
                     m_pUi->m_pBtnMainWndVireoCheck,   m_pUi->m_pBtnMainWndVireoProcess,
                     m_pUi->m_pBtnMainWndVireoMap,     m_pUi->m_pBtnMainWndVireoMoniter};
    const QStringList accessibleNames = {QStringLiteral("VireoPlan"),     QStringLiteral("VireoFly"),
                                         QStringLiteral("Vireo_Check"),   QStringLiteral("Vireo_Process"),
                                         QStringLiteral("Vireo_Map"),     QStringLiteral("Vireo_Monitor")};
    for (int i = 0; i < m_listAppBtns.size(); ++i)
        m_listAppBtns.at(i)->setAccessibleName(accessibleNames.at(i));
}

// A page joins the stack and comes back home through its BackToHome.
template <class TPage>
TPage* CLmCarrowmereMainWindow::AddPage(TPage* pPage)
{
    m_pUi->m_pMainStackedWidget->addWidget(pPage);
    connect(pPage, &TPage::BackToHome, this, &CLmCarrowmereMainWindow::slotBackToHome);
    return pPage;
}

void CLmCarrowmereMainWindow::CreatePages()
{
    using Window = CLmCarrowmereMainWindow;
    m_pMaintainPage = AddPage(new CLmCarrowmereMaintainPage(this));
    connect(m_pMaintainPage, &CLmCarrowmereMaintainPage::NeedUpgrade, this, &Window::slotMarkUpgrade);
    m_pMaintainPage->SetMainWindow(this);
}

// Built when first opened, like the project page.
CLmUserMessagePage* CLmCarrowmereMainWindow::UserMessagePage()
{
    using Window = CLmCarrowmereMainWindow;
    if (m_pUserMessagePage)
        return m_pUserMessagePage;
    m_pUserMessagePage = AddPage(new CLmUserMessagePage(this));
    connect(m_pUserMessagePage, &CLmUserMessagePage::saveUserInfoSucced, this, &Window::slotUpdateUserInfo);
    connect(m_pUserMessagePage, &CLmUserMessagePage::LogoutSucced, this, &Window::slotUpdateUserInfo);
    return m_pUserMessagePage;
}

// The project page is the heaviest one and its engine has nothing to do
// before someone looks at projects, so it is built when first opened rather
// than before the window's first paint.
CLmProjMgrWgt* CLmCarrowmereMainWindow::ProjMgrPage()
{
    if (m_pProjMgrWgt)
        return m_pProjMgrWgt;
    m_pProjMgrWgt = AddPage(new CLmProjMgrWgt(this));
    m_pProjMgrWgt->hide();
    connect(m_pAccountSession, &CLmAccountSession::SignedOut, m_pProjMgrWgt, &CLmProjMgrWgt::Reset);
    connect(m_pProjMgrWgt, &CLmProjMgrWgt::parseJsonArray, m_pDeviceHub.get(), &CLmDeviceHub::parseJsonArray);
    connect(m_pDeviceHub.get(), &CLmDeviceHub::FlightDataParsed, m_pProjMgrWgt, &CLmProjMgrWgt::slotFlightDataParsed);
    connect(m_pProjMgrWgt, &CLmProjMgrWgt::NewShareReceived, this, &CLmCarrowmereMainWindow::ShowProjectBadge);
    return m_pProjMgrWgt;
}

void CLmCarrowmereMainWindow::CheckShortcut()
{
    CLmSessionStore settings;
    if (!settings.IsMaintenanceDone()) {
        const QString shortcutTool = CLmControl::GetInstance()->GetApplicationDirectory()
                                     + QStringLiteral("/lnkshortcut.exe");
        // Only a tool that exists can do the maintenance; opening a missing
        // file would hand the desktop an error to show.
        if (QFileInfo::exists(shortcutTool) && QDesktopServices::openUrl(QUrl::fromLocalFile(shortcutTool))) {
            settings.SetMaintenanceDone();
            CLmMessageBox box(tr("Program maintenance is complete, welcome to use."),
                              QLatin1String(kIconShareOk), tr("SkyConsole"), CLmMessageBox::BtnOk, this);
            box.exec();
        }
    }
}

void CLmCarrowmereMainWindow::SetupConnectInfo()
{
    connect(m_pUi->m_pBtnMainWndUserIcon, &QPushButton::clicked, this, &CLmCarrowmereMainWindow::slotUserLogin);
    connect(m_pUi->m_pBtnMainWndHelp, &QPushButton::clicked, this, &CLmCarrowmereMainWindow::slotHelpBtnClicked);
    connect(m_pUi->m_pBtnMainWndClose, &QPushButton::clicked, this, &CLmCarrowmereMainWindow::slotExitApplication);
    connect(m_pUi->m_pBtnProjManager, &QPushButton::clicked, this, &CLmCarrowmereMainWindow::slotCloudBtnClicked);
    connect(m_pUi->m_pBtnMainWndMaintain, &QPushButton::clicked, this, &CLmCarrowmereMainWindow::slotExecMaintain);
    connect(m_pUi->m_pBtnVireoViewer, &QPushButton::clicked, this, &CLmCarrowmereMainWindow::slotOpenShortcut);
    connect(m_pUi->m_pBtn3DViewer, &QPushButton::clicked, this, &CLmCarrowmereMainWindow::slotOpen3DViewer);
    connect(m_pUi->m_pBtnMessage, &QPushButton::clicked, this, &CLmCarrowmereMainWindow::slotShowSysMsg);
    connect(m_pUi->m_pBtnSysMessage, &QPushButton::clicked, this, &CLmCarrowmereMainWindow::slotShowSysMsg);
    for (QPushButton* button : qAsConst(m_listAppBtns))
        connect(button, &QPushButton::clicked, this, &CLmCarrowmereMainWindow::slotAppBtnClicked);
}

void CLmCarrowmereMainWindow::ConnectLauncher()
{
    connect(&m_process, &QProcess::started, this, &CLmCarrowmereMainWindow::slotProcessStarted);
    connect(&m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &CLmCarrowmereMainWindow::slotProcessFinished);
    connect(m_pLauncher, &CLmLauncher::SignInNeeded, m_pAccountSession, &CLmAccountSession::OfferSignIn);
    connect(m_pLauncher, &CLmLauncher::freeSerialPort, this, &CLmCarrowmereMainWindow::freeSerialPort);
    connect(m_pLauncher, &CLmLauncher::freeSerialPort, m_pMaintainPage,
            &CLmCarrowmereMaintainPage::ReleaseDeviceConnection);
    connect(m_pLauncher, &CLmLauncher::connectSerialPort, this, &CLmCarrowmereMainWindow::connectSerialPort);
    connect(m_pLauncher, &CLmLauncher::connectSerialPort, m_pMaintainPage,
            &CLmCarrowmereMaintainPage::RestoreDeviceConnection);
}

void CLmCarrowmereMainWindow::ConnectNotices()
{
    using Window = CLmCarrowmereMainWindow;
    // A share refreshes the share page when it is shown, else lights the
    // badge; a project page not built yet has nothing to refresh.
    connect(m_pNoticeCenter, &CLmNoticeCenter::ProjectNoticeArrived, this, [this] {
        if (m_pProjMgrWgt)
            m_pProjMgrWgt->slotShareNoticeArrived();
        else
            ShowProjectBadge();
    });
    connect(m_pNoticeCenter, &CLmNoticeCenter::MessageNoticeArrived, this, [this] {
        if (m_pProjMgrWgt)
            m_pProjMgrWgt->slotShareMessageArrived();
    });
    connect(m_pNoticeCenter, &CLmNoticeCenter::MessageNoticeArrived, this, &Window::ShowNewMessageIcon);
    connect(m_pNoticeCenter, &CLmNoticeCenter::AccessRequestArrived, m_pMaintainPage,
            [this] { m_pMaintainPage->SetPendingRequest(true); });
    connect(m_pNoticeCenter, &CLmNoticeCenter::NewsArrived, this, &Window::ShowSystemMessage);
    connect(m_pNoticeCenter, &CLmNoticeCenter::LiftCheckConfirmed, m_pNoFlyZoneUpgrade.get(),
            &CLmNoFlyZoneUpgrade::Start);
    connect(m_pNoticeCenter, &CLmNoticeCenter::LauncherUpgradeInfor, this, &Window::slotLauncherUpgradeInfor);
    connect(m_pNoticeCenter, &CLmNoticeCenter::DownLoadFinished, m_pMaintainPage,
            &CLmCarrowmereMaintainPage::slotDownLoadFinished);
    connect(m_pNoticeCenter, &CLmNoticeCenter::NeedUpgradeSureNewVersion, this, &Window::slotNeedUpgradeSureNewVersion);
}

void CLmCarrowmereMainWindow::ConnectAccountSession()
{
    using Window = CLmCarrowmereMainWindow;
    connect(m_pAccountSession, &CLmAccountSession::ProfileArrived, this, &Window::slotUserProRet);
    connect(m_pAccountSession, &CLmAccountSession::SignedIn, m_pNoticeCenter, &CLmNoticeCenter::RefreshPushSubscription);
    connect(m_pAccountSession, &CLmAccountSession::SignedIn, m_pNoFlyZoneUpgrade.get(), &CLmNoFlyZoneUpgrade::Start);
    connect(m_pAccountSession, &CLmAccountSession::SignedOut, m_pNoticeCenter,
            &CLmNoticeCenter::RefreshPushSubscription);
    connect(m_pAccountSession, &CLmAccountSession::SignedOut, this, &Window::slotBackToHome);
    connect(m_pAccountSession, &CLmAccountSession::SignedOut, this, &Window::ForgetAccountTraces);
    connect(m_pAccountSession, &CLmAccountSession::AccountSwitched, this, &Window::ForgetAccountTraces);
}

void CLmCarrowmereMainWindow::ConnectDeviceHub()
{
    using Window = CLmCarrowmereMainWindow;
    connect(this, &Window::freeSerialPort, m_pDeviceHub.get(), &CLmDeviceHub::freeSerialPort);
    connect(this, &Window::connectSerialPort, m_pDeviceHub.get(), &CLmDeviceHub::connectSerialPort);
    connect(this, &Window::uploadFlightData, m_pDeviceHub.get(), &CLmDeviceHub::uploadFlightData);
    connect(m_pDeviceHub.get(), &CLmDeviceHub::AircraftLost, m_pNoticeCenter, &CLmNoticeCenter::ForgetFirmwareOffer);
    connect(m_pDeviceHub.get(), &CLmDeviceHub::NetWorkStateChanged, this, &Window::ShowNetWorkState);
    connect(m_pDeviceHub.get(), &CLmDeviceHub::FirstNetWorkAnswer, this, &Window::StartCloudWork);
}

void CLmCarrowmereMainWindow::InitSystemInfo()
{
    m_pUi->m_pLabelTestVersion->setVisible(IsTestServer());

    const int widths[] = {150, 250, 110, 300};
    for (int column = 0; column < 4; ++column)
        m_pUi->m_pSysInfoTree->setColumnWidth(column, widths[column]);
}

void CLmCarrowmereMainWindow::ReadMachineState()
{
    ShowSystemFacts();
    ReadExistUsbDevice();
}

void CLmCarrowmereMainWindow::ShowSystemFacts()
{
    CLmHardwareCheck::Show(CLmHardwareCheck::ReadSystem(), m_pUi->m_pSysInfoTree, m_pUi->m_pLabelHardwareWarning);
}

void CLmCarrowmereMainWindow::ReadExistUsbDevice()
{
    m_pDeviceHub->ReadExistUsbDevice();
}

int CLmCarrowmereMainWindow::ComputeDBFileCount()
{
    const QString projectRoot = CLmControl::GetInstance()->GetAppDataDirectory() + QStringLiteral("/Project/");
    const QDir root(projectRoot);
    if (!root.exists())
        return 0;
    int count = 0;
    for (const QString& project : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QDir missions(projectRoot + project + QStringLiteral("/Vireo_AirLine/"));
        if (!missions.exists())
            continue;
        QStringList files = missions.entryList({QStringLiteral("*.db")}, QDir::Files);
        files.removeAll(QStringLiteral("Flight_Mission.db"));
        count += files.size();
    }
    return count;
}

void CLmCarrowmereMainWindow::slotBackToHome()
{
    const bool online = CLmControl::GetInstance()->IsNetWorkConnected();
    m_pUi->m_pMainStackedWidget->setCurrentWidget(m_pUi->m_pHomePage);
    m_pUi->m_pHomeStackedWidget->setCurrentWidget(online ? m_pUi->m_pOnlineView : m_pUi->m_pOfflineView);
    m_pUi->m_pBtnMainWndMaintain->setChecked(false);
}

void CLmCarrowmereMainWindow::slotExecMaintain()
{
    m_pMaintainPage->show();
    if (!m_pUi->m_pBtnMainWndMaintain->isChecked()) {
        slotBackToHome();
        return;
    }
    m_pUi->m_pMainStackedWidget->setCurrentWidget(m_pMaintainPage);
}

void CLmCarrowmereMainWindow::slotExitApplication()
{
    CLmMessageBox box(tr("Do you want to exit the application?"), QLatin1String(kIconExit), tr("SkyConsole"),
                      CLmMessageBox::BtnOkCancel, this);
    if (box.exec() != 1)
        return;
    close();
    QCoreApplication::exit(0);
}

void CLmCarrowmereMainWindow::slotShowSysMsg()
{
    if (sender() == m_pUi->m_pBtnSysMessage && m_pUi->m_pBtnSysMessage->text().isEmpty())
        return;
    UserMessagePage()->ShowMessageView();
    ShowPage(m_pUserMessagePage);
    ClearNewMessageIcon();
}

void CLmCarrowmereMainWindow::ShowPage(QWidget* pPage)
{
    m_pUi->m_pMainStackedWidget->setCurrentWidget(pPage);
    pPage->show();
}

void CLmCarrowmereMainWindow::slotShowShareMessage()
{
    ShowNewMessageIcon();
    ShowProjectBadge();
}

void CLmCarrowmereMainWindow::ShowProjectBadge()
{
    m_pUi->m_pBtnProjManager->SetTipVisible(true);
}

void CLmCarrowmereMainWindow::ShowNewMessageIcon()
{
    SwapStyleImage(m_pUi->m_pBtnMessage, QStringLiteral("Mymessage_Nonews_ic"), QStringLiteral("Mymessage_news_ic"));
}

void CLmCarrowmereMainWindow::ClearNewMessageIcon()
{
    SwapStyleImage(m_pUi->m_pBtnMessage, QStringLiteral("Mymessage_news_ic"), QStringLiteral("Mymessage_Nonews_ic"));
}

// A news text makes the system message clickable; without one it is not.
void CLmCarrowmereMainWindow::ShowSystemMessage(const QString& text)
{
    m_pUi->m_pBtnSysMessage->setText(text);
    m_pUi->m_pBtnSysMessage->setAttribute(Qt::WA_TransparentForMouseEvents, text.isEmpty());
}

// Nothing the account that left was told stays on screen for the next one.
void CLmCarrowmereMainWindow::ForgetAccountTraces()
{
    ShowSystemMessage(QString());
    ClearNewMessageIcon();
    m_pUi->m_pBtnProjManager->SetTipVisible(false);
    m_pMaintainPage->SetPendingRequest(false);
    if (m_pUserMessagePage)
        m_pUserMessagePage->ForgetAccount();
}

void CLmCarrowmereMainWindow::ResponseJsonObject(const QJsonObject& obj)
{
    m_pNoticeCenter->Dispatch(obj);
}

void CLmCarrowmereMainWindow::slotBytesReceived(CLmLinkProvide* pLink, QByteArray bytes)
{
    Q_UNUSED(pLink)
    for (const QJsonObject& notice : LmPushText::Notifications(bytes))
        ResponseJsonObject(notice);
}

// Device changes are watched, never consumed.
bool CLmCarrowmereMainWindow::nativeEvent(const QByteArray& eventType, void* message, long* result)
{
    Q_UNUSED(result)
    if (m_pDeviceHub)
        m_pDeviceHub->TakeDeviceChange(eventType, message);
    return false;
}

void CLmCarrowmereMainWindow::mousePressEvent(QMouseEvent* event)
{
    const QRect titleBar(m_pUi->m_pMainWndHeaderBgWgt->mapTo(this, QPoint(0, 0)),
                         m_pUi->m_pMainWndHeaderBgWgt->size());
    if (event->button() == Qt::LeftButton && titleBar.contains(event->pos())) {
        m_bPressed = true;
        m_ptDragOffset = event->globalPos() - pos();
        return;
    }
    CLmBaseWidget::mousePressEvent(event);
}

void CLmCarrowmereMainWindow::mouseMoveEvent(QMouseEvent* event)
{
    if (m_bPressed && (event->buttons() & Qt::LeftButton)) {
        move(event->globalPos() - m_ptDragOffset);
        return;
    }
    CLmBaseWidget::mouseMoveEvent(event);
}

void CLmCarrowmereMainWindow::mouseReleaseEvent(QMouseEvent* event)
{
    m_bPressed = false;
    CLmBaseWidget::mouseReleaseEvent(event);
}

void CLmCarrowmereMainWindow::ConnectSerialPort()
{
    m_pDeviceHub->ConnectSerialPort();
}

void CLmCarrowmereMainWindow::ConnectUploadData()
{
    m_pDeviceHub->ConnectUploadData();
}

void CLmCarrowmereMainWindow::TestNetworkConnect()
{
    m_pDeviceHub->TestNetworkConnect();
}

void CLmCarrowmereMainWindow::slotNetWorkStateRet(bool bOnline)
{
    m_pDeviceHub->slotNetWorkStateRet(bOnline);
}

void CLmCarrowmereMainWindow::ShowNetWorkState(bool bOnline)
{
    const QString online = QStringLiteral("Home_WiFi_Online_ic");
    const QString offline = QStringLiteral("Home_WiFi_Disconnected_ic");
    SwapStyleImage(m_pUi->m_pBtnNetWorkState, bOnline ? offline : online, bOnline ? online : offline);
}

// Whatever the first answer of the network tester says, the stored session
// is looked at; the news, the update checks and the push channel start only
// when that first answer is online.
void CLmCarrowmereMainWindow::StartCloudWork(bool bOnline)
{
    ValidAccoutState();
    if (!bOnline)
        return;
    m_pUi->m_pMainStackedWidget->setCurrentWidget(m_pUi->m_pHomePage);
    m_pUi->m_pHomeStackedWidget->setCurrentWidget(m_pUi->m_pOnlineView);
    m_pNoticeCenter->ShowNews(QUrl::fromEncoded(GetPageIP() + LmCloudPath::NewsPage));
    m_pNoticeCenter->StartUpdateChecks();
    OpenPushLink();
}

void CLmCarrowmereMainWindow::slotMarkUpgrade(bool bNeed)
{
    if (bNeed && m_pNoticeCenter->OfferFirmwareUpdate())
        OpenMaintainPage();
}

void CLmCarrowmereMainWindow::OpenMaintainPage()
{
    m_pUi->m_pBtnMainWndMaintain->setChecked(true);
    slotExecMaintain();
}

bool CLmCarrowmereMainWindow::IsLogin()
{
    return m_pAccountSession->IsSignedIn();
}

bool CLmCarrowmereMainWindow::ValidAccoutState()
{
    return m_pAccountSession->CheckStoredSession();
}

void CLmCarrowmereMainWindow::SetLoginUserInfo()
{
    m_pAccountSession->ShowSignedIn();
}

void CLmCarrowmereMainWindow::slotUserLogin()
{
    m_pAccountSession->OpenAccount();
}

void CLmCarrowmereMainWindow::slotAcceptLogin()
{
    SetLoginUserInfo();
}

void CLmCarrowmereMainWindow::slotUserProRet(const QByteArray& reply)
{
    UserMessagePage()->ShowProfileView(reply);
    ShowPage(m_pUserMessagePage);
}

void CLmCarrowmereMainWindow::slotAccountState()
{
    SetLoginUserInfo();
}

void CLmCarrowmereMainWindow::slotAccountFailed()
{
    m_pAccountSession->slotAccountFailed();
}

void CLmCarrowmereMainWindow::slotShowAccountInfo()
{
    m_pAccountSession->ShowAccountInfo();
}

void CLmCarrowmereMainWindow::slotUpdateUserInfo()
{
    m_pAccountSession->ShowStoredUser();
}

void CLmCarrowmereMainWindow::slotAppBtnClicked()
{
    if (auto* button = qobject_cast<QPushButton*>(sender()))
        m_pLauncher->Launch(button->accessibleName());
}

void CLmCarrowmereMainWindow::slotProcessStarted()
{
    m_pLauncher->HandOver();
}

void CLmCarrowmereMainWindow::slotProcessFinished(int exitCode, QProcess::ExitStatus exitStatus)
{
    m_pLauncher->TakeBack(exitCode, exitStatus);
}

void CLmCarrowmereMainWindow::slotOpen3DViewer()
{
    m_pLauncher->Open3DViewer();
}

void CLmCarrowmereMainWindow::slotOpenShortcut()
{
    m_pLauncher->OpenImageViewer();
}

void CLmCarrowmereMainWindow::slotCloudBtnClicked()
{
    if (!m_pAccountSession->MayOpenCloudPages())
        return;
    m_pUi->m_pBtnProjManager->SetTipVisible(false);
    ShowPage(ProjMgrPage());
}

void CLmCarrowmereMainWindow::slotHelpBtnClicked()
{
    m_pLauncher->OpenHelp();
}

void CLmCarrowmereMainWindow::slotUasConnected(CLmUasProvide* pUas)
{
    m_pDeviceHub->slotUasConnected(pUas);
}

void CLmCarrowmereMainWindow::slotUasDisConnected(CLmUasProvide* pUas)
{
    m_pDeviceHub->slotUasDisConnected(pUas);
}

void CLmCarrowmereMainWindow::slotNeedNotifyParachute(int count)
{
    m_pDeviceHub->slotNeedNotifyParachute(count);
}

void CLmCarrowmereMainWindow::OpenPushLink()
{
    connect(m_pLinkManager, &CLmLinkManager::bytesReceived, this, &CLmCarrowmereMainWindow::slotBytesReceived);
    m_pNoticeCenter->OpenPushLink(m_pLinkManager);
}

void CLmCarrowmereMainWindow::slotNeedUpgradeSureNewVersion(QJsonObject release)
{
    m_pNoticeCenter->OfferApplicationUpgrade(release);
}

void CLmCarrowmereMainWindow::slotLauncherUpgradeInfor()
{
    m_pNoticeCenter->OfferLauncherUpgrade();
}
