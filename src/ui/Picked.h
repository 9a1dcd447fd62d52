#pragma once

#include "disposal/Sacrifice.h"

#include <set>
#include <vector>

namespace vexmoor {

/// Returns the picked items that can still be put back or deleted from the Bin, in order.
inline std::vector<Sacrifice> pickedInBin(const std::vector<Sacrifice>& items,
                                          const std::set<Uuid>& picked) {
    std::vector<Sacrifice> found;
    for (const Sacrifice& item : items)
        if (picked.contains(item.id) && item.canRestore())
            found.push_back(item);
    return found;
}

} // namespace vexmoor
