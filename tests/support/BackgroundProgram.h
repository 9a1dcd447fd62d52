#pragma once

#include "base/Path.h"

#include <sys/types.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace vexmoor::test {

/// A program that runs beside the test and is ended with it, however the test ends. What it prints
/// on its standard output goes to a file, where one is given.
class BackgroundProgram {
  public:
    using Environment = std::map<std::string, std::string>; ///< on top of the test's own

    /// Throws where it cannot be started.
    explicit BackgroundProgram(const std::vector<std::string>& words,
                               const Environment& environment = {}, const Path& output = {});
    ~BackgroundProgram();
    BackgroundProgram(const BackgroundProgram&) = delete;
    BackgroundProgram& operator=(const BackgroundProgram&) = delete;

    void signal(int number) const;
    /// Kills it and waits for its end.
    void kill();

  private:
    pid_t m_process = -1;
};

/// Asks until the condition holds; false when it does not in half a minute.
bool eventually(const std::function<bool()>& condition);

/// Whether somebody takes connections at that Unix socket.
bool listensAt(const Path& socket);

} // namespace vexmoor::test
