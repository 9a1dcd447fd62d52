#pragma once

#include <cstdint>

namespace vexmoor {

/// What one calendar day consumed.
struct DayTally {
    std::int64_t count = 0;
    std::int64_t bytes = 0;

    bool operator==(const DayTally&) const = default;
};

} // namespace vexmoor
