#pragma once

#include "TokenGuard.h"

#include <cstddef>
#include <map>
#include <string>

// Decides from a request's headers alone, before its body is read, whether
// the body may be read at all: every path has a body limit, and the few that
// take large bodies (files, logs) read them only for a signed-in account.
// A refused request gets its reply at once and its connection is closed.
class RequestGate
{
public:
    RequestGate(CloudStore& store, size_t defaultLimit);

    void AllowLargeBody(const std::string& path, size_t limit);
    size_t DefaultLimit() const;
    size_t LargestLimit() const;
    size_t LimitOf(const std::string& path) const;
    // Writes the refusal and returns false when the body must not be read.
    bool Admit(const httplib::Request& req, httplib::Response& res) const;

private:
    bool AdmitLength(const httplib::Request& req, httplib::Response& res) const;

    TokenGuard m_guard;
    size_t m_defaultLimit;
    std::map<std::string, size_t> m_largeBodies;
};
