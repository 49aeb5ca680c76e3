#pragma once

#include "SLmUserInfo.h"

#include <QSettings>
#include <QString>
#include <QStringList>

// Where the user-scope settings live: organisation and application.
inline constexpr char OrganizationName[] = "Tolva";
inline constexpr char CloundApplicationName[] = "Tolva_clound";

// The signed-in session's group and keys.
inline constexpr char UserInfoGroupName[] = "UserInfo";
inline constexpr char UserInfoToken[] = "token";
inline constexpr char UserInfoNickName[] = "nick_name";
inline constexpr char UserInfoAccount[] = "account";
inline constexpr char UserInfoUserID[] = "user_id";
inline constexpr char UserInfoUserType[] = "User_Type";
inline constexpr char UserInfoPassword[] = "PWD";
inline constexpr char UserInfoPermissions[] = "permissions";
inline constexpr char UserInfoAutoLogin[] = "AutoLogin";
// Accounts the user has shared projects with, joined by ",".
inline constexpr char UserInfoSharedAccounts[] = "SharedAccounts";

// The application's own group and its one-time maintenance flag, in the
// settings of the organisation CloundApplicationName.
inline constexpr char ApplicationGroupName[] = "Application";
inline constexpr char ApplicationMaintenance[] = "maintenance";

// The ground radio's identity, written by the radio set-up.
inline constexpr char PlaneInfoGroupName[] = "Plane Information";
inline constexpr char PlaneInfoRadioVersion[] = "Radio_LM_Version";
inline constexpr char PlaneInfoRadioSerial[] = "Radio_SN_Version";

// The one owner of the user-scope settings file: the account session and the
// application flags kept beside it. Pages and platform libraries read and
// write them only through this class, never through QSettings of their own.
class CLmSessionStore
{
public:
    CLmSessionStore();

    SLmUserInfo CurrentUser() const;
    QString Token() const;
    bool IsSignedIn() const;

    // Stores a successful sign-in. The password is never kept; permissions
    // are kept as Base64 of their Latin-1 text.
    void SaveSignIn(const SLmUserInfo& user, const QString& permissions);
    void SetNickName(const QString& nickName);
    // The sign-in name after the account moved to another phone number.
    void SetAccount(const QString& account);
    // Forgets the signed-in session: token, nick name, user id and password
    // empty, automatic sign-in off. The account, user type and permissions
    // are kept so the next sign-in can start from them.
    void Clear();

    // The accounts shared with before, in the order first shared with.
    QStringList SharedAccounts() const;
    // Adds account to SharedAccounts unless it is there already.
    void RememberSharedAccount(const QString& account);

    // Empty until the radio set-up stored them.
    QString GroundRadioVersion() const;
    QString GroundRadioSerial() const;

    bool IsMaintenanceDone() const;
    void SetMaintenanceDone();

private:
    QString SessionValue(const char* key) const;
    void SetSessionValue(const char* key, const QVariant& value);

    mutable QSettings m_settings;
};

// The current session; an empty token means nobody is signed in.
SLmUserInfo GetCurUserInfo();
