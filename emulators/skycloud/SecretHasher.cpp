#include "SecretHasher.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

namespace {

QByteArray RandomBytes(int count)
{
    QByteArray bytes(count, Qt::Uninitialized);
    for (char& byte : bytes)
        byte = static_cast<char>(QRandomGenerator::system()->bounded(256));
    return bytes;
}

bool ConstantTimeEquals(const QByteArray& a, const QByteArray& b)
{
    if (a.size() != b.size())
        return false;
    unsigned char diff = 0;
    for (int i = 0; i < a.size(); ++i)
        diff |= static_cast<unsigned char>(a[i] ^ b[i]);
    return diff == 0;
}

}  // namespace

QByteArray SecretHasher::NewSalt()
{
    return RandomBytes(16).toHex();
}

QByteArray SecretHasher::Hash(const QString& password, const QByteArray& salt)
{
    return QCryptographicHash::hash(salt + password.toUtf8(), QCryptographicHash::Sha256).toHex();
}

bool SecretHasher::Matches(const QString& password, const QByteArray& salt, const QByteArray& hash)
{
    return ConstantTimeEquals(Hash(password, salt), hash);
}

QByteArray SecretHasher::NewToken()
{
    return RandomBytes(16).toHex();
}

QString SecretHasher::NewVerificationCode()
{
    return QStringLiteral("%1").arg(QRandomGenerator::system()->bounded(1000000), 6, 10, QLatin1Char('0'));
}
