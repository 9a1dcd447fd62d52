#pragma once

#include <chrono>
#include <compare>
#include <functional>

namespace vexmoor {

/// A point in time, in seconds since 2001-01-01 00:00:00 UTC. Records are stored in this form.
struct Date {
    double secondsSinceReference = 0;

    static constexpr double kReferenceUnixSeconds = 978307200;

    static constexpr Date fromUnix(double seconds) { return {seconds - kReferenceUnixSeconds}; }
    [[nodiscard]] constexpr double unixSeconds() const {
        return secondsSinceReference + kReferenceUnixSeconds;
    }

    /// Reads the system clock.
    static Date now() {
        return fromUnix(
            std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch())
                .count());
    }

    auto operator<=>(const Date&) const = default;
};

/// Returns the current time. This is Date::now except in tests.
using Clock = std::function<Date()>;

} // namespace vexmoor
