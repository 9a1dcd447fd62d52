#pragma once

#include "base/Path.h"

#include <sys/types.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor::test {

/// A program that runs in the background and is ended with the test in all cases.
class BackgroundProgram {
  public:
    using Environment = std::map<std::string, std::string>;

    struct Setting {
        Environment environment = {};    ///< added to the test's own
        bool hasOnlyEnvironment = false; ///< without the test's own
        Path output = {};                ///< standard output; default: the test's own
        Path errors = {};                ///< standard error; default: the test's own
        int keepOpen = -1;               ///< a descriptor that the program inherits, or -1
    };

    explicit BackgroundProgram(const std::vector<std::string>& words)
        : BackgroundProgram(words, Setting{}) {}
    /// Throws if it cannot be started.
    BackgroundProgram(const std::vector<std::string>& words, const Setting& setting);
    /// Terminates it, so that it can clean up, and kills it after a timeout.
    ~BackgroundProgram();
    BackgroundProgram(const BackgroundProgram&) = delete;
    BackgroundProgram& operator=(const BackgroundProgram&) = delete;

    void signal(int number) const;
    /// Kills it and waits for its end.
    void kill();

    /// Waits for its end, at most 30 seconds. Returns the exit status, -1 if a signal ended it, or
    /// nullopt if it still runs.
    std::optional<int> end();

  private:
    bool endsWithin(int milliseconds) const;

    pid_t m_process = -1;
};

/// Polls the condition for at most 30 seconds. Returns false on timeout.
bool eventually(const std::function<bool()>& condition);

/// True if a program accepts connections on that Unix socket.
bool listensAt(const Path& socket);

} // namespace vexmoor::test
