#pragma once

#include <QByteArray>
#include <QString>

// Salted password hashes and random session tokens / verification codes.
class SecretHasher
{
public:
    static QByteArray NewSalt();
    static QByteArray Hash(const QString& password, const QByteArray& salt);
    static bool Matches(const QString& password, const QByteArray& salt, const QByteArray& hash);

    // 32 lower-case hex characters from the system CSPRNG.
    static QByteArray NewToken();
    // Six decimal digits from the system CSPRNG.
    static QString NewVerificationCode();
};
