#include "FaultReportEndpoints.h"

#include "Envelope.h"
#include "FaultReportStore.h"
#include "FormFields.h"

#include <QJsonObject>

namespace {

constexpr int kLowestLevel = 1;
constexpr int kHighestLevel = 4;
constexpr char kReportWithLog[] = "3";

}  // namespace

FaultReportEndpoints::FaultReportEndpoints(CloudStore& store, FaultReportStore& reports)
    : m_guard(store)
    , m_reports(reports)
{
}

void FaultReportEndpoints::Register(httplib::Server& server)
{
    Route(server, "/app/bugreport", this, &FaultReportEndpoints::Report);
}

void FaultReportEndpoints::Report(const httplib::Request& req, httplib::Response& res)
{
    const std::optional<Account> account = m_guard.RequireAccount(req, res);
    const FormFields fields(req);
    if (!account || !fields.RequireAll({"version", "system", "level", "type", "data"}, res))
        return;
    const int level = fields.Value("level").toInt();
    if (level < kLowestLevel || level > kHighestLevel) {
        Envelope::Fail(res, 400, QStringLiteral("level must be 1 to 4"));
        return;
    }
    if (fields.Value("type") == QLatin1String(kReportWithLog) && !fields.RequireAll({"log_url"}, res))
        return;
    const qint64 id = m_reports.Add(account->id, QJsonObject{{"version", fields.Value("version")},
                                                             {"system", fields.Value("system")},
                                                             {"level", level},
                                                             {"type", fields.Value("type")},
                                                             {"data", fields.Value("data")},
                                                             {"log_url", fields.Value("log_url")}});
    if (id == 0) {
        Envelope::Fail(res, 500, QStringLiteral("the report could not be stored"));
        return;
    }
    Envelope::Ok(res, QJsonObject{{"id", id}},
                 QStringLiteral("Thank you, your report has been received and will be looked at soon."));
}
