#include "PushEndpoints.h"

#include "CloudStore.h"
#include "Envelope.h"

PushEndpoints::PushEndpoints(CloudStore& store)
    : m_store(store)
    , m_guard(store)
{
}

void PushEndpoints::Register(httplib::Server& server)
{
    Route(server, "/push/messageList", this, &PushEndpoints::MessageList);
}

void PushEndpoints::MessageList(const httplib::Request& req, httplib::Response& res)
{
    if (const std::optional<Account> account = m_guard.RequireAccount(req, res))
        Envelope::Ok(res, m_store.Messages(account->id));
}
