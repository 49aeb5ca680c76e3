#include "CLmCarrowmereUpgradeLauncher.h"

#include "CLmCheckUpdateRet.h"
#include "CLmUpdateQuery.h"

CLmCarrowmereUpgradeLauncher::CLmCarrowmereUpgradeLauncher(QWidget* parent)
    : CLmUpgradeDownloadDialog(parent)
    , m_pQuery(new CLmUpdateQuery(this))
{
    setObjectName(QStringLiteral("CLmCarrowmereUpgradeLauncher"));
    connect(m_pQuery, &CLmUpdateQuery::NewerRelease, this, &CLmCarrowmereUpgradeLauncher::OnNewerRelease);
    connect(m_pQuery, &CLmUpdateQuery::UpToDate, this, &CLmCarrowmereUpgradeLauncher::OnUpToDate);
    connect(m_pQuery, &CLmUpdateQuery::Failed, this, &CLmCarrowmereUpgradeLauncher::ShowFailure);
}

void CLmCarrowmereUpgradeLauncher::Begin()
{
    if (HasRelease()) {
        StartDownload();
        return;
    }
    VisibleBtnRetry(false);
    SetCurrentText(tr("Looking for the newest launcher ..."));
    m_pQuery->Query(QStringLiteral("launcher"), CLmCheckUpdateRet::LauncherVersion());
}

void CLmCarrowmereUpgradeLauncher::OnNewerRelease(const QJsonObject& release)
{
    SetRelease(release);
    StartDownload();
}

void CLmCarrowmereUpgradeLauncher::OnUpToDate()
{
    SetCurrentText(tr("The launcher is up to date."));
    VisibleBtnClose(true);
}
