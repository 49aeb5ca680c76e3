#pragma once

#include <QJsonObject>
#include <QString>

// One user account as the service stores it (password excluded).
struct Account
{
    qint64 id = 0;
    QString phone;
    QString nickName;
    QString email;
    QString company;
    QString type;
    QString permission;
    QString avatar;
    QString createdAt;

    // The "/user/profile" payload.
    QJsonObject ToProfileJson() const
    {
        return QJsonObject{{"id", id},
                           {"phone", phone},
                           {"nick_name", nickName},
                           {"email", email},
                           {"company", company},
                           {"type", type},
                           {"permission", permission},
                           {"avatar", avatar},
                           {"created_at", createdAt}};
    }
};
