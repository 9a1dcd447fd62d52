#pragma once

#include "base/Result.h"
#include "disposal/WorkMeter.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vexmoor {

/// What a removal came to.
struct RemovalReport {
    static constexpr std::size_t kMaxFailures = 8;

    std::int64_t removed = 0;
    /// Entries that are still there, folders kept only by their contents included; what is inside
    /// a folder that could not be entered is not known and not counted.
    std::int64_t remaining = 0;
    /// The first causes, with paths that begin with the name given; such folders are no cause.
    std::vector<Error> failures;
    /// The meter asked to stop: there is more than what is counted in `remaining`.
    bool stopped = false;
};

/// Removes `name` in the directory, with all that is in it, beyond recovery. Follows no links,
/// enters no other mount (EXDEV), and is safe against a tree that changes meanwhile. A folder of
/// ours whose permissions are in the way is given them. Goes on after a failure, but touches
/// nothing inside a folder that may not be removed itself. Entries that others remove meanwhile are
/// no failure; a `name` that does not exist is one (ENOENT). The meter counts what has been
/// removed, and no bytes. Any thread.
RemovalReport removeTree(int directory, const char* name, WorkMeter* meter = nullptr);

} // namespace vexmoor
