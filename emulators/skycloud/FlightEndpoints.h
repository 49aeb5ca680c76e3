#pragma once

#include "EndpointGroup.h"
#include "FlightStore.h"
#include "TokenGuard.h"

class CloudStore;
class FormFields;

// "/flight/...": flight data of the account's missions: upload, the missions
// of a flight task, and the flight log and positions of a mission.
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
    void DownloadPositions(const httplib::Request& req, httplib::Response& res);

    using RowReader = FlightStore::MissionRows (FlightStore::*)(qint64, const QString&, qint64);
    // Answers with the rows that read() finds for the flight_mission_id and
    // optional project_id fields.
    void ServeMissionRows(const httplib::Request& req, httplib::Response& res, RowReader read);

    FlightStore& m_flights;
    TokenGuard m_guard;
};
