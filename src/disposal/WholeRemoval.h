#pragma once

#include "base/Result.h"
#include "disposal/WorkMeter.h"

#include <string>

namespace vexmoor {

/// Removes the item beyond recovery, a folder with all that is in it; what remains is told in the
/// error: the system's own where it is the item alone, partlyRemoved or stopped with the numbers
/// and the first causes else.
Result<void> removeWhole(int folder, const std::string& name, WorkMeter* meter);

} // namespace vexmoor
