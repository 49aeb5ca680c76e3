#pragma once

#include "EndpointGroup.h"
#include "TokenGuard.h"

class CloudStore;
class FlightStore;
class FormFields;

// "/flight/...": flight data of the account's missions: upload, the missions
// of a flight task and the flight log of a mission.
class FlightEndpoints : public EndpointGroup
{
public:
    FlightEndpoints(CloudStore& store, FlightStore& flights);

    void Register(httplib::Server& server) override;

private:
    // Flight logs exceed the library's limit for form bodies, so a posted
    // upload reads its body itself.
    void UploadPosted(const httplib::Request& req, httplib::Response& res, const httplib::ContentReader& reader);
    void UploadQuery(const httplib::Request& req, httplib::Response& res);
    void StoreUpload(const httplib::Request& req, httplib::Response& res, const FormFields& fields);
    void ListByTask(const httplib::Request& req, httplib::Response& res);
    void GetFlightLog(const httplib::Request& req, httplib::Response& res);

    FlightStore& m_flights;
    TokenGuard m_guard;
};
