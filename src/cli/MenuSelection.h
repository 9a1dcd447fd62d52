#pragma once

#include <string>
#include <vector>

namespace vexmoor {

/// What the paths passed by a file manager's menu entry or key mean.
enum class MenuSelection {
    items,   ///< the paths are selected
    nothing, ///< nothing is selected: no path, or the displayed folder
    unknown, ///< it may be the displayed folder; it must not be fed
};

/// Some file managers pass the displayed folder if nothing is selected. Thunar makes it the working
/// directory. Dolphin is queried over the session bus if it started this process. PCManFM-Qt cannot
/// be queried; its displayed folders are those that it watches for changes.
MenuSelection menuSelection(const std::vector<std::string>& items);

} // namespace vexmoor
