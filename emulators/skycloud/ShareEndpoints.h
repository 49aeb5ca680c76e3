#pragma once

#include "Account.h"
#include "EndpointGroup.h"
#include "Notifier.h"
#include "ShareStore.h"
#include "TokenGuard.h"

#include <optional>

class CloudStore;
class ProjectStore;

// "/share/...": sharing the account's projects with another account, which
// hears of it over the push channel at once.
class ShareEndpoints : public EndpointGroup
{
public:
    ShareEndpoints(CloudStore& store, ProjectStore& projects, ShareStore& shares, PushChannel& channel);

    void Register(httplib::Server& server) override;

private:
    void Share(const httplib::Request& req, httplib::Response& res);

    // The account of the phone number, unless it is unknown or the sender's
    // own; else writes the refusal.
    std::optional<Account> Receiver(const Account& sender, const QString& phone, httplib::Response& res) const;
    void NotifyReceiver(const ShareStore::NewShares& shares, const QJsonArray& records);

    CloudStore& m_store;
    ProjectStore& m_projects;
    ShareStore& m_shares;
    Notifier m_notifier;
    TokenGuard m_guard;
};
