#pragma once

#include "base/Date.h"

#include <string>

namespace vexmoor::test {

/// Parses a UTC time in the form "2024-03-31 12:00:00"; throws for any other text.
Date utc(const std::string& text);

/// A clock that changes only when it is set.
struct FakeClock {
    Date now;

    [[nodiscard]] Clock clock() const {
        return [this] { return now; };
    }
};

} // namespace vexmoor::test
