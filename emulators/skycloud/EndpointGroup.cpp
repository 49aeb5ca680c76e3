#include "EndpointGroup.h"

void EndpointGroup::RouteBoth(httplib::Server& server, const char* path, const httplib::Server::Handler& handler)
{
    server.Get(path, handler);
    server.Post(path, handler);
}
