#include "PushEndpoints.h"

#include "CloudStore.h"
#include "Envelope.h"
#include "FormFields.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

// The "data" field is JSON text; empty means an empty object.
std::optional<QJsonObject> ParseData(const QString& text)
{
    if (text.trimmed().isEmpty())
        return QJsonObject{};
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isObject())
        return std::nullopt;
    return document.object();
}

}  // namespace

PushEndpoints::PushEndpoints(CloudStore& store, PushChannel& channel)
    : m_store(store)
    , m_notifier(store, channel)
    , m_guard(store)
{
}

void PushEndpoints::Register(httplib::Server& server)
{
    Route(server, "/push/messageList", this, &PushEndpoints::MessageList);
    Route(server, "/push/send", this, &PushEndpoints::Send);
}

void PushEndpoints::MessageList(const httplib::Request& req, httplib::Response& res)
{
    if (const std::optional<Account> account = m_guard.RequireAccount(req, res))
        Envelope::Ok(res, m_store.Messages(account->id));
}

std::optional<Account> PushEndpoints::Recipient(const httplib::Request& req, httplib::Response& res) const
{
    const FormFields form(req);
    const QString phone = form.Value("phone");
    const QString userId = form.Value("user_id");
    if (phone.isEmpty() && userId.isEmpty()) {
        Envelope::Fail(res, 400, QStringLiteral("Missing field: phone"));
        return std::nullopt;
    }
    std::optional<Account> account = phone.isEmpty() ? m_store.AccountById(userId.toLongLong())
                                                     : m_store.AccountByPhone(phone);
    if (!account)
        Envelope::Fail(res, 400, QStringLiteral("Unknown user"));
    return account;
}

void PushEndpoints::Send(const httplib::Request& req, httplib::Response& res)
{
    if (!m_guard.RequireAdmin(req, res))
        return;
    const FormFields form(req);
    if (!form.RequireAll({"action"}, res))
        return;
    const std::optional<Account> account = Recipient(req, res);
    if (!account)
        return;
    const std::optional<QJsonObject> data = ParseData(form.Value("data"));
    if (!data) {
        Envelope::Fail(res, 400, QStringLiteral("Field data is not a JSON object"));
        return;
    }

    const Notifier::Receipt receipt = m_notifier.Notify(
        account->id, {form.Value("action"), form.Value("message"), *data, form.Value("status").toInt()});
    Envelope::Ok(res, QJsonObject{{"id", receipt.messageId}, {"delivered", receipt.delivered}});
}
