#include "BaseSettings.h"

#include <QSettings>

#include <type_traits>

BaseSettings BaseSettings::Load(const QString& path)
{
    QSettings file(path, QSettings::IniFormat);
    BaseSettings settings;
    Visit(settings, [&file](const char* key, auto& value) {
        using TValue = std::decay_t<decltype(value)>;
        value = file.value(QLatin1String(key), QVariant::fromValue(value)).template value<TValue>();
    });
    return settings;
}

void BaseSettings::Save(const QString& path) const
{
    QSettings file(path, QSettings::IniFormat);
    Visit(*this, [&file](const char* key, const auto& value) { file.setValue(QLatin1String(key), value); });
    file.sync();
}
