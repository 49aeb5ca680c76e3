#include "LicenceStore.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMutexLocker>
#include <QSaveFile>

#include <sodium.h>

namespace {

constexpr int kDefaultLicenceDays = 365;

bool WriteWhole(const QString& path, const QByteArray& bytes, QFileDevice::Permissions permissions)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.setPermissions(permissions)
        && file.commit();
}

}  // namespace

LicenceStore::LicenceStore(const QString& dataDir)
    : m_dataDir(dataDir)
{
}

bool LicenceStore::Open(QString* error)
{
    if (sodium_init() < 0) {
        *error = QStringLiteral("libsodium cannot start");
        return false;
    }
    QDir().mkpath(m_dataDir);
    return OpenSigningKey(error) && LoadTerms(error);
}

// The file holds the 32-byte seed in hexadecimal; the key pair follows from it.
bool LicenceStore::OpenSigningKey(QString* error)
{
    const QString path = QDir(m_dataDir).filePath(QStringLiteral("licence-signing.key"));
    QByteArray seed(crypto_sign_SEEDBYTES, Qt::Uninitialized);
    QFile file(path);
    if (file.exists()) {
        if (!file.open(QIODevice::ReadOnly)) {
            *error = QStringLiteral("cannot read %1").arg(path);
            return false;
        }
        seed = QByteArray::fromHex(file.readAll().trimmed());
        if (seed.size() != static_cast<int>(crypto_sign_SEEDBYTES)) {
            *error = QStringLiteral("%1 does not hold a signing key").arg(path);
            return false;
        }
    } else {
        randombytes_buf(seed.data(), static_cast<size_t>(seed.size()));
        if (!WriteWhole(path, seed.toHex() + '\n', QFileDevice::ReadOwner | QFileDevice::WriteOwner)) {
            *error = QStringLiteral("cannot write %1").arg(path);
            return false;
        }
    }
    m_publicKey.resize(crypto_sign_PUBLICKEYBYTES);
    m_secretKey.resize(crypto_sign_SECRETKEYBYTES);
    crypto_sign_seed_keypair(reinterpret_cast<unsigned char*>(m_publicKey.data()),
                             reinterpret_cast<unsigned char*>(m_secretKey.data()),
                             reinterpret_cast<const unsigned char*>(seed.constData()));
    sodium_memzero(seed.data(), static_cast<size_t>(seed.size()));
    return true;
}

bool LicenceStore::LoadTerms(QString* error)
{
    QFile file(QDir(m_dataDir).filePath(QStringLiteral("licence-terms.json")));
    if (!file.exists())
        return true;
    QJsonParseError parseError{};
    const QJsonDocument document =
        file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll(), &parseError) : QJsonDocument();
    if (!document.isObject()) {
        *error = QStringLiteral("%1 is not a JSON object").arg(file.fileName());
        return false;
    }
    m_terms = document.object();
    return true;
}

QStringList LicenceStore::DefaultFeatures()
{
    return {QStringLiteral("survey"), QStringLiteral("rtk"), QStringLiteral("ppk")};
}

LicenceStore::Terms LicenceStore::TermsOf(qint64 accountId) const
{
    QMutexLocker lock(&m_mutex);
    const QJsonObject set = m_terms.value(QString::number(accountId)).toObject();
    Terms terms;
    terms.expires = QDate::fromString(set.value(QStringLiteral("expires")).toString(), Qt::ISODate);
    if (!terms.expires.isValid())
        terms.expires = QDateTime::currentDateTimeUtc().date().addDays(kDefaultLicenceDays);
    const QJsonArray features = set.value(QStringLiteral("features")).toArray();
    for (const QJsonValue& feature : features)
        terms.features.append(feature.toString());
    if (!set.contains(QStringLiteral("features")))
        terms.features = DefaultFeatures();
    return terms;
}

bool LicenceStore::SetTerms(qint64 accountId, const Terms& terms)
{
    QMutexLocker lock(&m_mutex);
    QJsonObject changed = m_terms;
    changed.insert(QString::number(accountId),
                   QJsonObject{{"expires", terms.expires.toString(Qt::ISODate)},
                               {"features", QJsonArray::fromStringList(terms.features)}});
    if (!WriteWhole(QDir(m_dataDir).filePath(QStringLiteral("licence-terms.json")),
                    QJsonDocument(changed).toJson(), QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        return false;
    m_terms = changed;
    return true;
}

QByteArray LicenceStore::Issue(const QString& serial, const Terms& terms) const
{
    const QByteArray text = "serial=" + serial.toLatin1() + "\nexpires=" + terms.expires.toString(Qt::ISODate).toLatin1()
        + "\nfeatures=" + terms.features.join(QLatin1Char(',')).toLatin1() + "\nissued="
        + QDateTime::currentDateTimeUtc().toString(Qt::ISODate).toLatin1() + '\n';
    QByteArray signedLicence(static_cast<int>(crypto_sign_BYTES) + text.size(), Qt::Uninitialized);
    unsigned long long signedLength = 0;
    crypto_sign(reinterpret_cast<unsigned char*>(signedLicence.data()), &signedLength,
                reinterpret_cast<const unsigned char*>(text.constData()), static_cast<unsigned long long>(text.size()),
                reinterpret_cast<const unsigned char*>(m_secretKey.constData()));
    signedLicence.resize(static_cast<int>(signedLength));
    return signedLicence;
}
