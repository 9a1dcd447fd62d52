#include "XSession.h"

#include <cstdlib>
#include <filesystem>

namespace vexmoor::test {

XSession::XSession(const std::string& size) {
    const std::string home = m_home.path();
    const std::string runtime = home + "/run";
    std::filesystem::create_directory(runtime);
    std::filesystem::permissions(runtime, std::filesystem::perms::owner_all);
    setenv("HOME", home.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
    setenv("XDG_SESSION_TYPE", "x11", 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    for (const char* other : {"WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XAUTHORITY",
                              "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CURRENT_DESKTOP"})
        unsetenv(other);
    m_display.emplace(size, runtime, BackgroundProgram::Setting{});
    setenv("DISPLAY", m_display->name().c_str(), 1);
}

} // namespace vexmoor::test
