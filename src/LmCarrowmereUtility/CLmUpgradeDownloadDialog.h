#pragma once

#include "CLmProgressWgt.h"

#include <QJsonObject>

class CLmPackageDownload;

// Progress dialog that downloads an installer package into the installers
// folder once it is shown, verifies it and offers to open its folder. A
// failure shows "Download File Failed." with Retry; Cancel abandons it.
class CLmUpgradeDownloadDialog : public CLmProgressWgt
{
    Q_OBJECT
public:
    explicit CLmUpgradeDownloadDialog(QWidget* parent = nullptr);

    // The verified package, empty until the download succeeded.
    QString DownloadedFilePath() const;

protected:
    void SetRelease(const QJsonObject& release);
    bool HasRelease() const;
    void StartDownload();
    void ShowFailure();
    // Runs when the dialog is first shown and at every Retry.
    virtual void Begin();

    void showEvent(QShowEvent* event) override;

private:
    void OnDownloaded(const QString& filePath);
    void OfferToOpenFolder(const QString& filePath);

    CLmPackageDownload* m_pDownload;
    QJsonObject m_release;
    QString m_strFilePath;
    bool m_bBegun = false;
};
