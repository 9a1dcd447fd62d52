#pragma once

#include <chrono>
#include <compare>
#include <functional>

namespace vexmoor {

/// A moment, in seconds since 2001-01-01 00:00:00 UTC: the form in which records store it.
struct Date {
    double secondsSinceReference = 0;

    static constexpr double kReferenceUnixSeconds = 978307200;

    static constexpr Date fromUnix(double seconds) { return {seconds - kReferenceUnixSeconds}; }
    [[nodiscard]] constexpr double unixSeconds() const {
        return secondsSinceReference + kReferenceUnixSeconds;
    }

    /// The system clock's moment.
    static Date now() {
        return fromUnix(
            std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch())
                .count());
    }

    auto operator<=>(const Date&) const = default;
};

/// Tells the present moment; Date::now outside tests.
using Clock = std::function<Date()>;

} // namespace vexmoor
