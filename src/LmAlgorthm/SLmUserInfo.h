#pragma once

#include <QString>

// The signed-in session as kept in the user settings; an empty token means
// nobody is signed in.
struct SLmUserInfo
{
    QString strToken;
    QString strUserID;
    QString strAccount;
    QString strNickName;
    QString strUserType;
};
