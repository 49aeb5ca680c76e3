#pragma once

#include <string>

#include "EndpointGroup.h"
#include "TokenGuard.h"

class CloudStore;
class LogStorageStore;

// The cloud storage of flight logs and the authorisation to write to it:
//   "/file/authorization" (signed in): a short-lived authorisation;
//   POST "/files/v1/10008291/files/airlog/<name>" (multipart, header
//   "Authorization"): "op" = "upload_slice" with "filesize" and "sha" starts
//   or resumes an upload, with "session", "offset" and "filecontent" adds a
//   slice; GET of the same path returns a stored log.
// Storage replies are {"code", "message", "data"}; code 0 is success.
class LogStorageEndpoints : public EndpointGroup
{
public:
    LogStorageEndpoints(CloudStore& store, LogStorageStore& storage);

    void Register(httplib::Server& server) override;

    // Where the log files are stored; uploads below it carry large bodies.
    static const std::string UploadPrefix;
    // Whether an upload's sender holds a valid authorisation, from its
    // headers alone (before its body is read); writes the refusal.
    static bool AdmitUploader(LogStorageStore& storage, const httplib::Request& req, httplib::Response& res);

private:
    void IssueAuthorization(const httplib::Request& req, httplib::Response& res);
    void Upload(const httplib::Request& req, httplib::Response& res);
    void StartUpload(const httplib::Request& req, httplib::Response& res);
    void AppendSlice(const httplib::Request& req, httplib::Response& res, const QString& name);
    void ServeStored(const httplib::Request& req, httplib::Response& res);

    TokenGuard m_guard;
    LogStorageStore& m_storage;
};
