#include "XDisplay.h"

#include "support/Command.h"

#include "base/FileDescriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>

namespace vexmoor::test {
namespace {

/// Returns the display number, which the server writes once it accepts connections.
std::string displayFrom(int pipe) {
    std::string number;
    for (char byte = 0; read(pipe, &byte, 1) == 1 && byte != '\n';)
        number += byte;
    if (number.empty())
        throw std::runtime_error("the X server did not start");
    return ":" + number;
}

/// Starts the window manager and waits until it manages windows: it may miss a window that is
/// mapped during its start.
std::unique_ptr<BackgroundProgram> startedManager(const std::string& fifo,
                                                  const BackgroundProgram::Setting& surroundings) {
    if (mkfifo(fifo.c_str(), S_IRUSR | S_IWUSR) != 0)
        throw std::runtime_error("no fifo");
    const FileDescriptor started(open(fifo.c_str(), O_RDWR | O_CLOEXEC));
    auto manager = std::make_unique<BackgroundProgram>(
        std::vector<std::string>{"openbox", "--sm-disable", "--startup",
                                 "sh -c 'echo started >" + fifo + "'"},
        surroundings);
    constexpr int kTimeoutMilliseconds = 20000;
    pollfd wait{.fd = started.get(), .events = POLLIN, .revents = 0};
    if (poll(&wait, 1, kTimeoutMilliseconds) != 1)
        throw std::runtime_error("the window manager did not start");
    return manager;
}

} // namespace

std::optional<std::string> XDisplay::missing() {
    for (const char* program : {"Xvfb", "openbox", "picom", "xdotool", "xprop", "xwininfo"})
        if (!Command::exists(program))
            return program;
    return std::nullopt;
}

XDisplay::XDisplay(const std::string& size, const Path& folder,
                   BackgroundProgram::Setting surroundings)
    : m_surroundings(std::move(surroundings)) {
    m_surroundings.output = m_surroundings.errors = "/dev/null";
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    auto setting = m_surroundings;
    setting.keepOpen = ends[1];
    m_server = std::make_unique<BackgroundProgram>(
        std::vector<std::string>{"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0",
                                 size + "x24", "-nolisten", "tcp", "-noreset"},
        setting);
    close(ends[1]);
    m_name = displayFrom(ends[0]);
    close(ends[0]);
    m_surroundings.environment["DISPLAY"] = m_name;
    m_manager = startedManager(folder / "window-manager", m_surroundings);
}

void XDisplay::startCompositor() {
    m_compositor = std::make_unique<BackgroundProgram>(
        std::vector<std::string>{"picom", "--backend", "xrender", "--config", "/dev/null"},
        m_surroundings);
}

} // namespace vexmoor::test
