#include "CLmUpgradeDownloadDialog.h"

#include "CLmMessageBox.h"
#include "CLmPackageDownload.h"
#include "CLmUpdateFolders.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QTimer>
#include <QUrl>

CLmUpgradeDownloadDialog::CLmUpgradeDownloadDialog(QWidget* parent)
    : CLmProgressWgt(parent)
    , m_pDownload(new CLmPackageDownload(this))
{
    SetTitle(tr("SkyConsole"));
    connect(m_pDownload, &CLmPackageDownload::Progress, this, &CLmProgressWgt::SetProgress);
    connect(m_pDownload, &CLmPackageDownload::Finished, this, &CLmUpgradeDownloadDialog::OnDownloaded);
    connect(m_pDownload, &CLmPackageDownload::Failed, this, &CLmUpgradeDownloadDialog::ShowFailure);
    connect(this, &CLmProgressWgt::signalBtnRetryClicked, this, &CLmUpgradeDownloadDialog::Begin);
    connect(this, &CLmProgressWgt::signalBtnCancelClicked, m_pDownload, &CLmPackageDownload::Abort);
    connect(this, &CLmProgressWgt::signalBtnCloseClicked, m_pDownload, &CLmPackageDownload::Abort);
}

QString CLmUpgradeDownloadDialog::DownloadedFilePath() const
{
    return m_strFilePath;
}

void CLmUpgradeDownloadDialog::SetRelease(const QJsonObject& release)
{
    m_release = release;
}

bool CLmUpgradeDownloadDialog::HasRelease() const
{
    return !m_release.isEmpty();
}

void CLmUpgradeDownloadDialog::showEvent(QShowEvent* event)
{
    CLmProgressWgt::showEvent(event);
    if (m_bBegun)
        return;
    m_bBegun = true;
    QTimer::singleShot(0, this, &CLmUpgradeDownloadDialog::Begin);
}

void CLmUpgradeDownloadDialog::Begin()
{
    if (HasRelease())
        StartDownload();
    else
        ShowFailure();
}

void CLmUpgradeDownloadDialog::StartDownload()
{
    VisibleBtnRetry(false);
    SetValue(0);
    SetCurrentText(tr("Downloading version %1 ...").arg(m_release.value(QStringLiteral("version")).toString()));
    m_pDownload->Start(m_release, CLmUpdateFolders::Installers());
}

void CLmUpgradeDownloadDialog::ShowFailure()
{
    SetCurrentText(tr("Download File Failed."));
    VisibleBtnRetry(true);
    VisibleBtnCannel(true);
}

void CLmUpgradeDownloadDialog::OnDownloaded(const QString& filePath)
{
    m_strFilePath = filePath;
    SetValue(100);
    SetCurrentText(tr("Download completed."));
    OfferToOpenFolder(filePath);
    accept();
}

void CLmUpgradeDownloadDialog::OfferToOpenFolder(const QString& filePath)
{
    CLmMessageBox box(tr("The installation package has been downloaded and verified. Open its folder to install it?"),
                      QString(), tr("SkyConsole"), CLmMessageBox::BtnOkCancel, this);
    if (box.exec() == 1)
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(filePath).absolutePath()));
}
