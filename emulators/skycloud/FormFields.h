#pragma once

#include <QString>
#include <QStringList>

#include <initializer_list>
#include <optional>

#include <httplib.h>

// The key=value fields of a request: its query and its form body. A body is
// read as a form even when the client left out the Content-Type header.
class FormFields
{
public:
    explicit FormFields(const httplib::Request& req);
    // The query and a posted form read by the handler itself, which is how
    // bodies beyond the library's 8 KB form limit arrive.
    FormFields(const httplib::Request& req, const httplib::ContentReader& reader);

    QString Value(const char* name) const;
    std::optional<QString> Optional(const char* name) const;
    // A field of values joined by ",": trimmed, without empty parts and
    // repeats, in their first order.
    QStringList List(const char* name) const;
    // Writes a 400 naming the first missing or empty field.
    bool RequireAll(std::initializer_list<const char*> names, httplib::Response& res) const;
    // List(name), or a 400 naming the field when it lists nothing.
    std::optional<QStringList> RequireList(const char* name, httplib::Response& res) const;

private:
    static void FailMissing(const char* name, httplib::Response& res);

    httplib::Params m_params;
};
