#pragma once

#include <cstdint>

namespace vexmoor {

/// The totals of one calendar day.
struct DayTally {
    std::int64_t count = 0;
    std::int64_t bytes = 0;

    bool operator==(const DayTally&) const = default;
};

} // namespace vexmoor
