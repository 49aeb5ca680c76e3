#pragma once

#include "EndpointGroup.h"
#include "Notifier.h"
#include "ShareActions.h"
#include "ShareStore.h"
#include "TokenGuard.h"

class CloudStore;
class ProjectStore;

// "/task/...": assigning a flight task of the account's project to another
// account, which lists it among its received shares, accepts the project
// that holds it and answers it.
class TaskEndpoints : public EndpointGroup
{
public:
    TaskEndpoints(CloudStore& store, ProjectStore& projects, ShareStore& shares, PushChannel& channel);

    void Register(httplib::Server& server) override;

private:
    void Assign(const httplib::Request& req, httplib::Response& res);
    void AcceptAssign(const httplib::Request& req, httplib::Response& res);
    void Reply(const httplib::Request& req, httplib::Response& res);

    CloudStore& m_store;
    ProjectStore& m_projects;
    ShareStore& m_shares;
    ShareActions m_actions;
    Notifier m_notifier;
    TokenGuard m_guard;
};
