#pragma once

#include "SLmUserInfo.h"

#include <QByteArray>
#include <QString>

// Names of the user settings that hold the session.
inline constexpr char OrganizationName[] = "Tolva";
inline constexpr char CloundApplicationName[] = "Tolva_clound";
inline constexpr char UserInfoGroupName[] = "UserInfo";
inline constexpr char UserInfoToken[] = "token";
inline constexpr char UserInfoNickName[] = "nick_name";
inline constexpr char UserInfoAccount[] = "account";
inline constexpr char UserInfoUserID[] = "user_id";

// Cloud service base URL: scheme, host and port, no trailing slash.
QByteArray GetServerIP();
// Base of the web pages; page paths are appended to it as they stand.
QByteArray GetPageIP();
bool IsTestServer();
// Base of the monitor web page for the configured service.
QByteArray GetMonitorIP();
// host:port of the push channel.
QString GetPushChannelAddress();
// The GUID the hub passes to every sibling application it starts.
QString GetLaunchKey();
QString GetHelpUrl();

// The current session from the user settings.
SLmUserInfo GetCurUserInfo();
// Forgets the signed-in session: token, nick name, user id and "PWD" empty,
// "AutoLogin" false. The account, user type and permissions are kept so the
// next sign-in can start from them.
void ClearCurUserSession();
