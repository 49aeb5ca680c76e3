#pragma once

#include "EndpointGroup.h"
#include "TokenGuard.h"

class CloudStore;
class NoflyZoneStore;

// "/noflyzone/...": the zone file, the zones changed since a time, the
// lifts granted to the account, and the administrator's zone and lift edits.
class NoflyZoneEndpoints : public EndpointGroup
{
public:
    NoflyZoneEndpoints(CloudStore& store, NoflyZoneStore& zones);

    void Register(httplib::Server& server) override;

private:
    void Download(const httplib::Request& req, httplib::Response& res);
    void ServeFile(const httplib::Request& req, httplib::Response& res);
    void CheckUpdate(const httplib::Request& req, httplib::Response& res);
    void LiftAccept(const httplib::Request& req, httplib::Response& res);
    void AdminZone(const httplib::Request& req, httplib::Response& res);
    void AdminLift(const httplib::Request& req, httplib::Response& res);
    bool IsAdmin(const httplib::Request& req, httplib::Response& res) const;

    CloudStore& m_store;
    NoflyZoneStore& m_zones;
    TokenGuard m_guard;
};
