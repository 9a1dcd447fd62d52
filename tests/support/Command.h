#pragma once

#include "base/FileDescriptor.h"
#include "base/Path.h"

#include <sys/types.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor::test {

/// Runs a program as a user would, without a shell: its arguments, folder, environment and input
/// are given, what it prints is caught. The environment is the test's own with changes.
class Command {
  public:
    struct Result {
        int status = -1; ///< exit status; -1 where a signal ended it
        int signal = 0;
        std::string output;
        std::string errors; ///< on a terminal all is output
    };
    class Running;

    explicit Command(std::vector<std::string> words) : m_words(std::move(words)) {}

    /// Whether such a program is on the search path.
    static bool exists(const std::string& program);

    Command& in(const Path& folder);
    /// Removes the folder when it stands in it, before the program starts.
    Command& removingItsFolder();
    Command& with(const std::string& variable, const std::string& value);
    /// Leaves the test's own environment out, all but what sanitizers read.
    Command& withNothingElse();
    Command& input(std::string bytes);
    Command& asUser(uid_t user);

    /// Waits for its end. Throws where it cannot be started.
    [[nodiscard]] Result run() const;
    [[nodiscard]] Running start() const;

    /// Sends it the signal when its main thread comes back from its `count`-th system call of that
    /// number, before it does anything else. Nothing where it made fewer or cannot be traced.
    [[nodiscard]] std::optional<Result> runUntilCall(long call, int count, int signal) const;

    /// Runs it on a terminal of its own, on which the text has been typed already.
    [[nodiscard]] Result runOnTerminal(const std::string& typed) const;

  private:
    enum class Kind { plain, traced, onTerminal };
    [[nodiscard]] Running start(Kind kind) const;
    [[nodiscard]] pid_t fork(Kind kind, int input, int output, int errors) const;
    void enterItsSurroundings() const;
    [[noreturn]] void becomeTheProgram() const;

    std::vector<std::string> m_words;
    Path m_folder;
    bool m_removesItsFolder = false;
    bool m_hasNothingElse = false;
    std::map<std::string, std::string> m_environment;
    std::string m_input;
    std::optional<uid_t> m_user;
};

/// A program that runs. It is killed where nobody waited for its end.
class Command::Running {
  public:
    Running(pid_t process, FileDescriptor output, FileDescriptor errors)
        : m_process(process), m_output(std::move(output)), m_errors(std::move(errors)) {}
    Running(Running&& other) noexcept;
    Running& operator=(Running&&) = delete;
    ~Running();

    [[nodiscard]] pid_t process() const { return m_process; }
    void signal(int number) const;
    [[nodiscard]] bool endsWithin(std::chrono::microseconds time) const;
    /// What it has written to its standard error so far.
    [[nodiscard]] std::string errors() const;
    Result wait();

  private:
    pid_t m_process;
    FileDescriptor m_output;
    FileDescriptor m_errors;
};

} // namespace vexmoor::test
