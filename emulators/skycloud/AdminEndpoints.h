#pragma once

#include "EndpointGroup.h"

class CloudStore;

// "/admin/...": the administrator's sign-in.
class AdminEndpoints : public EndpointGroup
{
public:
    explicit AdminEndpoints(CloudStore& store);

    void Register(httplib::Server& server) override;

private:
    void Login(const httplib::Request& req, httplib::Response& res);

    CloudStore& m_store;
};
