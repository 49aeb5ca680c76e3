#pragma once

#include <QDate>

// How a licence stands on a given day. A licence is valid through its last
// day; while that day is ExpiringDays or fewer away it is "expiring", so the crew renews it
// before a survey finds the aircraft locked.
namespace LmLicenceState {

enum class EState { Missing, Valid, Expiring, Expired };

constexpr int ExpiringDays = 30;

// lastValidDay invalid (or bHeld false): Missing.
EState StateOn(bool bHeld, const QDate& lastValidDay, const QDate& today);

}  // namespace LmLicenceState
