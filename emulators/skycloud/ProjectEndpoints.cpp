#include "ProjectEndpoints.h"

#include "Envelope.h"
#include "FormFields.h"
#include "LmProjectFiles.h"
#include "ProjectStore.h"

ProjectEndpoints::ProjectEndpoints(CloudStore& store, ProjectStore& projects)
    : m_projects(projects)
    , m_guard(store)
{
}

void ProjectEndpoints::Register(httplib::Server& server)
{
    Route(server, "/project/list", this, &ProjectEndpoints::List);
    Route(server, "/project/upload", this, &ProjectEndpoints::Upload);
    Route(server, "/project/downloadfile", this, &ProjectEndpoints::DownloadFile);
}

void ProjectEndpoints::List(const httplib::Request& req, httplib::Response& res)
{
    if (const std::optional<Account> account = m_guard.RequireAccount(req, res))
        Envelope::Ok(res, m_projects.List(account->id));
}

void ProjectEndpoints::Upload(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    const FormFields fields(req);
    if (!account || !fields.RequireAll({"data"}, res))
        return;
    const ProjectStore::UploadResult result =
        m_projects.Upload(account->id, DecodeUploadArray(fields.Value("data").toLatin1()));
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
    switch (m_projects.CanRead(account->id, projectId)) {
    case ProjectStore::Access::Unknown:
        Envelope::Fail(res, 404, QStringLiteral("Unknown project"));
        return;
    case ProjectStore::Access::Forbidden:
        Envelope::Fail(res, 403, QStringLiteral("Project belongs to another account"));
        return;
    case ProjectStore::Access::Granted:
        break;
    }
    const QByteArray bytes = m_projects.FileBytes(projectId);
    res.status = 200;
    res.set_content(bytes.toStdString(), "application/octet-stream");
}
