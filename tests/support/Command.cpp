#include "Command.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace vexmoor::test {

namespace {

using Moment = std::chrono::steady_clock::time_point;

struct Pipe {
    FileDescriptor reading;
    FileDescriptor writing;

    Pipe() {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        reading = FileDescriptor(ends[0]);
        writing = FileDescriptor(ends[1]);
    }
};

/// Takes what there is; closes the pipe at its end.
void drain(FileDescriptor& from, std::string& to) {
    char buffer[65536];
    const ssize_t count = ::read(from.get(), buffer, sizeof buffer);
    if (count > 0)
        to.append(buffer, static_cast<std::size_t>(count));
    else if (count == 0 || errno != EINTR)
        from.reset();
}

int millisecondsUntil(const std::optional<Moment>& moment) {
    if (!moment)
        return -1;
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(*moment - std::chrono::steady_clock::now());
    return std::max(0, static_cast<int>(left.count()));
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

Command& Command::with(const std::string& variable, const std::string& value) {
    m_environment[variable] = value;
    return *this;
}

Command& Command::without(const std::string& variable) {
    m_environment[variable] = std::nullopt;
    return *this;
}

Command& Command::input(std::string bytes) {
    m_input = std::move(bytes);
    return *this;
}

void Command::become(int input, int output, int errors) const {
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(errors, STDERR_FILENO);
    if (!m_folder.empty() && chdir(m_folder.c_str()) != 0)
        _exit(126);
    for (const auto& [variable, value] : m_environment) {
        if (value)
            setenv(variable.c_str(), value->c_str(), 1);
        else
            unsetenv(variable.c_str());
    }
    std::vector<char*> arguments;
    for (const auto& word : m_words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    std::perror(arguments[0]);
    _exit(127);
}

Command::Result Command::run(std::optional<std::chrono::microseconds> after, int signal) const {
    Pipe input;
    Pipe output;
    Pipe errors;
    std::signal(SIGPIPE, SIG_IGN);
    const pid_t child = fork();
    if (child < 0)
        throw std::runtime_error("cannot fork");
    if (child == 0) {
        std::signal(SIGPIPE, SIG_DFL);
        become(input.reading.get(), output.writing.get(), errors.writing.get());
    }
    input.reading.reset();
    output.writing.reset();
    errors.writing.reset();
    std::optional<Moment> moment;
    if (after)
        moment = std::chrono::steady_clock::now() + *after;
    std::string_view rest = m_input;
    Result result;
    while (output.reading || errors.reading) {
        if (rest.empty())
            input.writing.reset();
        pollfd watched[] = {{output.reading.get(), POLLIN, 0},
                            {errors.reading.get(), POLLIN, 0},
                            {input.writing.get(), POLLOUT, 0}};
        if (poll(watched, 3, millisecondsUntil(moment)) == 0 && moment) {
            kill(child, signal);
            moment.reset();
        }
        if (watched[0].revents != 0)
            drain(output.reading, result.output);
        if (watched[1].revents != 0)
            drain(errors.reading, result.errors);
        if (watched[2].revents != 0) {
            const ssize_t count = ::write(input.writing.get(), rest.data(), rest.size());
            rest.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : rest.size());
        }
    }
    int status = 0;
    waitpid(child, &status, 0);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return result;
}

} // namespace vexmoor::test
