#include "AsciiJson.h"

#include <QJsonDocument>

namespace AsciiJson {

// Compact JSON has non-ASCII characters only inside strings, where an escape
// means the same character, so each can be replaced where it stands.
QByteArray Compact(const QJsonObject& object)
{
    const QString text = QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
    QByteArray ascii;
    ascii.reserve(text.size());
    for (const QChar unit : text) {
        if (unit.unicode() < 0x80)
            ascii.append(static_cast<char>(unit.unicode()));
        else
            ascii.append(QByteArrayLiteral("\\u") + QByteArray::number(unit.unicode(), 16).rightJustified(4, '0'));
    }
    return ascii;
}

}  // namespace AsciiJson
