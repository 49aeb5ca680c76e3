#pragma once

#include "Account.h"
#include "EndpointGroup.h"
#include "Notifier.h"
#include "ShareActions.h"
#include "ShareStore.h"
#include "TokenGuard.h"

#include <optional>

class CloudStore;
class ProjectStore;

// "/share/...": sharing the account's projects with another account, which
// hears of it over the push channel at once; listing, accepting, answering,
// deleting and sending again the shares received and sent. "/task/...":
// assigning a flight task of the account's project to another account, which
// lists it among its received shares, accepts the project that holds it and
// answers it. Both kinds live in one share store.
class ShareEndpoints : public EndpointGroup
{
public:
    ShareEndpoints(CloudStore& store, ProjectStore& projects, ShareStore& shares, PushChannel& channel);

    void Register(httplib::Server& server) override;

private:
    void Share(const httplib::Request& req, httplib::Response& res);
    void List(const httplib::Request& req, httplib::Response& res);
    void Accept(const httplib::Request& req, httplib::Response& res);
    void Delete(const httplib::Request& req, httplib::Response& res);
    void Reply(const httplib::Request& req, httplib::Response& res);
    void ShareAgain(const httplib::Request& req, httplib::Response& res);
    void Assign(const httplib::Request& req, httplib::Response& res);
    void AcceptAssign(const httplib::Request& req, httplib::Response& res);
    void TaskReply(const httplib::Request& req, httplib::Response& res);

    // The account of the phone number, unless it is unknown or the sender's
    // own; else writes the refusal.
    std::optional<Account> Receiver(const Account& sender, const QString& phone, httplib::Response& res) const;
    // Stores the shares, tells the receiver and answers with the records.
    void StoreAndNotify(const ShareStore::NewShares& shares, httplib::Response& res);
    void NotifyReceiver(const ShareStore::NewShares& shares, const QJsonArray& records);
    // A listed record: the stored one with the other side's nick name and,
    // for a received one, whether the account has a project of its name.
    QJsonObject Listed(const Account& account, QJsonObject record, bool received);

    CloudStore& m_store;
    ProjectStore& m_projects;
    ShareStore& m_shares;
    ShareActions m_actions;
    Notifier m_notifier;
    TokenGuard m_guard;
};
