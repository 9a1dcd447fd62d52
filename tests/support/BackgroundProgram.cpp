#include "BackgroundProgram.h"

#include "base/FileDescriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <cstring>
#include <stdexcept>
#include <utility>

extern char** environ;

namespace vexmoor::test {

namespace {

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> variablesOf(const BackgroundProgram::Setting& setting) {
    std::vector<std::string> result;
    if (!setting.hasOnlyEnvironment) {
        for (char** variable = environ; *variable != nullptr; ++variable) {
            const std::string text = *variable;
            if (!setting.environment.contains(text.substr(0, text.find('='))))
                result.push_back(text);
        }
    }
    for (const auto& [name, value] : setting.environment)
        result.push_back(name + "=" + value);
    return result;
}

FileDescriptor opened(const Path& file) {
    if (file.empty())
        return FileDescriptor(-1);
    FileDescriptor descriptor(::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    if (!descriptor)
        throw std::runtime_error("cannot write " + file.string());
    return descriptor;
}

} // namespace

BackgroundProgram::BackgroundProgram(const std::vector<std::string>& words,
                                     const Setting& setting) {
    std::vector<std::string> arguments = words;
    std::vector<std::string> variables = variablesOf(setting);
    const std::vector<char*> argumentPointers = pointersTo(arguments);
    const std::vector<char*> variablePointers = pointersTo(variables);
    const FileDescriptor output = opened(setting.output);
    const FileDescriptor errors = opened(setting.errors);
    const pid_t parent = getpid();
    m_process = fork();
    if (m_process < 0)
        throw std::runtime_error("cannot fork");
    if (m_process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL); // a crashed test leaves no processes behind
        if (getppid() != parent)
            _exit(126);
        if (output)
            dup2(output.get(), STDOUT_FILENO);
        if (errors)
            dup2(errors.get(), STDERR_FILENO);
        if (setting.keepOpen >= 0)
            fcntl(setting.keepOpen, F_SETFD, 0);
        execvpe(argumentPointers[0], argumentPointers.data(), variablePointers.data());
        _exit(127);
    }
}

BackgroundProgram::~BackgroundProgram() {
    constexpr int kTimeout = 2000; // milliseconds
    signal(SIGTERM);
    signal(SIGCONT); // in case it was stopped
    endsWithin(kTimeout);
    kill();
}

bool BackgroundProgram::endsWithin(int milliseconds) const {
    const FileDescriptor handle(
        m_process > 0 ? static_cast<int>(syscall(SYS_pidfd_open, m_process, 0)) : -1);
    pollfd watched{handle.get(), POLLIN, 0};
    return handle && ::poll(&watched, 1, milliseconds) == 1;
}

std::optional<int> BackgroundProgram::end() {
    constexpr int kTimeout = 30000; // milliseconds
    int status = 0;
    if (!endsWithin(kTimeout) || waitpid(std::exchange(m_process, -1), &status, 0) < 0)
        return std::nullopt;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void BackgroundProgram::signal(int number) const {
    if (m_process > 0)
        ::kill(m_process, number);
}

void BackgroundProgram::kill() {
    signal(SIGKILL);
    if (m_process > 0)
        waitpid(m_process, nullptr, 0);
    m_process = -1;
}

bool eventually(const std::function<bool()>& condition) {
    constexpr int kPause = 5; // milliseconds between two checks
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        ::poll(nullptr, 0, kPause);
    }
    return true;
}

bool listensAt(const Path& socket) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (socket.native().size() >= sizeof address.sun_path)
        throw std::runtime_error("too long for a socket: " + socket.string());
    std::memcpy(address.sun_path, socket.c_str(), socket.native().size());
    const FileDescriptor end(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return ::connect(end.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

} // namespace vexmoor::test
