#pragma once

#include "BackgroundProgram.h"
#include "TemporaryDirectory.h"

#include <memory>
#include <optional>
#include <string>

namespace vexmoor::test {

/// An X display of the test's own with a window manager, and the environment that leads to it.
/// Nothing else of the user's session is in that environment.
class XSession {
  public:
    /// What must be installed for it and is not; nothing where all is there.
    static std::optional<std::string> missing();

    /// Throws where the display or the window manager does not come up. `size` is width x height.
    explicit XSession(const std::string& size = "1280x800");

    /// From a little later on windows can be translucent, until it is ended.
    void startCompositor();
    void endCompositor() { m_compositor.reset(); }

    [[nodiscard]] const std::string& display() const { return m_display; }

  private:
    TemporaryDirectory m_home;
    std::string m_display;
    std::unique_ptr<BackgroundProgram> m_server;
    std::unique_ptr<BackgroundProgram> m_manager;
    std::unique_ptr<BackgroundProgram> m_compositor;
};

} // namespace vexmoor::test
