#pragma once

#include "base/Path.h"

#include <optional>
#include <string_view>

namespace vexmoor {

/// An executable file of that name in an absolute folder of the search path (PATH).
std::optional<Path> programOnSearchPath(std::string_view name, std::string_view searchPath);

/// The path by which this program is best called from elsewhere: that of the search path where it
/// leads here, since it outlives an update; else its own.
Path ownProgram();

/// The command line: this program itself, or the one installed beside the desktop application.
Path commandLineProgram();

/// The desktop application: the one installed beside this program, else that of the search path.
std::optional<Path> desktopProgram();

} // namespace vexmoor
