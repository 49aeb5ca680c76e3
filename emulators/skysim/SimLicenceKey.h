#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// Where the aircraft gets the cloud's public licence key: given on the
// command line (64 hexadecimal digits) or fetched from the cloud's
// "/licence/publickey" once at start.
namespace SimLicenceKey {

// The 32-byte key, or nothing (with the reason in *error).
std::optional<QByteArray> fromHex(const QString& hex, QString* error);
// Blocks until the cloud answered or timeoutMs passed: the aircraft
// starts only once it knows the key.
std::optional<QByteArray> fetch(const QString& cloudUrl, int timeoutMs, QString* error);

} // namespace SimLicenceKey
