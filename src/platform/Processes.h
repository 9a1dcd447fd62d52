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

/// A process as it was when it was asked about.
struct RunningProcess {
    pid_t id = 0;
    std::string program; ///< the name of its executable
    /// To a hundredth of a second, rounded down.
    std::chrono::system_clock::time_point started;
};

// Any thread.

/// nullopt if there is no such process, or nothing can be learned of it.
std::optional<RunningProcess> runningProcess(pid_t id);

/// This user's processes that run one of the programs.
std::vector<RunningProcess> processesOf(std::span<const std::string_view> programs);

/// Whether the process asked the system to report changes in that folder, as a file manager does
/// for every folder that it shows.
bool watchesFolder(pid_t process, const Path& folder);

/// What the program prints on its standard output, at most 64 KB of it. It has an empty standard
/// input, and `environment` ("NAME=value") on top of ours. Fails if it cannot be started, ends with
/// another status than 0, or runs longer than `limit`; it is killed then.
Result<std::string> outputOf(const Path& program, const std::vector<std::string>& arguments,
                             const std::vector<std::string>& environment,
                             std::chrono::milliseconds limit);

} // namespace vexmoor
