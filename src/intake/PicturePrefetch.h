#pragma once

#include "intake/Ports.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace vexmoor {

/// Pictures of items by their paths.
using ItemPictures = std::map<std::string, PicturePointer>;

/// Asks for a picture of each of these items, and calls `done` with those that came when all have
/// been answered, which may be at once. Main thread.
void prefetchPictures(Thumbnails& thumbnails, const std::vector<Path>& items,
                      std::function<void(ItemPictures)> done);

} // namespace vexmoor
