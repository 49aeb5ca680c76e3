#pragma once

#include "CLmBaseDialog.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QTimer>
#include <QVector>

class QLabel;
class QLineEdit;
class QPushButton;

// Base of the account dialogs that confirm a phone number with a verification
// code from the cloud: the "Send code" button and its resend countdown, the
// checks of the typed fields (shown in a status label, nothing is sent), and
// the final form post, which ends in a success box and accepts the dialog.
// Dialogs without passwords leave the password lines null.
class CLmPhoneCodeDialog : public CLmBaseDialog
{
    Q_OBJECT
public:
    // Seconds the "Send code" button waits after a code was sent.
    static constexpr int ResendWaitSeconds = 60;
    static constexpr int MinimumPasswordLength = 6;

    // The phone number as typed.
    QString Phone() const;
    // The data of the cloud's answer to the submitted form.
    QJsonObject SubmitReplyData() const;

protected:
    // One line edit of the form. An empty name marks a field that is only
    // checked, never sent.
    struct SFormField
    {
        QByteArray name;
        QLineEdit* pEdit;
        QString strMissingText;
    };

    struct SFormSetup
    {
        const char* sendCodePath;
        const char* submitPath;
        QString strSuccessText;
        QLineEdit* pEditPhone;
        QPushButton* pBtnSendCode;
        QLineEdit* pEditPassword;
        QLineEdit* pEditRepeat;
        QPushButton* pBtnSubmit;
        QLabel* pLabelStatus;
        // Checked in this order; sent in this order.
        QVector<SFormField> fields;
        // The form is posted with the session's token (a change to the
        // signed-in account); the code request never is.
        bool bSubmitSignedIn = false;
    };

    explicit CLmPhoneCodeDialog(QWidget* parent);
    // Call once, after the generated form is set up.
    void SetUpForm(SFormSetup setup);

private Q_SLOTS:
    void slotSendCode();
    void slotSubmit();
    void slotCountdownTick();

private:
    using RequestDone = void (CLmPhoneCodeDialog::*)();

    bool CheckFields(const QVector<SFormField>& fields);
    bool CheckPasswords();
    const SFormField& PhoneField() const;
    void Post(const char* path, bool bSignedIn, const QVector<SFormField>& fields, QPushButton* pendingButton,
              RequestDone onDone);
    void HandleReply(const QByteArray& reply, QPushButton* pendingButton, RequestDone onDone);
    void ReportFailure(const QString& message, QPushButton* pendingButton);
    void StartCountdown();
    void ShowSecondsLeft();
    void ShowCodeSent();
    void FinishSubmit();

    SFormSetup m_setup{};
    QString m_strSendCodeText;
    QTimer m_countdownTimer;
    int m_iSecondsLeft = 0;
    QJsonObject m_objReplyData;
};
