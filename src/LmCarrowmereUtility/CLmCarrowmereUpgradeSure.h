#pragma once

#include "CLmUpgradeDownloadDialog.h"

// Downloads the newer application version the user agreed to install; run
// it with exec(bool) after SetDownloadData.
class CLmCarrowmereUpgradeSure : public CLmUpgradeDownloadDialog
{
    Q_OBJECT
public:
    explicit CLmCarrowmereUpgradeSure(QWidget* parent = nullptr);

    // release: version, url, size, sha256, notes (CLmSureUpgrade::NeedDownLoad).
    void SetDownloadData(const QJsonObject& release);
};
