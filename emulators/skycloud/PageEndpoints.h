#pragma once

#include "EndpointGroup.h"

// The web pages below the page base: "/8083/news", the start page's news.
class PageEndpoints : public EndpointGroup
{
public:
    void Register(httplib::Server& server) override;

private:
    void News(const httplib::Request& req, httplib::Response& res);
};
