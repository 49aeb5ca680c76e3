#pragma once

#include "CLmBaseWidget.h"
#include "lmcarrowmereui_export.h"

#include <QJsonObject>
#include <QList>
#include <QPoint>
#include <QProcess>
#include <QThread>

#include <memory>

namespace Ui {
class CLmCarrowmereWgt;
}
class QPushButton;
class CLmCarrowmereMaintainPage;
class CLmUserMessagePage;
class CLmProjMgrWgt;
class CLmLinkManager;
class CLmLinkProvide;
class CLmUasProvide;
class CLmNoFlyZoneUpgrade;
class CLmLauncher;
class CLmNoticeCenter;
class CLmAccountSession;
class CLmDeviceHub;

// The hub's one top-level window: title bar, home page with the launcher,
// the page stack and the worker threads that talk to the aircraft, upload
// flight data and test the network.
class LMCARROWMEREUI_EXPORT CLmCarrowmereMainWindow : public CLmBaseWidget
{
    Q_OBJECT
public:
    explicit CLmCarrowmereMainWindow(QWidget* parent = nullptr);
    ~CLmCarrowmereMainWindow() override;

    bool IsLogin();
    bool ValidAccoutState();

    int ComputeDBFileCount();
    void ConnectSerialPort();
    void ConnectUploadData();
    void TestNetworkConnect();

Q_SIGNALS:
    void freeSerialPort();
    void connectSerialPort();
    void uploadFlightData(bool bStart);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool nativeEvent(const QByteArray& eventType, void* message, long* result) override;

private:
    void CheckShortcut();
    void SetupForm();
    void CreatePages();
    CLmProjMgrWgt* ProjMgrPage();
    template <class TPage>
    TPage* AddPage(TPage* pPage);
    void SetupConnectInfo();
    void ConnectLauncher();
    void ConnectNotices();
    void ConnectAccountSession();
    void ConnectDeviceHub();
    void InitSystemInfo();
    void ReadMachineState();
    void ShowSystemFacts();
    void ReadExistUsbDevice();
    void ResponseJsonObject(const QJsonObject& obj);
    void ShowPage(QWidget* pPage);
    void ShowNewMessageIcon();
    void ClearNewMessageIcon();
    void ForgetAccountTraces();
    void ShowProjectBadge();
    void ShowSystemMessage(const QString& text);
    void ShowNetWorkState(bool bOnline);
    void StartCloudWork(bool bOnline);
    void OpenMaintainPage();
    void OpenPushLink();
    void SetLoginUserInfo();

private Q_SLOTS:
    void slotBackToHome();
    void slotExecMaintain();
    void slotExitApplication();
    void slotShowSysMsg();
    void slotShowShareMessage();
    void slotMarkUpgrade(bool bNeed);
    void slotUpdateUserInfo();
    void slotUserLogin();
    void slotAcceptLogin();
    void slotUserProRet(const QByteArray& reply);
    void slotAccountState();
    void slotAccountFailed();
    void slotShowAccountInfo();
    void slotAppBtnClicked();
    void slotCloudBtnClicked();
    void slotHelpBtnClicked();
    void slotOpen3DViewer();
    void slotOpenShortcut();
    void slotProcessStarted();
    void slotProcessFinished(int exitCode, QProcess::ExitStatus exitStatus);
    void slotUasConnected(CLmUasProvide* pUas);
    void slotUasDisConnected(CLmUasProvide* pUas);
    void slotNeedNotifyParachute(int count);
    void slotBytesReceived(CLmLinkProvide* pLink, QByteArray bytes);
    void slotNetWorkStateRet(bool bOnline);
    void slotNeedUpgradeSureNewVersion(QJsonObject release);
    void slotLauncherUpgradeInfor();

private:
    std::unique_ptr<Ui::CLmCarrowmereWgt> m_pUi;
    QThread m_threadUAV;
    QThread m_threadUpload;
    QThread m_threadNetWork;
    QProcess m_process;
    std::unique_ptr<CLmNoFlyZoneUpgrade> m_pNoFlyZoneUpgrade;
    QList<QPushButton*> m_listAppBtns;
    CLmLinkManager* m_pLinkManager = nullptr;
    CLmCarrowmereMaintainPage* m_pMaintainPage = nullptr;
    CLmUserMessagePage* m_pUserMessagePage = nullptr;
    CLmProjMgrWgt* m_pProjMgrWgt = nullptr;
    bool m_bPressed = false;
    QPoint m_ptDragOffset;
    // The launcher keeps the current links it handed over to an attached
    // program (their ids, so that every serial, UDP and TCP link comes back);
    // the device hub keeps its own counts. Neither is state of the window.
    CLmLauncher* m_pLauncher = nullptr;
    CLmNoticeCenter* m_pNoticeCenter = nullptr;
    CLmAccountSession* m_pAccountSession = nullptr;
    // Its workers live on the threads above; the destructor lets it go once
    // they have stopped.
    std::unique_ptr<CLmDeviceHub> m_pDeviceHub;
};
