#include "CloudHttpServer.h"

#include <sys/socket.h>
#include <unistd.h>

CloudHttpServer::CloudHttpServer(const CloudConnection::Limits& limits)
    : m_limits(limits)
{
}

bool CloudHttpServer::process_and_close_socket(socket_t sock)
{
    bool served = true;
    {
        CloudConnection connection(sock, m_limits, [this] { return !is_running(); });
        bool closed = false;
        // The first request may take as long as any read; later ones on a
        // kept connection only as long as the keep-alive time.
        std::chrono::milliseconds idle = m_limits.readTimeout;
        for (size_t left = keep_alive_max_count_; left > 0 && served && !closed && connection.KeepServing(); --left) {
            if (!connection.WaitForRequest(idle))
                break;
            idle = std::chrono::seconds(keep_alive_timeout_sec_);
            connection.BeginRequest();
            served = process_request(connection, left == 1, closed, [](httplib::Request&) {});
        }
        if (connection.MustDrain())
            connection.DrainBriefly();
    }
    ::shutdown(sock, SHUT_RDWR);
    ::close(sock);
    return served;
}
