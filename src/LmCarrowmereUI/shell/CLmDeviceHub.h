#pragma once

#include <QJsonArray>
#include <QObject>
#include <QString>

#include <memory>

class QThread;
class CLmCarrowmereMaintainPage;
class CLmFlightDataDbOperator;
class CLmLinkManager;
class CLmNetWorkGlobal;
class CLmUasProvide;
class CLmUsbDeviceLink;

// The window's workers and devices: the UAV worker, the flight-data uploader
// and the network tester, each on one of the window's threads, and the
// removable disks. Aircraft, parachute and disk news go to the maintenance
// page; what the network tester finds is reported by signals.
class CLmDeviceHub : public QObject
{
    Q_OBJECT
public:
    // The threads belong to the window, which stops them before the hub goes;
    // the hub owns the workers it puts on them and the disk watcher.
    CLmDeviceHub(QThread& uavThread, QThread& uploadThread, QThread& netWorkThread, CLmLinkManager* pLinkManager,
                 CLmCarrowmereMaintainPage* pMaintainPage, std::unique_ptr<CLmUsbDeviceLink> pUsbDeviceLink);
    ~CLmDeviceHub() override;

    // Each starts its worker's thread; meant to be called once.
    void ConnectSerialPort();
    void ConnectUploadData();
    void TestNetworkConnect();

    // Hands the disks present now to the maintenance page; later changes
    // follow on their own.
    void ReadExistUsbDevice();
    // A message of the window's native event handler; volume arrivals and
    // removals update the disks.
    void TakeDeviceChange(const QByteArray& eventType, void* message);

public Q_SLOTS:
    void slotUasConnected(CLmUasProvide* pUas);
    void slotUasDisConnected(CLmUasProvide* pUas);
    void slotNeedNotifyParachute(int count);
    void slotNetWorkStateRet(bool bOnline);

Q_SIGNALS:
    // Passed on to the UAV worker and the uploader.
    void freeSerialPort();
    void connectSerialPort();
    void uploadFlightData(bool bStart);
    void parseJsonArray(QJsonArray jArray, QString strFilePath, QString strMissionID, uint iOperatorType,
                        QString strProjectName);

    // The uploader wrote (or refused) flight data handed to it by parseJsonArray.
    void FlightDataParsed(QString strFilePath, QString strMissionID, unsigned int iOperatorType, int iRows);
    // The aircraft held by the maintenance page went away.
    void AircraftLost();
    // Every answer of the network tester, and its first answer once.
    void NetWorkStateChanged(bool bOnline);
    void FirstNetWorkAnswer(bool bOnline);

private:
    void TakeFirstNetWorkAnswer(bool bOnline);
    void StartNetWorkTest();
    void HandUsbDisksToMaintainPage();
    void ShowBusyPort(const QString& where);

    QThread& m_uavThread;
    QThread& m_uploadThread;
    QThread& m_netWorkThread;
    CLmLinkManager* m_pLinkManager;
    CLmCarrowmereMaintainPage* m_pMaintainPage;
    std::unique_ptr<CLmUsbDeviceLink> m_pUsbDeviceLink;
    std::unique_ptr<CLmFlightDataDbOperator> m_pFlightDataDbOperator;
    std::unique_ptr<CLmNetWorkGlobal> m_pNetWorkGlobal;
    bool m_bFirstNetWorkAnswer = false;
};
