#pragma once

#include "EndpointGroup.h"
#include "TokenGuard.h"

class CloudStore;
class ProjectStore;

// "/project/...": the account's project files: list, upload and download.
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

    ProjectStore& m_projects;
    TokenGuard m_guard;
};
