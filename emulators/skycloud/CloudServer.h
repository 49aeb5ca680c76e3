#pragma once

#include "CloudHttpServer.h"
#include "EndpointGroup.h"
#include "RequestGate.h"

#include <memory>
#include <vector>

class CloudStore;
class PushChannel;
class ReleaseShelf;

// The HTTP side of the service on 127.0.0.1: routes, request log, the
// envelope for unknown paths and handler failures, and the limits every
// request is held to before any handler sees it.
class CloudServer
{
public:
    CloudServer(CloudStore& store, PushChannel& channel, const ReleaseShelf& shelf, bool exposeCodes);

    // Serves a further endpoint family; call before Bind().
    void AddGroup(std::unique_ptr<EndpointGroup> group);
    // Bodies of the path may be larger than DefaultBodyLimit, up to the
    // limit, and are read only from a signed-in account.
    void AllowLargeBody(const std::string& path, size_t limit);

    static const size_t DefaultBodyLimit;

    // Binds to the port (0 picks a free one); returns the bound port or -1.
    int Bind(int port);
    // Serves until Stop(); false when serving failed.
    bool Run();
    // Safe to call from any thread.
    void Stop();

private:
    void InstallHooks();

    CloudHttpServer m_server;
    RequestGate m_gate;
    std::vector<std::unique_ptr<EndpointGroup>> m_groups;
};
