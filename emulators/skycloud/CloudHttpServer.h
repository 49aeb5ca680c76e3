#pragma once

#include "CloudConnection.h"

#include <httplib.h>

#include <atomic>

// The HTTP server with connections served through CloudConnection, so that
// every request is held to its limits and a stop ends every connection at
// once instead of waiting for slow peers.
class CloudHttpServer : public httplib::Server
{
public:
    explicit CloudHttpServer(const CloudConnection::Limits& limits);

    // Stops accepting and ends every connection's waits. The library's own
    // stop() leaves the server "running" until every worker has finished,
    // so the connections could not tell from it.
    void StopServing();

private:
    bool process_and_close_socket(socket_t sock) override;

    CloudConnection::Limits m_limits;
    std::atomic<bool> m_stopping{false};
};
