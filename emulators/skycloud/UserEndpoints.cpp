#include "UserEndpoints.h"

#include "CloudLog.h"
#include "Envelope.h"
#include "FormFields.h"

#include <QJsonObject>
#include <QRegularExpression>

namespace {

constexpr int kMinimumPasswordLength = 6;

bool CheckPhone(const QString& phone, httplib::Response& res)
{
    static const QRegularExpression digits(QStringLiteral("^\\+?[0-9]{5,20}$"));
    if (digits.match(phone).hasMatch())
        return true;
    Envelope::Fail(res, 400, QStringLiteral("Invalid phone number"));
    return false;
}

bool CheckNewPassword(const QString& password, httplib::Response& res)
{
    if (password.size() >= kMinimumPasswordLength)
        return true;
    Envelope::Fail(res, 400, QStringLiteral("The password needs at least %1 characters").arg(kMinimumPasswordLength));
    return false;
}

bool CheckPhoneFree(CloudStore& store, const QString& phone, httplib::Response& res)
{
    if (!store.IsPhoneRegistered(phone))
        return true;
    Envelope::Fail(res, 409, QStringLiteral("Phone number already registered"));
    return false;
}

QJsonObject LoginData(const Account& account, const QByteArray& token)
{
    return QJsonObject{{"token", QString::fromLatin1(token)}, {"nick_name", account.nickName},
                       {"id", account.id},                    {"type", account.type},
                       {"permission", account.permission},    {"phone", account.phone}};
}

}  // namespace

UserEndpoints::UserEndpoints(CloudStore& store, bool exposeCodes)
    : m_store(store)
    , m_guard(store)
    , m_exposeCodes(exposeCodes)
{
}

void UserEndpoints::Register(httplib::Server& server)
{
    Route(server, "/user/login", this, &UserEndpoints::Login);
    Route(server, "/user/logout", this, &UserEndpoints::Logout);
    Route(server, "/user/profile", this, &UserEndpoints::Profile);
    Route(server, "/user/editprofile", this, &UserEndpoints::EditProfile);
    Route(server, "/user/sendvalidate", this, &UserEndpoints::SendValidate);
    Route(server, "/user/resetpasswordsendsms", this, &UserEndpoints::ResetPasswordSendSms);
    Route(server, "/user/resetpassword", this, &UserEndpoints::ResetPassword);
    Route(server, "/user/register", this, &UserEndpoints::RegisterAccount);
    Route(server, "/user/changephone", this, &UserEndpoints::ChangePhone);
}

void UserEndpoints::Login(const httplib::Request& req, httplib::Response& res)
{
    const FormFields form(req);
    if (!form.RequireAll({"phone", "password"}, res))
        return;
    const std::optional<Account> account = m_store.AccountByCredentials(form.Value("phone"), form.Value("password"));
    if (!account) {
        Envelope::Fail(res, 403, QStringLiteral("Wrong phone number or password"));
        return;
    }
    const QByteArray token = m_store.OpenSession(account->id, form.Value("device_id"));
    Envelope::Ok(res, LoginData(*account, token));
}

void UserEndpoints::Logout(const httplib::Request& req, httplib::Response& res)
{
    if (!m_guard.RequireAccount(req, res))
        return;
    m_store.CloseSession(TokenGuard::TokenOf(req));
    Envelope::Ok(res, QJsonObject{});
}

void UserEndpoints::Profile(const httplib::Request& req, httplib::Response& res)
{
    if (const std::optional<Account> account = m_guard.RequireAccount(req, res))
        Envelope::Ok(res, account->ToProfileJson());
}

void UserEndpoints::EditProfile(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    if (!account)
        return;
    const FormFields form(req);
    CloudStore::ProfileChanges changes;
    changes.nickName = form.Optional("nick_name");
    changes.email = form.Optional("email");
    changes.company = form.Optional("company");
    if (!changes.nickName && !changes.email && !changes.company) {
        Envelope::Fail(res, 400, QStringLiteral("Nothing to change"));
        return;
    }
    if (changes.nickName && changes.nickName->trimmed().isEmpty()) {
        Envelope::Fail(res, 400, QStringLiteral("The nick name must not be empty"));
        return;
    }
    Envelope::Ok(res, m_store.UpdateProfile(account->id, changes).value_or(*account).ToProfileJson());
}

void UserEndpoints::SendValidate(const httplib::Request& req, httplib::Response& res)
{
    const FormFields form(req);
    const QString phone = form.Value("phone");
    if (CheckPhone(phone, res) && CheckPhoneFree(m_store, phone, res))
        DeliverCode(phone, CloudStore::CodePurpose::Validate, res);
}

void UserEndpoints::ResetPasswordSendSms(const httplib::Request& req, httplib::Response& res)
{
    const FormFields form(req);
    const QString phone = form.Value("phone");
    if (!CheckPhone(phone, res))
        return;
    if (!m_store.IsPhoneRegistered(phone)) {
        Envelope::Fail(res, 400, QStringLiteral("Phone number not registered"));
        return;
    }
    DeliverCode(phone, CloudStore::CodePurpose::ResetPassword, res);
}

void UserEndpoints::ResetPassword(const httplib::Request& req, httplib::Response& res)
{
    const FormFields form(req);
    if (!form.RequireAll({"phone", "validate", "password", "repeat_password"}, res))
        return;
    const QString phone = form.Value("phone");
    const QString password = form.Value("password");
    if (password != form.Value("repeat_password")) {
        Envelope::Fail(res, 400, QStringLiteral("The passwords do not match"));
        return;
    }
    if (!CheckNewPassword(password, res)
        || !ConsumeCode(phone, CloudStore::CodePurpose::ResetPassword, form.Value("validate"), res))
        return;
    if (!m_store.ResetPassword(phone, password)) {
        Envelope::Fail(res, 400, QStringLiteral("Phone number not registered"));
        return;
    }
    Envelope::Ok(res, QJsonObject{});
}

void UserEndpoints::RegisterAccount(const httplib::Request& req, httplib::Response& res)
{
    const FormFields form(req);
    if (!form.RequireAll({"phone", "validate", "password", "nick_name"}, res))
        return;
    const QString phone = form.Value("phone");
    const QString password = form.Value("password");
    if (!CheckPhone(phone, res) || !CheckNewPassword(password, res) || !CheckPhoneFree(m_store, phone, res)
        || !ConsumeCode(phone, CloudStore::CodePurpose::Validate, form.Value("validate"), res))
        return;
    const std::optional<Account> account = m_store.CreateAccount(phone, password, form.Value("nick_name"));
    if (!account) {
        Envelope::Fail(res, 409, QStringLiteral("Phone number already registered"));
        return;
    }
    qCInfo(lcSkyCloud) << "registered account" << account->id;
    Envelope::Ok(res, account->ToProfileJson());
}

void UserEndpoints::ChangePhone(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    if (!account)
        return;
    const FormFields form(req);
    if (!form.RequireAll({"phone", "validate"}, res))
        return;
    const QString phone = form.Value("phone");
    if (!CheckPhone(phone, res) || !CheckPhoneFree(m_store, phone, res)
        || !ConsumeCode(phone, CloudStore::CodePurpose::Validate, form.Value("validate"), res))
        return;
    if (!m_store.ChangePhone(account->id, phone)) {
        Envelope::Fail(res, 409, QStringLiteral("Phone number already registered"));
        return;
    }
    Account changed = *account;
    changed.phone = phone;
    Envelope::Ok(res, changed.ToProfileJson());
}

void UserEndpoints::DeliverCode(const QString& phone, CloudStore::CodePurpose purpose, httplib::Response& res)
{
    const QString code = m_store.IssueCode(phone, purpose);
    qCInfo(lcSkyCloud).noquote() << "verification code for" << phone << "is" << code;
    QJsonObject data;
    if (m_exposeCodes)
        data.insert(QStringLiteral("validate_hint"), code);
    Envelope::Ok(res, data);
}

bool UserEndpoints::ConsumeCode(const QString& phone, CloudStore::CodePurpose purpose, const QString& code,
                                httplib::Response& res)
{
    if (m_store.ConsumeCode(phone, purpose, code))
        return true;
    Envelope::Fail(res, 403, QStringLiteral("Wrong or expired verification code"));
    return false;
}
