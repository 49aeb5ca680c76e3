#include "LogStorageEndpoints.h"

#include "Envelope.h"
#include "LogStorageStore.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

namespace {

constexpr char kLogPath[] = "/files/v1/10008291/files/airlog/";
constexpr char kLogPathPattern[] = R"(/files/v1/10008291/files/airlog/([^/]+))";

void Reply(httplib::Response& res, int httpStatus, int code, const QString& message, const QJsonObject& data = {})
{
    const QJsonObject answer{{"code", code}, {"message", message}, {"data", data}};
    res.status = httpStatus;
    res.set_content(QJsonDocument(answer).toJson(QJsonDocument::Compact).toStdString(),
                    "application/json; charset=utf-8");
}

QString Field(const httplib::Request& req, const char* name)
{
    return req.has_file(name) ? QString::fromStdString(req.get_file_value(name).content) : QString();
}

QString NameOf(const httplib::Request& req)
{
    return QUrl::fromPercentEncoding(QByteArray::fromStdString(req.matches[1].str()));
}

QString AccessUrl(const httplib::Request& req, const QString& name)
{
    return QStringLiteral("http://") + QString::fromStdString(req.get_header_value("Host")) + QLatin1String(kLogPath)
           + QString::fromLatin1(QUrl::toPercentEncoding(name));
}

// The answer for an upload that stands as state says: the stored file's
// address, or the session and where its next slice starts.
void ReplyState(const httplib::Request& req, httplib::Response& res, const LogStorageStore::SState& state,
                qint64 sliceSize)
{
    if (!state.strError.isEmpty()) {
        Reply(res, 400, -1, state.strError);
        return;
    }
    QJsonObject data{{"offset", state.nOffset}, {"slice_size", sliceSize}};
    if (state.strStoredName.isEmpty())
        data.insert(QStringLiteral("session"), state.strSession);
    else
        data.insert(QStringLiteral("access_url"), AccessUrl(req, state.strStoredName));
    Reply(res, 200, 0, QStringLiteral("SUCCESS"), data);
}

}  // namespace

LogStorageEndpoints::LogStorageEndpoints(CloudStore& store, LogStorageStore& storage)
    : m_guard(store)
    , m_storage(storage)
{
}

void LogStorageEndpoints::Register(httplib::Server& server)
{
    // A reply leaves as two writes (head, body); with Nagle's algorithm the
    // body waits for the client's delayed acknowledgement, 40 ms a request,
    // which would dominate an upload made of many slices.
    server.set_tcp_nodelay(true);
    Route(server, "/file/authorization", this, &LogStorageEndpoints::IssueAuthorization);
    server.Post(kLogPathPattern, [this](const httplib::Request& req, httplib::Response& res) { Upload(req, res); });
    server.Get(kLogPathPattern, [this](const httplib::Request& req, httplib::Response& res) { ServeStored(req, res); });
}

void LogStorageEndpoints::IssueAuthorization(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    if (!account)
        return;
    const QByteArray authorization = m_storage.IssueAuthorization(account->id);
    Envelope::Ok(res, QJsonObject{{"Authorization", QString::fromLatin1(authorization)},
                                  {"expires_in", LogStorageStore::AuthorizationSeconds}});
}

const std::string LogStorageEndpoints::UploadPrefix = kLogPath;

bool LogStorageEndpoints::AdmitUploader(LogStorageStore& storage, const httplib::Request& req,
                                        httplib::Response& res)
{
    if (storage.IsAuthorized(QByteArray::fromStdString(req.get_header_value("Authorization"))))
        return true;
    Reply(res, 401, -70, QStringLiteral("authorization invalid or expired"));
    return false;
}

void LogStorageEndpoints::Upload(const httplib::Request& req, httplib::Response& res)
{
    const QString name = NameOf(req);
    if (!AdmitUploader(m_storage, req, res))
        return;
    if (!LogStorageStore::IsValidName(name)) {
        Reply(res, 400, -1, QStringLiteral("invalid file name"));
        return;
    }
    if (Field(req, "op") != QLatin1String("upload_slice")) {
        Reply(res, 400, -1, QStringLiteral("op must be upload_slice"));
        return;
    }
    if (req.has_file("session"))
        AppendSlice(req, res, name);
    else
        StartUpload(req, res);
}

void LogStorageEndpoints::StartUpload(const httplib::Request& req, httplib::Response& res)
{
    bool isNumber = false;
    const qint64 fileSize = Field(req, "filesize").toLongLong(&isNumber);
    ReplyState(req, res, m_storage.Start(isNumber ? fileSize : -1, Field(req, "sha").toLatin1()), m_storage.SliceSize());
}

void LogStorageEndpoints::AppendSlice(const httplib::Request& req, httplib::Response& res, const QString& name)
{
    bool isNumber = false;
    const qint64 offset = Field(req, "offset").toLongLong(&isNumber);
    if (!isNumber || !req.has_file("filecontent")) {
        Reply(res, 400, -1, QStringLiteral("offset and filecontent are required"));
        return;
    }
    const std::string& content = req.get_file_value("filecontent").content;
    ReplyState(req, res,
               m_storage.Append(Field(req, "session"), offset,
                                QByteArray::fromRawData(content.data(), int(content.size())), name),
               m_storage.SliceSize());
}

void LogStorageEndpoints::ServeStored(const httplib::Request& req, httplib::Response& res)
{
    const QString name = NameOf(req);
    QFile file(LogStorageStore::IsValidName(name) ? m_storage.StoredPath(name) : QString());
    if (!file.open(QIODevice::ReadOnly)) {
        Reply(res, 404, -1, QStringLiteral("no such file"));
        return;
    }
    res.set_content(file.readAll().toStdString(), "application/octet-stream");
}
