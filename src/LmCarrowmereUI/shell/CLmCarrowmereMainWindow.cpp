#include "CLmCarrowmereMainWindow.h"

#include "LmCarrowmereUILog.h"
#include "ui_CLmCarrowmereWgt.h"

#include "CLmCarrowmereMaintainPage.h"
#include "CLmCarrowmereLoginDialog.h"
#include "CLmCarrowmereUpgradeLauncher.h"
#include "CLmCarrowmereUpgradeSure.h"
#include "CLmCheckUpdateRet.h"
#include "CLmControl.h"
#include "CLmHardwareCheck.h"
#include "CLmDeviceChangeFilter.h"
#include "CLmFlightDataDbOperator.h"
#include "CLmLinkManager.h"
#include "CLmLinkProvide.h"
#include "CLmMessageBox.h"
#include "CLmNetWorkGlobal.h"
#include "CLmNetWorkRequest.h"
#include "CLmProjMgrWgt.h"
#include "CLmSessionStore.h"
#include "CLmShareNotifier.h"
#include "CLmSureUpgrade.h"
#include "CLmTcpClientLink.h"
#include "CLmUAVConnectObj.h"
#include "CLmUasProvide.h"
#include "CLmUsbDeviceLink.h"
#include "CLmUserMessagePage.h"
#include "LmCloudPaths.h"
#include "LmCloudRequest.h"
#include "LmConstants.h"
#include "LINK_TYPE.h"
#include "LmUsbDiskText.h"
#include "mavlink_message_t.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMouseEvent>
#include <QUrl>
#include <QWebEngineView>

namespace {

const char kIconShareOk[] = ":/images/Normal/Home/HomeFile_share_ok_ic.png";
const char kIconExit[] = ":/images/Normal/Home/HomeFilebut_receive_ic.png";
const char kIconExclamation[] = ":/images/Normal/Exclamation_mark.png";
const char kIconOffNetwork[] = ":/images/Normal/userinfo/off_network_ico.png";
const char kIconNotFound[] = ":/images/Normal/Home/HomeFile_share_no_ic.png";

// The network tester's period until the cloud has been reached once, and after.
constexpr int kOfflinePollMs = 5000;
constexpr int kOnlinePollMs = 10000;

// Account checks ("/user/profile") wait this long for the service.
constexpr int kAccountCheckTimeoutMs = 10000;

// A parachute count above this asks the crew to check the parachute.
constexpr int kParachuteNoticeThreshold = 80;

// Push notifications are acted on only with these statuses.
bool IsActionableStatus(int status)
{
    return status == 0 || status == 2;
}

}  // namespace

CLmCarrowmereMainWindow::CLmCarrowmereMainWindow(QWidget* parent)
    : CLmBaseWidget(parent)
{
    qRegisterMetaType<mavlink_message_t>("mavlink_message_t");
    connect(CLmShareNotifier::Instance(), &CLmShareNotifier::ShareMessageArrived, this,
            &CLmCarrowmereMainWindow::slotShowShareMessage);
    CheckShortcut();

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
    m_pUi->m_pBtnProjManager->SetTipVisible(true);
}

void CLmCarrowmereMainWindow::ShowNewMessageIcon()
{
    QString style = m_pUi->m_pBtnMessage->styleSheet();
    style.replace(QStringLiteral("Mymessage_Nonews_ic"), QStringLiteral("Mymessage_news_ic"), Qt::CaseSensitive);
    m_pUi->m_pBtnMessage->setStyleSheet(style);
}

void CLmCarrowmereMainWindow::ResponseJsonObject(const QJsonObject& obj)
{
    // A missing or non-numeric status is not one to act on.
    const int status = obj.value(QStringLiteral("status")).toInt(-1);
    const QString action = obj.value(QStringLiteral("action")).toString();
    qCDebug(lcMainWnd) << "push notification" << status << action;
    if (!IsActionableStatus(status))
        return;

    if (action == QLatin1String("project_share")) {
        m_pUi->m_pBtnProjManager->SetTipVisible(true);
    } else if (action == QLatin1String("project_share_message")) {
        ShowNewMessageIcon();
    } else if (action == QLatin1String("apply_ios")) {
        ShowNewMessageIcon();
        m_pMaintainPage->SetPendingRequest(true);
    } else if (action == QLatin1String("news")) {
        m_pUi->m_pBtnSysMessage->setText(obj.value(QStringLiteral("message")).toString());
        m_pUi->m_pBtnSysMessage->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    } else if (action == QLatin1String("lift_check")) {
        CLmMessageBox box(obj.value(QStringLiteral("message")).toString(), QLatin1String(kIconExclamation),
                          tr("System Information"), CLmMessageBox::BtnOk, this);
        box.exec();
        m_noFlyZoneUpgrade.Start();
    } else if (action == QLatin1String("pc_assign")) {
        qCDebug(lcMainWnd) << "task assigned:" << obj.value(QStringLiteral("message")).toString();
        m_pUi->m_pBtnProjManager->SetTipVisible(true);
    }
}

void CLmCarrowmereMainWindow::slotBytesReceived(CLmLinkProvide* pLink, QByteArray bytes)
{
    Q_UNUSED(pLink)
    const QStringList pieces = QString::fromUtf8(bytes).split(QStringLiteral("SWOOLE_SOCKET_FINISH"));
    for (const QString& piece : pieces) {
        const QJsonDocument document = QJsonDocument::fromJson(piece.toLatin1());
        const QJsonObject object = document.object();
        if (!object.isEmpty()) {
            ResponseJsonObject(object);
            continue;
        }
        const QJsonArray array = document.array();
        for (const QJsonValue& element : array)
            ResponseJsonObject(element.toObject());
    }
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
        ShowNewsPage(QUrl::fromEncoded(GetPageIP() + LmCloudPath::NewsPage));
        m_pNetWorkGlobal->SetTimerInterval(kOnlinePollMs);
        m_threadNetWork.start(QThread::InheritPriority);
        StartUpdateChecks();
        OpenPushLink();
    } else {
        m_pNetWorkGlobal->SetTimerInterval(kOfflinePollMs);
        m_threadNetWork.start(QThread::InheritPriority);
    }
}

void CLmCarrowmereMainWindow::slotMarkUpgrade(bool bNeed)
{
    if (!bNeed || m_pFirmwareNoticeBox)
        return;
    m_pFirmwareNoticeBox = new CLmMessageBox(tr(" There is a new firmware version needs to be updated."), QString(),
                                             tr("SkyConsole"), CLmMessageBox::BtnOkCancel, this);
    if (m_pFirmwareNoticeBox->exec() == 1) {
        m_pUi->m_pBtnMainWndMaintain->setChecked(true);
        slotExecMaintain();
    }
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
    RefreshPushSubscription();
    m_noFlyZoneUpgrade.Start();
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
    RefreshPushSubscription();
    slotBackToHome();
    m_pProjMgrWgt->Reset();
}

void CLmCarrowmereMainWindow::ShowNetworkFault()
{
    CLmMessageBox box(tr("Network fault"), QLatin1String(kIconOffNetwork), tr("SkyConsole"), CLmMessageBox::BtnOk,
                      this);
    box.exec();
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

QString CLmCarrowmereMainWindow::ParentOfApplicationDirectory() const
{
    QDir appDir(CLmControl::GetInstance()->GetApplicationDirectory());
    appDir.cdUp();
    return appDir.absolutePath();
}

void CLmCarrowmereMainWindow::StartDetached(const QString& program, const QStringList& arguments,
                                            const QString& workingFolder)
{
    if (!QProcess::startDetached(program, arguments, workingFolder))
        qCWarning(lcMainWnd) << "could not start" << program;
}

void CLmCarrowmereMainWindow::slotAppBtnClicked()
{
    auto* button = qobject_cast<QPushButton*>(sender());
    if (!button)
        return;
    const QString key = button->accessibleName();
    if (key == QLatin1String("Vireo_Process") || key == QLatin1String("Vireo_Map")) {
        const QString folder = ParentOfApplicationDirectory() + QStringLiteral("/vireo_map/");
        StartDetached(folder + key + QStringLiteral(".exe"), {GetLaunchKey()}, folder);
        return;
    }

    const SLmUserInfo user = GetCurUserInfo();
    if (user.strToken.isEmpty()) {
        if (CLmControl::GetInstance()->IsNetWorkConnected())
            OpenLoginDialog();
        else
            ShowNetworkFault();
        return;
    }

    if (key == QLatin1String("Vireo_Monitor")) {
        const QByteArray url = GetMonitorIP() + "/monitor/monitor4new?token=" + user.strToken.toLatin1();
        QDesktopServices::openUrl(QUrl(QString::fromLatin1(url), QUrl::TolerantMode));
        return;
    }

    connect(&m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &CLmCarrowmereMainWindow::slotProcessFinished, Qt::UniqueConnection);
    connect(&m_process, &QProcess::started, this, &CLmCarrowmereMainWindow::slotProcessStarted,
            Qt::UniqueConnection);
    // The program name of the attached applications is their key, beside this one.
    const QString program = CLmControl::GetInstance()->GetApplicationDirectory() + QLatin1Char('/') + key;
    m_process.start(program, {key, GetLaunchKey(), QString::fromUtf8(GetServerIP())}, QIODevice::ReadWrite);
}

void CLmCarrowmereMainWindow::slotProcessStarted()
{
    // The UAV worker owns the aircraft links and lets them go on this signal.
    Q_EMIT freeSerialPort();
    m_pMaintainPage->ReleaseDeviceConnection();
    hide();
    if (m_process.arguments().value(0) == QLatin1String("VireoFly") && m_threadUpload.isRunning()) {
        m_threadUpload.quit();
        m_threadUpload.wait();
    }
}

void CLmCarrowmereMainWindow::slotProcessFinished(int exitCode, QProcess::ExitStatus exitStatus)
{
    qCDebug(lcMainWnd) << "application ended" << exitCode << exitStatus;
    Q_EMIT connectSerialPort();
    m_pMaintainPage->RestoreDeviceConnection();
    show();
    if (m_process.arguments().value(0) == QLatin1String("VireoFly") && !m_threadUpload.isRunning())
        m_threadUpload.start(QThread::InheritPriority);
}

void CLmCarrowmereMainWindow::StartViewer(const QString& relativeProgram)
{
    const QString program = ParentOfApplicationDirectory() + relativeProgram;
    if (!QFileInfo::exists(program)) {
        CLmMessageBox box(tr("Not found an executable program."), QLatin1String(kIconNotFound), tr("SkyConsole"),
                          CLmMessageBox::BtnOk, this);
        box.exec();
        return;
    }
    StartDetached(program, {}, QFileInfo(program).absolutePath() + QLatin1Char('/'));
}

void CLmCarrowmereMainWindow::slotOpen3DViewer()
{
    StartViewer(QStringLiteral("/Carrowmere/vireo_3dviewer.exe"));
}

void CLmCarrowmereMainWindow::slotOpenShortcut()
{
    StartViewer(QStringLiteral("/vireo_map/vireo_viewer.exe"));
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
    QDesktopServices::openUrl(QUrl(GetHelpUrl(), QUrl::TolerantMode));
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
    if (m_pFirmwareNoticeBox) {
        delete m_pFirmwareNoticeBox;
        m_pFirmwareNoticeBox = nullptr;
    }
}

void CLmCarrowmereMainWindow::slotNeedNotifyParachute(int count)
{
    m_pMaintainPage->SetParachuteNotice(count > kParachuteNoticeThreshold);
}

void CLmCarrowmereMainWindow::ShowNewsPage(const QUrl& url)
{
    // The browser engine is costly to start, so the view exists only once
    // the cloud has been reached.
    if (!m_pNewsView) {
        m_pNewsView = new QWebEngineView(m_pUi->m_pOnlineView);
        m_pNewsView->setObjectName(QStringLiteral("m_pNewsWebView"));
        m_pNewsView->setContextMenuPolicy(Qt::NoContextMenu);
        m_pUi->m_pOnlineLayout->addWidget(m_pNewsView);
    }
    m_pNewsView->load(url);
}

void CLmCarrowmereMainWindow::StartUpdateChecks()
{
    m_pCheckUpdateRet = new CLmCheckUpdateRet(this);
    connect(m_pCheckUpdateRet, &CLmCheckUpdateRet::DownLoadFinished, m_pMaintainPage,
            &CLmCarrowmereMaintainPage::slotDownLoadFinished);
    connect(m_pCheckUpdateRet, &CLmCheckUpdateRet::LauncherUpgradeInfor, this,
            &CLmCarrowmereMainWindow::slotLauncherUpgradeInfor);
    m_pCheckUpdateRet->CheckUpdate();

    m_pSureUpgrade = new CLmSureUpgrade(this);
    connect(m_pSureUpgrade, &CLmSureUpgrade::NeedDownLoad, this,
            &CLmCarrowmereMainWindow::slotNeedUpgradeSureNewVersion);
    m_pSureUpgrade->CheckUpdate();
}

void CLmCarrowmereMainWindow::OpenPushLink()
{
    connect(m_pLinkManager, &CLmLinkManager::bytesReceived, this, &CLmCarrowmereMainWindow::slotBytesReceived);
    m_pPushLink = m_pLinkManager->AddTcpClientLink(this, LINK_TYPE_TCP_CLIENT);
}

void CLmCarrowmereMainWindow::RefreshPushSubscription()
{
    if (auto* pushLink = qobject_cast<CLmTcpClientLink*>(m_pPushLink))
        pushLink->Resubscribe();
}

void CLmCarrowmereMainWindow::slotNeedUpgradeSureNewVersion(QJsonObject release)
{
    CLmMessageBox box(tr(" There is a new \"srtch\" version needs to be updated."), QString(), tr("SkyConsole"),
                      CLmMessageBox::BtnOkCancel, this);
    if (box.exec() != 1)
        return;
    CLmCarrowmereUpgradeSure dialog(this);
    dialog.SetDownloadData(release);
    dialog.exec(true);
}

void CLmCarrowmereMainWindow::slotLauncherUpgradeInfor()
{
    CLmCarrowmereUpgradeLauncher dialog(this);
    dialog.exec(true);
}
