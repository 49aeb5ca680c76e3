#pragma once

#include "EndpointGroup.h"
#include "ProjectStore.h"
#include "TokenGuard.h"

class CloudStore;

// "/project/...": the account's project files: list, upload, download and removal.
class ProjectEndpoints : public EndpointGroup
{
public:
    ProjectEndpoints(CloudStore& store, ProjectStore& projects);

    void Register(httplib::Server& server) override;

private:
    void List(const httplib::Request& req, httplib::Response& res);
    // Project files exceed the library's limit for form bodies, so a posted
    // upload reads its body itself.
    void UploadPosted(const httplib::Request& req, httplib::Response& res, const httplib::ContentReader& reader);
    void UploadQuery(const httplib::Request& req, httplib::Response& res);
    void StoreUpload(const httplib::Request& req, httplib::Response& res, const QString& uploadText);
    void DownloadFile(const httplib::Request& req, httplib::Response& res);
    void RemoveOne(const httplib::Request& req, httplib::Response& res);
    void RemoveMulti(const httplib::Request& req, httplib::Response& res);
    // Removes all of the projects, or none when one is not the account's.
    void RemoveProjects(const Account& account, const QStringList& projectIds, httplib::Response& res);
    // Writes the refusal, if any, and tells whether the selection holds.
    static bool Granted(const ProjectStore::Selection& selection, httplib::Response& res);

    ProjectStore& m_projects;
    TokenGuard m_guard;
};
