#pragma once

#include "EndpointGroup.h"
#include "TokenGuard.h"

class CloudStore;
class LicenceStore;

// "/licence/...": the public key aircraft check licences with, licences
// issued to a signed-in account for one aircraft, and the administrator's
// way to set an account's licence terms.
class LicenceEndpoints : public EndpointGroup
{
public:
    LicenceEndpoints(CloudStore& store, LicenceStore& licences);

    void Register(httplib::Server& server) override;

private:
    void PublicKey(const httplib::Request& req, httplib::Response& res);
    void Issue(const httplib::Request& req, httplib::Response& res);
    void SetExpiry(const httplib::Request& req, httplib::Response& res);

    CloudStore& m_store;
    LicenceStore& m_licences;
    TokenGuard m_guard;
};
