#pragma once

#include "base/Path.h"

#include <string>
#include <vector>

namespace vexmoor {

/// The desktop program's command line.
struct LaunchOptions {
    bool probe = false;
    bool describe = false;
    bool version = false;
    bool help = false;
    bool background = false; ///< open no window
    std::vector<Path> items; ///< absolute paths to feed
    int others = 0;          ///< number of URIs that are not on this computer
    std::string startup;     ///< the launcher's startup id; may be empty
    std::string unknown;     ///< the first unknown option; empty if there is none

    /// Resolves relative paths against `folder`. Accepts file URIs. Arguments after "--" are paths.
    static LaunchOptions fromArguments(const std::vector<std::string>& arguments,
                                       const Path& folder);

    static std::string helpText();
};

} // namespace vexmoor
