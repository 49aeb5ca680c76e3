#include "CCannedHttpPeer.h"
#include "CLmCarrowmereLoginDialog.h"
#include "CLmChangePhoneDialog.h"
#include "CLmDeployConfig.h"
#include "CLmForgetPasswordDialog.h"
#include "CLmRegisterDialog.h"
#include "CSkyCloudProcess.h"
#include "ModalAnswer.h"

#include "TestSession.h"
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QUrl>

#include <memory>

namespace {

const QString kSendCode = QStringLiteral("Send code");

QLineEdit* Edit(const QWidget& dialog, const char* name)
{
    return dialog.findChild<QLineEdit*>(QLatin1String(name));
}

QPushButton* Button(const QWidget& dialog, const char* name)
{
    return dialog.findChild<QPushButton*>(QLatin1String(name));
}

QString StatusText(const QWidget& dialog)
{
    return dialog.findChild<QLabel*>(QStringLiteral("m_pLabelStatus"))->text();
}

QByteArray Form(const QByteArray& name, const QString& value)
{
    return name + '=' + QUrl::toPercentEncoding(value);
}

std::unique_ptr<CLmPhoneCodeDialog> MakeDialog(const QString& kind)
{
    if (kind == QLatin1String("reset"))
        return std::make_unique<CLmForgetPasswordDialog>();
    return std::make_unique<CLmRegisterDialog>();
}

const char* SubmitButtonName(const QString& kind)
{
    return kind == QLatin1String("reset") ? "m_pBtnReset" : "m_pBtnRegister";
}

// Fills the dialog's password and repeat lines whatever the dialog names them.
void FillPasswords(const QWidget& dialog, const QString& password, const QString& repeat)
{
    QLineEdit* first = Edit(dialog, "m_pEditNewPassword");
    (first ? first : Edit(dialog, "m_pEditPassword"))->setText(password);
    Edit(dialog, "m_pEditRepeatPassword")->setText(repeat);
}

}  // namespace

class tst_AccountDialogs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void passwordResetRoundTrip();
    void registrationRoundTrip();
    void localChecksSendNothing_data();
    void localChecksSendNothing();
    void serviceRefusalShowsItsMessage_data();
    void serviceRefusalShowsItsMessage();
    void forgotButtonOpensTheResetDialog();
    void registerButtonFillsTheAccountAfterRegistration();
    void phoneChange_data();
    void phoneChange();

private:
    // A new account of its own, signed in: the phone change tests leave the
    // demo accounts alone.
    void SignInNewAccount(const QString& phone);
    // Presses "Send code" and checks the countdown started; then asks the
    // cloud itself for a fresh code (it replaces the dialog's) and returns it.
    QString SendCodeAndFetch(QWidget& dialog, const QByteArray& codePath, const QString& phone);
    int LoginStatus(const QString& phone, const QString& password);

    CSkyCloudProcess m_cloud{{QStringLiteral("--expose-codes")}};
};

void tst_AccountDialogs::initTestCase()
{
    QVERIFY(m_cloud.Start());
}

void tst_AccountDialogs::init()
{
    TestSession::PointCloudAt(m_cloud.BaseUrl());
}

QString tst_AccountDialogs::SendCodeAndFetch(QWidget& dialog, const QByteArray& codePath, const QString& phone)
{
    Edit(dialog, "m_pEditPhone")->setText(phone);
    QPushButton* sendCode = Button(dialog, "m_pBtnSendCode");
    sendCode->click();
    [&] { QTRY_COMPARE_WITH_TIMEOUT(StatusText(dialog), QStringLiteral("The verification code has been sent."), 8000); }();
    if (QTest::currentTestFailed())
        return {};
    const QString firstText = sendCode->text();
    if (sendCode->isEnabled() || !firstText.contains(QLatin1String("60"))) {
        QTest::qFail("the send button did not start its countdown", __FILE__, __LINE__);
        return {};
    }
    [&] { QTRY_VERIFY_WITH_TIMEOUT(sendCode->text() != firstText, 3000); }();
    if (sendCode->isEnabled())
        QTest::qFail("the send button came back during its countdown", __FILE__, __LINE__);
    return m_cloud.Call(codePath, Form("phone", phone))
        .value(QStringLiteral("data"))
        .toObject()
        .value(QStringLiteral("validate_hint"))
        .toString();
}

void tst_AccountDialogs::SignInNewAccount(const QString& phone)
{
    const QString code = m_cloud.Call("/user/sendvalidate", Form("phone", phone))
                             .value(QStringLiteral("data"))
                             .toObject()
                             .value(QStringLiteral("validate_hint"))
                             .toString();
    m_cloud.Call("/user/register", Form("phone", phone) + '&' + Form("validate", code) + '&'
                                       + Form("password", QStringLiteral("skyconsole")) + '&'
                                       + Form("nick_name", QStringLiteral("Mover")));
    const QJsonObject login =
        m_cloud.Call("/user/login", Form("phone", phone) + '&' + Form("password", QStringLiteral("skyconsole")));
    const QJsonObject data = login.value(QStringLiteral("data")).toObject();
    TestSession::SetSession(data.value(QStringLiteral("token")).toString(),
                            QString::number(data.value(QStringLiteral("id")).toInt()));
}

int tst_AccountDialogs::LoginStatus(const QString& phone, const QString& password)
{
    int httpStatus = 0;
    m_cloud.Call("/user/login", Form("phone", phone) + '&' + Form("password", password), {}, &httpStatus);
    return httpStatus;
}

void tst_AccountDialogs::passwordResetRoundTrip()
{
    const QString phone = QStringLiteral("13800000002");
    const QString newPassword = QStringLiteral("new pass&word=1");
    CLmForgetPasswordDialog dialog;
    dialog.show();
    const QString code = SendCodeAndFetch(dialog, "/user/resetpasswordsendsms", phone);
    QVERIFY(!QTest::currentTestFailed());
    QCOMPARE(code.size(), 6);

    Edit(dialog, "m_pEditCode")->setText(code);
    FillPasswords(dialog, newPassword, newPassword);
    QString shown;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &shown, 8000, "CLmMessageBox", &dialog);
    Button(dialog, "m_pBtnReset")->click();
    QTRY_COMPARE_WITH_TIMEOUT(dialog.result(), int(QDialog::Accepted), 8000);
    QVERIFY(shown.contains(QLatin1String("The password has been reset.")));
    QVERIFY(!dialog.isVisible());

    QCOMPARE(LoginStatus(phone, newPassword), 200);
    QCOMPARE(LoginStatus(phone, QStringLiteral("skyconsole")), 403);
}

void tst_AccountDialogs::registrationRoundTrip()
{
    const QString phone = QStringLiteral("13900000001");
    const QString nickName = QStringLiteral("Pilot Jürgen & Co");
    CLmRegisterDialog dialog;
    dialog.show();
    const QString code = SendCodeAndFetch(dialog, "/user/sendvalidate", phone);
    QVERIFY(!QTest::currentTestFailed());

    Edit(dialog, "m_pEditCode")->setText(code);
    Edit(dialog, "m_pEditNickName")->setText(nickName);
    FillPasswords(dialog, QStringLiteral("secret+1"), QStringLiteral("secret+1"));
    QString shown;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &shown, 8000, "CLmMessageBox", &dialog);
    Button(dialog, "m_pBtnRegister")->click();
    QTRY_COMPARE_WITH_TIMEOUT(dialog.result(), int(QDialog::Accepted), 8000);
    QVERIFY(shown.contains(QLatin1String("Registration succeeded, please sign in.")));
    QCOMPARE(dialog.Phone(), phone);

    const QJsonObject login =
        m_cloud.Call("/user/login", Form("phone", phone) + '&' + Form("password", QStringLiteral("secret+1")));
    QCOMPARE(login.value(QStringLiteral("status")).toInt(-1), 0);
    QCOMPARE(login.value(QStringLiteral("data")).toObject().value(QStringLiteral("nick_name")).toString(), nickName);
}

void tst_AccountDialogs::localChecksSendNothing_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("phone");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("repeat");
    QTest::addColumn<QString>("expected");

    const QString phone = QStringLiteral("13800000001");
    const QString good = QStringLiteral("secret1");
    const QString missingPhone = QStringLiteral("Please enter the phone number.");
    const QString differ = QStringLiteral("The two passwords differ.");
    const QString tooShort = QStringLiteral("The password needs at least 6 characters.");
    for (const QString& kind : {QStringLiteral("reset"), QStringLiteral("register")}) {
        const QString submit = QLatin1String(SubmitButtonName(kind));
        const QByteArray name = kind.toLatin1();
        QTest::addRow("%s: send code without phone", name.constData())
            << kind << QStringLiteral("m_pBtnSendCode") << QString() << good << good << missingPhone;
        QTest::addRow("%s: submit with a blank phone", name.constData())
            << kind << submit << QStringLiteral("  ") << good << good << missingPhone;
        QTest::addRow("%s: passwords differ", name.constData())
            << kind << submit << phone << good << QStringLiteral("secret2") << differ;
        QTest::addRow("%s: five characters", name.constData())
            << kind << submit << phone << QStringLiteral("abcde") << QStringLiteral("abcde") << tooShort;
    }
}

void tst_AccountDialogs::localChecksSendNothing()
{
    QFETCH(QString, kind);
    QFETCH(QString, button);
    QFETCH(QString, phone);
    QFETCH(QString, password);
    QFETCH(QString, repeat);
    QFETCH(QString, expected);

    CCannedHttpPeer peer(CCannedHttpPeer::Reply("200 OK", R"({"status":0,"message":"OK","data":{}})"));
    TestSession::PointCloudAt(peer.BaseUrl());
    std::unique_ptr<CLmPhoneCodeDialog> dialog = MakeDialog(kind);
    dialog->show();
    Edit(*dialog, "m_pEditPhone")->setText(phone);
    Edit(*dialog, "m_pEditCode")->setText(QStringLiteral("123456"));
    if (QLineEdit* nickName = Edit(*dialog, "m_pEditNickName"))
        nickName->setText(QStringLiteral("Pilot"));
    FillPasswords(*dialog, password, repeat);

    QPushButton* pressed = Button(*dialog, qPrintable(button));
    pressed->click();
    QCOMPARE(StatusText(*dialog), expected);
    QVERIFY(pressed->isEnabled());
    QTest::qWait(200);
    QCOMPARE(peer.RequestCount(), 0);
    QVERIFY(dialog->isVisible());
}

void tst_AccountDialogs::serviceRefusalShowsItsMessage_data()
{
    QTest::addColumn<QByteArray>("cannedReply");
    QTest::addColumn<QString>("expected");

    QTest::newRow("wrong code") << QByteArray() << QStringLiteral("Wrong or expired verification code");
    QTest::newRow("refusal in an HTTP 200 reply")
        << CCannedHttpPeer::Reply("200 OK", R"({"status":7,"message":"Reset refused today","data":{}})")
        << QStringLiteral("Reset refused today");
}

void tst_AccountDialogs::serviceRefusalShowsItsMessage()
{
    QFETCH(QByteArray, cannedReply);
    QFETCH(QString, expected);

    CCannedHttpPeer peer(cannedReply);
    if (!cannedReply.isEmpty())
        TestSession::PointCloudAt(peer.BaseUrl());
    CLmForgetPasswordDialog dialog;
    dialog.show();
    Edit(dialog, "m_pEditPhone")->setText(QStringLiteral("13800000001"));
    Edit(dialog, "m_pEditCode")->setText(QStringLiteral("000000"));
    FillPasswords(dialog, QStringLiteral("another1"), QStringLiteral("another1"));
    QString shown;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &shown, 8000, "CLmMessageBox", &dialog);
    QPushButton* reset = Button(dialog, "m_pBtnReset");
    reset->click();
    QTRY_VERIFY_WITH_TIMEOUT(shown.contains(expected), 8000);
    QTRY_VERIFY(reset->isEnabled());
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(LoginStatus(QStringLiteral("13800000001"), QStringLiteral("skyconsole")), 200);
}

void tst_AccountDialogs::phoneChange_data()
{
    QTest::addColumn<QString>("account");
    QTest::addColumn<QString>("newPhone");
    QTest::addColumn<bool>("useSentCode");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("changed");

    QTest::newRow("code round trip") << "13900000101" << "13900000102" << true
                                     << "The phone number has been changed." << true;
    QTest::newRow("wrong code") << "13900000103" << "13900000104" << false << "Wrong or expired verification code"
                                << false;
    QTest::newRow("phone already taken")
        << "13900000105" << "13800000002" << true << "Phone number already registered" << false;
}

void tst_AccountDialogs::phoneChange()
{
    QFETCH(QString, account);
    QFETCH(QString, newPhone);
    QFETCH(bool, useSentCode);
    QFETCH(QString, expected);
    QFETCH(bool, changed);

    SignInNewAccount(account);
    CLmChangePhoneDialog dialog;
    dialog.show();
    QString shown;
    ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &shown, 8000, "CLmMessageBox", &dialog);
    Edit(dialog, "m_pEditPhone")->setText(newPhone);
    if (useSentCode) {
        Button(dialog, "m_pBtnSendCode")->click();
        QTRY_VERIFY_WITH_TIMEOUT(!shown.isEmpty() || !StatusText(dialog).isEmpty(), 8000);
    }
    if (shown.isEmpty()) {
        const QString code = useSentCode ? m_cloud.Call("/user/sendvalidate", Form("phone", newPhone))
                                               .value(QStringLiteral("data"))
                                               .toObject()
                                               .value(QStringLiteral("validate_hint"))
                                               .toString()
                                         : QStringLiteral("000000");
        Edit(dialog, "m_pEditCode")->setText(code);
        Button(dialog, "m_pBtnConfirm")->click();
    }
    QTRY_VERIFY_WITH_TIMEOUT(shown.contains(expected), 8000);
    QCOMPARE(dialog.result() == QDialog::Accepted, changed);
    if (changed)
        QCOMPARE(dialog.SubmitReplyData().value(QStringLiteral("phone")).toString(), newPhone);
    QCOMPARE(LoginStatus(account, QStringLiteral("skyconsole")), changed ? 403 : 200);
    if (changed)
        QCOMPARE(LoginStatus(newPhone, QStringLiteral("skyconsole")), 200);
}

void tst_AccountDialogs::forgotButtonOpensTheResetDialog()
{
    CLmCarrowmereLoginDialog login(nullptr, false);
    login.show();
    QWidget* openedParent = nullptr;
    ModalAnswer::RunWhenShown(
        "CLmForgetPasswordDialog",
        [&](QWidget* modal) {
            openedParent = modal->parentWidget();
            Button(*modal, "m_pBtnClose")->click();
        },
        8000);
    Button(login, "m_pBtnForgot")->click();
    QVERIFY(openedParent == &login);
    QVERIFY(login.isVisible());
    QCOMPARE(Edit(login, "m_pEditAccount")->text(), QString());
}

void tst_AccountDialogs::registerButtonFillsTheAccountAfterRegistration()
{
    const QString phone = QStringLiteral("13900000002");
    const QString code = m_cloud.Call("/user/sendvalidate", Form("phone", phone))
                             .value(QStringLiteral("data"))
                             .toObject()
                             .value(QStringLiteral("validate_hint"))
                             .toString();
    QCOMPARE(code.size(), 6);

    CLmCarrowmereLoginDialog login(nullptr, false);
    login.show();
    Edit(login, "m_pEditPassword")->setText(QStringLiteral("typed before"));
    QString shown;
    QWidget* openedParent = nullptr;
    ModalAnswer::RunWhenShown(
        "CLmRegisterDialog",
        [&](QWidget* modal) {
            openedParent = modal->parentWidget();
            Edit(*modal, "m_pEditPhone")->setText(phone);
            Edit(*modal, "m_pEditCode")->setText(code);
            Edit(*modal, "m_pEditNickName")->setText(QStringLiteral("Pilot Three"));
            FillPasswords(*modal, QStringLiteral("secret3"), QStringLiteral("secret3"));
            ModalAnswer::PressWhenShown(QStringLiteral("m_pBtnOk"), &shown, 8000, "CLmMessageBox");
            Button(*modal, "m_pBtnRegister")->click();
        },
        8000);
    Button(login, "m_pBtnRegister")->click();
    QVERIFY(openedParent == &login);
    QVERIFY(shown.contains(QLatin1String("Registration succeeded, please sign in.")));
    QCOMPARE(Edit(login, "m_pEditAccount")->text(), phone);
    QCOMPARE(Edit(login, "m_pEditPassword")->text(), QString());
    QCOMPARE(LoginStatus(phone, QStringLiteral("secret3")), 200);
}

QTEST_MAIN(tst_AccountDialogs)
#include "tst_AccountDialogs.moc"
