#pragma once

#include "base/Date.h"

#include <string>

// Moments of the local time zone as people read them, in the user's locale: never for JSON.

namespace vexmoor {

/// "2026-03-14".
std::string dateText(Date date);

/// "2026-03-14 22:04".
std::string dateTimeText(Date date);

/// "Sat".
std::string weekdayText(Date date);

} // namespace vexmoor
