#pragma once

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cstddef>
#include <cstring>

// MAVLink char fields: NUL-padded, not NUL-terminated when full.

template <std::size_t N>
void setFieldText(char (&field)[N], const QByteArray& text)
{
    std::memset(field, 0, N);
    std::memcpy(field, text.constData(), std::min<std::size_t>(N, static_cast<std::size_t>(text.size())));
}

template <std::size_t N>
QString fieldText(const char (&field)[N])
{
    return QString::fromLatin1(field, static_cast<int>(strnlen(field, N)));
}
