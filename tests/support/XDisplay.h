#pragma once

#include "support/BackgroundProgram.h"

#include <memory>
#include <optional>
#include <string>

namespace vexmoor::test {

/// A private X display with a window manager.
class XDisplay {
  public:
    /// Returns the name of a missing package, or nullopt.
    static std::optional<std::string> missing();

    /// `size` is width x height; `surroundings` is how to start its programs; the folder is for
    /// sockets. Throws if the display or the window manager does not start.
    XDisplay(const std::string& size, const Path& folder, BackgroundProgram::Setting surroundings);

    /// Starts a compositor. Windows can be translucent shortly afterwards.
    void startCompositor();
    void endCompositor() { m_compositor.reset(); }

    /// Kills the server, simulating a crash.
    void die() { m_server->kill(); }

    /// Returns the value of DISPLAY.
    [[nodiscard]] const std::string& name() const { return m_name; }

  private:
    BackgroundProgram::Setting m_surroundings;
    std::string m_name;
    std::unique_ptr<BackgroundProgram> m_server;
    std::unique_ptr<BackgroundProgram> m_manager;
    std::unique_ptr<BackgroundProgram> m_compositor;
};

} // namespace vexmoor::test
