#pragma once

#include "support/BackgroundProgram.h"

#include <memory>
#include <optional>
#include <string>

namespace vexmoor::test {

/// An X display of the test's own with a window manager.
class XDisplay {
  public:
    /// What must be installed for it and is not; nothing where all is there.
    static std::optional<std::string> missing();

    /// `size` is width x height; `surroundings` says how its programs are started, the display
    /// aside; the folder is theirs for sockets. Throws where display or window manager do not come
    /// up.
    XDisplay(const std::string& size, const Path& folder, BackgroundProgram::Setting surroundings);

    /// From a little later on windows can be translucent, until it is ended.
    void startCompositor();
    void endCompositor() { m_compositor.reset(); }

    /// Ends as a server does that crashed.
    void die() { m_server->kill(); }

    /// What DISPLAY must be.
    [[nodiscard]] const std::string& name() const { return m_name; }

  private:
    BackgroundProgram::Setting m_surroundings;
    std::string m_name;
    std::unique_ptr<BackgroundProgram> m_server;
    std::unique_ptr<BackgroundProgram> m_manager;
    std::unique_ptr<BackgroundProgram> m_compositor;
};

} // namespace vexmoor::test
