#include "ShareEndpoints.h"

#include "CloudStore.h"
#include "Envelope.h"
#include "FormFields.h"
#include "ProjectStore.h"

#include <QStringList>

ShareEndpoints::ShareEndpoints(CloudStore& store, ProjectStore& projects, ShareStore& shares, PushChannel& channel)
    : m_store(store)
    , m_projects(projects)
    , m_shares(shares)
    , m_actions(store, projects, shares, channel)
    , m_notifier(store, channel)
    , m_guard(store)
{
}

void ShareEndpoints::Register(httplib::Server& server)
{
    Route(server, "/share/share", this, &ShareEndpoints::Share);
    Route(server, "/share/list", this, &ShareEndpoints::List);
    Route(server, "/share/accept", this, &ShareEndpoints::Accept);
    Route(server, "/share/delete", this, &ShareEndpoints::Delete);
    Route(server, "/share/reply", this, &ShareEndpoints::Reply);
    Route(server, "/share/shareagain", this, &ShareEndpoints::ShareAgain);
    Route(server, "/task/assign", this, &ShareEndpoints::Assign);
    Route(server, "/task/acceptAssign", this, &ShareEndpoints::AcceptAssign);
    Route(server, "/task/reply", this, &ShareEndpoints::TaskReply);
}

void ShareEndpoints::Share(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> sender = m_guard.RequireAccount(req, res);
    const FormFields fields(req);
    if (!sender || !fields.RequireAll({"phone"}, res))
        return;
    const std::optional<QStringList> projectIds = fields.RequireList("id", res);
    if (!projectIds)
        return;
    const std::optional<Account> receiver = Receiver(*sender, fields.Value("phone").trimmed(), res);
    if (!receiver)
        return;
    const ProjectStore::Selection selection = m_projects.SelectOwned(sender->id, *projectIds);
    if (!selection.error.isEmpty()) {
        Envelope::Fail(res, selection.httpStatus, selection.error);
        return;
    }
    StoreAndNotify({*sender, *receiver, fields.Value("message"), selection.projects,
                    QLatin1String(ShareStore::KindShare), QString()},
                   res);
}

void ShareEndpoints::StoreAndNotify(const ShareStore::NewShares& shares, httplib::Response& res)
{
    const std::optional<QJsonArray> records = m_shares.Add(shares);
    if (!records) {
        Envelope::Fail(res, 500, QStringLiteral("Cannot store the share"));
        return;
    }
    NotifyReceiver(shares, *records);
    Envelope::Ok(res, *records, QStringLiteral("Share success"));
}

std::optional<Account> ShareEndpoints::Receiver(const Account& sender, const QString& phone,
                                                httplib::Response& res) const
{
    const std::optional<Account> receiver = m_store.AccountByPhone(phone);
    if (!receiver) {
        Envelope::Fail(res, 400, QStringLiteral("The account does not exist"));
        return std::nullopt;
    }
    if (receiver->id == sender.id) {
        Envelope::Fail(res, 400, QStringLiteral("You cannot share a project with your own account"));
        return std::nullopt;
    }
    return receiver;
}

void ShareEndpoints::NotifyReceiver(const ShareStore::NewShares& shares, const QJsonArray& records)
{
    QStringList names;
    for (const ProjectStore::Project& project : shares.projects)
        names.append(project.name);
    const QString message =
        QStringLiteral("%1 shared with you: %2").arg(shares.sender.nickName, names.join(QStringLiteral(", ")));
    m_notifier.Notify(shares.receiver.id, {QStringLiteral("project_share"), message, QJsonObject{{"shares", records}}});
}

void ShareEndpoints::List(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    if (!account)
        return;
    QJsonArray received;
    for (const QJsonValue& record : m_shares.Received(account->id))
        received.append(Listed(*account, record.toObject(), true));
    QJsonArray sent;
    for (const QJsonValue& record : m_shares.Sent(account->id))
        sent.append(Listed(*account, record.toObject(), false));
    Envelope::Ok(res, QJsonObject{{"received", received}, {"sent", sent}});
}

QJsonObject ShareEndpoints::Listed(const Account& account, QJsonObject record, bool received)
{
    record.insert(QStringLiteral("nickname"),
                  record.value(received ? QStringLiteral("share_from_nickname") : QStringLiteral("share_to_nickname")));
    if (received) {
        const bool nameTaken = m_projects.FindByName(account.id, record.value(QStringLiteral("project_name")).toString())
                                   .has_value();
        record.insert(QStringLiteral("save_as"), nameTaken ? 1 : 0);
    }
    return record;
}

void ShareEndpoints::Accept(const httplib::Request& req, httplib::Response& res)
{
    if (const std::optional<Account> account = m_guard.RequireAccount(req, res))
        m_actions.Accept(*account, FormFields(req), ShareStore::KindShare, res);
}

void ShareEndpoints::Reply(const httplib::Request& req, httplib::Response& res)
{
    if (const std::optional<Account> account = m_guard.RequireAccount(req, res))
        m_actions.Reply(*account, FormFields(req), ShareStore::KindShare, res);
}

void ShareEndpoints::Delete(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    if (!account)
        return;
    const std::optional<QList<ShareStore::Record>> records =
        m_actions.OwnRecords(*account, FormFields(req), ShareActions::EitherSide, nullptr, res);
    if (!records)
        return;
    if (!m_shares.Delete(*records, account->id)) {
        Envelope::Fail(res, 500, QStringLiteral("Cannot delete the share"));
        return;
    }
    QJsonArray ids;
    for (const ShareStore::Record& record : *records)
        ids.append(record.value(QStringLiteral("id")));
    Envelope::Ok(res, QJsonObject{{"deleted", ids}}, QStringLiteral("Delete success"));
}

void ShareEndpoints::ShareAgain(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> sender = m_guard.RequireAccount(req, res);
    if (!sender)
        return;
    const FormFields fields(req);
    const std::optional<ShareStore::Record> record =
        m_actions.OwnRecord(*sender, fields, ShareActions::SenderSide, ShareStore::KindShare, res);
    if (!record)
        return;
    const std::optional<Account> receiver =
        Receiver(*sender, record->value(QStringLiteral("share_to_phone")).toString(), res);
    if (!receiver)
        return;
    const ProjectStore::Selection selection =
        m_projects.SelectOwned(sender->id, {record->value(QStringLiteral("project_id")).toString()});
    if (!selection.error.isEmpty()) {
        Envelope::Fail(res, selection.httpStatus, selection.error);
        return;
    }
    const QString message = fields.Optional("message").value_or(record->value(QStringLiteral("message")).toString());
    StoreAndNotify({*sender, *receiver, message, selection.projects, QLatin1String(ShareStore::KindShare), QString()},
                   res);
}

void ShareEndpoints::Assign(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> sender = m_guard.RequireAccount(req, res);
    const FormFields fields(req);
    if (!sender || !fields.RequireAll({"project_id", "task_id", "phone"}, res))
        return;
    const std::optional<Account> receiver = m_store.AccountByPhone(fields.Value("phone").trimmed());
    if (!receiver || receiver->id == sender->id) {
        Envelope::Fail(res, 400,
                       receiver ? QStringLiteral("You cannot assign a task to your own account")
                                : QStringLiteral("The account does not exist"));
        return;
    }
    const ProjectStore::Selection selection = m_projects.SelectOwned(sender->id, {fields.Value("project_id")});
    if (!selection.error.isEmpty()) {
        Envelope::Fail(res, selection.httpStatus, selection.error);
        return;
    }
    const ShareStore::NewShares task{*sender, *receiver, fields.Value("message"), selection.projects,
                                     QLatin1String(ShareStore::KindTask), fields.Value("task_id")};
    const std::optional<QJsonArray> records = m_shares.Add(task);
    if (!records) {
        Envelope::Fail(res, 500, QStringLiteral("Cannot store the assignment"));
        return;
    }
    const QString message = QStringLiteral("%1 assigned you a flight task of %2")
                                .arg(sender->nickName, selection.projects.first().name);
    m_notifier.Notify(receiver->id, {QStringLiteral("pc_assign"), message, QJsonObject{{"shares", *records}}});
    Envelope::Ok(res, records->first(), QStringLiteral("Assign success"));
}

void ShareEndpoints::AcceptAssign(const httplib::Request& req, httplib::Response& res)
{
    if (const std::optional<Account> account = m_guard.RequireAccount(req, res))
        m_actions.Accept(*account, FormFields(req), ShareStore::KindTask, res);
}

void ShareEndpoints::TaskReply(const httplib::Request& req, httplib::Response& res)
{
    if (const std::optional<Account> account = m_guard.RequireAccount(req, res))
        m_actions.Reply(*account, FormFields(req), ShareStore::KindTask, res);
}
