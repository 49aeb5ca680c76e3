#include "CLmUAVConnectObj.h"

#include "LmLinkInstanceLog.h"

CLmUAVConnectObj::CLmUAVConnectObj(CLmLinkManager* pLinkManager, QObject* parent)
    : QObject(parent)
    , m_pLinkManager(pLinkManager)
{
}

void CLmUAVConnectObj::slotConnectUAVStart()
{
    qCDebug(lcLinkInstance) << "UAV connection worker started";
}

void CLmUAVConnectObj::slotFreeSerialPort()
{
    m_bSerialPortReleased = true;
}

void CLmUAVConnectObj::slotConnectSerialPort()
{
    m_bSerialPortReleased = false;
}
