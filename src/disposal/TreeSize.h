#pragma once

#include "disposal/WorkMeter.h"

#include <cstdint>

namespace vexmoor {

/// The bytes that `name` in the directory occupies on disk: of a folder, the sum of all entries
/// below that are not folders themselves. Links are not followed, what is mounted inside adds
/// nothing, a hard link counts at every place where it is met, what cannot be read counts 0. Asked
/// to stop by the meter, the sum so far. Any thread.
std::int64_t treeSize(int directory, const char* name, WorkMeter* meter = nullptr);

/// Whether something is mounted below `name` in the directory, for where the system does not list
/// its mounts. Any thread.
bool treeHoldsMount(int directory, const char* name);

} // namespace vexmoor
