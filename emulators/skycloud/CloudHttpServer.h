#pragma once

#include "CloudConnection.h"

#include <httplib.h>

// The HTTP server with connections served through CloudConnection, so that
// every request is held to its limits and a stop ends every connection at
// once instead of waiting for slow peers.
class CloudHttpServer : public httplib::Server
{
public:
    explicit CloudHttpServer(const CloudConnection::Limits& limits);

private:
    bool process_and_close_socket(socket_t sock) override;

    CloudConnection::Limits m_limits;
};
