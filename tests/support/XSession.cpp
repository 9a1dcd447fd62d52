#include "XSession.h"

#include "Command.h"

#include "base/FileDescriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace vexmoor::test {
namespace {

/// The number that the server chose; it writes it when it can be reached.
std::string displayFrom(int pipe) {
    std::string number;
    for (char byte = 0; read(pipe, &byte, 1) == 1 && byte != '\n';)
        number += byte;
    if (number.empty())
        throw std::runtime_error("the X server did not start");
    return ":" + number;
}

/// Starts the window manager and waits until it manages windows: one that is mapped while it starts
/// may be overlooked.
/// Window managers and compositors speak of much that no test is about.
const BackgroundProgram::Setting kQuiet{.output = "/dev/null", .errors = "/dev/null"};

std::unique_ptr<BackgroundProgram> startedManager(const std::string& fifo) {
    if (mkfifo(fifo.c_str(), S_IRUSR | S_IWUSR) != 0)
        throw std::runtime_error("no fifo");
    const FileDescriptor started(open(fifo.c_str(), O_RDWR | O_CLOEXEC));
    auto manager = std::make_unique<BackgroundProgram>(
        std::vector<std::string>{"openbox", "--sm-disable", "--startup",
                                 "sh -c 'echo started >" + fifo + "'"},
        kQuiet);
    constexpr int kPatienceMilliseconds = 20000;
    pollfd wait{.fd = started.get(), .events = POLLIN, .revents = 0};
    if (poll(&wait, 1, kPatienceMilliseconds) != 1)
        throw std::runtime_error("the window manager did not start");
    return manager;
}

} // namespace

std::optional<std::string> XSession::missing() {
    for (const char* program : {"Xvfb", "openbox", "picom", "xdotool", "xprop", "xwininfo"})
        if (!Command::exists(program))
            return program;
    return std::nullopt;
}

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

    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    m_server = std::make_unique<BackgroundProgram>(
        std::vector<std::string>{"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0",
                                 size + "x24", "-nolisten", "tcp", "-noreset"},
        BackgroundProgram::Setting{
            .output = "/dev/null", .errors = "/dev/null", .keepOpen = ends[1]});
    close(ends[1]);
    m_display = displayFrom(ends[0]);
    close(ends[0]);
    setenv("DISPLAY", m_display.c_str(), 1);

    m_manager = startedManager(runtime + "/window-manager");
}

void XSession::startCompositor() {
    m_compositor = std::make_unique<BackgroundProgram>(
        std::vector<std::string>{"picom", "--backend", "xrender", "--config", "/dev/null"}, kQuiet);
}

} // namespace vexmoor::test
