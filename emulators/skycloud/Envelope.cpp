#include "Envelope.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <httplib.h>

void Envelope::Ok(httplib::Response& res, const QJsonValue& data, const QString& message)
{
    Write(res, 200, 0, message, data);
}

void Envelope::Fail(httplib::Response& res, int httpStatus, const QString& message)
{
    Write(res, httpStatus, httpStatus, message, QJsonObject{});
}

void Envelope::Write(httplib::Response& res, int httpStatus, int status, const QString& message,
                     const QJsonValue& data)
{
    WriteUnder(res, "status", httpStatus, status, message, data);
}

void Envelope::WriteUnder(httplib::Response& res, const char* resultKey, int httpStatus, int result,
                          const QString& message, const QJsonValue& data)
{
    const QJsonObject envelope{{QLatin1String(resultKey), result}, {"message", message}, {"data", data}};
    res.status = httpStatus;
    res.set_content(QJsonDocument(envelope).toJson(QJsonDocument::Compact).toStdString(),
                    "application/json; charset=utf-8");
}
