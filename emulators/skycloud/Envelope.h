#pragma once

#include <QJsonValue>
#include <QString>

namespace httplib {
struct Response;
}

// Writes the service's JSON reply {"status", "message", "data"}.
// Failures carry their HTTP status code as "status" as well.
class Envelope
{
public:
    static void Ok(httplib::Response& res, const QJsonValue& data);
    static void Fail(httplib::Response& res, int httpStatus, const QString& message);

private:
    static void Write(httplib::Response& res, int httpStatus, int status, const QString& message,
                      const QJsonValue& data);
};
