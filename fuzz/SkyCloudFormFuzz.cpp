// Fuzz entry point for skycloud's form decoding. The input is
// "<query>\n<body>": the query as the server parses it from the request
// line, the body as posted. The first byte chooses whether the body arrives
// whole with the request or through a reader in chunks of that many bytes.
// Checked for every input:
//  - a body read whole and a body read in chunks decode to the same fields;
//  - a list field holds trimmed, non-empty values without repeats;
//  - a required field refused is empty, and the refusal is a 400.
#include "FormFields.h"

#include <QSet>

#include <algorithm>
#include <cstdlib>
#include <string>

namespace {

const char* const kNames[] = {"data", "ids", "id", "phone", "token", ""};

void require(bool condition)
{
    if (!condition)
        std::abort();
}

httplib::Request RequestOf(const std::string& query, const std::string& body)
{
    httplib::Request req;
    httplib::detail::parse_query_text(query, req.params);
    req.body = body;
    return req;
}

httplib::ContentReader ChunkedReader(const std::string& body, size_t chunk)
{
    return httplib::ContentReader(
        [body, chunk](httplib::ContentReceiver receiver) {
            for (size_t at = 0; at < body.size(); at += chunk) {
                if (!receiver(body.data() + at, std::min(chunk, body.size() - at)))
                    return false;
            }
            return true;
        },
        [](httplib::MultipartContentHeader, httplib::ContentReceiver) { return false; });
}

void CheckList(const FormFields& fields, const char* name)
{
    const QStringList values = fields.List(name);
    require(QSet<QString>(values.cbegin(), values.cend()).size() == values.size());
    for (const QString& value : values)
        require(!value.isEmpty() && value == value.trimmed());
    httplib::Response res;
    const std::optional<QStringList> required = fields.RequireList(name, res);
    require(required.has_value() == !values.isEmpty());
    require(required.has_value() || res.status == 400);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const size_t chunk = 1 + data[0] % 64;
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    const size_t split = std::min(text.find('\n'), text.size());
    const std::string query = text.substr(0, split);
    const std::string body = split < text.size() ? text.substr(split + 1) : std::string();

    const httplib::Request req = RequestOf(query, body);
    const FormFields whole(req);
    const FormFields chunked(RequestOf(query, std::string()), ChunkedReader(body, chunk));
    for (const char* name : kNames) {
        require(whole.Optional(name) == chunked.Optional(name));
        CheckList(whole, name);
    }
    httplib::Response res;
    const bool complete = whole.RequireAll({"data", "id"}, res);
    require(complete == (!whole.Value("data").isEmpty() && !whole.Value("id").isEmpty()));
    require(complete || res.status == 400);
    return 0;
}
