#include "PageEndpoints.h"

namespace {

struct SNewsItem
{
    const char* date;
    const char* title;
    const char* text;
};

const SNewsItem kNews[] = {
    {"2024-05-20", "Corridor mapping templates",
     "Plan long linear surveys along roads and power lines with the new corridor templates."},
    {"2024-04-02", "RTK base station firmware 2.1",
     "Faster fix after power-up and a steadier CORS connection on weak mobile networks."},
    {"2024-02-14", "Cloud project sharing",
     "Share a survey project with your team and follow its flights from any workstation."},
};

std::string NewsPage()
{
    std::string html =
        "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>SkyConsole news</title>"
        "<style>body{font-family:sans-serif;margin:24px;color:#223}"
        "article{border-bottom:1px solid #ccd;padding:8px 0}time{color:#778;font-size:90%}</style>"
        "</head><body><h1>News</h1>\n";
    for (const SNewsItem& item : kNews) {
        html += "<article><time>";
        html += item.date;
        html += "</time><h2>";
        html += item.title;
        html += "</h2><p>";
        html += item.text;
        html += "</p></article>\n";
    }
    html += "</body></html>\n";
    return html;
}

}  // namespace

void PageEndpoints::Register(httplib::Server& server)
{
    Route(server, "/8083/news", this, &PageEndpoints::News);
}

void PageEndpoints::News(const httplib::Request&, httplib::Response& res)
{
    res.set_content(NewsPage(), "text/html; charset=utf-8");
}
