#pragma once

#include "base/Result.h"
#include "disposal/WorkMeter.h"

#include <string>

namespace vexmoor {

/// Removes the item and its contents irrecoverably. The error describes what remains: the system's
/// error if only the item itself failed, otherwise partlyRemoved or stopped with the count and the
/// first causes.
Result<void> removeWhole(int folder, const std::string& name, WorkMeter* meter);

} // namespace vexmoor
