#pragma once

#include "base/FileDescriptor.h"
#include "base/Path.h"

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
        std::string errors;
    };

    explicit Command(std::vector<std::string> words) : m_words(std::move(words)) {}

    /// Whether such a program is on the search path.
    static bool exists(const std::string& program);

    Command& in(const Path& folder);
    Command& with(const std::string& variable, const std::string& value);
    Command& without(const std::string& variable);
    Command& input(std::string bytes);

    /// Waits for its end. Throws where it cannot be started.
    [[nodiscard]] Result run() const { return run(std::nullopt, 0); }

    /// Sends it the signal when the time is over, if it still runs then, and waits for its end.
    [[nodiscard]] Result runAndSignal(std::chrono::microseconds after, int signal) const {
        return run(after, signal);
    }

  private:
    [[nodiscard]] Result run(std::optional<std::chrono::microseconds> after, int signal) const;
    [[noreturn]] void become(int input, int output, int errors) const;

    std::vector<std::string> m_words;
    Path m_folder;
    std::map<std::string, std::optional<std::string>> m_environment;
    std::string m_input;
};

} // namespace vexmoor::test
