#include "CLmShareDialog.h"

#include "ui_CLmShareDialog.h"

#include "CLmMessageBox.h"
#include "CLmReplyEnvelope.h"
#include "CLmSessionStore.h"
#include "CLmShareSender.h"

#include <QLineEdit>

namespace {

constexpr char kShareOkIcon[] = ":/images/Normal/Home/HomeFile_share_ok_ic.png";
constexpr char kShareNoIcon[] = ":/images/Normal/Home/HomeFile_share_no_ic.png";
constexpr char kWarningIcon[] = ":/images/Normal/Exclamation_mark.png";

}  // namespace

CLmShareDialog::CLmShareDialog(const QStringList& projIds, const QStringList& projNames,
                               const QStringList& projFilePaths, QWidget* parent)
    : CLmBaseDialog(parent)
    , m_pUi(std::make_unique<Ui::CLmShareDialog>())
    , m_pSender(new CLmShareSender(projIds, projFilePaths, this))
{
    m_pUi->setupUi(ContentWidget());
    SetTitle(tr("Share"));
    setMinimumWidth(420);
    m_pUi->m_pLabelProjectName->setText(projNames.join(QStringLiteral(", ")));
    FillRememberedReceivers();
    m_pUi->m_pComboReceiver->setFocus();

    connect(m_pUi->m_pBtnAccept, &QPushButton::clicked, this, &CLmShareDialog::slotBtnAcceptClicked);
    connect(m_pUi->m_pBtnReject, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_pSender, &CLmShareSender::ShareAnswered, this, &CLmShareDialog::slotActionSucceed);
    connect(m_pSender, &CLmShareSender::ShareFailed, this, &CLmShareDialog::slotShareFailedMsg);
    connect(m_pSender, &CLmShareSender::ShareNetWorkError, this, &CLmShareDialog::slotNetWorkError);
    connect(m_pSender, &CLmShareSender::FlightLogUploading, this, &CLmShareDialog::slotSharedLogStart);
    connect(m_pSender, &CLmShareSender::FlightLogUploaded, this, &CLmShareDialog::slotSharedLogFinished);
}

CLmShareDialog::~CLmShareDialog() = default;

void CLmShareDialog::done(int result)
{
    m_pSender->Stop();
    CLmBaseDialog::done(result);
}

void CLmShareDialog::FillRememberedReceivers()
{
    m_pUi->m_pComboReceiver->lineEdit()->setPlaceholderText(tr("Phone number"));
    m_pUi->m_pComboReceiver->addItems(CLmSessionStore().SharedAccounts());
    // Nobody is preselected: a project goes to a person chosen on purpose.
    m_pUi->m_pComboReceiver->setCurrentIndex(-1);
}

void CLmShareDialog::slotBtnAcceptClicked()
{
    const QString receiver = m_pUi->m_pComboReceiver->currentText().trimmed();
    if (!IsReceiverAllowed(receiver))
        return;
    CLmSessionStore().RememberSharedAccount(receiver);
    SetSharing(true);
    m_pSender->Send(receiver, m_pUi->m_pEditMessage->toPlainText(), m_pUi->m_pCheckShareFlightLog->isChecked());
}

bool CLmShareDialog::IsReceiverAllowed(const QString& receiver)
{
    if (receiver.isEmpty()) {
        ShowMessage(tr("Share account cannot be empty"), QLatin1String(kWarningIcon), tr("Share"));
        return false;
    }
    if (receiver == GetCurUserInfo().strAccount) {
        ShowMessage(tr("Can not share to their own"), QLatin1String(kWarningIcon), tr("Share"));
        return false;
    }
    return true;
}

void CLmShareDialog::slotActionSucceed(QByteArray ar)
{
    SetSharing(false);
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(ar);
    if (!envelope.IsParsed()) {
        m_pUi->m_pLabelStatus->setText(tr("The cloud's answer could not be read. Please try again."));
        return;
    }
    if (!envelope.IsSuccess()) {
        ShowRefusal(envelope.Message());
        return;
    }
    ShowMessage(envelope.Message(), QLatin1String(kShareOkIcon), tr("SkyConsole"));
    accept();
}

void CLmShareDialog::slotShareFailedMsg(QString strMsg)
{
    SetSharing(false);
    ShowRefusal(strMsg);
}

void CLmShareDialog::slotNetWorkError()
{
    SetSharing(false);
    ShowRefusal(tr("Network fault"));
}

void CLmShareDialog::slotSharedLogStart(QString strFlightTaskID, QString strFlightMissionPath)
{
    Q_UNUSED(strFlightTaskID)
    Q_UNUSED(strFlightMissionPath)
    m_pUi->m_pLabelStatus->setText(tr("Uploading flight log..."));
}

void CLmShareDialog::slotSharedLogFinished(QString strFlightTaskID, QString strFlightMissionPath)
{
    Q_UNUSED(strFlightTaskID)
    Q_UNUSED(strFlightMissionPath)
    m_pUi->m_pLabelStatus->setText(tr("Upload flight log Complete."));
}

void CLmShareDialog::ShowMessage(const QString& text, const QString& iconPath, const QString& title)
{
    CLmMessageBox box(text, iconPath, title, CLmMessageBox::BtnOk, this);
    box.exec();
}

void CLmShareDialog::ShowRefusal(const QString& text)
{
    ShowMessage(text, QLatin1String(kShareNoIcon), tr("SkyConsole"));
}

void CLmShareDialog::SetSharing(bool sharing)
{
    m_pUi->m_pBtnAccept->setEnabled(!sharing);
    if (sharing)
        m_pUi->m_pLabelStatus->clear();
}
