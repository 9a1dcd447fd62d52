#pragma once

#include <optional>
#include <string>

namespace vexmoor::test {

/// Sets the process's time zone (a tz database name) during its lifetime.
class ScopedTimeZone {
  public:
    /// Throws if the zone is unknown, because the C library would silently use UTC.
    explicit ScopedTimeZone(const std::string& zone);
    ~ScopedTimeZone();
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

  private:
    std::optional<std::string> m_before;
};

} // namespace vexmoor::test
