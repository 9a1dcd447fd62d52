#pragma once

#include "disposal/WorkMeter.h"

#include <cstdint>

namespace vexmoor {

/// Returns the bytes that `name` occupies on disk; for a folder, the sum of all entries below that
/// are not folders. Does not follow links or count other mounts; counts a hard link at each
/// occurrence; unreadable entries count as 0. If the meter stops it, returns the sum so far.
/// Thread-safe.
std::int64_t treeSize(int directory, const char* name, WorkMeter* meter = nullptr);

/// True if something is mounted below `name`. Used if the mount table is unavailable. Thread-safe.
bool treeHoldsMount(int directory, const char* name);

} // namespace vexmoor
