#include "LmPlaneType.h"

#include <QCoreApplication>

EPlaneType GetPlaneTypeByFirmware(const QString& firmware)
{
    if (firmware.startsWith(QLatin1String("FW_"), Qt::CaseInsensitive))
        return ePlaneTypeFixwing;
    if (firmware.startsWith(QLatin1String("MR_"), Qt::CaseInsensitive))
        return ePlaneTypeMultirotor;
    return ePlaneTypeUnknown;
}

QString GetPlaneStringByType(EPlaneType type)
{
    switch (type) {
    case ePlaneTypeFixwing: return QCoreApplication::translate("LmAlgorthm", "Fixed-wing");
    case ePlaneTypeMultirotor: return QCoreApplication::translate("LmAlgorthm", "Multirotor");
    case ePlaneTypeUnknown: break;
    }
    return QCoreApplication::translate("LmAlgorthm", "Unknown");
}

bool IsFixwing(EPlaneType type)
{
    return type == ePlaneTypeFixwing;
}
