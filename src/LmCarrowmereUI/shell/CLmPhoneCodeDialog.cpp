#include "CLmPhoneCodeDialog.h"

#include "CLmMessageBox.h"
#include "CLmNetWorkRequest.h"
#include "CLmReplyEnvelope.h"
#include "LmCarrowmereUILog.h"
#include "LmCloudForm.h"
#include "LmCloudRequest.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

CLmPhoneCodeDialog::CLmPhoneCodeDialog(QWidget* parent)
    : CLmBaseDialog(parent)
{
    m_countdownTimer.setInterval(1000);
    connect(&m_countdownTimer, &QTimer::timeout, this, &CLmPhoneCodeDialog::slotCountdownTick);
}

QString CLmPhoneCodeDialog::Phone() const
{
    return m_setup.pEditPhone ? m_setup.pEditPhone->text() : QString();
}

QJsonObject CLmPhoneCodeDialog::SubmitReplyData() const
{
    return m_objReplyData;
}

void CLmPhoneCodeDialog::SetUpForm(SFormSetup setup)
{
    m_setup = std::move(setup);
    m_strSendCodeText = m_setup.pBtnSendCode->text();
    connect(m_setup.pBtnSendCode, &QPushButton::clicked, this, &CLmPhoneCodeDialog::slotSendCode);
    connect(m_setup.pBtnSubmit, &QPushButton::clicked, this, &CLmPhoneCodeDialog::slotSubmit);
}

const CLmPhoneCodeDialog::SFormField& CLmPhoneCodeDialog::PhoneField() const
{
    return *std::find_if(m_setup.fields.cbegin(), m_setup.fields.cend(),
                         [this](const SFormField& field) { return field.pEdit == m_setup.pEditPhone; });
}

void CLmPhoneCodeDialog::slotSendCode()
{
    const QVector<SFormField> phoneOnly{PhoneField()};
    if (CheckFields(phoneOnly))
        Post(m_setup.sendCodePath, false, phoneOnly, m_setup.pBtnSendCode, &CLmPhoneCodeDialog::ShowCodeSent);
}

void CLmPhoneCodeDialog::slotSubmit()
{
    if (CheckFields(m_setup.fields) && CheckPasswords())
        Post(m_setup.submitPath, m_setup.bSubmitSignedIn, m_setup.fields, m_setup.pBtnSubmit,
             &CLmPhoneCodeDialog::FinishSubmit);
}

bool CLmPhoneCodeDialog::CheckFields(const QVector<SFormField>& fields)
{
    for (const SFormField& field : fields) {
        if (field.pEdit->text().trimmed().isEmpty()) {
            m_setup.pLabelStatus->setText(field.strMissingText);
            field.pEdit->setFocus();
            return false;
        }
    }
    return true;
}

bool CLmPhoneCodeDialog::CheckPasswords()
{
    if (!m_setup.pEditPassword)
        return true;
    const QString password = m_setup.pEditPassword->text();
    if (password != m_setup.pEditRepeat->text()) {
        m_setup.pLabelStatus->setText(tr("The two passwords differ."));
        return false;
    }
    if (password.size() < MinimumPasswordLength) {
        m_setup.pLabelStatus->setText(tr("The password needs at least %1 characters.").arg(MinimumPasswordLength));
        return false;
    }
    return true;
}

void CLmPhoneCodeDialog::Post(const char* path, bool bSignedIn, const QVector<SFormField>& fields,
                              QPushButton* pendingButton, RequestDone onDone)
{
    QVector<QPair<QByteArray, QString>> pairs;
    for (const SFormField& field : fields) {
        if (!field.name.isEmpty())
            pairs.append({field.name, field.pEdit->text()});
    }
    m_setup.pLabelStatus->clear();
    pendingButton->setEnabled(false);

    CLmNetWorkRequest* request = bSignedIn ? LmCloudRequest::NewSignedIn(path) : LmCloudRequest::NewAnonymous(path);
    connect(request, &CLmNetWorkRequest::ActionSucced, this,
            [this, pendingButton, onDone](const QByteArray& reply) { HandleReply(reply, pendingButton, onDone); });
    connect(request, &CLmNetWorkRequest::FailedMsg, this,
            [this, pendingButton](const QString& message) { ReportFailure(message, pendingButton); });
    connect(request, &CLmNetWorkRequest::NetWorkError, this, [this, path, pendingButton] {
        qCInfo(lcPhoneCode) << "no answer from the cloud for" << path;
        pendingButton->setEnabled(true);
        m_setup.pLabelStatus->setText(tr("Network fault"));
    });
    request->SetBody(LmCloudForm::Body(pairs));
    request->PostNetWorkReplyMessage();
}

void CLmPhoneCodeDialog::HandleReply(const QByteArray& reply, QPushButton* pendingButton, RequestDone onDone)
{
    const CLmReplyEnvelope envelope = CLmReplyEnvelope::Parse(reply);
    if (!envelope.IsParsed()) {
        pendingButton->setEnabled(true);
        return;
    }
    if (!envelope.IsSuccess()) {
        ReportFailure(envelope.Message(), pendingButton);
        return;
    }
    m_objReplyData = envelope.DataObject();
    (this->*onDone)();
}

void CLmPhoneCodeDialog::ReportFailure(const QString& message, QPushButton* pendingButton)
{
    pendingButton->setEnabled(true);
    CLmMessageBox box(message, QString(), tr("SkyConsole"), CLmMessageBox::BtnOk, this);
    box.exec();
}

void CLmPhoneCodeDialog::ShowCodeSent()
{
    m_setup.pLabelStatus->setText(tr("The verification code has been sent."));
    StartCountdown();
}

void CLmPhoneCodeDialog::StartCountdown()
{
    m_iSecondsLeft = ResendWaitSeconds;
    m_setup.pBtnSendCode->setEnabled(false);
    ShowSecondsLeft();
    m_countdownTimer.start();
}

void CLmPhoneCodeDialog::ShowSecondsLeft()
{
    m_setup.pBtnSendCode->setText(tr("Resend in %1 s").arg(m_iSecondsLeft));
}

void CLmPhoneCodeDialog::slotCountdownTick()
{
    --m_iSecondsLeft;
    if (m_iSecondsLeft > 0) {
        ShowSecondsLeft();
        return;
    }
    m_countdownTimer.stop();
    m_setup.pBtnSendCode->setText(m_strSendCodeText);
    m_setup.pBtnSendCode->setEnabled(true);
}

void CLmPhoneCodeDialog::FinishSubmit()
{
    for (QLineEdit* secret : {m_setup.pEditPassword, m_setup.pEditRepeat}) {
        if (secret)
            secret->clear();
    }
    CLmMessageBox box(m_setup.strSuccessText, QString(), tr("SkyConsole"), CLmMessageBox::BtnOk, this);
    box.exec();
    accept();
}
