#pragma once

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>

// Form bodies of cloud requests: name=value pairs joined by "&", every value
// percent-encoded (UTF-8) so that "&", "+" and "=" in a password or a name
// reach the service as typed.
namespace LmCloudForm {

using Fields = QVector<QPair<QByteArray, QString>>;

QByteArray Body(const Fields& fields);

}  // namespace LmCloudForm
