#include "CDemoAccounts.h"

#include "CSkyCloudProcess.h"

#include <QJsonArray>

CDemoAccounts::CDemoAccounts(CSkyCloudProcess& cloud)
    : m_cloud(cloud)
{
}

bool CDemoAccounts::SignIn()
{
    return SignIn(m_one) && SignIn(m_two);
}

bool CDemoAccounts::SignIn(SAccount& account) const
{
    account.token = m_cloud.SignIn(account.phone);
    account.projectIds = ProjectIds(account.token);
    return !account.token.isEmpty();
}

QStringList CDemoAccounts::ProjectIds(const QByteArray& token) const
{
    QStringList ids;
    const QJsonArray projects = m_cloud.Call("/project/list", {}, token).value(QStringLiteral("data")).toArray();
    for (const QJsonValue& project : projects)
        ids.append(project.toObject().value(QStringLiteral("id")).toString());
    ids.sort();
    return ids;
}

const CDemoAccounts::SAccount& CDemoAccounts::One() const
{
    return m_one;
}

const CDemoAccounts::SAccount& CDemoAccounts::Two() const
{
    return m_two;
}
