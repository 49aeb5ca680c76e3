#include "CLmDeviceHub.h"

#include "CLmCarrowmereMaintainPage.h"
#include "CLmControl.h"
#include "CLmDeviceChangeFilter.h"
#include "CLmFlightDataDbOperator.h"
#include "CLmNetWorkGlobal.h"
#include "CLmUAVConnectObj.h"
#include "CLmUsbDeviceLink.h"
#include "LmCarrowmereUILog.h"
#include "LmUsbDiskText.h"

#include <QThread>

namespace {

// The network tester's period until the cloud has been reached once, and after.
constexpr int kOfflinePollMs = 5000;
constexpr int kOnlinePollMs = 10000;

// A parachute count above this asks the crew to check the parachute.
constexpr int kParachuteNoticeThreshold = 80;

}  // namespace

CLmDeviceHub::CLmDeviceHub(QThread& uavThread, QThread& uploadThread, QThread& netWorkThread,
                           CLmLinkManager* pLinkManager, CLmCarrowmereMaintainPage* pMaintainPage,
                           std::unique_ptr<CLmUsbDeviceLink> pUsbDeviceLink)
    : m_uavThread(uavThread)
    , m_uploadThread(uploadThread)
    , m_netWorkThread(netWorkThread)
    , m_pLinkManager(pLinkManager)
    , m_pMaintainPage(pMaintainPage)
    , m_pUsbDeviceLink(std::move(pUsbDeviceLink))
{
    // On desktops that report volumes themselves the watcher notices arrival
    // and removal on its own.
    connect(m_pUsbDeviceLink.get(), &CLmUsbDeviceLink::DiskListChanged, this,
            &CLmDeviceHub::HandUsbDisksToMaintainPage);
}

CLmDeviceHub::~CLmDeviceHub() = default;

void CLmDeviceHub::ConnectSerialPort()
{
    auto* worker = new CLmUAVConnectObj(m_pLinkManager, nullptr);
    connect(worker, &CLmUAVConnectObj::UAV_connected, this, &CLmDeviceHub::slotUasConnected);
    connect(worker, &CLmUAVConnectObj::planeInfo, m_pMaintainPage, &CLmCarrowmereMaintainPage::slotRecivePlaneInfo);
    connect(worker, &CLmUAVConnectObj::multirotor_planeInfo, m_pMaintainPage,
            &CLmCarrowmereMaintainPage::slotReciveMultirotorPlaneInfo);
    connect(worker, &CLmUAVConnectObj::KeyStatusString, m_pMaintainPage,
            &CLmCarrowmereMaintainPage::slotKeyStatusString);
    connect(worker, &CLmUAVConnectObj::UAV_disconnected, this, &CLmDeviceHub::slotUasDisConnected);
    connect(worker, &CLmUAVConnectObj::NeedNotifyParachute, this, &CLmDeviceHub::slotNeedNotifyParachute);
    connect(worker, &CLmUAVConnectObj::linkBusy, this, &CLmDeviceHub::ShowBusyPort);
    connect(worker, &CLmUAVConnectObj::linkOpened, this, [this] { m_pMaintainPage->SetLinkProblem(QString()); });
    connect(this, &CLmDeviceHub::freeSerialPort, worker, &CLmUAVConnectObj::slotFreeSerialPort);
    connect(this, &CLmDeviceHub::connectSerialPort, worker, &CLmUAVConnectObj::slotConnectSerialPort);
    worker->moveToThread(&m_uavThread);
    connect(&m_uavThread, &QThread::started, worker, &CLmUAVConnectObj::slotConnectUAVStart);
    connect(&m_uavThread, &QThread::finished, worker, &QObject::deleteLater);
    m_uavThread.start(QThread::InheritPriority);
}

void CLmDeviceHub::ConnectUploadData()
{
    if (!m_pFlightDataDbOperator) {
        m_pFlightDataDbOperator = std::make_unique<CLmFlightDataDbOperator>(nullptr, EUploadEnv(2));
        connect(this, &CLmDeviceHub::parseJsonArray, m_pFlightDataDbOperator.get(),
                &CLmFlightDataDbOperator::slotParseJson);
        connect(this, &CLmDeviceHub::uploadFlightData, m_pFlightDataDbOperator.get(),
                &CLmFlightDataDbOperator::slotStartUploadTimer);
        connect(m_pFlightDataDbOperator.get(), &CLmFlightDataDbOperator::FlightDataParsed, this,
                &CLmDeviceHub::FlightDataParsed);
        m_pFlightDataDbOperator->moveToThread(&m_uploadThread);
    }
    connect(&m_uploadThread, &QThread::started, m_pFlightDataDbOperator.get(),
            &CLmFlightDataDbOperator::slotCheckNewData);
    m_uploadThread.start(QThread::InheritPriority);
}

void CLmDeviceHub::TestNetworkConnect()
{
    if (!m_pNetWorkGlobal) {
        m_pNetWorkGlobal = std::make_unique<CLmNetWorkGlobal>(nullptr);
        connect(m_pNetWorkGlobal.get(), &CLmNetWorkGlobal::NetWorkConnectState, this,
                &CLmDeviceHub::slotNetWorkStateRet);
        connect(&m_netWorkThread, &QThread::started, m_pNetWorkGlobal.get(),
                &CLmNetWorkGlobal::slotTestNetWorkConnectState);
        // Runs in the ending thread itself, so its timer stops where it lives.
        connect(&m_netWorkThread, &QThread::finished, m_pNetWorkGlobal.get(), &CLmNetWorkGlobal::StopProbing,
                Qt::DirectConnection);
        m_pNetWorkGlobal->moveToThread(&m_netWorkThread);
    }
    StartNetWorkTest();
}

void CLmDeviceHub::ReadExistUsbDevice()
{
    m_pUsbDeviceLink->Init();
    if (!m_pUsbDeviceLink->GetCheckedDisk().isEmpty())
        HandUsbDisksToMaintainPage();
}

void CLmDeviceHub::TakeDeviceChange(const QByteArray& eventType, void* message)
{
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

void CLmDeviceHub::HandUsbDisksToMaintainPage()
{
    m_pMaintainPage->SetUsbDisks(LmUsbDiskText::Lines(m_pUsbDeviceLink->GetCheckedDisk()));
}

// The aircraft events go to the window's log category, which the application
// keeps on.
void CLmDeviceHub::slotUasConnected(CLmUasProvide* pUas)
{
    qCDebug(lcMainWnd) << "Uas connect";
    m_pMaintainPage->SetCurrentUas(pUas);
}

void CLmDeviceHub::slotUasDisConnected(CLmUasProvide* pUas)
{
    Q_UNUSED(pUas)
    qCDebug(lcMainWnd) << "Uas Disconnect";
    m_pMaintainPage->SetCurrentUas(nullptr);
    Q_EMIT AircraftLost();
}

void CLmDeviceHub::ShowBusyPort(const QString& where)
{
    m_pMaintainPage->SetLinkProblem(
        tr("The aircraft port %1 is in use by another program; trying again.").arg(where));
}

void CLmDeviceHub::slotNeedNotifyParachute(int count)
{
    m_pMaintainPage->SetParachuteNotice(count > kParachuteNoticeThreshold);
}

void CLmDeviceHub::slotNetWorkStateRet(bool bOnline)
{
    qCDebug(lcMainWnd) << "cloud" << (bOnline ? "online" : "offline") << "first answer:" << !m_bFirstNetWorkAnswer;
    CLmControl::GetInstance()->SetNetWorkState(bOnline);
    Q_EMIT NetWorkStateChanged(bOnline);
    if (!bOnline)
        StartNetWorkTest();
    if (!m_bFirstNetWorkAnswer)
        TakeFirstNetWorkAnswer(bOnline);
}

// The first answer, whatever it says, sets the poll period for the rest of
// the run and is reported once.
void CLmDeviceHub::TakeFirstNetWorkAnswer(bool bOnline)
{
    m_netWorkThread.quit();
    m_netWorkThread.wait();
    m_bFirstNetWorkAnswer = true;
    Q_EMIT FirstNetWorkAnswer(bOnline);
    m_pNetWorkGlobal->SetTimerInterval(bOnline ? kOnlinePollMs : kOfflinePollMs);
    StartNetWorkTest();
}

void CLmDeviceHub::StartNetWorkTest()
{
    m_netWorkThread.start(QThread::InheritPriority);
}
