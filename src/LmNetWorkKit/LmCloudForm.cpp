#include "LmCloudForm.h"

#include <QByteArrayList>
#include <QUrl>

namespace LmCloudForm {

QByteArray Body(const Fields& fields)
{
    QByteArrayList parts;
    for (const auto& field : fields)
        parts << field.first + '=' + QUrl::toPercentEncoding(field.second);
    return parts.join('&');
}

}  // namespace LmCloudForm
