#include "CLmSessionStore.h"

namespace {

QString SessionKey(const char* key)
{
    return QLatin1String(UserInfoGroupName) + QLatin1Char('/') + QLatin1String(key);
}

// The application flags have always lived in the settings of the
// organisation named after the cloud application, apart from the session.
QSettings ApplicationSettings()
{
    return QSettings(QLatin1String(CloundApplicationName));
}

QString MaintenanceKey()
{
    return QLatin1String(ApplicationGroupName) + QLatin1Char('/') + QLatin1String(ApplicationMaintenance);
}

QString PlaneInfoKey(const char* key)
{
    return QLatin1String(PlaneInfoGroupName) + QLatin1Char('/') + QLatin1String(key);
}

}  // namespace

CLmSessionStore::CLmSessionStore()
    : m_settings(QLatin1String(OrganizationName), QLatin1String(CloundApplicationName))
{
}

SLmUserInfo CLmSessionStore::CurrentUser() const
{
    SLmUserInfo info;
    info.strToken = SessionValue(UserInfoToken);
    info.strUserID = SessionValue(UserInfoUserID);
    info.strAccount = SessionValue(UserInfoAccount);
    info.strNickName = SessionValue(UserInfoNickName);
    info.strUserType = SessionValue(UserInfoUserType);
    return info;
}

QString CLmSessionStore::Token() const
{
    return SessionValue(UserInfoToken);
}

bool CLmSessionStore::IsSignedIn() const
{
    return !Token().isEmpty();
}

void CLmSessionStore::SaveSignIn(const SLmUserInfo& user, const QString& permissions)
{
    SetSessionValue(UserInfoToken, user.strToken);
    SetSessionValue(UserInfoNickName, user.strNickName);
    SetSessionValue(UserInfoAccount, user.strAccount);
    SetSessionValue(UserInfoUserID, user.strUserID);
    SetSessionValue(UserInfoUserType, user.strUserType);
    SetSessionValue(UserInfoPassword, QString());
    SetSessionValue(UserInfoPermissions, QString::fromLatin1(permissions.toLatin1().toBase64()));
}

void CLmSessionStore::SetNickName(const QString& nickName)
{
    SetSessionValue(UserInfoNickName, nickName);
}

void CLmSessionStore::SetAccount(const QString& account)
{
    SetSessionValue(UserInfoAccount, account);
}

void CLmSessionStore::Clear()
{
    SetSessionValue(UserInfoAutoLogin, false);
    SetSessionValue(UserInfoToken, QString());
    SetSessionValue(UserInfoNickName, QString());
    SetSessionValue(UserInfoUserID, QString());
    SetSessionValue(UserInfoPassword, QString());
}

QStringList CLmSessionStore::SharedAccounts() const
{
    return SessionValue(UserInfoSharedAccounts).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

void CLmSessionStore::RememberSharedAccount(const QString& account)
{
    QStringList accounts = SharedAccounts();
    if (accounts.contains(account))
        return;
    accounts.append(account);
    SetSessionValue(UserInfoSharedAccounts, accounts.join(QLatin1Char(',')));
}

QString CLmSessionStore::GroundRadioVersion() const
{
    return m_settings.value(PlaneInfoKey(PlaneInfoRadioVersion)).toString();
}

QString CLmSessionStore::GroundRadioSerial() const
{
    return m_settings.value(PlaneInfoKey(PlaneInfoRadioSerial)).toString();
}

bool CLmSessionStore::IsMaintenanceDone() const
{
    return ApplicationSettings().value(MaintenanceKey(), false).toBool();
}

void CLmSessionStore::SetMaintenanceDone()
{
    ApplicationSettings().setValue(MaintenanceKey(), true);
}

QString CLmSessionStore::SessionValue(const char* key) const
{
    return m_settings.value(SessionKey(key)).toString();
}

void CLmSessionStore::SetSessionValue(const char* key, const QVariant& value)
{
    m_settings.setValue(SessionKey(key), value);
}

SLmUserInfo GetCurUserInfo()
{
    return CLmSessionStore().CurrentUser();
}
