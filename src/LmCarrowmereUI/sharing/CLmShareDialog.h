#pragma once

#include "CLmBaseDialog.h"

#include <QStringList>

#include <memory>

class CLmShareSender;

namespace Ui {
class CLmShareDialog;
}

// Shares cloud projects with another account: the receiver (one of the
// accounts shared with before, or a new one), a message and, when asked, the
// projects' flight logs. Stays open when the share is refused so the
// receiver can be corrected.
class CLmShareDialog : public CLmBaseDialog
{
    Q_OBJECT
public:
    // The projects by cloud id, name and local project file; the three lists
    // run in step. A project only in the cloud has an empty file path.
    CLmShareDialog(const QStringList& projIds, const QStringList& projNames, const QStringList& projFilePaths,
                   QWidget* parent = nullptr);
    ~CLmShareDialog() override;

    void done(int result) override;

private Q_SLOTS:
    void slotBtnAcceptClicked();
    void slotActionSucceed(QByteArray ar);
    void slotShareFailedMsg(QString strMsg);
    void slotNetWorkError();
    // strFlightTaskID is the cloud id of the project whose mission database
    // strFlightMissionPath is uploading.
    void slotSharedLogStart(QString strFlightTaskID, QString strFlightMissionPath);
    void slotSharedLogFinished(QString strFlightTaskID, QString strFlightMissionPath);

private:
    void FillRememberedReceivers();
    // Says why the receiver cannot be shared with, or returns true.
    bool IsReceiverAllowed(const QString& receiver);
    void ShowMessage(const QString& text, const QString& iconPath, const QString& title);
    void ShowRefusal(const QString& text);
    void SetSharing(bool sharing);

    std::unique_ptr<Ui::CLmShareDialog> m_pUi;
    CLmShareSender* m_pSender;
};
