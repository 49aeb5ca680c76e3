#include "CLmNoFlyZoneUpgrade.h"

#include "CLmControl.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcNoFly, "sky.ui.noflyzone")

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
