#include "ProjectEndpoints.h"

#include "Envelope.h"
#include "FormFields.h"
#include "LmProjectFiles.h"
#include "ProjectStore.h"

#include <QJsonArray>

ProjectEndpoints::ProjectEndpoints(CloudStore& store, ProjectStore& projects)
    : m_projects(projects)
    , m_guard(store)
{
}

void ProjectEndpoints::Register(httplib::Server& server)
{
    Route(server, "/project/list", this, &ProjectEndpoints::List);
    server.Get("/project/upload", [this](const httplib::Request& req, httplib::Response& res) { UploadQuery(req, res); });
    server.Post("/project/upload",
                [this](const httplib::Request& req, httplib::Response& res, const httplib::ContentReader& reader) {
                    UploadPosted(req, res, reader);
                });
    Route(server, "/project/downloadfile", this, &ProjectEndpoints::DownloadFile);
    Route(server, "/project/remove", this, &ProjectEndpoints::RemoveOne);
    Route(server, "/project/removemulti", this, &ProjectEndpoints::RemoveMulti);
}

void ProjectEndpoints::List(const httplib::Request& req, httplib::Response& res)
{
    if (const std::optional<Account> account = m_guard.RequireAccount(req, res))
        Envelope::Ok(res, m_projects.List(account->id));
}

void ProjectEndpoints::UploadPosted(const httplib::Request& req, httplib::Response& res,
                                    const httplib::ContentReader& reader)
{
    StoreUpload(req, res, FormFields(req, reader).Value("data"));
}

void ProjectEndpoints::UploadQuery(const httplib::Request& req, httplib::Response& res)
{
    StoreUpload(req, res, FormFields(req).Value("data"));
}

void ProjectEndpoints::StoreUpload(const httplib::Request& req, httplib::Response& res, const QString& uploadText)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    if (!account)
        return;
    if (uploadText.isEmpty()) {
        Envelope::Fail(res, 400, QStringLiteral("Missing field: data"));
        return;
    }
    const ProjectStore::UploadResult result = m_projects.Upload(account->id, DecodeUploadArray(uploadText.toLatin1()));
    if (result.error.isEmpty())
        Envelope::Ok(res, result.data);
    else
        Envelope::Fail(res, result.httpStatus, result.error);
}

void ProjectEndpoints::DownloadFile(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    const FormFields fields(req);
    if (!account || !fields.RequireAll({"id"}, res))
        return;
    const QString projectId = fields.Value("id");
    if (!Granted(m_projects.SelectOwned(account->id, {projectId}), res))
        return;
    const std::optional<QByteArray> bytes = m_projects.FileBytes(projectId);
    if (!bytes) {
        Envelope::Fail(res, 500, QStringLiteral("Stored project file is missing"));
        return;
    }
    res.status = 200;
    res.set_content(bytes->toStdString(), "application/octet-stream");
}

void ProjectEndpoints::RemoveOne(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    const FormFields fields(req);
    if (account && fields.RequireAll({"id"}, res))
        RemoveProjects(*account, {fields.Value("id")}, res);
}

void ProjectEndpoints::RemoveMulti(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    if (!account)
        return;
    if (const std::optional<QStringList> projectIds = FormFields(req).RequireList("ids", res))
        RemoveProjects(*account, *projectIds, res);
}

void ProjectEndpoints::RemoveProjects(const Account& account, const QStringList& projectIds, httplib::Response& res)
{
    if (Granted(m_projects.Remove(account.id, projectIds), res))
        Envelope::Ok(res, QJsonObject{{"removed", QJsonArray::fromStringList(projectIds)}});
}

bool ProjectEndpoints::Granted(const ProjectStore::Selection& selection, httplib::Response& res)
{
    if (selection.error.isEmpty())
        return true;
    Envelope::Fail(res, selection.httpStatus, selection.error);
    return false;
}
