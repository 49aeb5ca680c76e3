#pragma once

#include "LmMavlinkMessages.h"

#include <QByteArray>
#include <QDate>
#include <QString>

#include <optional>

// The aircraft's licence: the signed text the cloud issued for this
// aircraft, checked against the cloud's public key (Ed25519) before it is
// kept. Pieces of a new licence arrive in order; one out of order drops what
// arrived so far (the ground station writes again). Without a public key the
// aircraft cannot check licences and reports a plugged-in key dongle instead.
class SimLicence
{
public:
    SimLicence(const QByteArray& serial, const QByteArray& publicKey);

    bool checksLicences() const { return !m_publicKey.isEmpty(); }
    // The verdict (SKY_LICENCE_RESULT) once the piece completed a licence.
    std::optional<uint8_t> receivePiece(const LmMavlink::SSkyLicenceWrite& piece);
    LmMavlink::SSkyLicenceStatus status(uint8_t result) const;
    // The key status line the licence gives today.
    LmMavlink::SSkyKeyStatus keyStatus() const;

private:
    struct SHeld {
        QString serial;
        QDate expires;
        QString features;
    };

    uint8_t verify(const QByteArray& signedLicence);
    static std::optional<SHeld> parse(const QByteArray& text);

    QByteArray m_serial;
    QByteArray m_publicKey;
    QByteArray m_pending;
    int m_pendingTotal = -1;
    std::optional<SHeld> m_held;
};
