#pragma once

#include "EndpointGroup.h"

#include <memory>
#include <vector>

class CloudStore;
class PushChannel;
class ReleaseShelf;

// The HTTP side of the service on 127.0.0.1: routes, request log, and the
// envelope for unknown paths and handler failures.
class CloudServer
{
public:
    CloudServer(CloudStore& store, PushChannel& channel, const ReleaseShelf& shelf, bool exposeCodes);

    // Serves a further endpoint family; call before Bind().
    void AddGroup(std::unique_ptr<EndpointGroup> group);

    // Binds to the port (0 picks a free one); returns the bound port or -1.
    int Bind(int port);
    // Serves until Stop(); false when serving failed.
    bool Run();
    // Safe to call from any thread.
    void Stop();

private:
    void InstallHooks();

    httplib::Server m_server;
    std::vector<std::unique_ptr<EndpointGroup>> m_groups;
};
