#include "TaskEndpoints.h"

#include "CloudStore.h"
#include "Envelope.h"
#include "FormFields.h"
#include "ProjectStore.h"

TaskEndpoints::TaskEndpoints(CloudStore& store, ProjectStore& projects, ShareStore& shares, PushChannel& channel)
    : m_store(store)
    , m_projects(projects)
    , m_shares(shares)
    , m_actions(store, projects, shares, channel)
    , m_notifier(store, channel)
    , m_guard(store)
{
}

void TaskEndpoints::Register(httplib::Server& server)
{
    Route(server, "/task/assign", this, &TaskEndpoints::Assign);
    Route(server, "/task/acceptAssign", this, &TaskEndpoints::AcceptAssign);
    Route(server, "/task/reply", this, &TaskEndpoints::Reply);
}

void TaskEndpoints::Assign(const httplib::Request& req, httplib::Response& res)
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

void TaskEndpoints::AcceptAssign(const httplib::Request& req, httplib::Response& res)
{
    if (const std::optional<Account> account = m_guard.RequireAccount(req, res))
        m_actions.Accept(*account, FormFields(req), ShareStore::KindTask, res);
}

void TaskEndpoints::Reply(const httplib::Request& req, httplib::Response& res)
{
    if (const std::optional<Account> account = m_guard.RequireAccount(req, res))
        m_actions.Reply(*account, FormFields(req), ShareStore::KindTask, res);
}
