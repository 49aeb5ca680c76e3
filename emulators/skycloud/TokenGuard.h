#pragma once

#include "Account.h"

#include <optional>

namespace httplib {
struct Request;
struct Response;
}
class CloudStore;

// Resolves the "token" header of a request to the signed-in account.
class TokenGuard
{
public:
    explicit TokenGuard(CloudStore& store);

    // Without a token or with an unknown one, writes a 401 and returns nothing.
    std::optional<Account> RequireAccount(const httplib::Request& req, httplib::Response& res) const;
    static QByteArray TokenOf(const httplib::Request& req);
    // The "admin-token" header of an administrator's session; without one,
    // writes a 401 and returns false.
    bool RequireAdmin(const httplib::Request& req, httplib::Response& res) const;

private:
    CloudStore& m_store;
};
