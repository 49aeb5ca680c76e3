#pragma once

#include <QString>
#include <QVariant>

#include <optional>

// Values typed into the parameter table, read by the type the table shows.
namespace LmParameterValue {

// "UInt" takes an unsigned integer, "Double" a floating-point number; a text
// that does not fit its type (or an unknown type) gives nothing.
std::optional<QVariant> Read(const QString& text, const QString& typeName);

}  // namespace LmParameterValue
