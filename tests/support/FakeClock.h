#pragma once

#include "base/Date.h"

#include <string>

namespace vexmoor::test {

/// The moment "2024-03-31 12:00:00" in UTC; throws when the text has another form.
Date utc(const std::string& text);

/// A clock that stands until it is set.
struct FakeClock {
    Date now;

    [[nodiscard]] Clock clock() const {
        return [this] { return now; };
    }
};

} // namespace vexmoor::test
