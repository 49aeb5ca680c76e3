#include "CLmCarrowmereMainWindow.h"

#include "LmCarrowmereUILog.h"
#include "ui_CLmCarrowmereWgt.h"

#include "CLmCarrowmereMaintainPage.h"
#include "CLmCarrowmereLoginDialog.h"
#include "CLmControl.h"
#include "CLmHardwareCheck.h"
#include "CLmDeviceChangeFilter.h"
#include "CLmFlightDataDbOperator.h"
#include "CLmLauncher.h"
#include "CLmLinkManager.h"
#include "CLmLinkProvide.h"
#include "CLmMessageBox.h"
#include "CLmNetWorkGlobal.h"
#include "CLmNetWorkRequest.h"
#include "CLmNoFlyZoneUpgrade.h"
#include "CLmNoticeCenter.h"
#include "CLmProjMgrWgt.h"
#include "CLmSessionStore.h"
#include "CLmShareNotifier.h"
#include "CLmUAVConnectObj.h"
#include "CLmUasProvide.h"
#include "CLmUsbDeviceLink.h"
#include "CLmUserMessagePage.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"
#include "LmConstants.h"
#include "LmPushText.h"
#include "LmUsbDiskText.h"
#include "mavlink_message_t.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QMouseEvent>
#include <QUrl>

namespace {

const char kIconShareOk[] = ":/images/Normal/Home/HomeFile_share_ok_ic.png";
const char kIconExit[] = ":/images/Normal/Home/HomeFilebut_receive_ic.png";
const char kIconOffNetwork[] = ":/images/Normal/userinfo/off_network_ico.png";

// The network tester's period until the cloud has been reached once, and after.
constexpr int kOfflinePollMs = 5000;
constexpr int kOnlinePollMs = 10000;

// Account checks ("/user/profile") wait this long for the service.
constexpr int kAccountCheckTimeoutMs = 10000;

// A parachute count above this asks the crew to check the parachute.
constexpr int kParachuteNoticeThreshold = 80;

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
    m_pLauncher = new CLmLauncher(m_process, m_threadUpload, this);
    ConnectLauncher();
    m_pNoticeCenter = new CLmNoticeCenter(this, m_pUi->m_pOnlineView);
    ConnectNotices();

    SetupConnectInfo();
    InitSystemInfo();
    ReadExistUsbDevice();

    m_pLinkManager = new CLmLinkManager(this);

    m_pProjMgrWgt = new CLmProjMgrWgt(this);
    m_pUi->m_pMainStackedWidget->addWidget(m_pProjMgrWgt);
    connect(m_pProjMgrWgt, &CLmProjMgrWgt::BackToHome, this, &CLmCarrowmereMainWindow::slotBackToHome);
    m_pProjMgrWgt->hide();

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
    // The tester and the uploader belong to threads that have ended now.
    delete m_pNetWorkGlobal;
    delete m_pFlightDataDbOperator;
    delete m_pUsbDeviceLink;
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

void CLmCarrowmereMainWindow::CreatePages()
{
    if (!m_pMaintainPage) {
        m_pMaintainPage = new CLmCarrowmereMaintainPage(this);
        m_pUi->m_pMainStackedWidget->addWidget(m_pMaintainPage);
        connect(m_pMaintainPage, &CLmCarrowmereMaintainPage::BackToHome, this,
                &CLmCarrowmereMainWindow::slotBackToHome);
        connect(m_pMaintainPage, &CLmCarrowmereMaintainPage::NeedUpgrade, this,
                &CLmCarrowmereMainWindow::slotMarkUpgrade);
        m_pMaintainPage->SetMainWindow(this);
    }
    if (!m_pUserMessagePage) {
        m_pUserMessagePage = new CLmUserMessagePage(this);
        m_pUi->m_pMainStackedWidget->addWidget(m_pUserMessagePage);
        connect(m_pUserMessagePage, &CLmUserMessagePage::saveUserInfoSucced, this,
                &CLmCarrowmereMainWindow::slotUpdateUserInfo);
        connect(m_pUserMessagePage, &CLmUserMessagePage::LogoutSucced, this,
                &CLmCarrowmereMainWindow::slotUpdateUserInfo);
        connect(m_pUserMessagePage, &CLmUserMessagePage::BackToHome, this,
                &CLmCarrowmereMainWindow::slotBackToHome);
    }
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
    connect(m_pLauncher, &CLmLauncher::SignInNeeded, this, &CLmCarrowmereMainWindow::AskToSignIn);
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
    connect(m_pNoticeCenter, &CLmNoticeCenter::ProjectNoticeArrived, this, &Window::ShowProjectBadge);
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

void CLmCarrowmereMainWindow::InitSystemInfo()
{
    m_pUi->m_pLabelTestVersion->setVisible(IsTestServer());

    const int widths[] = {150, 250, 110, 300};
    for (int column = 0; column < 4; ++column)
        m_pUi->m_pSysInfoTree->setColumnWidth(column, widths[column]);
    CLmHardwareCheck::Show(CLmHardwareCheck::ReadSystem(), m_pUi->m_pSysInfoTree, m_pUi->m_pLabelHardwareWarning);
}

void CLmCarrowmereMainWindow::ReadExistUsbDevice()
{
    if (!m_pUsbDeviceLink) {
        m_pUsbDeviceLink = new CLmUsbDeviceLink(nullptr);
        // On desktops that report volumes themselves the watcher notices
        // arrival and removal on its own.
        connect(m_pUsbDeviceLink, &CLmUsbDeviceLink::DiskListChanged, this,
                &CLmCarrowmereMainWindow::HandUsbDisksToMaintainPage);
    }
    m_pUsbDeviceLink->Init();
    if (!m_pUsbDeviceLink->GetCheckedDisk().isEmpty())
        HandUsbDisksToMaintainPage();
}

void CLmCarrowmereMainWindow::HandUsbDisksToMaintainPage()
{
    m_pMaintainPage->SetUsbDisks(LmUsbDiskText::Lines(m_pUsbDeviceLink->GetCheckedDisk()));
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
    m_pUserMessagePage->ShowMessageView();
    m_pUi->m_pMainStackedWidget->setCurrentWidget(m_pUserMessagePage);
    m_pUserMessagePage->show();
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
    QString style = m_pUi->m_pBtnMessage->styleSheet();
    style.replace(QStringLiteral("Mymessage_Nonews_ic"), QStringLiteral("Mymessage_news_ic"), Qt::CaseSensitive);
    m_pUi->m_pBtnMessage->setStyleSheet(style);
}

// A news text makes the system message clickable.
void CLmCarrowmereMainWindow::ShowSystemMessage(const QString& text)
{
    m_pUi->m_pBtnSysMessage->setText(text);
    m_pUi->m_pBtnSysMessage->setAttribute(Qt::WA_TransparentForMouseEvents, false);
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

bool CLmCarrowmereMainWindow::nativeEvent(const QByteArray& eventType, void* message, long* result)
{
    if (m_pUsbDeviceLink) {
        unsigned long driveMask = 0;
        switch (CLmDeviceChangeFilter::DecodeNative(eventType, message, &driveMask)) {
        case CLmDeviceChangeFilter::DiskArrival:
            m_pUsbDeviceLink->AddDisk(driveMask);
            HandUsbDisksToMaintainPage();
            break;
        case CLmDeviceChangeFilter::DiskRemoval:
            m_pUsbDeviceLink->RemoveDisk(driveMask);
            HandUsbDisksToMaintainPage();
            break;
        case CLmDeviceChangeFilter::NoAction:
            break;
        }
    }
    Q_UNUSED(result)
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
    auto* worker = new CLmUAVConnectObj(m_pLinkManager, nullptr);
    connect(worker, &CLmUAVConnectObj::UAV_connected, this, &CLmCarrowmereMainWindow::slotUasConnected);
    connect(worker, &CLmUAVConnectObj::planeInfo, m_pMaintainPage, &CLmCarrowmereMaintainPage::slotRecivePlaneInfo);
    connect(worker, &CLmUAVConnectObj::multirotor_planeInfo, m_pMaintainPage,
            &CLmCarrowmereMaintainPage::slotReciveMultirotorPlaneInfo);
    connect(worker, &CLmUAVConnectObj::KeyStatusString, m_pMaintainPage,
            &CLmCarrowmereMaintainPage::slotKeyStatusString);
    connect(worker, &CLmUAVConnectObj::UAV_disconnected, this, &CLmCarrowmereMainWindow::slotUasDisConnected);
    connect(worker, &CLmUAVConnectObj::NeedNotifyParachute, this, &CLmCarrowmereMainWindow::slotNeedNotifyParachute);
    connect(this, &CLmCarrowmereMainWindow::freeSerialPort, worker, &CLmUAVConnectObj::slotFreeSerialPort);
    connect(this, &CLmCarrowmereMainWindow::connectSerialPort, worker, &CLmUAVConnectObj::slotConnectSerialPort);
    worker->moveToThread(&m_threadUAV);
    connect(&m_threadUAV, &QThread::started, worker, &CLmUAVConnectObj::slotConnectUAVStart);
    connect(&m_threadUAV, &QThread::finished, worker, &QObject::deleteLater);
    m_threadUAV.start(QThread::InheritPriority);
}

void CLmCarrowmereMainWindow::ConnectUploadData()
{
    if (!m_pFlightDataDbOperator) {
        m_pFlightDataDbOperator = new CLmFlightDataDbOperator(nullptr, EUploadEnv(2));
        connect(m_pProjMgrWgt, &CLmProjMgrWgt::parseJsonArray, m_pFlightDataDbOperator,
                &CLmFlightDataDbOperator::slotParseJson);
        connect(this, &CLmCarrowmereMainWindow::uploadFlightData, m_pFlightDataDbOperator,
                &CLmFlightDataDbOperator::slotStartUploadTimer);
        m_pFlightDataDbOperator->moveToThread(&m_threadUpload);
    }
    connect(&m_threadUpload, &QThread::started, m_pFlightDataDbOperator, &CLmFlightDataDbOperator::slotCheckNewData);
    m_threadUpload.start(QThread::InheritPriority);
}

void CLmCarrowmereMainWindow::TestNetworkConnect()
{
    if (!m_pNetWorkGlobal) {
        m_pNetWorkGlobal = new CLmNetWorkGlobal(nullptr);
        connect(m_pNetWorkGlobal, &CLmNetWorkGlobal::NetWorkConnectState, this,
                &CLmCarrowmereMainWindow::slotNetWorkStateRet);
        connect(&m_threadNetWork, &QThread::started, m_pNetWorkGlobal,
                &CLmNetWorkGlobal::slotTestNetWorkConnectState);
        // Runs in the ending thread itself, so its timer stops where it lives.
        connect(&m_threadNetWork, &QThread::finished, m_pNetWorkGlobal, &CLmNetWorkGlobal::StopProbing,
                Qt::DirectConnection);
        m_pNetWorkGlobal->moveToThread(&m_threadNetWork);
    }
    m_threadNetWork.start(QThread::InheritPriority);
}

void CLmCarrowmereMainWindow::slotNetWorkStateRet(bool bOnline)
{
    qCDebug(lcMainWnd) << "cloud" << (bOnline ? "online" : "offline") << "first answer:" << !m_bFirstNetWorkAnswer;
    CLmControl::GetInstance()->SetNetWorkState(bOnline);
    QString style = m_pUi->m_pBtnNetWorkState->styleSheet();
    if (bOnline)
        style.replace(QStringLiteral("Home_WiFi_Disconnected_ic"), QStringLiteral("Home_WiFi_Online_ic"));
    else
        style.replace(QStringLiteral("Home_WiFi_Online_ic"), QStringLiteral("Home_WiFi_Disconnected_ic"));
    m_pUi->m_pBtnNetWorkState->setStyleSheet(style);
    if (!bOnline)
        m_threadNetWork.start(QThread::InheritPriority);

    if (m_bFirstNetWorkAnswer)
        return;
    m_threadNetWork.quit();
    m_threadNetWork.wait();
    m_bFirstNetWorkAnswer = true;
    ValidAccoutState();
    if (bOnline) {
        m_pUi->m_pMainStackedWidget->setCurrentWidget(m_pUi->m_pHomePage);
        m_pUi->m_pHomeStackedWidget->setCurrentWidget(m_pUi->m_pOnlineView);
        m_pNoticeCenter->ShowNews(QUrl::fromEncoded(GetPageIP() + LmCloudPath::NewsPage));
        m_pNetWorkGlobal->SetTimerInterval(kOnlinePollMs);
        m_threadNetWork.start(QThread::InheritPriority);
        m_pNoticeCenter->StartUpdateChecks();
        OpenPushLink();
    } else {
        m_pNetWorkGlobal->SetTimerInterval(kOfflinePollMs);
        m_threadNetWork.start(QThread::InheritPriority);
    }
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
    return CLmSessionStore().IsSignedIn();
}

void CLmCarrowmereMainWindow::SetAccountButtonsEnabled(bool bEnabled)
{
    m_pUi->m_pBtnProjManager->setEnabled(bEnabled);
    m_pUi->m_pBtnMainWndMaintain->setEnabled(bEnabled);
    m_pUi->m_pBtnMainWndVireoMoniter->setEnabled(bEnabled);
}

void CLmCarrowmereMainWindow::SetLoginUserInfo()
{
    slotAcceptLogin();
}

void CLmCarrowmereMainWindow::slotAcceptLogin()
{
    const SLmUserInfo user = GetCurUserInfo();
    CLmControl::GetInstance()->SetRouteFolder(CLmControl::GetInstance()->GetAppDataDirectory()
                                              + QStringLiteral("/Project/") + user.strUserID
                                              + QStringLiteral("/Vireo_AirLine/"));
    m_pUi->m_pLabelUserName->setText(user.strNickName);
    SetAccountButtonsEnabled(true);
    m_pNoticeCenter->RefreshPushSubscription();
    m_pNoFlyZoneUpgrade->Start();
}

void CLmCarrowmereMainWindow::slotUpdateUserInfo()
{
    const QString nickName = GetCurUserInfo().strNickName;
    if (!nickName.isEmpty()) {
        m_pUi->m_pLabelUserName->setText(nickName);
        return;
    }
    m_pUi->m_pLabelUserName->setText(tr("Sign in"));
    SetAccountButtonsEnabled(false);
    m_pNoticeCenter->RefreshPushSubscription();
    slotBackToHome();
    m_pProjMgrWgt->Reset();
}

void CLmCarrowmereMainWindow::ShowNetworkFault()
{
    CLmMessageBox box(tr("Network fault"), QLatin1String(kIconOffNetwork), tr("SkyConsole"), CLmMessageBox::BtnOk,
                      this);
    box.exec();
}

void CLmCarrowmereMainWindow::AskToSignIn()
{
    if (CLmControl::GetInstance()->IsNetWorkConnected())
        OpenLoginDialog();
    else
        ShowNetworkFault();
}

void CLmCarrowmereMainWindow::OpenLoginDialog()
{
    CLmCarrowmereLoginDialog dialog(this, false);
    connect(&dialog, &CLmCarrowmereLoginDialog::LoginAccept, this, &CLmCarrowmereMainWindow::slotAcceptLogin);
    dialog.exec();
}

void CLmCarrowmereMainWindow::slotUserLogin()
{
    if (!CLmControl::GetInstance()->IsNetWorkConnected()) {
        ShowNetworkFault();
        return;
    }
    if (!IsLogin()) {
        OpenLoginDialog();
        return;
    }
    CLmNetWorkRequest* request = NewProfileRequest();
    connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmCarrowmereMainWindow::slotUserProRet);
    request->PostNetWorkReplyMessage();
}

CLmNetWorkRequest* CLmCarrowmereMainWindow::NewProfileRequest()
{
    CLmNetWorkRequest* request = LmCloudRequest::NewSignedIn(LmCloudPath::UserProfile);
    connect(request, &CLmNetWorkRequest::FailedMsg, this, &CLmCarrowmereMainWindow::slotAccountFailed);
    connect(request, &CLmNetWorkRequest::NetWorkError, this, &CLmCarrowmereMainWindow::slotAccountFailed);
    request->SetNetWorkReplyTimeout(kAccountCheckTimeoutMs);
    return request;
}

void CLmCarrowmereMainWindow::slotUserProRet(const QByteArray& reply)
{
    m_pUserMessagePage->ShowProfileView(reply);
    m_pUi->m_pMainStackedWidget->setCurrentWidget(m_pUserMessagePage);
    m_pUserMessagePage->show();
}

bool CLmCarrowmereMainWindow::ValidAccoutState()
{
    const SLmUserInfo user = GetCurUserInfo();
    if (user.strToken.isEmpty()) {
        m_pUi->m_pLabelUserName->setText(tr("Please Login"));
        return false;
    }
    if (CLmControl::GetInstance()->IsNetWorkConnected()) {
        CLmNetWorkRequest* request = NewProfileRequest();
        connect(request, &CLmNetWorkRequest::ActionSucced, this, &CLmCarrowmereMainWindow::slotAccountState);
        request->PostNetWorkReplyMessage();
        return true;
    }
    SetLoginUserInfo();
    return true;
}

void CLmCarrowmereMainWindow::slotAccountState()
{
    SetLoginUserInfo();
}

void CLmCarrowmereMainWindow::slotAccountFailed()
{
    CLmMessageBox box(tr(" Failed to get user information."), QLatin1String(kIconOffNetwork), tr("SkyConsole"),
                      CLmMessageBox::BtnOk, this);
    box.exec();
    CLmCarrowmereLoginDialog dialog(this, false);
    connect(&dialog, &CLmCarrowmereLoginDialog::LoginAccept, this, &CLmCarrowmereMainWindow::slotAcceptLogin);
    if (dialog.exec() == QDialog::Accepted)
        return;
    CLmSessionStore().Clear();
    slotUpdateUserInfo();
}

void CLmCarrowmereMainWindow::slotShowAccountInfo()
{
    if (!CLmControl::GetInstance()->IsNetWorkConnected()) {
        ShowNetworkFault();
        return;
    }
    if (IsLogin())
        OpenLoginDialog();
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
    if (!CLmControl::GetInstance()->IsNetWorkConnected()) {
        ShowNetworkFault();
        return;
    }
    if (!IsLogin()) {
        CLmMessageBox box(tr("Please Login"), QLatin1String(kIconOffNetwork), tr("SkyConsole"),
                          CLmMessageBox::BtnOk, this);
        box.exec();
        return;
    }
    m_pUi->m_pBtnProjManager->SetTipVisible(false);
    m_pUi->m_pMainStackedWidget->setCurrentWidget(m_pProjMgrWgt);
    m_pProjMgrWgt->show();
}

void CLmCarrowmereMainWindow::slotHelpBtnClicked()
{
    m_pLauncher->OpenHelp();
}

void CLmCarrowmereMainWindow::slotUasConnected(CLmUasProvide* pUas)
{
    qCDebug(lcMainWnd) << "Uas connect";
    m_pMaintainPage->SetCurrentUas(pUas);
}

void CLmCarrowmereMainWindow::slotUasDisConnected(CLmUasProvide* pUas)
{
    Q_UNUSED(pUas)
    qCDebug(lcMainWnd) << "Uas Disconnect";
    m_pMaintainPage->SetCurrentUas(nullptr);
    m_pNoticeCenter->ForgetFirmwareOffer();
}

void CLmCarrowmereMainWindow::slotNeedNotifyParachute(int count)
{
    m_pMaintainPage->SetParachuteNotice(count > kParachuteNoticeThreshold);
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
