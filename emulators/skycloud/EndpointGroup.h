#pragma once

#include <httplib.h>

// A family of endpoints sharing a path prefix; the server registers each group.
class EndpointGroup
{
public:
    virtual ~EndpointGroup() = default;
    virtual void Register(httplib::Server& server) = 0;

protected:
    // Serves the path for POST and GET alike: clients post forms, but may
    // fetch calls that carry no body.
    template <class Group>
    static void Route(httplib::Server& server, const char* path, Group* group,
                      void (Group::*handler)(const httplib::Request&, httplib::Response&))
    {
        RouteBoth(server, path, [group, handler](const httplib::Request& req, httplib::Response& res) {
            (group->*handler)(req, res);
        });
    }

private:
    static void RouteBoth(httplib::Server& server, const char* path, const httplib::Server::Handler& handler);
};
