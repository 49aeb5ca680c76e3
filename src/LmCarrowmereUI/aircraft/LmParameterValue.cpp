#include "LmParameterValue.h"

#include <cmath>

namespace LmParameterValue {

std::optional<QVariant> Read(const QString& text, const QString& typeName)
{
    bool ok = false;
    if (typeName == QLatin1String("UInt")) {
        const uint value = text.trimmed().toUInt(&ok);
        return ok ? std::optional<QVariant>(QVariant(value)) : std::nullopt;
    }
    if (typeName == QLatin1String("Double")) {
        const double value = text.trimmed().toDouble(&ok);
        return ok && std::isfinite(value) ? std::optional<QVariant>(QVariant(value)) : std::nullopt;
    }
    return std::nullopt;
}

}  // namespace LmParameterValue
