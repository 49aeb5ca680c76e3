#include "LmLicenceState.h"

namespace LmLicenceState {

EState StateOn(bool bHeld, const QDate& lastValidDay, const QDate& today)
{
    if (!bHeld || !lastValidDay.isValid())
        return EState::Missing;
    const qint64 daysLeft = today.daysTo(lastValidDay);
    if (daysLeft < 0)
        return EState::Expired;
    return daysLeft <= ExpiringDays ? EState::Expiring : EState::Valid;
}

}  // namespace LmLicenceState
