#pragma once

#include "base/Path.h"
#include "base/Result.h"

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexmoor {

/// A snapshot of a process.
struct RunningProcess {
    pid_t id = 0;
    std::string program; ///< the name of its executable
    /// Rounded down to a hundredth of a second.
    std::chrono::system_clock::time_point started;
};

// These functions are thread-safe.

/// Returns nullopt if the process does not exist or cannot be inspected.
std::optional<RunningProcess> runningProcess(pid_t id);

/// Returns this user's processes that run one of the programs.
std::vector<RunningProcess> processesOf(std::span<const std::string_view> programs);

/// True if the process has an inotify watch on the folder. A file manager watches each folder that
/// it shows.
bool watchesFolder(pid_t process, const Path& folder);

/// Runs a program and returns its standard output, at most 64 KB. Its standard input is empty;
/// `environment` ("NAME=value") is added to ours. Fails if it cannot be started, exits with a
/// status other than 0, or exceeds `limit`, in which case it is killed.
Result<std::string> outputOf(const Path& program, const std::vector<std::string>& arguments,
                             const std::vector<std::string>& environment,
                             std::chrono::milliseconds limit);

} // namespace vexmoor
