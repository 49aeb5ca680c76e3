#include "CloudServer.h"

#include "AdminEndpoints.h"
#include "CloudLog.h"
#include "Envelope.h"
#include "PageEndpoints.h"
#include "PushEndpoints.h"
#include "UpdateEndpoints.h"
#include "UserEndpoints.h"

#include <QJsonObject>

#include <exception>

namespace {

// Loopback clients send their header block at once; a peer that trickles it
// would otherwise hold one of the few server threads.
const CloudConnection::Limits kConnectionLimits{std::chrono::seconds(5), 64 * 1024, std::chrono::seconds(5),
                                                std::chrono::seconds(5)};

}  // namespace

const size_t CloudServer::DefaultBodyLimit = 1024 * 1024;

CloudServer::CloudServer(CloudStore& store, PushChannel& channel, const ReleaseShelf& shelf, bool exposeCodes)
    : m_server(kConnectionLimits)
    , m_gate(store, DefaultBodyLimit)
{
    m_groups.push_back(std::make_unique<UserEndpoints>(store, exposeCodes));
    m_groups.push_back(std::make_unique<AdminEndpoints>(store));
    m_groups.push_back(std::make_unique<PushEndpoints>(store, channel));
    m_groups.push_back(std::make_unique<UpdateEndpoints>(shelf));
    m_groups.push_back(std::make_unique<PageEndpoints>());
    for (const auto& group : m_groups)
        group->Register(m_server);
    InstallHooks();
}

void CloudServer::AddGroup(std::unique_ptr<EndpointGroup> group)
{
    group->Register(m_server);
    m_groups.push_back(std::move(group));
}

void CloudServer::AllowLargeBody(const std::string& path, size_t limit)
{
    m_gate.AllowLargeBody(path, limit);
    m_server.set_payload_max_length(m_gate.LargestLimit());
}

void CloudServer::InstallHooks()
{
    m_server.set_payload_max_length(m_gate.LargestLimit());
    m_server.set_pre_routing_handler([this](const httplib::Request& req, httplib::Response& res) {
        return m_gate.Admit(req, res) ? httplib::Server::HandlerResponse::Unhandled
                                      : httplib::Server::HandlerResponse::Handled;
    });
    // A client that waits for "100 Continue" learns of a refusal instead.
    m_server.set_expect_100_continue_handler([this](const httplib::Request& req, httplib::Response& res) {
        return m_gate.Admit(req, res) ? 100 : res.status;
    });
    // A stop waits for idle keep-alive connections to time out; clients that
    // keep their connection (every Qt client does) must not hold it for long.
    m_server.set_keep_alive_timeout(1);
    const auto ping = [](const httplib::Request&, httplib::Response& res) { Envelope::Ok(res, QJsonObject{}); };
    m_server.Get("/ping", ping);
    m_server.Post("/ping", ping);

    m_server.set_error_handler([](const httplib::Request&, httplib::Response& res) {
        if (res.body.empty())
            Envelope::Fail(res, res.status, res.status == 404 ? QStringLiteral("Unknown path")
                                                             : QStringLiteral("Bad request"));
    });
    m_server.set_exception_handler([](const httplib::Request&, httplib::Response& res, std::exception_ptr) {
        Envelope::Fail(res, 500, QStringLiteral("Internal error"));
    });
    // Only the path: query strings may carry a token.
    m_server.set_logger([](const httplib::Request& req, const httplib::Response& res) {
        qCInfo(lcSkyCloud).noquote() << QString::fromStdString(req.method) << QString::fromStdString(req.path)
                                     << res.status;
    });
}

int CloudServer::Bind(int port)
{
    if (port == 0)
        return m_server.bind_to_any_port("127.0.0.1");
    return m_server.bind_to_port("127.0.0.1", port) ? port : -1;
}

bool CloudServer::Run()
{
    return m_server.listen_after_bind();
}

void CloudServer::Stop()
{
    m_server.stop();
}
