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
    // Success; the message is shown to the user by calls whose result the
    // hub reports in a message box.
    static void Ok(httplib::Response& res, const QJsonValue& data, const QString& message = QStringLiteral("OK"));
    static void Fail(httplib::Response& res, int httpStatus, const QString& message);
    // A reply that carries its result under resultKey instead of "status".
    static void WriteUnder(httplib::Response& res, const char* resultKey, int httpStatus, int result,
                           const QString& message, const QJsonValue& data);

private:
    static void Write(httplib::Response& res, int httpStatus, int status, const QString& message,
                      const QJsonValue& data);
};
