#pragma once

#include "base/Result.h"
#include "disposal/WorkMeter.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vexmoor {

/// The result of a removal.
struct RemovalReport {
    static constexpr std::size_t kMaxFailures = 8;

    std::int64_t removed = 0;
    /// Entries that remain, including folders that only their contents keep. Excludes the unknown
    /// contents of folders that could not be entered.
    std::int64_t remaining = 0;
    /// The first errors, with paths that begin with the given name; folders that only their
    /// contents keep are not listed.
    std::vector<Error> failures;
    /// Stopped by the meter: more entries exist than `remaining`.
    bool stopped = false;
};

/// Removes `name` and its contents irrecoverably. Follows no links, does not enter other mounts
/// (EXDEV), and is safe if the tree changes concurrently. Adds missing permissions to the user's
/// own folders. Continues after failures, but does not touch the contents of a folder that cannot
/// be removed itself. Entries that other programs remove are no failure; a missing `name` is one
/// (ENOENT). The meter counts removed entries. Thread-safe.
RemovalReport removeTree(int directory, const char* name, WorkMeter* meter = nullptr);

} // namespace vexmoor
