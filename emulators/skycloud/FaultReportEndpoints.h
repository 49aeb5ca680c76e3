#pragma once

#include "EndpointGroup.h"
#include "TokenGuard.h"

class CloudStore;
class FaultReportStore;

// "/app/bugreport" (signed in): a fault report with the fields version,
// system, level (1 minor, 2 normal, 3 serious, 4 critical), type, data
// (the question) and, for a report with a flight log (type 3), log_url.
class FaultReportEndpoints : public EndpointGroup
{
public:
    FaultReportEndpoints(CloudStore& store, FaultReportStore& reports);

    void Register(httplib::Server& server) override;

private:
    void Report(const httplib::Request& req, httplib::Response& res);

    TokenGuard m_guard;
    FaultReportStore& m_reports;
};
