#include "platform/Processes.h"

#include "base/FileDescriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iterator>

namespace vexmoor {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kLongestOutput = 65536;

Path folderOf(pid_t process) {
    return Path("/proc") / std::to_string(process);
}

std::string contentsOf(const Path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Returns the executable's path without the suffix that Linux adds after an update replaced it.
std::string executableOf(pid_t process) {
    constexpr std::string_view kDeleted = " (deleted)";
    std::error_code code;
    std::string name = fs::read_symlink(folderOf(process) / "exe", code).filename();
    if (name.ends_with(kDeleted))
        name.resize(name.size() - kDeleted.size());
    return name;
}

std::chrono::nanoseconds timeOf(clockid_t clock) {
    timespec time{};
    ::clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// Returns the process's start time in clock ticks since boot: field 22. Field 2 is a name in
/// parentheses that may contain any character.
std::optional<std::int64_t> startTicks(const std::string& stat) {
    auto at = stat.rfind(')');
    for (int field = 2; field < 22 && at != std::string::npos; ++field)
        at = stat.find(' ', at + 1);
    if (at == std::string::npos)
        return std::nullopt;
    std::int64_t ticks = 0;
    const char* const begin = stat.data() + at + 1;
    const auto [end, error] = std::from_chars(begin, stat.data() + stat.size(), ticks);
    return error == std::errc() && end != begin ? std::optional(ticks) : std::nullopt;
}

std::chrono::system_clock::time_point wallTime(std::int64_t ticks) {
    using std::chrono::nanoseconds;
    const nanoseconds sinceStart(ticks * (1'000'000'000 / ::sysconf(_SC_CLK_TCK)));
    const auto systemStart = timeOf(CLOCK_REALTIME) - timeOf(CLOCK_BOOTTIME);
    return std::chrono::system_clock::time_point(
        std::chrono::duration_cast<std::chrono::system_clock::duration>(systemStart + sinceStart));
}

std::optional<pid_t> processNamed(const std::string& name) {
    pid_t id = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), id);
    if (error != std::errc() || end != name.data() + name.size())
        return std::nullopt;
    return id;
}

/// True if the fdinfo text lists an inotify watch of the inode ("inotify wd:3 ino:a77041
/// sdev:..."). The device is not compared, because it differs from stat's device on btrfs.
bool namesWatchOf(const std::string& information, ino_t inode) {
    char wanted[32];
    std::snprintf(wanted, sizeof wanted, " ino:%llx ", static_cast<unsigned long long>(inode));
    return information.find(wanted) != std::string::npos;
}

/// Our environment with some variables replaced, in the form posix_spawn takes.
class ChildEnvironment {
  public:
    explicit ChildEnvironment(const std::vector<std::string>& changes) : m_variables(changes) {
        for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable)
            if (!isChanged(*variable))
                m_variables.emplace_back(*variable);
        m_pointers.reserve(m_variables.size() + 1);
        for (auto& variable : m_variables)
            m_pointers.push_back(variable.data());
        m_pointers.push_back(nullptr);
    }
    char** get() { return m_pointers.data(); }

  private:
    [[nodiscard]] bool isChanged(std::string_view variable) const {
        const auto name = variable.substr(0, variable.find('=') + 1);
        return std::ranges::any_of(m_variables, [&](const auto& change) {
            return std::string_view(change).starts_with(name);
        });
    }

    std::vector<std::string> m_variables;
    std::vector<char*> m_pointers;
};

Result<pid_t> spawn(const Path& program, std::vector<std::string> words,
                    const std::vector<std::string>& environment, int output) {
    words.insert(words.begin(), program.native());
    std::vector<char*> arguments;
    for (auto& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    ChildEnvironment variables(environment);
    const int error = ::posix_spawn(&process, program.c_str(), &actions, nullptr, arguments.data(),
                                    variables.get());
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        return Error::fromErrno(error, "start", program);
    return process;
}

/// Returns false if the deadline passes before the end of the output.
bool readUntil(Clock::time_point deadline, int output, std::string& text) {
    char buffer[4096];
    for (;;) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
        pollfd waiting{output, POLLIN, 0};
        if (left <= 0 || (::poll(&waiting, 1, static_cast<int>(left)) < 0 && errno != EINTR))
            return false;
        if (waiting.revents == 0)
            continue;
        const auto count = ::read(output, buffer, sizeof buffer);
        if (count <= 0)
            return count == 0;
        text.append(buffer, static_cast<std::size_t>(count));
        if (text.size() > kLongestOutput)
            return false;
    }
}

/// Waits for the process to exit, and kills it at the deadline. True if it exited with status 0 in
/// time.
bool endsWell(pid_t process, Clock::time_point deadline) {
    int status = 0;
    pid_t ended = 0;
    while ((ended = ::waitpid(process, &status, WNOHANG)) == 0 && Clock::now() < deadline) {
        constexpr timespec kPause{0, 1'000'000};
        ::nanosleep(&kPause, nullptr);
    }
    if (ended == 0) {
        ::kill(process, SIGKILL);
        while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {
        }
    }
    return ended == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

std::optional<RunningProcess> runningProcess(pid_t id) {
    const auto ticks = startTicks(contentsOf(folderOf(id) / "stat"));
    std::string program = executableOf(id);
    if (!ticks || program.empty())
        return std::nullopt;
    return RunningProcess{id, std::move(program), wallTime(*ticks)};
}

std::vector<RunningProcess> processesOf(std::span<const std::string_view> programs) {
    std::vector<RunningProcess> found;
    std::error_code code;
    for (fs::directory_iterator entry("/proc", code), end; !code && entry != end;
         entry.increment(code)) {
        const auto id = processNamed(entry->path().filename());
        struct stat owner {};
        if (!id || ::stat(entry->path().c_str(), &owner) != 0 || owner.st_uid != ::geteuid() ||
            std::ranges::find(programs, executableOf(*id)) == programs.end())
            continue;
        if (auto process = runningProcess(*id))
            found.push_back(*std::move(process));
    }
    return found;
}

bool watchesFolder(pid_t process, const Path& folder) {
    struct stat found {};
    if (::stat(folder.c_str(), &found) != 0)
        return false;
    std::error_code code;
    for (fs::directory_iterator entry(folderOf(process) / "fdinfo", code), end;
         !code && entry != end; entry.increment(code))
        if (namesWatchOf(contentsOf(entry->path()), found.st_ino))
            return true;
    return false;
}

Result<std::string> outputOf(const Path& program, const std::vector<std::string>& arguments,
                             const std::vector<std::string>& environment,
                             std::chrono::milliseconds limit) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return Error::fromErrno(errno, "start", program);
    const FileDescriptor output(ends[0]);
    FileDescriptor input(ends[1]);
    const auto process = spawn(program, arguments, environment, input.get());
    if (!process)
        return process.error();
    input.reset();
    const auto deadline = Clock::now() + limit;
    std::string text;
    const bool isWhole = readUntil(deadline, output.get(), text);
    if (!endsWell(*process, isWhole ? deadline : Clock::now()))
        return Error::fromErrno(isWhole ? ECHILD : ETIMEDOUT, "run", program);
    return text;
}

} // namespace vexmoor
