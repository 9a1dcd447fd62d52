#pragma once

#include "base/Path.h"

#include <optional>

namespace vexmoor {

/// The path by which this program is best called from elsewhere: that of the search path where it
/// leads here, since it outlives an update; else its own.
Path ownProgram();

/// The desktop application: the one installed beside this program, else that of the search path.
std::optional<Path> desktopProgram();

} // namespace vexmoor
