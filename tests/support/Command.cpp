#include "Command.h"

#include "support/CallTrace.h"

#include <fcntl.h>
#include <grp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <system_error>

namespace vexmoor::test {

namespace {

constexpr int kCannotEnter = 126;
constexpr int kCannotStart = 127;

template <typename Number>
Number checked(Number result, const char* what) {
    if (result < 0)
        throw std::system_error(errno, std::generic_category(), what);
    return result;
}

/// A memory file: unlike a pipe, it never blocks the writer.
FileDescriptor memoryFile(std::string_view bytes) {
    FileDescriptor file(checked(memfd_create("stream", MFD_CLOEXEC), "memfd_create"));
    while (!bytes.empty())
        bytes.remove_prefix(static_cast<std::size_t>(
            checked(write(file.get(), bytes.data(), bytes.size()), "write")));
    lseek(file.get(), 0, SEEK_SET);
    return file;
}

std::string readFrom(const FileDescriptor& file) {
    std::string bytes;
    char buffer[65536];
    for (ssize_t count = 0; (count = read(file.get(), buffer, sizeof buffer)) > 0;)
        bytes.append(buffer, static_cast<std::size_t>(count));
    return bytes;
}

Command::Result resultOf(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    Command::Result result;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return result;
}

void forgetEnvironment() {
    std::map<std::string, std::string> kept;
    for (const char* const name : {"ASAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS"})
        if (const char* const value = std::getenv(name))
            kept[name] = value;
    clearenv();
    for (const auto& [name, value] : kept)
        setenv(name.c_str(), value.c_str(), 1);
}

} // namespace

bool Command::exists(const std::string& program) {
    std::istringstream folders(std::getenv("PATH"));
    for (std::string folder; std::getline(folders, folder, ':');)
        if (access((Path(folder) / program).c_str(), X_OK) == 0)
            return true;
    return false;
}

Command& Command::in(const Path& folder) {
    m_folder = folder;
    return *this;
}

Command& Command::removingItsFolder() {
    m_removesItsFolder = true;
    return *this;
}

Command& Command::with(const std::string& variable, const std::string& value) {
    m_environment[variable] = value;
    return *this;
}

Command& Command::withNothingElse() {
    m_hasNothingElse = true;
    return *this;
}

Command& Command::input(std::string bytes) {
    m_input = std::move(bytes);
    return *this;
}

Command& Command::asUser(uid_t user) {
    m_user = user;
    return *this;
}

Command::Result Command::run() const {
    return start().wait();
}

Command::Running Command::start() const {
    return start(Kind::plain);
}

std::optional<Command::Result> Command::runUntilCall(long call, int count, int signal) const {
    auto running = start(Kind::traced);
    if (!signalAfterCall(running.process(), call, count, signal))
        return std::nullopt;
    return running.wait();
}

Command::Result Command::runOnTerminal(const std::string& typed) const {
    const FileDescriptor keyboard(checked(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "openpt"));
    checked(grantpt(keyboard.get()), "grantpt");
    checked(unlockpt(keyboard.get()), "unlockpt");
    FileDescriptor terminal(
        checked(open(ptsname(keyboard.get()), O_RDWR | O_NOCTTY | O_CLOEXEC), "open"));
    checked(write(keyboard.get(), typed.data(), typed.size()), "write");
    const pid_t process = fork(Kind::onTerminal, terminal.get(), terminal.get(), terminal.get());
    terminal.reset();
    std::string output = readFrom(keyboard); // ends when the last process closes the terminal
    auto result = resultOf(process);
    result.output = std::move(output);
    return result;
}

Command::Running Command::start(Kind kind) const {
    const auto input = memoryFile(m_input);
    auto output = memoryFile("");
    auto errors = memoryFile("");
    const pid_t process = fork(kind, input.get(), output.get(), errors.get());
    return {process, std::move(output), std::move(errors)};
}

pid_t Command::fork(Kind kind, int input, int output, int errors) const {
    const pid_t process = checked(::fork(), "fork");
    if (process != 0)
        return process;
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(errors, STDERR_FILENO);
    if (kind == Kind::onTerminal) {
        setsid();
        ioctl(STDIN_FILENO, TIOCSCTTY, 0);
    }
    enterItsSurroundings();
    if (kind == Kind::traced)
        letParentTrace();
    becomeTheProgram();
}

void Command::enterItsSurroundings() const {
    if ((!m_folder.empty() && chdir(m_folder.c_str()) != 0) ||
        (m_removesItsFolder && rmdir(m_folder.c_str()) != 0) ||
        (m_user && (setgroups(0, nullptr) != 0 || setgid(*m_user) != 0 || setuid(*m_user) != 0))) {
        std::perror("the surroundings");
        _exit(kCannotEnter);
    }
    if (m_hasNothingElse)
        forgetEnvironment();
    for (const auto& [variable, value] : m_environment)
        setenv(variable.c_str(), value.c_str(), 1);
}

void Command::becomeTheProgram() const {
    std::vector<char*> arguments;
    for (const auto& word : m_words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    std::perror(arguments[0]);
    _exit(kCannotStart);
}

Command::Running::Running(Running&& other) noexcept
    : m_process(std::exchange(other.m_process, -1)), m_output(std::move(other.m_output)),
      m_errors(std::move(other.m_errors)) {}

Command::Running::~Running() {
    if (m_process < 0)
        return;
    kill(m_process, SIGKILL);
    resultOf(m_process);
}

void Command::Running::signal(int number) const {
    checked(kill(m_process, number), "kill");
}

bool Command::Running::endsWithin(std::chrono::microseconds time) const {
    const FileDescriptor handle(
        checked(static_cast<int>(syscall(SYS_pidfd_open, m_process, 0)), "pidfd_open"));
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    const timespec limit{seconds.count(), std::chrono::nanoseconds(time - seconds).count()};
    pollfd watched{handle.get(), POLLIN, 0};
    return ppoll(&watched, 1, &limit, nullptr) > 0;
}

std::string Command::Running::errors() const {
    std::string bytes(65536, '\0');
    const auto count = pread(m_errors.get(), bytes.data(), bytes.size(), 0);
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return bytes;
}

Command::Result Command::Running::wait() {
    auto result = resultOf(std::exchange(m_process, -1));
    lseek(m_output.get(), 0, SEEK_SET);
    lseek(m_errors.get(), 0, SEEK_SET);
    result.output = readFrom(m_output);
    result.errors = readFrom(m_errors);
    return result;
}

} // namespace vexmoor::test
