#include "RequestGate.h"

#include "CloudConnection.h"
#include "Envelope.h"

#include <httplib.h>

#include <algorithm>
#include <chrono>

namespace {

// Enough for a small form over a slow link; a peer that trickles one holds a
// server thread no longer than this.
constexpr std::chrono::seconds kSmallBodyTime{30};

bool HasBody(const httplib::Request& req)
{
    return req.has_header("Transfer-Encoding")
           || (req.has_header("Content-Length") && req.get_header_value("Content-Length") != "0");
}

QString MegabytesText(size_t bytes)
{
    return QStringLiteral("%1 MB").arg(static_cast<double>(bytes) / (1024.0 * 1024.0));
}

}  // namespace

RequestGate::RequestGate(CloudStore& store, size_t defaultLimit)
    : m_guard(store)
    , m_defaultLimit(defaultLimit)
{
}

void RequestGate::AllowLargeBody(const std::string& path, size_t limit)
{
    m_largeBodies[path] = limit;
}

size_t RequestGate::DefaultLimit() const
{
    return m_defaultLimit;
}

size_t RequestGate::LargestLimit() const
{
    size_t largest = m_defaultLimit;
    for (const auto& entry : m_largeBodies)
        largest = std::max(largest, entry.second);
    return largest;
}

size_t RequestGate::LimitOf(const std::string& path) const
{
    const auto found = m_largeBodies.find(path);
    return found == m_largeBodies.end() ? m_defaultLimit : found->second;
}

bool RequestGate::Admit(const httplib::Request& req, httplib::Response& res) const
{
    if (!HasBody(req))
        return true;
    // Large bodies are read for signed-in accounts only, whatever their length.
    const bool admitted = (m_largeBodies.count(req.path) == 0 || m_guard.RequireAccount(req, res).has_value())
                          && AdmitLength(req, res);
    if (!admitted)
        CloudConnection::CloseAfterReply();
    else if (m_largeBodies.count(req.path) == 0)
        CloudConnection::BoundBodyTime(kSmallBodyTime);
    return admitted;
}

bool RequestGate::AdmitLength(const httplib::Request& req, httplib::Response& res) const
{
    const size_t limit = LimitOf(req.path);
    // A body without a length could only be measured by reading it: only
    // the large-body paths take one, and the server stops reading any body
    // at the largest limit.
    if (!req.has_header("Content-Length")) {
        if (m_largeBodies.count(req.path) != 0)
            return true;
        Envelope::Fail(res, 411, QStringLiteral("Content-Length required"));
        return false;
    }
    const std::string lengthText = req.get_header_value("Content-Length");
    const bool isNumber = !lengthText.empty() && lengthText.size() <= 19
                          && std::all_of(lengthText.begin(), lengthText.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!isNumber) {
        Envelope::Fail(res, 400, QStringLiteral("Invalid Content-Length"));
        return false;
    }
    if (std::stoull(lengthText) > limit) {
        Envelope::Fail(res, 413, QStringLiteral("Request body too large: at most %1 here").arg(MegabytesText(limit)));
        return false;
    }
    return true;
}
