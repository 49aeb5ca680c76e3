#include "FlightEndpoints.h"

#include "Envelope.h"
#include "FlightStore.h"
#include "FormFields.h"

#include <QJsonDocument>

#include <cmath>

namespace {

// Row ids are SQLite row ids, so positive; a JSON number holds every integer
// up to 2^53 exactly, and nothing beyond can be told apart from its neighbours.
constexpr double kLargestJsonId = 9007199254740992.0;

std::optional<qint64> MissionIdOf(const FormFields& fields)
{
    bool ok = false;
    const qint64 id = fields.Value("flight_mission_id").toLongLong(&ok);
    return ok && id > 0 ? std::optional<qint64>(id) : std::nullopt;
}

bool IsExactInteger(const QJsonValue& value)
{
    const double number = value.toDouble(0.5);
    return value.isDouble() && std::floor(number) == number && std::fabs(number) <= kLargestJsonId;
}

bool IsRowId(const QJsonValue& value)
{
    return IsExactInteger(value) && value.toDouble() >= 1.0;
}

bool IsLogRow(const QJsonValue& value)
{
    return value.isObject() && IsRowId(value.toObject().value(QStringLiteral("id")));
}

// The form's flight_task_id, else the mission's, which clients send as text
// or as a number.
QString TaskIdOf(const FormFields& fields, const QJsonObject& mission)
{
    if (const std::optional<QString> text = fields.Optional("flight_task_id"))
        return *text;
    const QJsonValue taskId = mission.value(QStringLiteral("flight_task_id"));
    return IsExactInteger(taskId) ? QString::number(taskId.toVariant().toLongLong()) : taskId.toString();
}

// The rows field: a JSON array of objects that each carry a numeric "id".
std::optional<QJsonArray> RowsOf(const FormFields& fields)
{
    const QJsonDocument document = QJsonDocument::fromJson(fields.Value("rows").toUtf8());
    if (!document.isArray())
        return std::nullopt;
    const QJsonArray rows = document.array();
    for (const QJsonValue& row : rows) {
        if (!IsLogRow(row))
            return std::nullopt;
    }
    return rows;
}

}  // namespace

FlightEndpoints::FlightEndpoints(CloudStore& store, FlightStore& flights)
    : m_flights(flights)
    , m_guard(store)
{
}

void FlightEndpoints::Register(httplib::Server& server)
{
    server.Get("/flight/upload", [this](const httplib::Request& req, httplib::Response& res) { UploadQuery(req, res); });
    server.Post("/flight/upload",
                [this](const httplib::Request& req, httplib::Response& res, const httplib::ContentReader& reader) {
                    UploadPosted(req, res, reader);
                });
    Route(server, "/flight/listbytask", this, &FlightEndpoints::ListByTask);
    Route(server, "/flight/getflog", this, &FlightEndpoints::GetFlightLog);
    Route(server, "/flight/downloadPos", this, &FlightEndpoints::DownloadPositions);
}

void FlightEndpoints::UploadPosted(const httplib::Request& req, httplib::Response& res,
                                   const httplib::ContentReader& reader)
{
    StoreUpload(req, res, FormFields(req, reader));
}

void FlightEndpoints::UploadQuery(const httplib::Request& req, httplib::Response& res)
{
    StoreUpload(req, res, FormFields(req));
}

void FlightEndpoints::StoreUpload(const httplib::Request& req, httplib::Response& res, const FormFields& fields)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    if (!account || !fields.RequireAll({"project_id", "flight_mission_id", "rows"}, res))
        return;
    FlightStore::MissionUpload upload;
    upload.projectId = fields.Value("project_id");
    upload.mission = QJsonDocument::fromJson(fields.Value("mission").toUtf8()).object();
    upload.taskId = TaskIdOf(fields, upload.mission);
    const std::optional<qint64> missionId = MissionIdOf(fields);
    const std::optional<QJsonArray> rows = RowsOf(fields);
    if (!missionId || !rows) {
        Envelope::Fail(res, 400, missionId ? QStringLiteral("Invalid rows: each needs a positive integer id")
                                           : QStringLiteral("Invalid flight_mission_id: a positive integer is expected"));
        return;
    }
    upload.missionId = *missionId;
    upload.rows = *rows;
    if (const std::optional<QList<QJsonObject>> stored = m_flights.Upload(account->id, {upload}))
        Envelope::Ok(res, stored->first());
    else
        Envelope::Fail(res, 500, QStringLiteral("Cannot store the flight data"));
}

void FlightEndpoints::ListByTask(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    const FormFields fields(req);
    if (account && fields.RequireAll({"task_id"}, res))
        Envelope::Ok(res, m_flights.MissionsOfTask(account->id, fields.Value("task_id")));
}

void FlightEndpoints::GetFlightLog(const httplib::Request& req, httplib::Response& res)
{
    ServeMissionRows(req, res, &FlightStore::FlightLog);
}

void FlightEndpoints::DownloadPositions(const httplib::Request& req, httplib::Response& res)
{
    ServeMissionRows(req, res, &FlightStore::Positions);
}

void FlightEndpoints::ServeMissionRows(const httplib::Request& req, httplib::Response& res, RowReader read)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    const FormFields fields(req);
    if (!account || !fields.RequireAll({"flight_mission_id"}, res))
        return;
    const std::optional<qint64> missionId = MissionIdOf(fields);
    if (!missionId) {
        Envelope::Fail(res, 400, QStringLiteral("Invalid flight_mission_id: a positive integer is expected"));
        return;
    }
    const FlightStore::MissionRows rows = (m_flights.*read)(account->id, fields.Value("project_id"), *missionId);
    if (rows.error.isEmpty())
        Envelope::Ok(res, rows.rows);
    else
        Envelope::Fail(res, rows.httpStatus, rows.error);
}
