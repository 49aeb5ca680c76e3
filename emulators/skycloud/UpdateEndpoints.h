#pragma once

#include "EndpointGroup.h"

class ReleaseShelf;

// "/app/...": update information for the application, the launcher and the
// aircraft firmware, and the download of their packages.
class UpdateEndpoints : public EndpointGroup
{
public:
    explicit UpdateEndpoints(const ReleaseShelf& shelf);

    void Register(httplib::Server& server) override;

private:
    void CheckUpdate(const httplib::Request& req, httplib::Response& res);
    void Download(const httplib::Request& req, httplib::Response& res);

    const ReleaseShelf& m_shelf;
};
