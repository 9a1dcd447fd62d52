#pragma once

#include "base/Path.h"

#include <string_view>
#include <vector>

namespace vexmoor {

/// What a text/uri-list names: the local items, byte for byte, and how many things are not local.
struct DroppedUris {
    std::vector<Path> items;
    int others = 0;

    /// Lines that are empty or comments count as nothing. Lenient about line ends.
    static DroppedUris fromList(std::string_view list);
};

} // namespace vexmoor
