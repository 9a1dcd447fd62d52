#pragma once

#include "base/Path.h"

#include <optional>
#include <string_view>

namespace vexmoor {

/// Returns the executable of that name in the first absolute folder of the search path (PATH) that
/// has it.
std::optional<Path> programOnSearchPath(std::string_view name, std::string_view searchPath);

/// Returns the best path to start this program again: its path on the search path if that is the
/// same file, because it survives updates, otherwise its own.
Path ownProgram();

/// Returns the command line program: this one, or the one installed beside the desktop program.
Path commandLineProgram();

/// Returns the desktop program: the one beside this program, otherwise the one on the search path.
std::optional<Path> desktopProgram();

} // namespace vexmoor
