#include "CLmCarrowmereUpgradeSure.h"

CLmCarrowmereUpgradeSure::CLmCarrowmereUpgradeSure(QWidget* parent)
    : CLmUpgradeDownloadDialog(parent)
{
    setObjectName(QStringLiteral("CLmCarrowmereUpgradeSure"));
}

void CLmCarrowmereUpgradeSure::SetDownloadData(const QJsonObject& release)
{
    SetRelease(release);
}
