#pragma once

#include "Account.h"
#include "EndpointGroup.h"
#include "Notifier.h"
#include "TokenGuard.h"

#include <optional>

class CloudStore;
class PushChannel;

// "/push/...": the user's message centre, and sending a notification to a
// user (an administrator's call), which is stored for the message list and
// pushed at once over the push channel.
class PushEndpoints : public EndpointGroup
{
public:
    PushEndpoints(CloudStore& store, PushChannel& channel);

    void Register(httplib::Server& server) override;

private:
    void MessageList(const httplib::Request& req, httplib::Response& res);
    void Send(const httplib::Request& req, httplib::Response& res);

    std::optional<Account> Recipient(const httplib::Request& req, httplib::Response& res) const;

    CloudStore& m_store;
    Notifier m_notifier;
    TokenGuard m_guard;
};
