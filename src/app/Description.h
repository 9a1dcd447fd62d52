#pragma once

#include "dock/TileChoice.h"

#include <optional>
#include <string>

namespace vexmoor {

/// The tile of the program that runs.
struct RunningTile {
    bool isShown = false;
    bool isFound = false; ///< by way of the dock's accessibility tree, so that flames can rise
};

/// What the program sees of the session, as a JSON document (docs/dbus.md, Describe). Nothing
/// private is in it. Needs the application; main thread.
std::string describeSession(const std::optional<RunningTile>& tile);

/// The same without an application, where nothing can be shown: `reason` is "noXwayland" or
/// "noDisplay".
std::string describeMissing(const char* reason);

} // namespace vexmoor
