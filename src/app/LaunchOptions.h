#pragma once

#include "base/Path.h"

#include <string>
#include <vector>

namespace vexmoor {

/// What the desktop program was started with.
struct LaunchOptions {
    bool probe = false;
    bool version = false;
    bool help = false;
    bool background = false; ///< no window opens
    std::vector<Path> items; ///< absolute, to be fed
    int others = 0;          ///< named things that are not on this computer
    std::string startup;     ///< the launcher's id of this start; empty where it has none
    std::string unknown;     ///< the first option that is not known; empty where all are

    /// `folder` is what relative paths start from. File URIs are understood. What stands behind
    /// "--" is a path, whatever it looks like.
    static LaunchOptions fromArguments(const std::vector<std::string>& arguments,
                                       const Path& folder);

    static std::string helpText();
};

} // namespace vexmoor
