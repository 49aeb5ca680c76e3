#include "LmVersion.h"

#include <QVersionNumber>

namespace LmVersion {

QString Current()
{
    return QStringLiteral(SKYCONSOLE_VERSION);
}

bool IsNewer(const QString& candidate, const QString& current)
{
    const QVersionNumber later = QVersionNumber::fromString(candidate.trimmed());
    return !later.isNull() && QVersionNumber::compare(later.normalized(),
                                                      QVersionNumber::fromString(current.trimmed()).normalized()) > 0;
}

}  // namespace LmVersion
