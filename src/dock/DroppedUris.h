#pragma once

#include "base/Path.h"

#include <string_view>
#include <vector>

namespace vexmoor {

/// The content of a text/uri-list: local items, and the number of items that are not local.
struct DroppedUris {
    std::vector<Path> items;
    int others = 0;

    /// Ignores empty lines and comments. Accepts any line endings.
    static DroppedUris fromList(std::string_view list);
};

} // namespace vexmoor
