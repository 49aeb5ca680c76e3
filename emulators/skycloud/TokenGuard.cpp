#include "TokenGuard.h"

#include "CloudStore.h"
#include "Envelope.h"

#include <httplib.h>

TokenGuard::TokenGuard(CloudStore& store)
    : m_store(store)
{
}

std::optional<Account> TokenGuard::RequireAccount(const httplib::Request& req, httplib::Response& res) const
{
    const QByteArray token = TokenOf(req);
    if (token.isEmpty()) {
        Envelope::Fail(res, 401, QStringLiteral("Missing token"));
        return std::nullopt;
    }
    std::optional<Account> account = m_store.AccountByToken(token);
    if (!account)
        Envelope::Fail(res, 401, QStringLiteral("Invalid token"));
    return account;
}

QByteArray TokenGuard::TokenOf(const httplib::Request& req)
{
    return QByteArray::fromStdString(req.get_header_value("token")).trimmed();
}

bool TokenGuard::RequireAdmin(const httplib::Request& req, httplib::Response& res) const
{
    const QByteArray token = QByteArray::fromStdString(req.get_header_value("admin-token")).trimmed();
    if (token.isEmpty()) {
        Envelope::Fail(res, 401, QStringLiteral("Missing admin token"));
        return false;
    }
    if (!m_store.IsAdminToken(token)) {
        Envelope::Fail(res, 401, QStringLiteral("Invalid admin token"));
        return false;
    }
    return true;
}
