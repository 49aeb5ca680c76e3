#pragma once

#include "TokenGuard.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>

// Decides from a request's headers alone, before its body is read, whether
// the body may be read at all: every path has a body limit, and the few that
// take large bodies (files, logs) read them only for a signed-in account, or
// for whatever sender the storage service under a path prefix authorises.
// A refused request gets its reply at once and its connection is closed.
class RequestGate
{
public:
    RequestGate(CloudStore& store, size_t defaultLimit);

    // Checks the sender of a large body from its headers; writes the refusal.
    using SenderCheck = std::function<bool(const httplib::Request&, httplib::Response&)>;

    void AllowLargeBody(const std::string& path, size_t limit);
    // Every path below prefix, its senders checked by senderIsAllowed
    // instead of the account token.
    void AllowLargeBodyUnder(const std::string& prefix, size_t limit, SenderCheck senderIsAllowed);
    size_t LargestLimit() const;
    // Writes the refusal and returns false when the body must not be read.
    bool Admit(const httplib::Request& req, httplib::Response& res) const;

private:
    struct SPrefixRule
    {
        size_t limit;
        SenderCheck senderIsAllowed;
    };

    size_t LimitOf(const std::string& path) const;
    const SPrefixRule* PrefixRuleOf(const std::string& path) const;
    bool AdmitSender(const httplib::Request& req, httplib::Response& res) const;
    bool AdmitLength(const httplib::Request& req, httplib::Response& res) const;

    TokenGuard m_guard;
    size_t m_defaultLimit;
    std::map<std::string, size_t> m_largeBodies;
    std::map<std::string, SPrefixRule> m_largeBodyPrefixes;
};
