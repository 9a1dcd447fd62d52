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

/// Runs a program without a shell, with the given arguments, folder, environment and input, and
/// captures its output. The environment is the test's own with changes.
class Command {
  public:
    struct Result {
        int status = -1; ///< exit status; -1 if a signal ended it
        int signal = 0;
        std::string output;
        std::string errors; ///< empty on a terminal, where everything is output
    };
    class Running;

    explicit Command(std::vector<std::string> words) : m_words(std::move(words)) {}

    /// True if the program is on the search path.
    static bool exists(const std::string& program);

    Command& in(const Path& folder);
    /// Removes the program's current folder before it starts.
    Command& removingItsFolder();
    Command& with(const std::string& variable, const std::string& value);
    /// Omits the test's own environment, except for sanitizer options.
    Command& withNothingElse();
    Command& input(std::string bytes);
    Command& asUser(uid_t user);

    /// Waits for its end. Throws if it cannot be started.
    [[nodiscard]] Result run() const;
    [[nodiscard]] Running start() const;

    /// Sends the signal when the main thread returns from its `count`-th system call with that
    /// number, before it does anything else. Returns nullopt if it made fewer calls or cannot be
    /// traced.
    [[nodiscard]] std::optional<Result> runUntilCall(long call, int count, int signal) const;

    /// Runs the program on its own terminal, on which the text has already been typed.
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

/// A running program. The destructor kills it unless its end was awaited.
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
    /// Returns its standard error output so far.
    [[nodiscard]] std::string errors() const;
    Result wait();

  private:
    pid_t m_process;
    FileDescriptor m_output;
    FileDescriptor m_errors;
};

} // namespace vexmoor::test
