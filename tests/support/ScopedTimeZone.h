#pragma once

#include <optional>
#include <string>

namespace vexmoor::test {

/// Puts the process into a time zone (a name of the zone database) and back at the end.
class ScopedTimeZone {
  public:
    /// Throws where the zone is not known, since the C library would silently take UTC.
    explicit ScopedTimeZone(const std::string& zone);
    ~ScopedTimeZone();
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

  private:
    std::optional<std::string> m_before;
};

} // namespace vexmoor::test
