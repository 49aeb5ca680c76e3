#include "CLmNoFlyZoneUpgrade.h"

#include "LmCarrowmereUILog.h"
#include "CLmControl.h"

CLmNoFlyZoneUpgrade::CLmNoFlyZoneUpgrade(QObject* parent)
    : QObject(parent)
{
}

void CLmNoFlyZoneUpgrade::Start()
{
    if (!CLmControl::GetInstance()->IsNetWorkConnected())
        return;
    qCDebug(lcNoFly) << "no-fly-zone check requested";
}
