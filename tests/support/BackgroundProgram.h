#pragma once

#include "base/Path.h"

#include <sys/types.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vexmoor::test {

/// A program that runs beside the test and is ended with it, however the test ends.
class BackgroundProgram {
  public:
    using Environment = std::map<std::string, std::string>;

    struct Setting {
        Environment environment = {};    ///< on top of the test's own
        bool hasOnlyEnvironment = false; ///< nothing of the test's own
        Path output = {};  ///< where its standard output goes; the test's own where none is given
        Path errors = {};  ///< the same for what it complains of
        int keepOpen = -1; ///< a descriptor that the program shall have too; -1 for none
    };

    explicit BackgroundProgram(const std::vector<std::string>& words)
        : BackgroundProgram(words, Setting{}) {}
    /// Throws where it cannot be started.
    BackgroundProgram(const std::vector<std::string>& words, const Setting& setting);
    /// Asks it to end, so that it can take away what it left elsewhere; kills it where it does not.
    ~BackgroundProgram();
    BackgroundProgram(const BackgroundProgram&) = delete;
    BackgroundProgram& operator=(const BackgroundProgram&) = delete;

    void signal(int number) const;
    /// Kills it and waits for its end.
    void kill();

    /// Waits until it ended, half a minute at the most: its exit status, -1 where a signal ended
    /// it, nothing where it runs on.
    std::optional<int> end();

  private:
    bool endsWithin(int milliseconds) const;

    pid_t m_process = -1;
};

/// Asks until the condition holds; false when it does not in half a minute.
bool eventually(const std::function<bool()>& condition);

/// Whether somebody takes connections at that Unix socket.
bool listensAt(const Path& socket);

} // namespace vexmoor::test
