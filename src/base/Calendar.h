#pragma once

#include "base/Date.h"

#include <optional>

namespace vexmoor {

/// The user's calendar: Gregorian days in the process's local time zone (TZ). A day starts at the
/// first moment of its local date, which is not midnight everywhere. Any thread.
class Calendar {
  public:
    /// The first moment of the local day that holds `date`.
    [[nodiscard]] Date startOfDay(Date date) const;

    /// The start of the day `days` (of either sign) calendar days after the day of `date`.
    [[nodiscard]] Date startOfDay(Date date, int days) const;

    /// Whole calendar days from the day of `from` to the day of `to`; negative when `to` is
    /// earlier; nothing when a date lies beyond what the calendar can tell.
    [[nodiscard]] std::optional<int> daysBetween(Date from, Date to) const;
};

} // namespace vexmoor
