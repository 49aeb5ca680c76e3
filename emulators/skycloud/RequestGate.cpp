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

void RequestGate::AllowLargeBodyUnder(const std::string& prefix, size_t limit, SenderCheck senderIsAllowed)
{
    m_largeBodyPrefixes[prefix] = SPrefixRule{limit, std::move(senderIsAllowed)};
}

size_t RequestGate::LargestLimit() const
{
    size_t largest = m_defaultLimit;
    for (const auto& entry : m_largeBodies)
        largest = std::max(largest, entry.second);
    for (const auto& entry : m_largeBodyPrefixes)
        largest = std::max(largest, entry.second.limit);
    return largest;
}

const RequestGate::SPrefixRule* RequestGate::PrefixRuleOf(const std::string& path) const
{
    for (const auto& entry : m_largeBodyPrefixes) {
        if (path.compare(0, entry.first.size(), entry.first) == 0)
            return &entry.second;
    }
    return nullptr;
}

size_t RequestGate::LimitOf(const std::string& path) const
{
    const auto found = m_largeBodies.find(path);
    if (found != m_largeBodies.end())
        return found->second;
    const SPrefixRule* rule = PrefixRuleOf(path);
    return rule ? rule->limit : m_defaultLimit;
}

bool RequestGate::AdmitSender(const httplib::Request& req, httplib::Response& res) const
{
    if (m_largeBodies.count(req.path) != 0)
        return m_guard.RequireAccount(req, res).has_value();
    const SPrefixRule* rule = PrefixRuleOf(req.path);
    return !rule || rule->senderIsAllowed(req, res);
}

bool RequestGate::Admit(const httplib::Request& req, httplib::Response& res) const
{
    if (!HasBody(req))
        return true;
    // Large bodies are read for allowed senders only, whatever their length.
    const bool admitted = AdmitSender(req, res) && AdmitLength(req, res);
    if (!admitted)
        CloudConnection::CloseAfterReply();
    else if (LimitOf(req.path) == m_defaultLimit)
        CloudConnection::BoundBodyTime(kSmallBodyTime);
    return admitted;
}

bool RequestGate::AdmitLength(const httplib::Request& req, httplib::Response& res) const
{
    const size_t limit = LimitOf(req.path);
    // A body without a length (chunked) could only be measured by reading
    // it, and the library reads such a body whatever its size.
    if (!req.has_header("Content-Length")) {
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
