#pragma once

#include "support/TemporaryDirectory.h"
#include "support/XDisplay.h"

#include <optional>
#include <string>

namespace vexmoor::test {

/// An X display of the test's own, and this process in an environment that leads to it. Nothing
/// else of the user's session is in that environment.
class XSession {
  public:
    static std::optional<std::string> missing() { return XDisplay::missing(); }

    /// `size` is width x height. Throws where the display does not come up.
    explicit XSession(const std::string& size = "1280x800");

    void startCompositor() { m_display->startCompositor(); }
    void endCompositor() { m_display->endCompositor(); }

  private:
    TemporaryDirectory m_home;
    std::optional<XDisplay> m_display;
};

} // namespace vexmoor::test
