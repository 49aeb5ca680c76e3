#include "AdminEndpoints.h"

#include "CloudStore.h"
#include "Envelope.h"
#include "FormFields.h"

#include <QJsonObject>

AdminEndpoints::AdminEndpoints(CloudStore& store)
    : m_store(store)
{
}

void AdminEndpoints::Register(httplib::Server& server)
{
    Route(server, "/admin/login", this, &AdminEndpoints::Login);
}

void AdminEndpoints::Login(const httplib::Request& req, httplib::Response& res)
{
    const FormFields form(req);
    if (!form.RequireAll({"username", "password"}, res))
        return;
    const QString username = form.Value("username");
    if (!m_store.AdminCredentialsMatch(username, form.Value("password"))) {
        Envelope::Fail(res, 403, QStringLiteral("Wrong user name or password"));
        return;
    }
    const QByteArray token = m_store.OpenAdminSession(username);
    Envelope::Ok(res, QJsonObject{{"username", username}, {"token", QString::fromLatin1(token)}});
}
