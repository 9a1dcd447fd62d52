#include "Command.h"

#include "base/FileDescriptor.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace vexmoor::test {

namespace {

constexpr int kCannotStart = 127;

int checked(int result, const char* what) {
    if (result < 0)
        throw std::system_error(errno, std::generic_category(), what);
    return result;
}

/// A file in memory, which unlike a pipe never fills up.
int memoryFile(std::string_view bytes) {
    const int file = checked(::memfd_create("stream", MFD_CLOEXEC), "memfd_create");
    for (std::string_view rest = bytes; !rest.empty();)
        rest.remove_prefix(static_cast<std::size_t>(
            checked(int(::write(file, rest.data(), rest.size())), "write")));
    ::lseek(file, 0, SEEK_SET);
    return file;
}

std::string readFrom(int file) {
    std::string bytes;
    char buffer[4096];
    for (ssize_t count = 0; (count = ::read(file, buffer, sizeof buffer)) > 0;)
        bytes.append(buffer, static_cast<std::size_t>(count));
    return bytes;
}

int statusOf(int waited) {
    return WIFEXITED(waited) ? WEXITSTATUS(waited) : 128 + WTERMSIG(waited);
}

int waitFor(pid_t process) {
    int waited = 0;
    while (::waitpid(process, &waited, 0) < 0)
        if (errno != EINTR)
            throw std::system_error(errno, std::generic_category(), "waitpid");
    return waited;
}

/// Lets the stopped, traced process run until it is back from its `count`-th such call. False where
/// it ended before, or tracing does not work; `waited` tells how it ended.
bool runUntil(pid_t process, unsigned long call, int count, int& waited) {
    waited = waitFor(process);
    if (!WIFSTOPPED(waited) ||
        ::ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD) != 0)
        return false;
    bool isWanted = false;
    for (long delivered = 0; ::ptrace(PTRACE_SYSCALL, process, nullptr, delivered) == 0;) {
        waited = waitFor(process);
        if (!WIFSTOPPED(waited))
            return false;
        const bool isCall = WSTOPSIG(waited) == (SIGTRAP | 0x80);
        delivered = isCall || WSTOPSIG(waited) == SIGTRAP ? 0 : WSTOPSIG(waited);
        __ptrace_syscall_info information{};
        if (!isCall ||
            ::ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof information, &information) <= 0)
            continue;
        if (information.op == PTRACE_SYSCALL_INFO_ENTRY)
            isWanted = information.entry.nr == call;
        else if (isWanted && --count == 0)
            return true;
    }
    return false;
}

} // namespace

RunningCommand::RunningCommand(RunningCommand&& other) noexcept
    : m_process(std::exchange(other.m_process, -1)), m_output(std::exchange(other.m_output, -1)),
      m_errors(std::exchange(other.m_errors, -1)) {}

RunningCommand::~RunningCommand() {
    if (m_process < 0)
        return;
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
    ::close(m_output);
    ::close(m_errors);
}

void RunningCommand::signal(int number) const {
    checked(::kill(m_process, number), "kill");
}

CommandResult RunningCommand::wait() {
    const int waited = waitFor(std::exchange(m_process, -1));
    const FileDescriptor output(std::exchange(m_output, -1));
    const FileDescriptor errors(std::exchange(m_errors, -1));
    ::lseek(output.get(), 0, SEEK_SET);
    ::lseek(errors.get(), 0, SEEK_SET);
    return {statusOf(waited), readFrom(output.get()), readFrom(errors.get())};
}

Command& Command::environment(std::map<std::string, std::string> variables) {
    m_environment = std::move(variables);
    return *this;
}

Command& Command::alsoEnvironment(const std::string& name, std::string value) {
    m_environment[name] = std::move(value);
    return *this;
}

Command& Command::folder(Path folder) {
    m_folder = std::move(folder);
    return *this;
}

Command& Command::input(std::string text) {
    m_input = std::move(text);
    return *this;
}

Command& Command::user(uid_t user) {
    m_user = user;
    return *this;
}

Command& Command::removingItsFolder() {
    m_removesItsFolder = true;
    return *this;
}

CommandResult Command::run() const {
    return start().wait();
}

RunningCommand Command::start() const {
    const FileDescriptor input(memoryFile(m_input));
    const int output = memoryFile("");
    const int errors = memoryFile("");
    return {fork({input.get(), output, errors}, false, false), output, errors};
}

CommandResult Command::runOnTerminal(const std::string& typed) const {
    const FileDescriptor master(checked(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "openpt"));
    checked(::grantpt(master.get()), "grantpt");
    checked(::unlockpt(master.get()), "unlockpt");
    FileDescriptor terminal(
        checked(::open(::ptsname(master.get()), O_RDWR | O_NOCTTY | O_CLOEXEC), "open"));
    checked(int(::write(master.get(), typed.data(), typed.size())), "write");
    const pid_t process = fork({terminal.get(), terminal.get(), terminal.get()}, true, false);
    terminal.reset();
    std::string output = readFrom(master.get()); // ends with the last who holds the terminal
    return {statusOf(waitFor(process)), std::move(output), ""};
}

std::optional<CommandResult> Command::runUntilCall(long call, int count, int signal) const {
    const FileDescriptor input(memoryFile(m_input));
    const int output = memoryFile("");
    const int errors = memoryFile("");
    RunningCommand running(fork({input.get(), output, errors}, false, true), output, errors);
    int waited = 0;
    if (!runUntil(running.process(), static_cast<unsigned long>(call), count, waited) ||
        ::ptrace(PTRACE_DETACH, running.process(), nullptr, signal) != 0)
        return std::nullopt;
    return running.wait();
}

pid_t Command::fork(const Streams& streams, bool ownsTerminal, bool isTraced) const {
    const pid_t process = checked(::fork(), "fork");
    if (process == 0)
        become(streams, ownsTerminal, isTraced);
    return process;
}

void Command::become(const Streams& streams, bool ownsTerminal, bool isTraced) const {
    if (ownsTerminal) {
        ::setsid();
        ::ioctl(streams.input, TIOCSCTTY, 0);
    }
    ::dup2(streams.input, STDIN_FILENO);
    ::dup2(streams.output, STDOUT_FILENO);
    ::dup2(streams.errors, STDERR_FILENO);
    if (m_folder && ::chdir(m_folder->c_str()) != 0)
        ::_exit(kCannotStart);
    if (m_removesItsFolder && ::rmdir(m_folder->c_str()) != 0)
        ::_exit(kCannotStart);
    if (m_user &&
        (::setgroups(0, nullptr) != 0 || ::setgid(*m_user) != 0 || ::setuid(*m_user) != 0))
        ::_exit(kCannotStart);
    std::vector<char*> arguments;
    for (const auto& argument : m_arguments)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    std::vector<std::string> pairs;
    for (const auto& [name, value] : m_environment)
        pairs.push_back(name + "=" + value);
    std::vector<char*> variables;
    for (const auto& pair : pairs)
        variables.push_back(const_cast<char*>(pair.c_str()));
    variables.push_back(nullptr);
    if (isTraced)
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::execvpe(arguments[0], arguments.data(), variables.data());
    ::_exit(kCannotStart);
}

} // namespace vexmoor::test
