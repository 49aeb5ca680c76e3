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
    , m_notifier(store, channel)
    , m_guard(store)
{
}

void ShareEndpoints::Register(httplib::Server& server)
{
    Route(server, "/share/share", this, &ShareEndpoints::Share);
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
    const ShareStore::NewShares shares{*sender, *receiver, fields.Value("message"), selection.projects};
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
