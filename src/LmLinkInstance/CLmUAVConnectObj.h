#pragma once

#include <QObject>
#include <QStringList>

class CLmLinkManager;
#include "CLmUasProvide.h"

// Finds and watches the aircraft on the radio link. Lives on the UAV thread
// and talks to the window only through signals.
class CLmUAVConnectObj : public QObject
{
    Q_OBJECT
public:
    CLmUAVConnectObj(CLmLinkManager* pLinkManager, QObject* parent = nullptr);

public Q_SLOTS:
    void slotConnectUAVStart();
    void slotFreeSerialPort();
    void slotConnectSerialPort();

Q_SIGNALS:
    void UAV_connected(CLmUasProvide* pUas);
    void UAV_disconnected(CLmUasProvide* pUas);
    void planeInfo(QStringList info);
    void multirotor_planeInfo(QStringList info);
    void KeyStatusString(QString status);
    void NeedNotifyParachute(int count);

private:
    CLmLinkManager* m_pLinkManager;
    bool m_bSerialPortReleased = false;
};
