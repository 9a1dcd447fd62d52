#pragma once

#include "dock/TileChoice.h"

#include <optional>
#include <string>

namespace vexmoor {

/// The tile of the running program.
struct RunningTile {
    bool isShown = false;
    bool isFound = false; ///< in the dock's accessibility tree, so that flames can rise
};

/// Describes the session as a JSON document (docs/dbus.md, Describe), without private data.
/// Requires the application; main thread.
std::string describeSession(const std::optional<RunningTile>& tile);

/// Like describeSession(), without an application, if no display is available: `reason` is
/// "noXwayland" or "noDisplay".
std::string describeMissing(const char* reason);

} // namespace vexmoor
