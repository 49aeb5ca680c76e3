#pragma once

#include <QByteArray>
#include <QDate>
#include <QJsonObject>
#include <QMutex>
#include <QString>
#include <QStringList>

// Aircraft licences: the cloud's Ed25519 signing key (created once, kept in
// the data folder as "licence-signing.key", readable by its owner only) and
// the licence terms of each account ("licence-terms.json"). An account whose
// terms the administrator never set gets a licence for a year from the day
// it is issued, with the default features.
class LicenceStore
{
public:
    struct Terms {
        QDate expires; // last valid day, UTC
        QStringList features;
    };

    explicit LicenceStore(const QString& dataDir);

    bool Open(QString* error);
    QByteArray PublicKey() const { return m_publicKey; }
    Terms TermsOf(qint64 accountId) const;
    bool SetTerms(qint64 accountId, const Terms& terms);
    // The licence text for the aircraft, signed: the 64-byte signature
    // followed by the text (libsodium's combined form).
    QByteArray Issue(const QString& serial, const Terms& terms) const;
    static QStringList DefaultFeatures();

private:
    bool OpenSigningKey(QString* error);
    bool LoadTerms(QString* error);

    QString m_dataDir;
    QByteArray m_secretKey;
    QByteArray m_publicKey;
    mutable QMutex m_mutex;
    QJsonObject m_terms; // account id -> {"expires", "features"}
};
