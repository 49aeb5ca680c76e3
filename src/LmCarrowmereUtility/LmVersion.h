#pragma once

#include <QString>

namespace LmVersion {

// The version of this build of the application.
QString Current();

// True when candidate is a later version than current, compared number by
// number ("1.10" is later than "1.9", "1.2" equals "1.2.0"). A candidate
// that does not start with a number is never later.
bool IsNewer(const QString& candidate, const QString& current);

}  // namespace LmVersion
