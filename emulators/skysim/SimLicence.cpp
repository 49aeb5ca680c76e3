#include "SimLicence.h"

#include "SimLog.h"
#include "SimText.h"

#include <QDateTime>
#include <QList>

#include <sodium.h>

using namespace LmMavlink;

SimLicence::SimLicence(const QByteArray& serial, const QByteArray& publicKey)
    : m_serial(serial)
    , m_publicKey(publicKey)
{
    if (sodium_init() < 0)
        qFatal("libsodium cannot start");
}

std::optional<uint8_t> SimLicence::receivePiece(const SSkyLicenceWrite& piece)
{
    if (piece.offset == 0) {
        m_pending.clear();
        m_pendingTotal = piece.total_length;
    }
    if (piece.total_length != m_pendingTotal || piece.offset != m_pending.size()) {
        qCInfo(lcSkySim) << "licence piece at" << piece.offset << "out of order, dropped";
        m_pending.clear();
        m_pendingTotal = -1;
        return std::nullopt;
    }
    const int count = std::min<int>(piece.count, sizeof piece.data);
    m_pending.append(reinterpret_cast<const char*>(piece.data), count);
    if (m_pending.size() < m_pendingTotal)
        return std::nullopt;
    const QByteArray signedLicence = m_pending.left(m_pendingTotal);
    m_pending.clear();
    m_pendingTotal = -1;
    return verify(signedLicence);
}

// crypto_sign_open checks the signature over the whole text before handing
// the text out; nothing that fails it is looked at further.
uint8_t SimLicence::verify(const QByteArray& signedLicence)
{
    if (!checksLicences())
        return SKY_LICENCE_RESULT_NO_KEY;
    if (signedLicence.size() < static_cast<int>(crypto_sign_BYTES))
        return SKY_LICENCE_RESULT_BAD_SIGNATURE;
    QByteArray text(signedLicence.size() - static_cast<int>(crypto_sign_BYTES), Qt::Uninitialized);
    unsigned long long textLength = 0;
    if (crypto_sign_open(reinterpret_cast<unsigned char*>(text.data()), &textLength,
                         reinterpret_cast<const unsigned char*>(signedLicence.constData()),
                         static_cast<unsigned long long>(signedLicence.size()),
                         reinterpret_cast<const unsigned char*>(m_publicKey.constData()))
        != 0) {
        qCInfo(lcSkySim) << "licence refused: the signature does not verify";
        return SKY_LICENCE_RESULT_BAD_SIGNATURE;
    }
    const std::optional<SHeld> licence = parse(text.left(static_cast<int>(textLength)));
    if (!licence)
        return SKY_LICENCE_RESULT_MALFORMED;
    if (licence->serial.toLatin1() != m_serial) {
        qCInfo(lcSkySim) << "licence refused: it is bound to" << licence->serial;
        return SKY_LICENCE_RESULT_FOREIGN_SERIAL;
    }
    m_held = licence;
    qCInfo(lcSkySim) << "licence accepted, valid until" << licence->expires.toString(Qt::ISODate);
    return SKY_LICENCE_RESULT_ACCEPTED;
}

std::optional<SimLicence::SHeld> SimLicence::parse(const QByteArray& text)
{
    SHeld licence;
    for (const QByteArray& line : text.split('\n')) {
        const int equals = line.indexOf('=');
        const QByteArray key = line.left(equals);
        const QString value = QString::fromUtf8(line.mid(equals + 1)).trimmed();
        if (equals <= 0)
            continue;
        if (key == "serial")
            licence.serial = value;
        else if (key == "expires")
            licence.expires = QDate::fromString(value, Qt::ISODate);
        else if (key == "features")
            licence.features = value;
    }
    if (licence.serial.isEmpty() || !licence.expires.isValid())
        return std::nullopt;
    return licence;
}

SSkyLicenceStatus SimLicence::status(uint8_t result) const
{
    SSkyLicenceStatus message;
    message.result = result;
    message.has_licence = m_held ? 1 : 0;
    setFieldText(message.aircraft_serial, m_serial);
    if (m_held) {
        setFieldText(message.licence_serial, m_held->serial.toLatin1());
        setFieldText(message.expires, m_held->expires.toString(Qt::ISODate).toLatin1());
        setFieldText(message.features, m_held->features.toLatin1());
    }
    return message;
}

SSkyKeyStatus SimLicence::keyStatus() const
{
    SSkyKeyStatus message;
    if (!checksLicences()) {
        message.state = SKY_KEY_STATE_VALID;
        setFieldText(message.text, QByteArrayLiteral("Welcome, licence key valid"));
    } else if (!m_held) {
        message.state = SKY_KEY_STATE_ABSENT;
        setFieldText(message.text, QByteArrayLiteral("No licence, refresh it from the cloud"));
    } else if (m_held->expires < QDateTime::currentDateTimeUtc().date()) {
        message.state = SKY_KEY_STATE_EXPIRED;
        setFieldText(message.text, "Licence expired on " + m_held->expires.toString(Qt::ISODate).toLatin1());
    } else {
        message.state = SKY_KEY_STATE_VALID;
        setFieldText(message.text, "Welcome, licence valid until " + m_held->expires.toString(Qt::ISODate).toLatin1());
    }
    return message;
}
