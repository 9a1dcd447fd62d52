#pragma once

#include "support/TemporaryDirectory.h"
#include "support/XDisplay.h"

#include <optional>
#include <string>

namespace vexmoor::test {

/// A private X display, with this process's environment set to use it and nothing else of the
/// user's session.
class XSession {
  public:
    static std::optional<std::string> missing() { return XDisplay::missing(); }

    /// `size` is width x height. Throws if the display does not start.
    explicit XSession(const std::string& size = "1280x800");

    void startCompositor() { m_display->startCompositor(); }
    void endCompositor() { m_display->endCompositor(); }

  private:
    TemporaryDirectory m_home;
    std::optional<XDisplay> m_display;
};

} // namespace vexmoor::test
