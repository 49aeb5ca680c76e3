#pragma once

#include <QByteArray>
#include <QJsonObject>

// Compact JSON in which every character outside ASCII is written as a \uXXXX
// escape (a surrogate pair above U+FFFF), as push services send it: a client
// that reads the bytes in any 8-bit encoding still gets the text intact.
namespace AsciiJson {

QByteArray Compact(const QJsonObject& object);

}  // namespace AsciiJson
