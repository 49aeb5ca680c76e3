#include "FormFields.h"

#include "Envelope.h"

namespace {

bool HasUntypedBody(const httplib::Request& req)
{
    return !req.body.empty() && !req.has_header("Content-Type");
}

}  // namespace

FormFields::FormFields(const httplib::Request& req)
    : m_params(req.params)
{
    if (HasUntypedBody(req))
        httplib::detail::parse_query_text(req.body, m_params);
}

FormFields::FormFields(const httplib::Request& req, const httplib::ContentReader& reader)
    : m_params(req.params)
{
    std::string body;
    reader([&body](const char* data, size_t length) {
        body.append(data, length);
        return true;
    });
    httplib::detail::parse_query_text(body, m_params);
}

QString FormFields::Value(const char* name) const
{
    return Optional(name).value_or(QString());
}

std::optional<QString> FormFields::Optional(const char* name) const
{
    const auto found = m_params.find(name);
    if (found == m_params.end())
        return std::nullopt;
    return QString::fromStdString(found->second);
}

QStringList FormFields::List(const char* name) const
{
    QStringList values;
    for (const QString& part : Value(name).split(QLatin1Char(','))) {
        const QString value = part.trimmed();
        if (!value.isEmpty() && !values.contains(value))
            values.append(value);
    }
    return values;
}

bool FormFields::RequireAll(std::initializer_list<const char*> names, httplib::Response& res) const
{
    for (const char* name : names) {
        if (Value(name).isEmpty()) {
            FailMissing(name, res);
            return false;
        }
    }
    return true;
}

std::optional<QStringList> FormFields::RequireList(const char* name, httplib::Response& res) const
{
    const QStringList values = List(name);
    if (values.isEmpty()) {
        FailMissing(name, res);
        return std::nullopt;
    }
    return values;
}

void FormFields::FailMissing(const char* name, httplib::Response& res)
{
    Envelope::Fail(res, 400, QStringLiteral("Missing field: %1").arg(QLatin1String(name)));
}
