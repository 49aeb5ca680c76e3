#pragma once

#include "EndpointGroup.h"
#include "TokenGuard.h"

class CloudStore;

// "/push/...": the user's message centre.
class PushEndpoints : public EndpointGroup
{
public:
    explicit PushEndpoints(CloudStore& store);

    void Register(httplib::Server& server) override;

private:
    void MessageList(const httplib::Request& req, httplib::Response& res);

    CloudStore& m_store;
    TokenGuard m_guard;
};
