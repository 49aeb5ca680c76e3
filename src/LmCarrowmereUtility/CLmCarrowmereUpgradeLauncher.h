#pragma once

#include "CLmUpgradeDownloadDialog.h"

class CLmUpdateQuery;

// Asks the cloud for the newest launcher and downloads it; run it with
// exec(bool).
class CLmCarrowmereUpgradeLauncher : public CLmUpgradeDownloadDialog
{
    Q_OBJECT
public:
    explicit CLmCarrowmereUpgradeLauncher(QWidget* parent = nullptr);

protected:
    void Begin() override;

private:
    void OnNewerRelease(const QJsonObject& release);
    void OnUpToDate();

    CLmUpdateQuery* m_pQuery;
};
