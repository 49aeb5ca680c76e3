#include "NoflyZoneEndpoints.h"

#include "CloudStore.h"
#include "Envelope.h"
#include "FormFields.h"
#include "NoflyZoneStore.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

const char kFilesPrefix[] = "/noflyzone/files/";

// Every field of the form, for the administrator's edits.
QJsonObject FormObject(const httplib::Request& req)
{
    QJsonObject object;
    for (const auto& param : req.params)
        object.insert(QString::fromStdString(param.first), QString::fromStdString(param.second));
    return object;
}

}  // namespace

NoflyZoneEndpoints::NoflyZoneEndpoints(CloudStore& store, NoflyZoneStore& zones)
    : m_store(store)
    , m_zones(zones)
    , m_guard(store)
{
}

void NoflyZoneEndpoints::Register(httplib::Server& server)
{
    Route(server, "/noflyzone/download", this, &NoflyZoneEndpoints::Download);
    server.Get(R"(/noflyzone/files/([^/]+))",
               [this](const httplib::Request& req, httplib::Response& res) { ServeFile(req, res); });
    Route(server, "/noflyzone/checkupdate", this, &NoflyZoneEndpoints::CheckUpdate);
    Route(server, "/noflyzone/liftAccept", this, &NoflyZoneEndpoints::LiftAccept);
    Route(server, "/noflyzone/admin/zone", this, &NoflyZoneEndpoints::AdminZone);
    Route(server, "/noflyzone/admin/lift", this, &NoflyZoneEndpoints::AdminLift);
}

void NoflyZoneEndpoints::Download(const httplib::Request& req, httplib::Response& res)
{
    const QString name = m_zones.ZoneFileName();
    if (name.isEmpty()) {
        Envelope::Fail(res, 500, QStringLiteral("Cannot write the zone file"));
        return;
    }
    const QString url =
        QStringLiteral("http://") + QString::fromStdString(req.get_header_value("Host")) + QLatin1String(kFilesPrefix) + name;
    Envelope::Ok(res, QJsonObject{{"url", url}});
}

void NoflyZoneEndpoints::ServeFile(const httplib::Request& req, httplib::Response& res)
{
    QFile file(m_zones.ZoneFilePath(QString::fromStdString(req.matches[1])));
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly)) {
        Envelope::Fail(res, 404, QStringLiteral("No such zone file"));
        return;
    }
    const QByteArray content = file.readAll();
    res.set_content(content.constData(), static_cast<size_t>(content.size()), "application/octet-stream");
}

void NoflyZoneEndpoints::CheckUpdate(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    const FormFields fields(req);
    if (!account || !fields.RequireAll({"updated_at"}, res))
        return;
    // "lift_count" sits beside the envelope's keys.
    const QJsonObject reply{{"status", 0},
                            {"message", "OK"},
                            {"data", m_zones.ZonesSince(fields.Value("updated_at"))},
                            {"lift_count", m_zones.LiftCount(account->id)}};
    res.set_content(QJsonDocument(reply).toJson(QJsonDocument::Compact).toStdString(),
                    "application/json; charset=utf-8");
}

void NoflyZoneEndpoints::LiftAccept(const httplib::Request& req, httplib::Response& res)
{
    if (const std::optional<Account> account = m_guard.RequireAccount(req, res))
        Envelope::Ok(res, QJsonObject{{"lift", m_zones.LiftsOf(account->id)}});
}

void NoflyZoneEndpoints::AdminZone(const httplib::Request& req, httplib::Response& res)
{
    if (!IsAdmin(req, res))
        return;
    QString error;
    if (const std::optional<QJsonObject> zone = m_zones.SaveZone(FormObject(req), &error))
        Envelope::Ok(res, *zone);
    else
        Envelope::Fail(res, 400, error);
}

void NoflyZoneEndpoints::AdminLift(const httplib::Request& req, httplib::Response& res)
{
    const FormFields fields(req);
    if (!IsAdmin(req, res) || !fields.RequireAll({"phone"}, res))
        return;
    const std::optional<Account> account = m_store.AccountByPhone(fields.Value("phone"));
    if (!account) {
        Envelope::Fail(res, 404, QStringLiteral("Unknown account"));
        return;
    }
    QString error;
    if (const std::optional<QJsonObject> lift = m_zones.SaveLift(account->id, FormObject(req), &error))
        Envelope::Ok(res, *lift);
    else
        Envelope::Fail(res, 400, error);
}

bool NoflyZoneEndpoints::IsAdmin(const httplib::Request& req, httplib::Response& res) const
{
    const QByteArray token = QByteArray::fromStdString(req.get_header_value("admin-token")).trimmed();
    const bool admin = !token.isEmpty() && m_store.IsAdminToken(token);
    if (!admin)
        Envelope::Fail(res, 401, QStringLiteral("An administrator's admin-token is needed"));
    return admin;
}
