#pragma once

#include "intake/Ports.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace vexmoor {

/// Pictures of items by their paths.
using ItemPictures = std::map<std::string, PicturePointer>;

/// Wants a picture of each of these items, and passes what came once all have been answered: at
/// once, or later. Main thread.
void prefetchPictures(Thumbnails& thumbnails, const std::vector<Path>& items,
                      std::function<void(ItemPictures)> done);

} // namespace vexmoor
