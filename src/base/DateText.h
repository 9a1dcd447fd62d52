#pragma once

#include "base/Date.h"

#include <string>

// These functions format dates in the local time zone and the user's locale. JSON never uses them.

namespace vexmoor {

/// Returns a date, for example "2026-03-14".
std::string dateText(Date date);

/// Returns a date and a time of day, for example "2026-03-14 22:04".
std::string dateTimeText(Date date);

/// Returns an abbreviated weekday, for example "Sat".
std::string weekdayText(Date date);

} // namespace vexmoor
