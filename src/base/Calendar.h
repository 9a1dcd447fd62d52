#pragma once

#include "base/Date.h"

#include <optional>

namespace vexmoor {

/// The user's calendar: Gregorian days in the process's local time zone (TZ). A day starts at the
/// first moment of its local date, which is not always midnight. Thread-safe.
class Calendar {
  public:
    /// Returns the first moment of the local day that contains `date`.
    [[nodiscard]] Date startOfDay(Date date) const;

    /// Returns the start of the day `days` calendar days after the day of `date`; `days` may be
    /// negative.
    [[nodiscard]] Date startOfDay(Date date, int days) const;

    /// Returns the number of calendar days from the day of `from` to the day of `to`, negative if
    /// `to` is earlier. Returns nullopt if a date is out of the calendar's range.
    [[nodiscard]] std::optional<int> daysBetween(Date from, Date to) const;
};

} // namespace vexmoor
