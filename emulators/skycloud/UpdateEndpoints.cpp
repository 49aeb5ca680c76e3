#include "UpdateEndpoints.h"

#include "Envelope.h"
#include "FormFields.h"
#include "ReleaseShelf.h"

#include <QFile>
#include <QJsonObject>
#include <QVersionNumber>

namespace {

constexpr char kDownloadPrefix[] = "/app/download/";

QString DownloadUrl(const httplib::Request& req, const QString& file)
{
    return QStringLiteral("http://") + QString::fromStdString(req.get_header_value("Host"))
           + QLatin1String(kDownloadPrefix) + file;
}

}  // namespace

UpdateEndpoints::UpdateEndpoints(const ReleaseShelf& shelf)
    : m_shelf(shelf)
{
}

void UpdateEndpoints::Register(httplib::Server& server)
{
    Route(server, "/app/checkupdate", this, &UpdateEndpoints::CheckUpdate);
    Route(server, R"(/app/download/([A-Za-z0-9._-]+))", this, &UpdateEndpoints::Download);
}

// "data" is the newest release when it is newer than "version" (compared
// number by number, so 1.10 is newer than 1.9), else an empty object.
void UpdateEndpoints::CheckUpdate(const httplib::Request& req, httplib::Response& res)
{
    const FormFields form(req);
    if (!form.RequireAll({"product"}, res))
        return;
    const QString product = form.Value("product");
    if (!ReleaseShelf::Products().contains(product)) {
        Envelope::Fail(res, 400, QStringLiteral("Unknown product"));
        return;
    }
    const std::optional<ReleaseShelf::Release> release = m_shelf.Latest(product);
    const QVersionNumber current = QVersionNumber::fromString(form.Value("version"));
    if (!release || QVersionNumber::fromString(release->version) <= current) {
        Envelope::Ok(res, QJsonObject{});
        return;
    }
    Envelope::Ok(res, QJsonObject{{"version", release->version},
                                  {"url", DownloadUrl(req, release->file)},
                                  {"size", release->size},
                                  {"sha256", release->sha256},
                                  {"notes", release->notes}});
}

void UpdateEndpoints::Download(const httplib::Request& req, httplib::Response& res)
{
    QFile file(m_shelf.PackagePath(QString::fromStdString(req.matches[1])));
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly)) {
        Envelope::Fail(res, 404, QStringLiteral("Unknown package"));
        return;
    }
    res.set_content(file.readAll().toStdString(), "application/octet-stream");
}
