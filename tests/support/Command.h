#pragma once

#include "base/Path.h"

#include <sys/types.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor::test {

/// What came of a program: its exit status, or 128 and the number of the signal that ended it.
struct CommandResult {
    int status = 0;
    std::string output;
    std::string errors; ///< on a terminal both are in `output`
};

/// A child process that runs; it is killed where nobody waited for it.
class RunningCommand {
  public:
    RunningCommand(pid_t process, int output, int errors)
        : m_process(process), m_output(output), m_errors(errors) {}
    RunningCommand(RunningCommand&& other) noexcept;
    RunningCommand& operator=(RunningCommand&&) = delete;
    ~RunningCommand();

    [[nodiscard]] pid_t process() const { return m_process; }
    void signal(int number) const;
    CommandResult wait();

  private:
    pid_t m_process;
    int m_output;
    int m_errors;
};

/// Runs a program with exactly the given environment. Set it up, then run it.
class Command {
  public:
    /// The first argument is the program, looked for in the PATH of the test.
    explicit Command(std::vector<std::string> arguments) : m_arguments(std::move(arguments)) {}

    Command& environment(std::map<std::string, std::string> variables);
    Command& alsoEnvironment(const std::string& name, std::string value);
    Command& folder(Path folder);
    Command& input(std::string text);
    Command& user(uid_t user);
    /// Removes the folder in which the program starts, between entering it and starting.
    Command& removingItsFolder();

    [[nodiscard]] CommandResult run() const;
    [[nodiscard]] RunningCommand start() const;

    /// Runs it on a terminal of its own, on which the text has been typed already.
    [[nodiscard]] CommandResult runOnTerminal(const std::string& typed) const;

    /// Runs it and sends it the signal when it comes back from its `count`-th system call of that
    /// number, before it does anything else. Nothing where tracing is not allowed here.
    [[nodiscard]] std::optional<CommandResult> runUntilCall(long call, int count, int signal) const;

  private:
    struct Streams {
        int input;
        int output;
        int errors;
    };
    [[nodiscard]] pid_t fork(const Streams& streams, bool ownsTerminal, bool isTraced) const;
    [[noreturn]] void become(const Streams& streams, bool ownsTerminal, bool isTraced) const;

    std::vector<std::string> m_arguments;
    std::map<std::string, std::string> m_environment;
    std::optional<Path> m_folder;
    std::string m_input;
    std::optional<uid_t> m_user;
    bool m_removesItsFolder = false;
};

} // namespace vexmoor::test
