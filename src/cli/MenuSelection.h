#pragma once

#include <string>
#include <vector>

namespace vexmoor {

/// What a file manager's menu entry or its key means by the paths that it passes.
enum class MenuSelection {
    items,   ///< the paths are selected
    nothing, ///< nothing is selected: no path, or the folder on view
    unknown, ///< it may be the folder on view; it must not be fed
};

/// Some file managers pass the folder on view if nothing is selected. Thunar makes it the working
/// directory then. Dolphin is asked over the session bus, if it is what started us. Of PCManFM-Qt,
/// which cannot be asked, the folders are known whose changes it follows.
MenuSelection menuSelection(const std::vector<std::string>& items);

} // namespace vexmoor
